#include "editor/chighlightedit.h"

#include "app/plaintext.h"
#include "editor/contentformat.h"

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
    return m_pHighlighter && (isVerifiedXml(languageName()) || isJson(languageName()));
}

bool CHighlightEdit::canFormatting() const
{
    return m_pHighlighter && (isFormattedXml(languageName()) || isJson(languageName()));
}

bool CHighlightEdit::verifyValid()
{
    if (!m_pHighlighter)
        return false;
    QString strFailure;
    if (isVerifiedXml(languageName())) {
        const ParseResult result = parseXml(rawText());
        if (!result.isGood()) {
            strFailure = tr("Line %1, Column %2: %3")
                             .arg(result.nLine)
                             .arg(result.nColumn)
                             .arg(result.strMessage);
        }
    } else if (isJson(languageName())) {
        // Never empty: the parser has words for success, too, and they are shown.
        strFailure = jsonErrorText(rawText());
    }
    if (strFailure.isEmpty())
        return true;
    showMessage(this, QMessageBox::Warning, tr("Fail to verify valid"), strFailure);
    return false;
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
    // Not as an edit: undo starts again.
    showText(isJson(languageName()) ? formattedJson(rawText()) : formattedXml(rawText()));
    setModified(true);
    goToBlock(qMin(nLine, blockCount() - 1));
    verticalScrollBar()->setValue(nScroll);
    return true;
}
