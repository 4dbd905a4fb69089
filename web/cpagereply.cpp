#include "web/cpagereply.h"

#include <QIODevice>
#include <QNetworkAccessManager>
#include <QPointer>

#include <algorithm>

CPageReply::CPageReply(QNetworkAccessManager::Operation operation, const QNetworkRequest &request,
                       NetworkError error, QObject *pParent)
    : QNetworkReply(pParent)
{
    setOperation(operation);
    setRequest(request);
    setUrl(request.url());
    setOpenMode(QIODevice::ReadOnly);
    if (error != NoError)
        setError(error, QStringLiteral("Refused"));
    setFinished(true);
}

CPageReply::CPageReply(QNetworkAccessManager::Operation operation, const QNetworkRequest &request,
                       const QByteArray &data, QObject *pParent)
    : CPageReply(operation, request, NoError, pParent)
{
    m_data = data;
    setHeader(QNetworkRequest::ContentLengthHeader, data.size());
}

void CPageReply::tell()
{
    const QPointer<CPageReply> pThis(this);
    if (error() == NoError) {
        emit metaDataChanged();
        if (pThis && !m_data.isEmpty())
            emit readyRead();
    }
    if (pThis)
        emit finished();
}

qint64 CPageReply::bytesAvailable() const
{
    return QNetworkReply::bytesAvailable() + m_data.size() - m_nRead;
}

qint64 CPageReply::readData(char *pTo, qint64 nMost)
{
    const qint64 nRead = qMin<qint64>(nMost, m_data.size() - m_nRead);
    if (nRead <= 0)
        return -1;
    std::copy_n(m_data.constData() + m_nRead, nRead, pTo);
    m_nRead += int(nRead);
    return nRead;
}
