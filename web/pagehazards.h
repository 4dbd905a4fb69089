#pragma once

#include <QString>

// What the source of a page holds that ends the page engine, or keeps it busy for many seconds
// before the page is shown. What is only slow is none. Every limit was measured with the engine, at
// about a second of work; pages of the world stay far below.
enum class EPageHazard {
    None,
    Nesting, // Elements within elements.
    FlexBoxes, // Each doubles the work of those within it.
    Columns,
    Reflections,
    Attributes, // Of one element.
    Uses, // Of parts of a drawing by parts of it.
    Effects, // Shadows and noise.
    LongText, // A word without an end, marks on one letter, lines of a preformatted text.
    Fields, // Of forms, and what they offer.
    Spans, // Of table cells over rows.
};

// The first that is found. Linear in the text's length; reads nothing else, so what lies in other
// files is not seen. bXml: the engine reads it as XML, whatever it looks like. Reentrant.
EPageHazard pageHazard(const QString &strHtml, bool bXml = false);

// The same for what lies in a file of that name; nothing but markup has hazards.
EPageHazard pageHazardOfFile(const QString &strPath, const QString &strText);

// Why such a page is not shown, for the user: fits behind "as". Empty for none.
QString pageHazardReason(EPageHazard hazard);
