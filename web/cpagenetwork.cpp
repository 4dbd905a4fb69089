#include "web/cpagenetwork.h"

#include "web/localresources.h"

#include <QFileInfo>
#include <QNetworkRequest>

#include <utility>

namespace {

bool isWeb(const QUrl &url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

// The answer to what is not allowed.
class CRefusal : public QNetworkReply
{
public:
    CRefusal(QNetworkAccessManager::Operation operation, const QNetworkRequest &request,
             QObject *pParent)
        : QNetworkReply(pParent)
    {
        setOperation(operation);
        setRequest(request);
        setUrl(request.url());
        setOpenMode(QIODevice::ReadOnly);
        setError(ContentAccessDenied, QStringLiteral("Refused"));
        setFinished(true);
    }
    void abort() override { }

protected:
    qint64 readData(char *, qint64) override { return -1; }
};

} // namespace

CPageNetwork::CPageNetwork(QObject *pParent) : QNetworkAccessManager(pParent) { }

bool CPageNetwork::isAllowed(const QUrl &url) const
{
    if (url.scheme() == QLatin1String("data"))
        return true;
    if (isWeb(url))
        return isWeb(m_urlDocument);
    return url.isLocalFile() && m_urlDocument.isLocalFile() && isFileAllowed(url);
}

bool CPageNetwork::isFileAllowed(const QUrl &url) const
{
    // Even the look at a file of another host would sign the user in there.
    if (url.host() != m_urlDocument.host())
        return false;
    const QString strFile = url.toLocalFile();
    if (url.matches(m_urlDocument, QUrl::RemoveFragment | QUrl::RemoveQuery))
        return QFileInfo(strFile).isFile();
    return mayReadLocal(m_urlDocument.toLocalFile(), strFile);
}

QNetworkReply *CPageNetwork::createRequest(Operation operation, const QNetworkRequest &request,
                                           QIODevice *pData)
{
    const bool bReading = operation == GetOperation || operation == HeadOperation;
    if (bReading && isAllowed(request.url()))
        return QNetworkAccessManager::createRequest(operation, request, pData);
    emit refused(request.url());
    auto *pRefusal = new CRefusal(operation, request, this);
    refuse(pRefusal);
    return pRefusal;
}

// The page hears of it from the event loop, once it knows the answer; of all at once, since an
// answer with an event of its own looks through all events when it goes.
void CPageNetwork::refuse(QNetworkReply *pRefusal)
{
    if (m_arrRefusals.isEmpty())
        QMetaObject::invokeMethod(this, &CPageNetwork::finishRefusals, Qt::QueuedConnection);
    m_arrRefusals.append(pRefusal);
}

void CPageNetwork::finishRefusals()
{
    const QVector<QPointer<QNetworkReply>> arrRefusals = std::exchange(m_arrRefusals, {});
    for (const QPointer<QNetworkReply> &pRefusal : arrRefusals) {
        if (pRefusal)
            emit pRefusal->finished();
    }
}
