#include "hostile/hostile.h"

#include <QDir>
#include <QFile>

namespace {

bool write(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    return file.open(QIODevice::WriteOnly) && file.write(data) == data.size();
}

} // namespace

QString kindName(SHostileFile::Kind kind)
{
    switch (kind) {
    case SHostileFile::Kind::Page:
        return QStringLiteral("page");
    case SHostileFile::Kind::Picture:
        return QStringLiteral("picture");
    case SHostileFile::Kind::Drawing:
        return QStringLiteral("drawing");
    case SHostileFile::Kind::Text:
        break;
    }
    return QStringLiteral("text");
}

QList<SHostileFile> hostileFiles()
{
    return hostilePages() + hostilePictures() + hostileDrawings() + hostileTexts();
}

QString writeHostile(const SHostileFile &file, const QString &strFolder)
{
    const QDir dir(strFolder + QLatin1Char('/') + kindName(file.kind) + QLatin1Char(' ')
                   + file.strName);
    if (!QDir().mkpath(dir.path()) || !write(dir.filePath(file.strName), file.data))
        return QString();
    for (auto it = file.mapBeside.cbegin(); it != file.mapBeside.cend(); ++it)
        if (!write(dir.filePath(it.key()), it.value()))
            return QString();
    return dir.filePath(file.strName);
}
