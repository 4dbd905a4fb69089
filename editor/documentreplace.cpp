#include "editor/documentreplace.h"

#include "editor/linereplace.h"

#include <QTextDocument>

#include <algorithm>

CDocumentReplacer::CDocumentReplacer(QTextCursor *pEdit, const CLineSearch &search,
                                     const QString &strReplace, const QTextCursor &keep)
    : m_pEdit(pEdit), m_search(search), m_strReplace(strReplace), m_keep(keep)
{
}

int CDocumentReplacer::run()
{
    m_nCount = 0;
    // One copy of the text takes a tenth of the time that asking each block for its text would.
    m_strDocument = m_pEdit->document()->toRawText();
    if (m_search.options().bSearchUp)
        runUpwards();
    else
        runForward();
    return m_nCount;
}

void CDocumentReplacer::runForward()
{
    int nShift = 0; // By how much the lines done have become longer.
    int nOffset = 0;
    while (nOffset <= m_strDocument.length()) {
        const RunMatch found = m_search.findInRun(m_strDocument, nOffset);
        if (!found.isValid())
            break;
        const LineReplacement replacement = replaceLine(found, nShift);
        if (!replacement.lstEdits.isEmpty())
            nShift += replacement.strText.length() - found.nLineLength;
        nOffset = found.nLineStart + found.nLineLength + 1;
    }
}

// The document's last line, and the one before a line whose first column matched, are searched from
// behind their last character, all others from that character. Expressions that match nothing tell
// the difference.
void CDocumentReplacer::runUpwards()
{
    bool bFromLineEnd = true;
    int nLength = m_strDocument.length();
    while (nLength >= 0) {
        const QString strLines = QString::fromRawData(m_strDocument.constData(), nLength);
        const RunMatch found = m_search.findInRun(strLines, bFromLineEnd ? nLength : -1);
        if (!found.isValid())
            break;
        bFromLineEnd = replaceLine(found, 0).bAtLineStart;
        nLength = found.nLineStart - 1;
    }
}

LineReplacement CDocumentReplacer::replaceLine(const RunMatch &found, int nShift)
{
    const QString strLine =
        QString::fromRawData(m_strDocument.constData() + found.nLineStart, found.nLineLength);
    LineReplacement replacement = replaceInLine(m_search, strLine, found.match, m_strReplace);
    m_nCount += replacement.nMatches;
    if (!replacement.lstEdits.isEmpty())
        apply(nShift + found.nLineStart, found.nLineLength, replacement);
    return replacement;
}

void CDocumentReplacer::apply(int nLineStart, int nLineLength, const LineReplacement &replacement)
{
    // With the format given, the cursor need not look up the one in force at each place.
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
    for (const LineMatch &edit : replacement.lstEdits)
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
