#include "editor/chighlightedit.h"

#include "app/codecdetection.h"
#include "app/plaintext.h"
#include "app/textcodecs.h"
#include "editor/lineendings.h"
#include "editor/textreading.h"
#include "highlight/clinestore.h"
#include "highlight/ctextdocument.h"
#include "widgets/messagebox.h"

#include <QMessageBox>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCodec>
#include <QTimer>

void CHighlightEdit::setTextData(const QByteArray &arrData, bool bKeepModified)
{
    if (bKeepModified)
        m_bKeepModified = isModified();
    detectCodecOf(arrData);
    m_nReturnFormat = detectReturnFormat(arrData, m_nReturnFormat);
    showBytes(codecForName(m_strCodecName), arrData);
    if (bKeepModified)
        QTimer::singleShot(10, this, &CHighlightEdit::onTimeoutKeepModified);
}

// Keeps a codec that is already set, if possible.
void CHighlightEdit::detectCodecOf(const QByteArray &arrData)
{
    if (m_strCodecName.isEmpty()) {
        const SDetectedCodec detected = detectCodec(arrData);
        m_strCodecName = detected.strName;
        m_bCodecSure = detected.bSure;
    } else {
        m_strCodecName = codecNameForData(m_strCodecName, arrData);
    }
}

void CHighlightEdit::onTimeoutKeepModified()
{
    setModified(m_bKeepModified);
}

void CHighlightEdit::reload()
{
    if (m_strPathFileName.isEmpty() || isLoading())
        return;
    const SFileContent content = readForEditor(m_strPathFileName);
    if (!content.isWhole()) {
        showMessage(this, QMessageBox::Critical, tr("Fail to open file"),
                    tr("Fail to open file(%1).").arg(visibleName(m_strPathFileName)));
        return;
    }
    warnOfReplacing();
    reloadData(content.bytes);
    emit fileRead(content);
}

void CHighlightEdit::reloadData(const QByteArray &arrData)
{
    const int nLine = textCursor().blockNumber();
    const int nScroll = verticalScrollBar()->value();
    setTextData(arrData, false);
    goBackTo(nLine, nScroll);
}

void CHighlightEdit::goBackTo(int nLine, int nScroll)
{
    QTextBlock block = document()->findBlockByLineNumber(nLine);
    if (!block.isValid()) // The file has become shorter.
        block = document()->lastBlock();
    QTextCursor cursor = textCursor();
    cursor.setPosition(block.position());
    setTextCursor(cursor);
    verticalScrollBar()->setValue(nScroll);
}

void CHighlightEdit::onRefresh()
{
    if (m_strPathFileName.isEmpty() || isLoading())
        return;
    if (isShownInSlices(m_strPathFileName)) {
        refreshInSlices();
        return;
    }
    const SFileContent content = readForEditor(m_strPathFileName);
    if (!content.isWhole()) {
        showMessage(this, QMessageBox::Critical, tr("Fail to open file"),
                    tr("Cannot open file(%1).").arg(visibleName(m_strPathFileName)));
        return;
    }
    warnOfReplacing();
    showBytes(nullptr, readAsText(content.bytes)); // Always UTF-8, unlike reload().
    emit fileRead(content);
}

// Called by steps that drop the text without asking.
void CHighlightEdit::warnOfReplacing()
{
    if (isModified())
        emit textReplacing();
}

void CHighlightEdit::setCodecName(const QString &strName)
{
    if (strName == m_strCodecName)
        return;
    const QTextCodec *pNew = codecForName(strName);
    if (!pNew)
        return;
    const QTextCodec *pOld = codecForName(m_strCodecName);
    const QString strText = rawText();
    const QByteArray arrData = encodeText(pOld, strText);
    if (decodeText(pOld, arrData) != strText)
        warnOfReplacing();
    const bool bModified = isModified();
    const bool bWhole = m_bWhole;
    showBytes(pNew, arrData);
    m_bWhole = m_bWhole && bWhole;
    m_strCodecName = strName;
    m_bCodecSure = true;
    setModified(bModified); // The unsaved edits are still there.
}

void CHighlightEdit::readIn(const QString &strCodec, const QByteArray &arrData)
{
    m_strCodecName = strCodec;
    m_bCodecSure = true;
    showBytes(codecForName(strCodec), arrData);
}

void CHighlightEdit::setRestoredText(const QString &strText, const QString &strCodec)
{
    m_strCodecName = strCodec;
    showText(strText);
    setModified(true);
}

void CHighlightEdit::goToPosition(int nPosition)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(qBound(0, nPosition, document()->characterCount() - 1));
    setTextCursor(cursor);
}

void CHighlightEdit::markSavedAsUtf8()
{
    m_strCodecName = QStringLiteral("UTF-8");
    m_bWhole = true;
    m_bCodecSure = true;
}

QString CHighlightEdit::getText() const
{
    return withLineEnds(rawText(), m_nReturnFormat);
}

void CHighlightEdit::showBytes(const QTextCodec *pCodec, const QByteArray &arrData)
{
    m_bWhole = isWholeText(pCodec, arrData);
    showText(decodeText(pCodec, arrData));
}

// Undo starts again.
void CHighlightEdit::showText(const QString &strText)
{
    stopLoading();
    if (m_bFixed)
        setFixed(false);
    m_bInPieces = false;
    const QString strShown = m_standIns.hide(strText);
    // Sets the gutter's width before, because a view that changes its width lays out every block.
    m_nLinesToCome = lineCount(strShown);
    updateLineNumberAreaWidth();
    leaveCarets();
    m_history.clear();
    setPlainText(strShown);
    m_nLinesToCome = 0;
    updateLineNumberAreaWidth();
}

std::function<QString()> CHighlightEdit::rawTextLater() const
{
    return [stored = m_pDocument->lines()->snapshot(), standIns = m_standIns] {
        return standIns.restore(stored.text());
    };
}

// Keeps no-break spaces and line separators, unlike toPlainText().
QString CHighlightEdit::rawText() const
{
    QString strText = document()->toRawText();
    strText.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return m_standIns.restore(strText);
}
