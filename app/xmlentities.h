#pragma once

#include <QString>

// Limits what the entities of an XML text expand to, without parsing the text.

// True when the text declares entities for use in declarations ("<!ENTITY % ...").
bool declaresParameterEntities(const QString &strText);

// The position where the entities, declared or used, become too many; -1 when they expand to less
// than some ten million characters in all. In doubt it reports too many. Takes linear time.
int excessiveEntityPosition(const QString &strText);
