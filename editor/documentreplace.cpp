#include "editor/documentreplace.h"

#include "editor/linereplace.h"

#include <QTextDocument>

#include <algorithm>

CDocumentReplacer::CDocumentReplacer(QTextCursor *pEdit, const CLineSearch &search,
                                     const QString &strReplace, const QTextCursor &keep, int nPiece)
    : m_pEdit(pEdit), m_search(search), m_strReplace(strReplace), m_keep(keep), m_nPiece(nPiece)
{
}

int CDocumentReplacer::run()
{
    advance(QDeadlineTimer(QDeadlineTimer::Forever));
    return m_nCount;
}

bool CDocumentReplacer::advance(const QDeadlineTimer &until)
{
    if (!m_bBegun)
        begin();
    while (!isAtEnd()) {
        if (m_search.options().bSearchUp)
            stepUpwards();
        else
            stepForward();
        if (until.hasExpired())
            break;
    }
    return !isAtEnd();
}

void CDocumentReplacer::begin()
{
    m_bBegun = true;
    // Copying the text at once takes a tenth of the time that asking each block takes.
    m_strDocument = m_pEdit->document()->toRawText();
    m_nPlace = m_search.options().bSearchUp ? m_strDocument.length() : 0;
}

bool CDocumentReplacer::isAtEnd() const
{
    return m_search.options().bSearchUp ? m_nPlace < 0 : m_nPlace > m_strDocument.length();
}

int CDocumentReplacer::done() const
{
    const int nPlace = qBound(0, m_nPlace, m_strDocument.length());
    return m_search.options().bSearchUp ? m_strDocument.length() - nPlace : nPlace;
}

void CDocumentReplacer::stepForward()
{
    if (m_nPlace > m_nPieceEnd) {
        const int nWanted = qMin(m_strDocument.length() - m_nPlace, m_nPiece);
        m_nPieceEnd = m_strDocument.indexOf(QChar::ParagraphSeparator, m_nPlace + nWanted);
        if (m_nPieceEnd < 0)
            m_nPieceEnd = m_strDocument.length();
    }
    const QString strLines = QString::fromRawData(m_strDocument.constData(), m_nPieceEnd);
    const SRunMatch found = m_search.findInRun(strLines, m_nPlace);
    if (!found.isValid()) {
        m_nPlace = m_nPieceEnd + 1;
        return;
    }
    const SLineReplacement replacement = replaceLine(found, m_nShift);
    if (!replacement.lstEdits.isEmpty())
        m_nShift += replacement.strText.length() - found.nLineLength;
    m_nPlace = found.nLineStart + found.nLineLength + 1;
}

// The document's last line, and the line before one whose first column matched, are searched from
// after their last character; all others from that character. The difference shows with expressions
// that match the empty text.
void CDocumentReplacer::stepUpwards()
{
    const int nWanted = m_nPlace - m_nPiece;
    const int nStart =
        nWanted > 0 ? m_strDocument.lastIndexOf(QChar::ParagraphSeparator, nWanted - 1) + 1 : 0;
    const int nLength = m_nPlace - nStart;
    const QString strLines = QString::fromRawData(m_strDocument.constData() + nStart, nLength);
    SRunMatch found = m_search.findInRun(strLines, m_bFromLineEnd ? nLength : -1);
    if (!found.isValid()) {
        m_bFromLineEnd = false;
        m_nPlace = nStart - 1;
        return;
    }
    found.nLineStart += nStart;
    m_bFromLineEnd = replaceLine(found, 0).bAtLineStart;
    m_nPlace = found.nLineStart - 1;
}

SLineReplacement CDocumentReplacer::replaceLine(const SRunMatch &found, int nShift)
{
    const QString strLine =
        QString::fromRawData(m_strDocument.constData() + found.nLineStart, found.nLineLength);
    SLineReplacement replacement = replaceInLine(m_search, strLine, found.match, m_strReplace);
    m_nCount += replacement.nMatches;
    if (!replacement.lstEdits.isEmpty())
        apply(nShift + found.nLineStart, found.nLineLength, replacement);
    return replacement;
}

void CDocumentReplacer::apply(int nLineStart, int nLineLength, const SLineReplacement &replacement)
{
    m_bEdited = true;
    // With a given format the cursor does not look up the format at each place.
    const QTextCharFormat format;
    const auto set = [&](int nStart, int nLength, const QString &strText) {
        m_pEdit->setPosition(nStart);
        m_pEdit->setPosition(nStart + nLength, QTextCursor::KeepAnchor);
        m_pEdit->insertText(strText, format);
    };
    if (!isKept(nLineStart, nLineLength)) {
        set(nLineStart, nLineLength, replacement.strText);
        return;
    }
    for (const SLineMatch &edit : replacement.lstEdits)
        set(nLineStart + edit.nStart, edit.nLength, m_strReplace);
}

bool CDocumentReplacer::isKept(int nLineStart, int nLineLength) const
{
    const auto holds = [=](int nPosition) {
        return nPosition >= nLineStart && nPosition <= nLineStart + nLineLength;
    };
    return holds(m_keep.position()) || holds(m_keep.anchor());
}

bool holdsBlockEnd(const QString &strText)
{
    // Qt takes these for ends of paragraphs and frames.
    static const ushort s_arrEnds[] = {'\n', '\r', 0x2029, 0xfdd0, 0xfdd1};
    return std::any_of(strText.cbegin(), strText.cend(), [](QChar c) {
        return std::find(std::begin(s_arrEnds), std::end(s_arrEnds), c.unicode())
            != std::end(s_arrEnds);
    });
}
