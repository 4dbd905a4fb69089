// Handles addresses: loading, reloading, links, the history.
#include "web/ceditwebview.h"

#include "editor/textreading.h"
#include "web/cpagenetwork.h"
#include "web/csafepage.h"
#include "web/dataaddresses.h"
#include "web/pagehazards.h"

#include <QFileInfo>
#include <QPointer>
#include <QWebHistory>
#include <QWebSettings>

namespace {

// The page was never loaded, or was set from text without an address.
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
    const SFileContent content = readForEditor(strPath);
    if (!content.hasBytes())
        return false;
    loadSource(strPath, content);
    return true;
}

void CEditWebView::loadSource(const QString &strPath, const SFileContent &content,
                              const QString &strCodec)
{
    loadSource(strPath, SPageSource::ofFile(content, strCodec));
}

void CEditWebView::loadSource(const QString &strPath, const SPageSource &source)
{
    setFilePath(strPath);
    m_strGiven = QString();
    safePage()->navigateTo(source, [this] { QWebView::setUrl(fileUrl()); });
    noteCodec();
}

void CEditWebView::reloadSource(const SFileContent &content, const QString &strCodec)
{
    showFile(fileUrl(), SPageSource::ofFile(content, strCodec));
}

// A page that is already shown is reloaded, which keeps its place.
void CEditWebView::showFile(const QUrl &url, const SPageSource &source)
{
    m_strGiven = QString();
    const bool bAgain = isSameDocument(url, this->url());
    safePage()->navigateTo(source, [&] {
        if (bAgain)
            triggerPageAction(QWebPage::Reload, false);
        else // It was saved under another name since it was loaded.
            QWebView::setUrl(url);
    });
    noteCodec();
}

void CEditWebView::noteCodec()
{
    m_strCodec = safePage()->source().strCodec;
    m_bCodecChosen = safePage()->source().bChosen;
}

// Goes to an address whose file the page reads by itself. What it reads becomes the file's known
// state.
void CEditWebView::go(const std::function<void()> &load)
{
    m_strGiven = QString();
    safePage()->navigate(load);
    noteCodec();
    const SPageSource source = safePage()->source();
    if (source.content.hasBytes() && source.bFile
        && isSameDocument(safePage()->network()->document(), fileUrl()))
        emit fileRead(source.content);
}

QUrl CEditWebView::fileUrl() const
{
    return fileUrl(m_strFilePath);
}

// A name from the command line may be relative, but an address may not. Empty for none.
QUrl CEditWebView::fileUrl(const QString &strPath)
{
    const QFileInfo info(strPath);
    return strPath.isEmpty()
        ? QUrl()
        : QUrl::fromLocalFile(info.isRelative() ? info.absoluteFilePath() : strPath);
}

void CEditWebView::setUrl(const QUrl &url)
{
    go([&] { QWebView::setUrl(url); });
}

void CEditWebView::setHtml(const QString &strHtml, const QUrl &urlBase)
{
    showText(strHtml, urlBase);
    noteCodec();
}

void CEditWebView::showText(const QString &strHtml, const QUrl &urlBase)
{
    m_strGiven = strHtml.isNull() ? QStringLiteral("") : strHtml;
    safePage()->navigateTo(SPageSource::ofText(),
                           [&] { QWebView::setHtml(refuseHarmfulData(strHtml), urlBase); });
}

bool CEditWebView::reload()
{
    const bool bOwn = showsOwnAddress();
    if (bOwn && m_strFilePath.isEmpty())
        return true;
    const QUrl urlRead = bOwn ? fileUrl() : url();
    if (!urlRead.isLocalFile()) {
        go([this] { triggerPageAction(QWebPage::Reload, false); });
        return true;
    }
    const SFileContent content = readForEditor(urlRead.toLocalFile());
    if (!content.hasBytes()) {
        emit statusMessage(tr("Cannot open file(%1).").arg(urlRead.toLocalFile()));
        return false;
    }
    showFile(urlRead, SPageSource::ofFile(content, chosenCodecName()));
    if (bOwn)
        emit fileRead(content);
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

// The file may have been saved since it was shown, and the memory of the web view is older.
void CEditWebView::step(QWebPage::WebAction action)
{
    QWebSettings::clearMemoryCaches();
    go([=] { triggerPageAction(action, false); });
}

// A page that was typed and saved has no place in the history, but Back can lead to its file.
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
    const QPointer<CEditWebView> pThis(this); // The answer to the question may close the document.
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
    if (url.isLocalFile())
        followToFile(url);
    else if (mayLeave())
        setUrl(url);
}

void CEditWebView::followToFile(const QUrl &url)
{
    const QString strPath = url.toLocalFile();
    const SPageSource source = SPageSource::ofFile(readForEditor(strPath), QString());
    if (!source.content.hasBytes()) {
        emit statusMessage(tr("Cannot open file(%1).").arg(strPath));
        return;
    }
    const EPageHazard hazard = pageHazardOfFile(strPath, source.strText);
    if (hazard != EPageHazard::None) {
        emit statusMessage(
            tr("%1 is not shown, because %2.").arg(strPath, pageHazardReason(hazard)));
        return;
    }
    if (!mayLeave())
        return;
    showFile(url, source);
    if (isSameDocument(url, fileUrl()))
        emit fileRead(source.content);
}
