// Keeps the page's source: the text as it was read, with the changes merged in, and its own editor.
#include "web/ceditwebview.h"

#include "app/textcodecs.h"
#include "web/charset.h"
#include "web/cpagereader.h"
#include "web/csafepage.h"
#include "web/keptlines.h"
#include "web/pageaddresses.h"
#include "web/pageengine.h"

#include <QRegularExpression>
#include <QTextDocument>

void CEditWebView::startNewPage()
{
    setHtml(QStringLiteral("<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n"
                           "<title></title>\n</head>\n<body>\n\n</body>\n</html>\n"));
    if (QTextDocument *pDocument = isSourceShown() ? m_pSourceEdit->document() : nullptr) {
        QTextCursor cursor = pDocument->find(QStringLiteral("<body>"));
        cursor.movePosition(QTextCursor::NextBlock);
        m_pSourceEdit->setTextCursor(cursor);
    }
}

// The source that the page was made from, or is being made from; null if that is not known.
QString CEditWebView::loadedSource() const
{
    const SPageSource &source = safePage()->source();
    QString strSource = m_strGiven;
    if (strSource.isNull() && source.bFile && source.content.hasBytes())
        strSource = source.strText;
    if (strSource.startsWith(QChar(QChar::ByteOrderMark)))
        strSource.remove(0, 1);
    return strSource;
}

// The source as the editor would show it.
QString CEditWebView::readAnew(const QString &strSource) const
{
    if (!m_pReader)
        m_pReader = std::make_unique<CPageReader>();
    return m_pReader->serialised(strSource);
}

// Called when a load has ended. A page that was edited meanwhile cannot be the base, because its
// edits would not count as changes.
void CEditWebView::takeSource(bool bTyped)
{
    const QString strSource = loadedSource();
    const QString strSerialised = bTyped && !strSource.isNull() ? readAnew(strSource) : toHtml();
    m_merge = CPageMerge(strSource.isNull() ? strSerialised : strSource, strSerialised);
    m_strMergedFrom.clear();
}

// Quick means that the source is not checked yet, which is for a moment only.
QString CEditWebView::mergedSource(bool bQuick) const
{
    QString strNow = toHtml();
    if (!hasPageEngine())
        return strNow; // The source exactly as it was given.
    if (strNow == m_strMergedFrom)
        return m_strMerged;
    if (m_merge.serialised().isEmpty()) { // The first load has not ended yet.
        const QString strSource = loadedSource();
        if (strSource.isNull())
            return strNow;
        m_merge = CPageMerge(strSource, readAnew(strSource));
    }
    if (bQuick)
        return m_merge.merged(strNow, CPageMerge::Reader());
    m_strMerged =
        m_merge.merged(strNow, [this](const QString &strSource) { return readAnew(strSource); });
    m_strMergedFrom = strNow;
    return m_strMerged;
}

// The page's source for the file at this address. If the page was loaded from another folder, its
// relative addresses are changed to lead from the new one.
QString CEditWebView::sourceFor(const QUrl &urlFile, bool bQuick) const
{
    return withMovedAddresses(mergedSource(bQuick), url(), urlFile);
}

QByteArray CEditWebView::htmlForSaving(const QString &strTarget) const
{
    const QUrl urlTarget = strTarget.isEmpty() ? fileUrl() : fileUrl(strTarget);
    const QString strSource = isSourceShown() && isSourceEdited()
        ? withMovedAddresses(editedSource(), fileUrl(), urlTarget)
        : sourceFor(urlTarget);
    return declareUtf8(strSource).toUtf8();
}

void CEditWebView::markSaved()
{
    if (!isSourceShown() || !isSourceEdited()) {
        const QString strSaved = declareUtf8(mergedSource());
        m_merge = CPageMerge(strSaved, m_strMergedFrom);
        m_strMerged = strSaved;
    }
    m_bBaseSaved = !isSourceShown() || !isSourceEdited();
    m_strCodec = QStringLiteral("UTF-8"); // The present file, whatever was read before.
    m_bCodecChosen = false;
    endStep();
    setModified(false);
}

void CEditWebView::showSource(bool bShow)
{
    m_bSourceShown = bShow;
    if (bShow)
        clearFocus();
    m_pSourceEdit->setVisible(bShow);
    if (bShow) {
        m_pSourceEdit->setModified(m_bModified);
        pushSource();
        moveSourceCaret();
    }
}

