#pragma once

#include <QString>

// The address of a file as a page spells it: relative where the page has a path, with nothing but
// what an address cannot hold encoded. Both paths are absolute; strPage is empty for a page without
// a file. Pure.
QString fileAddress(const QString &strFile, const QString &strPage);
