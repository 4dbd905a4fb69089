#include "web/cpagereader.h"

#include "web/csafepage.h"
#include "web/markup.h"

#include <QWebElement>
#include <QWebFrame>
#include <QWebSettings>

CPageReader::CPageReader() : m_pPage(new CSafePage)
{
    m_pPage->settings()->setAttribute(QWebSettings::AutoLoadImages, false);
    static_cast<CSafePage *>(m_pPage)->navigate(
        [this] { m_pPage->mainFrame()->setHtml(QStringLiteral("<p>")); });
}

CPageReader::~CPageReader()
{
    delete m_pPage;
}

QString CPageReader::serialised(const QString &strSource)
{
    // The parser's own document has no window: it loads nothing.
    const QString strScript =
        QStringLiteral("(function(source) {"
                       "  var n = new DOMParser().parseFromString(source, 'text/html').firstChild;"
                       "  for (var text = ''; n; n = n.nextSibling)"
                       "    text += n.nodeType == 1 ? n.outerHTML"
                       "      : n.nodeType == 8 ? '<!--' + n.data + '-->'"
                       "      : new XMLSerializer().serializeToString(n);"
                       "  return text;"
                       "})(%1)")
            .arg(scriptString(strSource));
    return repairSerialised(
        m_pPage->mainFrame()->documentElement().evaluateJavaScript(strScript).toString());
}
