#pragma once

#include "app/xmlguard.h"

#include <QString>

// Checking and laying out of document contents, without a widget.

// The text as XML, without namespace processing. Reads no other file. A text made to exhaust stack,
// memory or time (see xmlguard.h) is refused with a message of its own.
SParseResult parseXml(const QString &strText);

// The text parsed and serialised with an indent of 4 spaces. Only for what parseXml() finds good.
QString formattedXml(const QString &strText);

// The JSON parser's own words on the text. They are "no error occurred", not empty, for good JSON;
// the line is 0 then. Else line and column are those of the place where the parser stopped.
SParseResult parseJson(const QString &strText);

// The text in the JSON writer's indented form; empty for what is not JSON.
QString formattedJson(const QString &strText);
