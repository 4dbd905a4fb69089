#include "web/cpagenetwork.h"

#include "web/localresources.h"

#include <QFileInfo>
#include <QNetworkReply>
#include <QNetworkRequest>

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
        QMetaObject::invokeMethod(this, &QNetworkReply::finished, Qt::QueuedConnection);
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
    return new CRefusal(operation, request, this);
}
