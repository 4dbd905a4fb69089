#pragma once

#include <QString>

// The address of a file as a page spells it: relative if the page has a path. Only characters that
// an address cannot hold are encoded. Both paths are absolute; strPage is empty for a page without
// a file. Pure.
QString fileAddress(const QString &strFile, const QString &strPage);
