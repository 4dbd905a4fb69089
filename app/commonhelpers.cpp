#include "app/commonhelpers.h"

#include "app/platform.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QLocale>

namespace {

QString sortKey(const QFileInfo &info)
{
    // A root has no file name.
    return (info.isRoot() ? info.absoluteFilePath() : info.fileName()).toLower();
}

} // namespace

QString getSizeText(qint64 nSize)
{
    struct SUnit
    {
        int nPower;
        int nDecimals;
        QString strFormat;
    };
    const SUnit units[] = {
        {40, 3, QCoreApplication::translate("commonhelpers", "%1 TB")},
        {30, 2, QCoreApplication::translate("commonhelpers", "%1 GB")},
        {20, 1, QCoreApplication::translate("commonhelpers", "%1 MB")},
    };
    const QLocale locale;
    for (const SUnit &unit : units) {
        const qint64 nUnit = qint64(1) << unit.nPower;
        if (nSize >= nUnit) {
            const float fValue = float(nSize) / float(nUnit);
            return unit.strFormat.arg(locale.toString(fValue, 'f', unit.nDecimals));
        }
    }
    if (nSize >= 1024)
        return QCoreApplication::translate("commonhelpers", "%1 KB")
            .arg(locale.toString(nSize / 1024));
    return QCoreApplication::translate("commonhelpers", "%1 B").arg(locale.toString(nSize));
}

QString getDateText(const QDateTime &dateTime)
{
    return QLocale::system().toString(dateTime, QLocale::ShortFormat);
}

bool lessFileInfo(const QFileInfo &a, const QFileInfo &b)
{
    if (a.isDir() != b.isDir())
        return a.isDir();
    if (a.isRoot() != b.isRoot())
        return a.isRoot();
    return sortKey(a) < sortKey(b);
}

bool openFilePosition(const QString &strPath)
{
    return Platform::revealFile(strPath);
}
