#include "web/csafepage.h"

#include "web/cpagenetwork.h"
#include "web/frames.h"

#include <QNetworkRequest>
#include <QStyle>
#include <QWebFrame>
#include <QWebSettings>
#include <QWebView>

CSafePage::CSafePage(QObject *pParent) : QWebPage(pParent), m_pNetwork(new CPageNetwork(this))
{
    setNetworkAccessManager(m_pNetwork);
    restrictSettings();
    connect(
        this, &QWebPage::loadStarted, this, [this] { m_bLoading = true; });
    connect(this, &QWebPage::loadFinished, this, [this] { m_bLoading = false; });
}

CSafePage::~CSafePage()
{
    // The base class ends a running load, and would signal that when this part of the object is
    // already destroyed.
    disconnect(this, &QWebPage::loadFinished, this, nullptr);
    // Replies of an interrupted load wait for deletion, each with an event. The network is deleted
    // after them; otherwise each reply would search the events of all others.
    m_pNetwork->setParent(nullptr);
    m_pNetwork->deleteLater();
}

void CSafePage::showIn(QWebView *pView)
{
    QPalette pal = pView->style()->standardPalette();
    pal.setColor(QPalette::Base, Qt::white);
    pal.setColor(QPalette::Text, Qt::black);
    pView->setPage(this);
    pView->setPalette(pal); // The view passes it on to its page, now and after every change.
}

void CSafePage::restrictSettings()
{
    settings()->setDefaultTextEncoding(QStringLiteral("utf-8"));
    static const QWebSettings::WebAttribute arrOff[] = {
        QWebSettings::JavascriptEnabled,
        QWebSettings::JavaEnabled,
        QWebSettings::PluginsEnabled,
        QWebSettings::MediaEnabled,
        QWebSettings::JavascriptCanOpenWindows,
        QWebSettings::JavascriptCanAccessClipboard,
        QWebSettings::LocalContentCanAccessRemoteUrls,
        QWebSettings::DnsPrefetchEnabled,
        QWebSettings::HyperlinkAuditingEnabled,
        QWebSettings::ErrorPageEnabled,
        QWebSettings::OfflineStorageDatabaseEnabled,
        QWebSettings::OfflineWebApplicationCacheEnabled,
        QWebSettings::LocalStorageEnabled};
    for (const QWebSettings::WebAttribute attribute : arrOff)
        settings()->setAttribute(attribute, false);
    settings()->setAttribute(QWebSettings::PrivateBrowsingEnabled, true);
    QWebSettings::setMaximumPagesInCache(0); // See CEditWebView::step().
}

void CSafePage::navigate(const std::function<void()> &load)
{
    // The web view asks for permission before the call returns.
    const bool bOuter = m_bNavigating;
    m_bNavigating = true;
    load();
    m_bNavigating = bOuter;
}

void CSafePage::navigateTo(const SPageSource &source, const std::function<void()> &load)
{
    m_pGiven = &source;
    navigate(load);
    m_pGiven = nullptr;
}

// Called within navigate(), or when a server redirects.
void CSafePage::begin(const QUrl &url)
{
    m_source = m_pGiven ? *m_pGiven : readPageSource(url);
    m_pNetwork->setDocument(url);
    settings()->setDefaultTextEncoding(m_source.undeclaredCodecName());
    if (m_source.bFile)
        m_pNetwork->expectFrame(mainFrame(), url, m_source.contentToShow());
    else
        m_pNetwork->expectFrame(mainFrame(), url);
}

void CSafePage::triggerAction(WebAction action, bool bChecked)
{
    if (action != Paste || !m_paste || !isContentEditable() || !m_paste())
        QWebPage::triggerAction(action, bChecked);
}

bool CSafePage::supportsExtension(Extension extension) const
{
    return extension != ErrorPageExtension && QWebPage::supportsExtension(extension);
}

bool CSafePage::acceptNavigationRequest(QWebFrame *pFrame, const QNetworkRequest &request,
                                        NavigationType type)
{
    const QUrl url = request.url();
    if (pFrame && pFrame != mainFrame()) {
        m_pNetwork->expectFrame(pFrame, url);
        return url.scheme() == QLatin1String("about")
            || (m_pNetwork->isAllowed(url) && mayShowInFrame(pFrame, url));
    }
    if (m_bNavigating || isRedirect(url)) {
        begin(url);
        return true;
    }
    if (type != NavigationTypeLinkClicked || isContentEditable())
        return false;
    if (pFrame && isWithinDocument(url))
        return true;
    emit linkFollowed(url);
    return false;
}

// Only a server may redirect, and only to another server.
bool CSafePage::isRedirect(const QUrl &url) const
{
    return m_bLoading && url.scheme().startsWith(QLatin1String("http"))
        && m_pNetwork->document().scheme().startsWith(QLatin1String("http"));
}

bool CSafePage::isWithinDocument(const QUrl &url) const
{
    return url.hasFragment() && url.matches(mainFrame()->url(), QUrl::RemoveFragment);
}
