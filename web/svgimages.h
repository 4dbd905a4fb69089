#pragma once

#include <QByteArray>

// The SVG document without the images that lie in other files; those within it stay. The SVG
// plug-in opens whatever path such an image names, be it a pipe that never ends, and resolves
// relative ones by the program's working directory, where nobody wants them. Entities come out
// expanded, a document that is not well-formed comes out cut. A compressed document comes out
// empty: see gunzip().
QByteArray withoutLinkedImages(const QByteArray &svg);
