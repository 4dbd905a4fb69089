#pragma once

#include <QString>

// True for a text that an XML parser reads to its end. The entities of XHTML, which only a DTD
// declares, count as declared. Reads nothing else; reentrant.
bool isWellFormedXml(const QString &strText);
