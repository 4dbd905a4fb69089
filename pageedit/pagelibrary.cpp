#include "pageedit/pagelibrary.h"

#include "web/ceditwebview.h"

#include <QFile>
#include <QWebElement>
#include <QWebFrame>

// The macro works outside of namespaces alone.
static void initScripts()
{
    Q_INIT_RESOURCE(pageedit);
}

namespace {

// In this order: what a script uses at once stands before it.
const char *const g_scripts[] = {"steps",    "dom",    "places",   "units", "blocks", "lists",
                                 "layout",   "marks",  "links",    "head",  "paste",  "keys",
                                 "pictures", "tables", "spelling", "state", "main"};

constexpr char g_szKey[] = "'quillan page editing'";

QString library()
{
    initScripts();
    QString strText = QStringLiteral("var commands = {}, queries = {}, edits = {};\n");
    for (const char *szScript : g_scripts) {
        QFile file(QStringLiteral(":/pageedit/%1.js").arg(QLatin1String(szScript)));
        if (!file.open(QIODevice::ReadOnly))
            qFatal("A script of page editing is missing: %s", szScript);
        strText += QString::fromUtf8(file.readAll());
    }
    return strText;
}

QString installing()
{
    static const QString s_strText =
        QStringLiteral("Object.defineProperty(window, %1, {value: (function() {\n%2})()});\n"
                       "null") // Otherwise the answer is the window, copied with all it leads to.
            .arg(QLatin1String(g_szKey), library());
    return s_strText;
}

} // namespace

QVariant callPageLibrary(const CEditWebView *pPage, const QString &strFunction,
                         const QString &strArguments)
{
    QWebElement element = pPage->page()->mainFrame()->documentElement();
    const QString strPresent =
        QStringLiteral("window.hasOwnProperty(%1)").arg(QLatin1String(g_szKey));
    if (!element.evaluateJavaScript(strPresent).toBool())
        element.evaluateJavaScript(installing());
    return element.evaluateJavaScript(
        QStringLiteral("window[%1].%2(%3)").arg(QLatin1String(g_szKey), strFunction, strArguments));
}
