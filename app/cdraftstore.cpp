#include "app/cdraftstore.h"

#include "app/filewriter.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QUuid>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

const char g_szLock[] = "lock";
const char g_szFormat[] = "quillan-draft-1";

// In the order of SDraft::Reason.
const char *const g_arrReasons[] = {"unsaved",   "closed", "refreshed", "codec",
                                    "formatted", "loaded", "deleted"};

SDraft::Reason reasonOfName(const QString &strName)
{
    const auto itEnd = std::end(g_arrReasons);
    const auto it = std::find(std::begin(g_arrReasons), itEnd, strName);
    return it == itEnd ? SDraft::Reason::Unsaved : SDraft::Reason(it - std::begin(g_arrReasons));
}

std::unique_ptr<QLockFile> lockFolder(const QString &strFolder)
{
    auto pLock = std::make_unique<QLockFile>(QDir(strFolder).filePath(QLatin1String(g_szLock)));
    pLock->setStaleLockTime(0); // Only the end of its process frees it, however long that runs.
    return pLock->tryLock(0) ? std::move(pLock) : nullptr;
}

// False for what UTF-8 cannot hold or would take for a mark: a lone surrogate, a leading U+FEFF.
bool survivesUtf8(const QString &strText)
{
    return strText.isValidUtf16() && !strText.startsWith(QChar(QChar::ByteOrderMark));
}

QByteArray unitsOf(const QString &strText)
{
    return QByteArray(reinterpret_cast<const char *>(strText.utf16()),
                      strText.size() * int(sizeof(QChar)));
}

QString textFromUnits(const QByteArray &units)
{
    QString strText(units.size() / int(sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(strText.data(), units.constData(), size_t(strText.size()) * sizeof(QChar));
    return strText;
}

// What older drafts do not have.
void readOrigin(const QJsonObject &header, SDraft *pDraft)
{
    pDraft->reason = reasonOfName(header.value(QStringLiteral("reason")).toString());
    pDraft->nTime = qint64(qBound(0.0, header.value(QStringLiteral("time")).toDouble(), 1e15));
    pDraft->began = fileStateFromJson(header.value(QStringLiteral("began")).toObject());
    pDraft->codec = header.value(QStringLiteral("codec")).toString().toLatin1();
    pDraft->bNotWhole = header.value(QStringLiteral("notWhole")).toBool();
    pDraft->nCaret = qMax(0, header.value(QStringLiteral("caret")).toInt());
}

void makePrivate(const QString &strFolder)
{
    QFile::setPermissions(strFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

QByteArray draftToBytes(const SDraft &draft)
{
    const bool bUtf8 = survivesUtf8(draft.strText);
    const QJsonObject header = {
        {QStringLiteral("format"), QLatin1String(g_szFormat)},
        {QStringLiteral("path"), draft.strPath},
        {QStringLiteral("page"), draft.bPage},
        {QStringLiteral("returnFormat"), draft.nReturnFormat},
        {QStringLiteral("units"), !bUtf8},
        {QStringLiteral("reason"), QLatin1String(g_arrReasons[int(draft.reason)])},
        {QStringLiteral("time"), double(draft.nTime)},
        {QStringLiteral("began"), toJson(draft.began)},
        {QStringLiteral("codec"), QString::fromLatin1(draft.codec)},
        {QStringLiteral("notWhole"), draft.bNotWhole},
        {QStringLiteral("caret"), draft.nCaret},
    };
    return QJsonDocument(header).toJson(QJsonDocument::Compact) + '\n'
        + (bUtf8 ? draft.strText.toUtf8() : unitsOf(draft.strText));
}

bool draftFromBytes(const QByteArray &bytes, SDraft *pDraft)
{
    const int nEnd = bytes.indexOf('\n');
    if (nEnd < 0)
        return false;
    const QJsonObject header = QJsonDocument::fromJson(bytes.left(nEnd)).object();
    if (header.value(QStringLiteral("format")).toString() != QLatin1String(g_szFormat))
        return false;
    const int nFormat = header.value(QStringLiteral("returnFormat")).toInt(-1);
    pDraft->strPath = header.value(QStringLiteral("path")).toString();
    pDraft->bPage = header.value(QStringLiteral("page")).toBool();
    pDraft->nReturnFormat = nFormat >= 0 && nFormat <= 2 ? nFormat : 1;
    readOrigin(header, pDraft);
    const QByteArray text = bytes.mid(nEnd + 1);
    pDraft->strText = header.value(QStringLiteral("units")).toBool()
        ? textFromUnits(text)
        : QString::fromUtf8(text.constData(), text.size()); // A text may hold zero characters.
    return true;
}

CDraftStore::CDraftStore(const QString &strFolder)
    : m_strFolder(strFolder), m_strOwnFolder(QDir(strFolder).filePath(newId()))
{
    if (!QDir().mkpath(m_strOwnFolder))
        return;
    makePrivate(m_strFolder);
    makePrivate(m_strOwnFolder);
    m_pLock = lockFolder(m_strOwnFolder);
}

QString CDraftStore::newId()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QString CDraftStore::filePath(const QString &strId) const
{
    return QDir(m_strOwnFolder).filePath(strId);
}

bool CDraftStore::write(const SDraft &draft) const
{
    QSaveFile file(filePath(draft.strId));
    return isValid() && file.open(QIODevice::WriteOnly)
        && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner)
        && writeAll(&file, draftToBytes(draft)) && file.commit();
}

void CDraftStore::remove(const QString &strId) const
{
    QFile::remove(filePath(strId));
}

QVector<SDraft> CDraftStore::takeAbandoned() const
{
    QVector<SDraft> lstDrafts;
    if (!isValid())
        return lstDrafts;
    const QStringList lstFolders =
        QDir(m_strFolder).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks);
    for (const QString &strName : lstFolders) {
        const QString strFolder = QDir(m_strFolder).filePath(strName);
        if (strFolder != m_strOwnFolder)
            takeFrom(strFolder, &lstDrafts);
    }
    return lstDrafts;
}

void CDraftStore::takeFrom(const QString &strFolder, QVector<SDraft> *pDrafts) const
{
    const std::unique_ptr<QLockFile> pLock = lockFolder(strFolder);
    if (!pLock) // Its program is running.
        return;
    QDir folder(strFolder);
    const QStringList lstNames = folder.entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden);
    for (const QString &strName : lstNames) {
        QFile file(folder.filePath(strName));
        SDraft draft;
        if (strName == QLatin1String(g_szLock) || !file.open(QIODevice::ReadOnly)
            || !draftFromBytes(file.readAll(), &draft))
            continue;
        file.close();
        draft.strId = newId();
        if (file.rename(filePath(draft.strId)))
            pDrafts->append(draft);
    }
    pLock->unlock();
    QDir().rmdir(strFolder); // Only when nothing is left in it.
}
