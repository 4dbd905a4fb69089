// Reads a settings file of any content. The settings must be within their bounds, and read back the
// same after a write.

#include "app/csettings.h"
#include "app/settingsfile.h"
#include "fuzz/fuzzing.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStandardPaths>

namespace {

void requireBounds(const CSettings &settings)
{
    require(settings.getTextFontSize() >= 3 && settings.getTextFontSize() <= 100, "font size");
    require(settings.m_nFindTransparent >= 20 && settings.m_nFindTransparent <= 100, "opacity");
    require(settings.getTextColor().isValid(), "text colour");
    require(settings.getBackColor().isValid(), "background colour");
}

QString settingsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QLatin1String("/fuzz");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *pArgc, char ***pArgv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static QGuiApplication s_app(*pArgc, *pArgv);
    return QDir().mkpath(settingsFolder()) ? 0 : 1;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    // Uses a new name each time, because QSettings caches files by name.
    static int s_nRun = 0;
    const QString strName = QString::number(++s_nRun);
    QFile file(settingsFolder() + QLatin1Char('/') + strName + QLatin1String(".conf"));
    require(file.open(QIODevice::WriteOnly), "a place for the file");
    file.write(bytesOf(pData, nSize));
    file.close();

    dropStreamedValues(QStringLiteral("fuzz"), strName);
    CSettings settings(QStringLiteral("fuzz"), strName);
    requireBounds(settings);
    settings.save();
    const QStringList lstRecent = settings.getRecentFileList();
    settings.read();
    requireBounds(settings);
    require(settings.getRecentFileList() == lstRecent, "lists read back as they were written");
    file.remove();
    return 0;
}
