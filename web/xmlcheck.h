#pragma once

#include <QString>

// True for a text that an XML parser reads to its end. Entities that only a DTD declares, as XHTML
// has them, count as declared. Reads nothing else; reentrant.
bool isWellFormedXml(const QString &strText);
