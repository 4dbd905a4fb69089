#pragma once

#include <QByteArray>

// The SVG document without the images and style sheets that lie in other files. The SVG plug-in
// opens whatever path such a one names, be it a pipe that never ends, and resolves relative ones by
// the program's working directory, where nobody wants them. Images within the document stay when
// they are pictures of a reasonable size (see pictureheader.h), not drawings with images of theirs.
// Of more stops of gradients than anybody drew the last ones go.
// Entities come out expanded, a document that is not well-formed comes out cut. A compressed
// document comes out empty: see gunzip().
QByteArray withoutLinkedImages(const QByteArray &svg);
