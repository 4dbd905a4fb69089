#pragma once

#include <QString>

// The text of a page, in which icons ("rel=icon") in data addresses have another scheme, which
// leads nowhere: the page engine decodes and keeps them by itself, and ends over some. Icons in
// files are read elsewhere. Pure.
QString refuseDataIcons(const QString &strHtml, const QString &strScheme);
