#pragma once

#include <QByteArray>

// What of the bytes that a page asks for may reach the page engine: text, fonts, drawings that are
// named so, and pictures of a reasonable size (see pictureheader.h). The engine hands whatever it
// does not know to any picture plug-in that takes it, and that of SVG opens other files.

// bDrawing: the engine is told that it is an SVG drawing, which it draws itself.
bool isHarmlessResource(const QByteArray &data, bool bDrawing);

// The same for what is shown in a frame: markup is no drawing there.
bool isHarmlessDocument(const QByteArray &data);
