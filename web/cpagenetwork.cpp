#include "web/cpagenetwork.h"

#include "app/filereader.h"
#include "web/cpagereply.h"
#include "web/dataaddresses.h"
#include "web/localresources.h"
#include "web/pagecodec.h"
#include "web/pagehazards.h"
#include "web/pageresources.h"
#include "web/pictures.h"
#include "web/regularfile.h"

#include <QFileInfo>
#include <QNetworkRequest>

#include <utility>

namespace {

// More style sheets than any page has. One that imports itself by other names would never end.
constexpr int g_nMaxSheets = 100;
constexpr int g_nMaxSheetsOfAFile = 5;

bool isWeb(const QUrl &url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

// The engine also recognises drawings by their name.
bool isNamedDrawing(const QString &strFile)
{
    return QFileInfo(strFile).suffix().compare(QLatin1String("svg"), Qt::CaseInsensitive) == 0;
}

} // namespace

CPageNetwork::CPageNetwork(QObject *pParent) : QNetworkAccessManager(pParent) { }

void CPageNetwork::setDocument(const QUrl &url)
{
    m_urlDocument = url;
    m_hashFrames.clear();
    m_hashSheets.clear();
    m_nSheets = 0;
}

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
    // Even a look at a file of another host would sign the user in there.
    if (url.host() != m_urlDocument.host())
        return false;
    const QString strFile = url.toLocalFile();
    if (url.matches(m_urlDocument, QUrl::RemoveFragment | QUrl::RemoveQuery))
        return QFileInfo(strFile).isFile();
    return mayReadLocal(m_urlDocument.toLocalFile(), strFile);
}

void CPageNetwork::expectFrame(const QObject *pFrame, const QUrl &url)
{
    m_hashFrames.insert(pFrame, {url, false, false, QByteArray()});
}

void CPageNetwork::expectFrame(const QObject *pFrame, const QUrl &url, const SFileContent &content)
{
    const bool bReadable = content.hasBytes() && content.bytes.size() <= g_nMaxPictureBytes;
    m_hashFrames.insert(pFrame, {url, true, bReadable, bReadable ? content.bytes : QByteArray()});
}

QNetworkReply *CPageNetwork::createRequest(Operation operation, const QNetworkRequest &request,
                                           QIODevice *pData)
{
    const bool bReading = operation == GetOperation || operation == HeadOperation;
    CPageReply *pReply = nullptr;
    if (bReading && isAllowed(request.url()) && mayLoadSheet(request)) {
        if (!request.url().isLocalFile())
            return QNetworkAccessManager::createRequest(operation, request, pData);
        pReply = answerFromFile(operation, request);
    }
    if (!pReply) {
        emit refused(request.url());
        pReply = new CPageReply(operation, request, QNetworkReply::ContentAccessDenied, this);
    }
    tellLater(pReply);
    return pReply;
}

bool CPageNetwork::mayLoadSheet(const QNetworkRequest &request)
{
    if (!request.rawHeader("Accept").startsWith("text/css"))
        return true;
    const QString strName = request.url().toString(QUrl::RemoveQuery | QUrl::RemoveFragment);
    return ++m_nSheets <= g_nMaxSheets && ++m_hashSheets[strName] <= g_nMaxSheetsOfAFile;
}

// The frame has no address if the request is for something else than a document.
CPageNetwork::SFrame CPageNetwork::takeFrame(const QNetworkRequest &request)
{
    const SFrame frame = m_hashFrames.take(request.originatingObject());
    const bool bDocument =
        frame.url.isValid() && frame.url.matches(request.url(), QUrl::RemoveFragment);
    return bDocument ? frame : SFrame();
}

// Null if the file holds something that no page may show.
CPageReply *CPageNetwork::answerFromFile(Operation operation, const QNetworkRequest &request)
{
    const QString strFile = request.url().toLocalFile();
    const SFrame frame = takeFrame(request);
    QByteArray data = frame.bytes;
    const bool bRead =
        frame.bRead ? frame.bReadable : readRegularFile(strFile, g_nMaxPictureBytes, &data);
    if (!bRead)
        return nullptr;
    bool bHarmless = isHarmlessDocument(data);
    if (!frame.url.isValid())
        bHarmless = isHarmlessResource(data, isNamedDrawing(strFile));
    else if (!frame.bRead) // Only for a frame; for the page itself the user decides.
        bHarmless = bHarmless && pageHazardOfFile(strFile, decodePage(data)) == EPageHazard::None;
    return bHarmless ? new CPageReply(operation, request, refuseHarmfulData(data), this) : nullptr;
}

// Finishes refusals from one queued call, after the page has got its reply. One event per reply
// would make deleting thousands of replies quadratic.
void CPageNetwork::tellLater(CPageReply *pReply)
{
    if (m_arrUntold.isEmpty())
        QMetaObject::invokeMethod(this, &CPageNetwork::tellAll, Qt::QueuedConnection);
    m_arrUntold.append(pReply);
}

void CPageNetwork::tellAll()
{
    const QVector<QPointer<CPageReply>> arrReplies = std::exchange(m_arrUntold, {});
    for (const QPointer<CPageReply> &pReply : arrReplies)
        if (pReply)
            pReply->tell();
}
