#include "pageedit/pagelibrary.h"

#include "web/ceditwebview.h"

#include <QFile>
#include <QUuid>
#include <QWebElement>
#include <QWebFrame>

// The macro only works outside of namespaces.
static void initScripts()
{
    Q_INIT_RESOURCE(pageedit);
}

namespace {

// The order matters: a script comes after those that it uses at once.
const char *const g_scripts[] = {"steps",    "dom",    "places",      "units",        "blocks",
                                 "lists",    "layout", "marks",       "formats",      "links",
                                 "head",     "paste",  "blanks",      "keys",         "joins",
                                 "pictures", "tables", "tablelayout", "tablecolumns", "wholetables",
                                 "spelling", "state",  "main"};

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
                       // Otherwise the result would be the window, copied with everything it refers
                       // to.
                       "null")
            .arg(pageLibraryKey(), library());
    return s_strText;
}

} // namespace

const QString &pageLibraryKey()
{
    static const QString s_strKey =
        QLatin1Char('\'') + QUuid::createUuid().toString() + QLatin1Char('\'');
    return s_strKey;
}

QVariant callPageLibrary(const CEditWebView *pPage, const QString &strFunction,
                         const QString &strArguments)
{
    QWebElement element = pPage->page()->mainFrame()->documentElement();
    const QString strPresent =
        QStringLiteral("({}).hasOwnProperty.call(window, %1)").arg(pageLibraryKey());
    if (!element.evaluateJavaScript(strPresent).toBool())
        element.evaluateJavaScript(installing());
    return element.evaluateJavaScript(
        QStringLiteral("window[%1].%2(%3)").arg(pageLibraryKey(), strFunction, strArguments));
}