void CEditWebView::applySource(const QString &strHtml)
{
    if (m_pSourceEdit->isModified())
        m_bModified = true;
    m_nCaretToShow = -1;
    if (isSourceEdited() || m_pSourceEdit->textCursor().position() != m_nSourceCaret)
        m_nCaretToShow = m_pSourceEdit->textCursor().position();
    if (isSourceEdited()) {
        const bool bOwn = showsOwnAddress() && !m_strFilePath.isEmpty();
        const bool bChosen = m_pSourceEdit->returnFormat() != m_nPushedFormat;
        showText(bChosen ? strHtml : withKeptLineEnds(m_strPushed, strHtml),
                 bOwn ? fileUrl() : url());
    } else {
        movePageCaret();
    }
    m_nSourceCaret = m_pSourceEdit->textCursor().position();
}

void CEditWebView::readSourceIn(const QString &strCodec)
{
    const QByteArray bytes = encodeText(codecForName(m_strCodec), m_pSourceEdit->rawText());
    const bool bModified = m_pSourceEdit->isModified();
    m_pSourceEdit->setRestoredText(decodeText(codecForName(strCodec), bytes),
                                   m_pSourceEdit->codecName());
    m_pSourceEdit->setModified(bModified);
    m_strCodec = strCodec;
    m_bCodecChosen = true;
}

bool CEditWebView::isSourceEdited() const
{
    return m_pSourceEdit->document()->revision() != m_nPushedRevision
        || m_pSourceEdit->returnFormat() != m_nPushedFormat;
}

QString CEditWebView::editedSource() const
{
    const QString strText = m_pSourceEdit->getText();
    const bool bChosen = m_pSourceEdit->returnFormat() != m_nPushedFormat;
    return bChosen ? strText : withKeptLineEnds(m_strPushed, strText);
}

// The source editor of a background tab is not visible, but a page that finishes loading there must
// reach it as well.
bool CEditWebView::isSourceShown() const
{
    return m_pSourceEdit && (m_pSourceEdit->isVisible() || m_bSourceShown);
}

// Typing does not wait until the source beside it is up to date.
void CEditWebView::pushSourceSoon()
{
    pushSource(true);
    m_timerPush.start();
}

// Changes only the differences to the pushed source in its editor, which is far less work than
// setting a long text. False if that is not possible.
bool CEditWebView::changeSource(const QString &strSource)
{
    const int nCommon = qMin(m_strPushed.size(), strSource.size());
    int nStart = 0;
    while (nStart < nCommon && m_strPushed.at(nStart) == strSource.at(nStart))
        ++nStart;
    int nEnd = 0;
    while (nEnd < nCommon - nStart
           && m_strPushed.at(m_strPushed.size() - 1 - nEnd)
               == strSource.at(strSource.size() - 1 - nEnd))
        ++nEnd;
    const QString strNew = strSource.mid(nStart, strSource.size() - nStart - nEnd);
    const QString strOld = m_strPushed.mid(nStart, m_strPushed.size() - nStart - nEnd);
    // Other line ends, and characters that need stand-ins, are left to the loader.
    static const QRegularExpression regExpSpecial(
        QStringLiteral("[^\\x{20}-\\x{2027}\\x{202A}-\\x{D7FF}]"));
    if (m_strPushed.isEmpty() || strNew.contains(regExpSpecial) || strOld.contains(regExpSpecial))
        return false;
    const int nPosition = nStart - m_strPushed.leftRef(nStart).count(QLatin1String("\r\n"));
    QTextDocument *pDocument = m_pSourceEdit->document();
    pDocument->setUndoRedoEnabled(false); // Typing in the page is undone in the page.
    QTextCursor cursor(pDocument);
    cursor.setPosition(nPosition);
    cursor.setPosition(nPosition + strOld.size(), QTextCursor::KeepAnchor);
    cursor.insertText(strNew);
    pDocument->setUndoRedoEnabled(true);
    return true;
}

// Keeps the source's modified flag. It is restored here and not by the loader's timer, so that a
// key typed right afterwards counts as an edit. No signal tells it, because nothing was typed.
void CEditWebView::pushSource(bool bQuick)
{
    const QString strSource = sourceFor(fileUrl(), bQuick);
    const bool bModified = m_pSourceEdit->isModified();
    // The same text again keeps its caret, its place on the screen and its undo steps.
    if (strSource != (isSourceEdited() ? editedSource() : m_strPushed)) {
        m_nSourceCaret = -1; // It is lost.
        const QSignalBlocker blocker(m_pSourceEdit);
        if (isSourceEdited() || !changeSource(strSource))
            m_pSourceEdit->setTextData(strSource.toUtf8(), false);
        m_pSourceEdit->setModified(bModified);
        m_pSourceEdit->updateLineNumberAreaWidth();
        m_pSourceEdit->update();
    }
    m_strPushed = strSource;
    m_nPushedRevision = m_pSourceEdit->document()->revision();
    m_nPushedFormat = m_pSourceEdit->returnFormat();
}
