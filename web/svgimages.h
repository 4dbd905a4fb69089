#pragma once

#include <QByteArray>

// The SVG document without images and style sheets in other files. The SVG plug-in opens any path
// that a drawing names, even a pipe that never ends, and takes relative paths from the program's
// working directory. Images inside the document stay if they are pictures of a reasonable size (see
// pictureheader.h), but not if they are drawings. Excessive stops of gradients are removed from the
// end. In the result entities are expanded, and a document that is not well-formed is cut. A
// compressed document gives an empty result: see gunzip().
QByteArray withoutLinkedImages(const QByteArray &svg);
