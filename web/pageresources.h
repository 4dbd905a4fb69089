#pragma once

#include <QByteArray>

// Decides which bytes may reach the page engine: text, fonts, drawings with the name of one, and
// pictures of a reasonable size (see pictureheader.h). The engine gives unknown bytes to any
// picture plug-in that takes them, and the one for SVG opens other files.

// bDrawing: the engine is told that it is an SVG drawing, which it draws itself.
bool isHarmlessResource(const QByteArray &data, bool bDrawing);

// The same for the content of a frame: markup is no drawing there.
bool isHarmlessDocument(const QByteArray &data);
