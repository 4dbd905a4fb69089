#include "noengine/qwebframe.h"

#include "noengine/qwebpage.h"
#include "noengine/qwebsettings.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTextCodec>
#include <QTimer>

namespace {

QString decoded(const QByteArray &bytes, const QString &strEncoding)
{
    QTextCodec *pCodec = QTextCodec::codecForName(strEncoding.toLatin1());
    return QTextCodec::codecForHtml(bytes, pCodec ? pCodec : QTextCodec::codecForName("UTF-8"))
        ->toUnicode(bytes);
}

} // namespace

QWebFrame::QWebFrame(QWebPage *pPage) : QObject(pPage), m_pPage(pPage) { }

bool QWebFrame::begin(const QUrl &url)
{
    if (!m_pPage->acceptNavigationRequest(this, QNetworkRequest(url),
                                          QWebPage::NavigationTypeOther))
        return false;
    stop();
    m_url = url;
    emit m_pPage->loadStarted();
    emit urlChanged(url);
    return true;
}

void QWebFrame::load(const QUrl &url)
{
    if (!begin(url))
        return;
    QNetworkRequest request(url);
    request.setOriginatingObject(this);
    m_pReply = m_pPage->networkAccessManager()->get(request);
    QNetworkReply *pReply = m_pReply;
    connect(pReply, &QNetworkReply::finished, this, [this, pReply] { take(pReply); });
    if (pReply->isFinished())
        QTimer::singleShot(0, pReply, [this, pReply] { take(pReply); });
}

void QWebFrame::take(QNetworkReply *pReply)
{
    if (pReply != m_pReply)
        return; // It was taken before, or the load was stopped.
    m_pReply = nullptr;
    pReply->deleteLater();
    const bool bOk = pReply->error() == QNetworkReply::NoError;
    m_strHtml = decoded(pReply->readAll(), m_pPage->settings()->defaultTextEncoding());
    endSoon(bOk);
}

void QWebFrame::setHtml(const QString &strHtml, const QUrl &urlBase)
{
    if (!begin(urlBase.isEmpty() ? QUrl(QStringLiteral("about:blank")) : urlBase))
        return;
    m_strHtml = strHtml;
    endSoon(true);
}

void QWebFrame::stop()
{
    ++m_nLoad;
    if (QNetworkReply *pReply = std::exchange(m_pReply, nullptr)) {
        pReply->abort();
        pReply->deleteLater();
    }
}

void QWebFrame::endSoon(bool bOk)
{
    const int nLoad = m_nLoad;
    QTimer::singleShot(0, this, [this, nLoad, bOk] {
        if (nLoad != m_nLoad)
            return;
        emit loadFinished(bOk);
        emit m_pPage->loadFinished(bOk);
    });
}
