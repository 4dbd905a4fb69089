#pragma once

#include "app/xmlguard.h"

#include <QString>

// Checking and laying out of document contents, without a widget.

// The text as XML, without namespace processing. Reads no other file. A text made to exhaust stack,
// memory or time (see xmlguard.h) is refused with a message of its own.
SParseResult parseXml(const QString &strText);

// The text parsed and serialised with an indent of 4 spaces. Only for text that parseXml() accepts.
QString formattedXml(const QString &strText);

// The JSON parser's message on the text. For good JSON it is "no error occurred", not empty, and
// the line is 0. Otherwise line and column tell where the parser stopped.
SParseResult parseJson(const QString &strText);

// The text in the JSON writer's indented form; empty if it is not JSON.
QString formattedJson(const QString &strText);
