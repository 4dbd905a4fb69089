#pragma once

#include <QString>

// A bound on what the entities declared in an XML text expand to, found without parsing it.

// True when the text declares entities for use in declarations ("<!ENTITY % ...").
bool declaresParameterEntities(const QString &strText);

// The position from which on there are too many entities, declared or used; -1 when they stay
// within some ten million characters in all. Errs on the safe side, never on the other. Linear
// time.
int excessiveEntityPosition(const QString &strText);
