// Addresses: loading, reloading, following links, the history.
#include "web/ceditwebview.h"

#include "web/csafepage.h"
#include "web/dataaddresses.h"

#include <QFile>
#include <QFileInfo>
#include <QPointer>
#include <QWebHistory>
#include <QWebSettings>

namespace {

bool isReadable(const QString &strPath)
{
    return QFileInfo(strPath).isFile() && QFile(strPath).open(QIODevice::ReadOnly);
}

// A page that was never loaded, or was set from text without an address.
bool isBlank(const QUrl &url)
{
    return url.isEmpty() || url == QUrl(QStringLiteral("about:blank"));
}

bool isSameDocument(const QUrl &a, const QUrl &b)
{
    return (isBlank(a) && isBlank(b)) || a.matches(b, QUrl::RemoveFragment);
}

} // namespace

bool CEditWebView::loadFile(const QString &strPath)
{
    if (!isReadable(strPath))
        return false;
    setFilePath(strPath);
    setUrl(fileUrl());
    return true;
}

QUrl CEditWebView::fileUrl() const
{
    return fileUrl(m_strFilePath);
}

// A name given on the command line may be relative, which an address cannot be. Empty for none.
QUrl CEditWebView::fileUrl(const QString &strPath)
{
    const QFileInfo info(strPath);
    return strPath.isEmpty()
        ? QUrl()
        : QUrl::fromLocalFile(info.isRelative() ? info.absoluteFilePath() : strPath);
}

void CEditWebView::setUrl(const QUrl &url)
{
    m_strGiven = QString();
    safePage()->navigate([&] { QWebView::setUrl(url); });
}

void CEditWebView::setHtml(const QString &strHtml, const QUrl &urlBase)
{
    m_strGiven = strHtml.isNull() ? QStringLiteral("") : strHtml;
    safePage()->navigate([&] { QWebView::setHtml(refuseHarmfulData(strHtml), urlBase); });
}

bool CEditWebView::reload()
{
    const bool bOwn = showsOwnAddress();
    if (bOwn && m_strFilePath.isEmpty())
        return true;
    const QUrl urlRead = bOwn ? fileUrl() : url();
    if (urlRead.isLocalFile() && !isReadable(urlRead.toLocalFile())) {
        emit statusMessage(tr("Cannot open file(%1).").arg(urlRead.toLocalFile()));
        return false;
    }
    m_strGiven = QString();
    if (isSameDocument(urlRead, url()))
        safePage()->navigate([this] { triggerPageAction(QWebPage::Reload, false); });
    else // Saved under another name since it was loaded.
        setUrl(urlRead);
    return true;
}

void CEditWebView::back()
{
    if (!canGoBack() || !mayLeave())
        return;
    if (history()->canGoBack())
        step(QWebPage::Back);
    else
        setUrl(fileUrl());
}

void CEditWebView::forward()
{
    if (canGoForward() && mayLeave())
        step(QWebPage::Forward);
}

// The file may have been saved since it was shown; what another view keeps of it in memory is
// older.
void CEditWebView::step(QWebPage::WebAction action)
{
    QWebSettings::clearMemoryCaches();
    m_strGiven = QString();
    safePage()->navigate([=] { triggerPageAction(action, false); });
}

// A page that was typed and saved has no place in the history, but its file can be gone back to.
bool CEditWebView::canGoBack() const
{
    return history()->canGoBack() || (!showsOwnAddress() && !m_strFilePath.isEmpty());
}

bool CEditWebView::canGoForward() const
{
    return history()->canGoForward();
}

bool CEditWebView::showsOwnFile() const
{
    return showsOwnAddress() && !m_bLoadFailed;
}

bool CEditWebView::showsOwnAddress() const
{
    return isSameDocument(url(), m_urlNamed)
        || (!m_strFilePath.isEmpty() && isSameDocument(url(), fileUrl()));
}

bool CEditWebView::mayLeave()
{
    if (!m_bModified)
        return true;
    const QPointer<CEditWebView> pThis(this); // The question may end in closing the document.
    if (!m_leaveQuestion || !m_leaveQuestion() || !pThis)
        return false;
    setModified(false);
    return true;
}

void CEditWebView::followLink(const QUrl &url)
{
    const bool bWeb =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!m_bLinksFollowed || (!bWeb && !url.isLocalFile()))
        return;
    if (url.isLocalFile() && !isReadable(url.toLocalFile())) {
        emit statusMessage(tr("Cannot open file(%1).").arg(url.toLocalFile()));
        return;
    }
    if (mayLeave())
        setUrl(url);
}
