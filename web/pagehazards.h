#pragma once

#include <QString>

// A hazard is something in the source of a page that crashes the page engine, or keeps it busy for
// many seconds before the page is shown. A page that is only slow has none. Each limit was measured
// with the engine, at about a second of work; real pages stay far below.
enum class EPageHazard {
    None,
    Nesting, // Elements within elements.
    FlexBoxes, // Elements that each double the work for those inside.
    Columns,
    Reflections,
    Attributes, // An element has too many.
    Uses, // Parts of a drawing use other parts too often.
    Effects, // Shadows and noise.
    LongText, // A word without an end, marks on one letter, lines of a preformatted text.
    Fields, // Fields of forms and their options.
    Spans, // Table cells span too many rows.
};

// Gives the first hazard that is found. Takes linear time. Reads only this text, so it does not see
// what is in other files. bXml: the engine reads the text as XML, whatever it looks like.
// Reentrant.
EPageHazard pageHazard(const QString &strHtml, bool bXml = false);

// The same for the content of a file of that name; only markup has hazards.
EPageHazard pageHazardOfFile(const QString &strPath, const QString &strText);

// The reason for the user why such a page is not shown; it follows the word "because". Empty for no
// hazard.
QString pageHazardReason(EPageHazard hazard);
