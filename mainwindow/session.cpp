#include "mainwindow/session.h"

#include "app/cfilenamecodec.h"
#include "app/cnewfile.h"
#include "app/filereader.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const char g_szFormat[] = "quillan-session-1";

// Makes the path absolute, because the next start may be from another folder.
QString pathToJson(const QString &strPath)
{
    const QString strAbsolute = strPath.isEmpty() || QFileInfo(strPath).isAbsolute()
        ? strPath
        : QFileInfo(strPath).absoluteFilePath();
    return QString::fromLatin1(
        CFileNameCodec::bytesOf(strAbsolute).toPercentEncoding(QByteArrayLiteral("/ ")));
}

// Empty for a text that no system takes for a path.
QString pathFromJson(const QJsonValue &value)
{
    const QByteArray bytes = QByteArray::fromPercentEncoding(value.toString().toLatin1());
    const QString strPath = bytes.contains('\0') ? QString() : CFileNameCodec::textOf(bytes);
    return QFileInfo(strPath).isAbsolute() ? strPath : QString();
}

QJsonObject placeToJson(const SPlace &place)
{
    return {{QStringLiteral("path"), pathToJson(place.strPath)},
            {QStringLiteral("source"), place.bSource},
            {QStringLiteral("caret"), place.nCaret},
            {QStringLiteral("elements"), place.nElements},
            {QStringLiteral("left"), place.scroll.x()},
            {QStringLiteral("top"), place.scroll.y()}};
}

int count(const QJsonObject &object, const QString &strKey)
{
    return qMax(0, object.value(strKey).toInt());
}

SPlace placeFromJson(const QJsonObject &object)
{
    SPlace place;
    place.strPath = pathFromJson(object.value(QStringLiteral("path")));
    place.bSource = object.value(QStringLiteral("source")).toBool();
    place.nCaret = count(object, QStringLiteral("caret"));
    place.nElements = count(object, QStringLiteral("elements"));
    place.scroll = {count(object, QStringLiteral("left")), count(object, QStringLiteral("top"))};
    return place;
}

} // namespace

QByteArray sessionToBytes(const SSession &session)
{
    QJsonArray lstPlaces;
    for (const SPlace &place : session.lstPlaces.mid(0, g_nMaxSessionPlaces))
        lstPlaces.append(placeToJson(place));
    const QJsonObject object = {{QStringLiteral("format"), QLatin1String(g_szFormat)},
                                {QStringLiteral("current"), pathToJson(session.strCurrent)},
                                {QStringLiteral("documents"), lstPlaces}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

SSession sessionFromBytes(const QByteArray &bytes)
{
    SSession session;
    const QJsonObject object = QJsonDocument::fromJson(bytes).object();
    if (object.value(QStringLiteral("format")).toString() != QLatin1String(g_szFormat))
        return session;
    const QJsonArray lstPlaces = object.value(QStringLiteral("documents")).toArray();
    for (const QJsonValue &value : lstPlaces) {
        const SPlace place = placeFromJson(value.toObject());
        if (!place.strPath.isEmpty() && session.lstPlaces.size() < g_nMaxSessionPlaces)
            session.lstPlaces.append(place);
    }
    session.strCurrent = pathFromJson(object.value(QStringLiteral("current")));
    return session;
}

SSession readSession(const QString &strFile)
{
    return sessionFromBytes(readFile(strFile).bytes);
}

bool writeSession(const QString &strFile, const SSession &session)
{
    Platform::surviveFailingWrites();
    return QDir().mkpath(QFileInfo(strFile).absolutePath())
        && writePrivateFile(strFile, sessionToBytes(session));
}
