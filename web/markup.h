#pragma once

#include <QColor>
#include <QString>

// Small conversions between the web view's texts and ours. Pure functions, no widgets.

// Mends a browser's serialisation of a page so that it reads back as the same page. It mends the
// first line end of preformatted text, carriage returns, text that has no entities (of frames, for
// example), and the XML declaration, which is kept as a comment (WHATWG HTML, 13.3 Serializing HTML
// fragments).
QString repairSerialised(const QString &strHtml);

// The text as a JavaScript string literal with its quotes.
QString scriptString(const QString &strText);

// "#rrggbb", a colour name, "rgb(r, g, b)" or "rgba(r, g, b, a)" with a from 0 to 1. Anything else
// is an invalid colour.
QColor colorFromCss(const QString &strCss);

// The first family of a CSS font list without its quotes.
QString firstFontFamily(const QString &strCss);
