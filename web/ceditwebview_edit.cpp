// Commands on the selection and queries of its format.
#include "web/ceditwebview.h"

#include "web/dataaddresses.h"
#include "web/markup.h"
#include "web/pagescript.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QRegularExpression>
#include <QWebElement>
#include <QWebFrame>
#include <QWebSettings>

// Runs our own script although the page's scripts are off, which stay off.
QVariant CEditWebView::evaluate(const QString &strScript) const
{
    return page()->mainFrame()->documentElement().evaluateJavaScript(strScript);
}

void CEditWebView::setEditable(bool bWanted)
{
    const bool bEditable = bWanted && !m_bFrameset;
    if (page()->isContentEditable() == bEditable)
        return;
    // The web view writes a style of its own into the body, which is no part of the document.
    QWebElement body = page()->mainFrame()->findFirstElement(QStringLiteral("body"));
    const QString strStyle = QStringLiteral("style");
    const bool bHadStyle = body.hasAttribute(strStyle);
    const QString strOld = body.attribute(strStyle);
    page()->setContentEditable(bEditable);
    if (bHadStyle)
        body.setAttribute(strStyle, strOld);
    else if (body.hasAttribute(strStyle))
        body.removeAttribute(strStyle);
}

void CEditWebView::runEditable(const std::function<void()> &command)
{
    const bool bEditable = page()->isContentEditable();
    if (!m_bInSubframe)
        setEditable(true);
    rememberTyped(command);
    setEditable(bEditable);
}

void CEditWebView::triggerEdit(QWebPage::WebAction action)
{
    if ((action == QWebPage::Paste && isPasteTaken()) || (m_editTaker && m_editTaker(action)))
        return;
    const bool bFormat = action == QWebPage::ToggleBold || action == QWebPage::ToggleItalic
        || action == QWebPage::ToggleUnderline;
    if (bFormat)
        beginFormat();
    else
        endStep();
    runEditable([=] { triggerPageAction(action, false); });
}

bool CEditWebView::isPasteTaken() const
{
    return m_pasteTaker && !isSourceShown()
        && m_pasteTaker(QGuiApplication::clipboard()->mimeData());
}

void CEditWebView::insertHtml(const QString &strHtml)
{
    // Inserting nothing would leave the selection in place.
    const QString strCommand =
        strHtml.isEmpty() ? QStringLiteral("delete") : QStringLiteral("insertHTML");
    endStep();
    const QString strSafe = refuseHarmfulData(strHtml); // The state of a loaded page.
    runEditable([&] { evaluate(PageScript::execute(strCommand, strSafe)); });
}

bool CEditWebView::isBold() const
{
    return evaluate(PageScript::queryState(QStringLiteral("bold"))).toBool();
}

bool CEditWebView::isItalic() const
{
    return evaluate(PageScript::queryState(QStringLiteral("italic"))).toBool();
}

bool CEditWebView::isUnderline() const
{
    return evaluate(PageScript::queryState(QStringLiteral("underline"))).toBool();
}

QString CEditWebView::fontName() const
{
    const QString strFamily =
        firstFontFamily(evaluate(PageScript::queryValue(QStringLiteral("fontName"))).toString());
    return strFamily.isEmpty() || strFamily == QLatin1String("-webkit-standard")
        ? settings()->fontFamily(QWebSettings::StandardFont)
        : strFamily;
}

QString CEditWebView::fontSize() const
{
    const QVariant varMark = evaluate(PageScript::queryValue(QStringLiteral("fontSize")));
    if (m_strPendingFontSize.endsWith(QLatin1String("pt")) && varMark == QLatin1String("7"))
        return m_strPendingFontSize.chopped(2);
    double dPixels = evaluate(PageScript::fontPixels()).toDouble();
    if (dPixels <= 0)
        dPixels = settings()->fontSize(QWebSettings::DefaultFontSize);
    const double dPoints = dPixels * 72 / 96; // CSS Values and Units 3, 6.2 Absolute lengths.
    return QString::number(qRound(dPoints * 10) / 10.0);
}

QColor CEditWebView::foreColor() const
{
    return colorFromCss(evaluate(PageScript::queryValue(QStringLiteral("foreColor"))).toString());
}

QColor CEditWebView::backColor() const
{
    return colorFromCss(evaluate(PageScript::queryValue(QStringLiteral("backColor"))).toString());
}

// Formats chosen one after the other for the caret belong together. Ending the step again would
// lose the first.
void CEditWebView::beginFormat()
{
    if (!m_steps.isStarted())
        endStep();
}

void CEditWebView::command(const QString &strName, const QString &strValue)
{
    beginFormat();
    runEditable([&] { evaluate(PageScript::executeStyled(strName, strValue)); });
}

void CEditWebView::setFontName(const QString &strFamily)
{
    QString strName = strFamily.trimmed();
    strName.remove(QLatin1Char('"')).remove(QLatin1Char('\\'));
    // The name is quoted, because it may hold blanks, digits and commas.
    if (!strName.isEmpty())
        command(QStringLiteral("fontName"), QLatin1Char('"') + strName + QLatin1Char('"'));
}

void CEditWebView::setFontSize(const QString &strSize)
{
    static const QRegularExpression regExp(
        QStringLiteral("\\A\\s*([0-9]{1,4}(?:\\.[0-9]{1,3})?)\\s*(pt|px)?\\s*\\z"));
    const QRegularExpressionMatch match = regExp.match(strSize);
    if (!match.hasMatch() || match.captured(1).toDouble() <= 0)
        return;
    const QString strUnit = match.captured(2).isEmpty() ? QStringLiteral("pt") : match.captured(2);
    const QString strCss = match.captured(1) + strUnit;
    const bool bCaret = evaluate(PageScript::isCaret()).toBool();
    m_strPendingFontSize.clear();
    beginFormat();
    runEditable(
        [&] { evaluate(bCaret ? PageScript::markTyping() : PageScript::setFontSize(strCss)); });
    if (bCaret)
        m_strPendingFontSize = strCss;
    else
        emit page()->contentsChanged(); // The source was refreshed with the mark still in the page.
}

void CEditWebView::applyPendingFontSize()
{
    if (m_strPendingFontSize.isEmpty())
        return;
    evaluate(PageScript::sizeTyped(m_strPendingFontSize));
    m_strPendingFontSize.clear();
}

void CEditWebView::setForeColor(const QString &strColor)
{
    if (colorFromCss(strColor).isValid())
        command(QStringLiteral("foreColor"), strColor);
}

void CEditWebView::setBackColor(const QString &strColor)
{
    if (colorFromCss(strColor).isValid())
        command(QStringLiteral("backColor"), strColor);
}
