#include "noengine/qwebsettings.h"

#include <QFont>
#include <QFontInfo>
#include <QGuiApplication>

QString QWebSettings::fontFamily(FontFamily) const
{
    return QGuiApplication::font().family();
}

int QWebSettings::fontSize(FontSize) const
{
    return QFontInfo(QGuiApplication::font()).pixelSize();
}
