#include "editor/chighlightedit.h"

#include "app/plaintext.h"
#include "app/textcodecs.h"
#include "editor/lineendings.h"

#include <QFile>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextCodec>
#include <QTimer>

void CHighlightEdit::setTextData(const QByteArray &arrData, bool bKeepModified)
{
    if (bKeepModified)
        m_bKeepModified = isModified();
    m_strCodecName = codecNameForData(m_strCodecName, arrData);
    m_nReturnFormat = detectReturnFormat(arrData, m_nReturnFormat);
    showText(decodeText(codecForName(m_strCodecName), arrData));
    if (bKeepModified)
        QTimer::singleShot(10, this, &CHighlightEdit::onTimeoutKeepModified);
}

void CHighlightEdit::onTimeoutKeepModified()
{
    setModified(m_bKeepModified);
}

void CHighlightEdit::reload()
{
    if (m_strPathFileName.isEmpty())
        return;
    QFile file(m_strPathFileName);
    if (!file.open(QIODevice::ReadOnly)) {
        showMessage(this, QMessageBox::Critical, tr("Fail to open file"),
                    tr("Fail to open file(%1).").arg(m_strPathFileName));
        return;
    }
    const int nLine = textCursor().blockNumber();
    const int nScroll = verticalScrollBar()->value();
    setTextData(file.readAll(), false);
    file.close();

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
    if (m_strPathFileName.isEmpty())
        return;
    QFile file(m_strPathFileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        showMessage(this, QMessageBox::Critical, tr("Fail to open file"),
                    tr("Cannot open file(%1).").arg(m_strPathFileName));
        return;
    }
    // Always UTF-8, unlike reload().
    showText(decodeText(nullptr, file.readAll()));
}

void CHighlightEdit::setCodecName(const QString &strName)
{
    if (strName == m_strCodecName)
        return;
    const QTextCodec *pNew = codecForName(strName);
    if (!pNew)
        return;
    const QTextCodec *pOld = codecForName(m_strCodecName);
    const QByteArray arrData = pOld ? pOld->fromUnicode(plainText()) : plainText().toLatin1();
    const bool bModified = isModified();
    showText(pNew->toUnicode(arrData));
    m_strCodecName = strName;
    setModified(bModified); // The unsaved edits are still there.
}

void CHighlightEdit::markSavedAsUtf8()
{
    m_strCodecName = QStringLiteral("UTF-8");
}

QString CHighlightEdit::getText() const
{
    return withLineEnds(plainText(), m_nReturnFormat);
}

// Undo starts again.
void CHighlightEdit::showText(const QString &strText)
{
    const QString strShown = m_standIns.hide(strText);
    // The gutter takes its width beforehand: a view that changes its width lays out every block.
    m_nLinesToCome = lineCount(strShown);
    updateLineNumberAreaWidth();
    setPlainText(strShown);
    m_nLinesToCome = 0;
    updateLineNumberAreaWidth();
}

// Unlike toPlainText(), keeps no-break spaces and line separators.
QString CHighlightEdit::plainText() const
{
    QString strText = document()->toRawText();
    strText.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
    return m_standIns.restore(strText);
}
