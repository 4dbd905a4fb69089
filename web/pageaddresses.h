#pragma once

#include <QString>

class QUrl;

// The source of a page that moves from one file to another, with its relative addresses (of links,
// pictures, styles, also in CSS) spelled for the new place, so that they lead where they led.
// Nothing changes where the page names a base of its own, both lie in one folder, or either is no
// file. Addresses within the page ("#a") stay. Pure.
QString withMovedAddresses(const QString &strHtml, const QUrl &urlFrom, const QUrl &urlTo);
