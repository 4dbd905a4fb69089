#pragma once

#include <QString>

// The text of a page with icons ("rel=icon") in data addresses disabled by another scheme. The page
// engine decodes and keeps such icons by itself, and some crash it. Icons in files are read
// elsewhere. Pure.
QString refuseDataIcons(const QString &strHtml, const QString &strScheme);
