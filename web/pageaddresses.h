#pragma once

#include <QString>

class QUrl;

// Changes the source of a page that moves from one file to another, so that its relative addresses
// (of links, pictures, styles, also in CSS) lead where they led before. Nothing changes if the page
// names a base, both files are in one folder, or either is no file. Addresses within the page
// ("#a") stay. Pure.
QString withMovedAddresses(const QString &strHtml, const QUrl &urlFrom, const QUrl &urlTo);
