#include "editor/chighlightedit.h"

#include "app/xmlguard.h"
#include "editor/contentformat.h"
#include "widgets/messagebox.h"

#include <QMessageBox>
#include <QScrollBar>
#include <QTextBlock>

namespace {

// Language names are compared exactly.
bool isJson(const QString &strLanguage)
{
    return strLanguage == QLatin1String("JSON");
}

bool isFormattedXml(const QString &strLanguage)
{
    return strLanguage == QLatin1String("XML") || strLanguage == QLatin1String("SVG");
}

bool isVerifiedXml(const QString &strLanguage)
{
    return isFormattedXml(strLanguage) || strLanguage == QLatin1String("HTML");
}

} // namespace

bool CHighlightEdit::canVerifyValid() const
{
    return m_pHighlighter && !isReadOnly()
        && (isVerifiedXml(languageName()) || isJson(languageName()));
}

bool CHighlightEdit::canFormatting() const
{
    return m_pHighlighter && !isReadOnly()
        && (isFormattedXml(languageName()) || isJson(languageName()));
}

bool CHighlightEdit::verifyValid()
{
    if (!m_pHighlighter)
        return false;
    QString strFailure;
    SParseResult result;
    if (isVerifiedXml(languageName())) {
        result = parseXml(rawText());
        if (!result.isGood()) {
            strFailure = tr("Line %1, Column %2: %3")
                             .arg(result.nLine)
                             .arg(result.nColumn)
                             .arg(result.strMessage);
        }
    } else if (isJson(languageName())) {
        // The text is never empty, because the parser has a message for success as well, which is
        // shown.
        result = parseJson(rawText());
        strFailure = result.strMessage;
        if (result.nLine > 0)
            tell(tr("Line %1, Column %2").arg(result.nLine).arg(result.nColumn));
    }
    if (strFailure.isEmpty())
        return true;
    goToPlace(result.nLine, result.nColumn);
    showMessage(this, QMessageBox::Warning, tr("Fail to verify valid"), strFailure);
    return false;
}

// Lines and columns count from 1. A place that does not exist becomes the nearest one that does.
// Line 0 is no place.
void CHighlightEdit::goToPlace(int nLine, int nColumn)
{
    if (nLine < 1)
        return;
    const QTextBlock block = document()->findBlockByNumber(qMin(nLine, blockCount()) - 1);
    const int nInBlock = qBound(0, nColumn - 1, block.length() - 1);
    selectRange(block.position() + nInBlock, block.position() + nInBlock, false);
}

bool CHighlightEdit::formatting()
{
    if (!m_pHighlighter || !verifyValid())
        return false;
    if (!canFormatting())
        return true;
    const int nLine = textCursor().blockNumber();
    const int nScroll = verticalScrollBar()->value();
    warnOfReplacing();
    // Formatting is no edit: undo starts again.
    showText(isJson(languageName()) ? formattedJson(rawText()) : formattedXml(rawText()));
    setModified(true);
    goToBlock(qMin(nLine, blockCount() - 1));
    verticalScrollBar()->setValue(nScroll);
    return true;
}
