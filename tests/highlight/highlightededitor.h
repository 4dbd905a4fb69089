#pragma once

#include "highlight/chighlightrules.h"
#include "highlight/cliteralrules.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"
#include "highlight/highlightline.h"

#include <QTextDocument>
#include <QTextLayout>

// A document with its highlighter, connected as an editor connects them.
struct SHighlightedEditor
{
    CTextDocument document;
    CThreadHighlighter *pHighlighter = new CThreadHighlighter(&document);

    SHighlightedEditor()
    {
        QObject::connect(&document, &QTextDocument::contentsChange, pHighlighter,
                         &CThreadHighlighter::stopThread, Qt::QueuedConnection);
        QObject::connect(&document, &QTextDocument::contentsChanged, pHighlighter,
                         &CThreadHighlighter::rehighlight, Qt::QueuedConnection);
    }

    // Runs the event loop until no pass runs, every result has arrived and nothing more comes;
    // false when that takes more than nMs.
    bool settle(int nMs = 120000);
};

// The first block whose state or syntax ranges are not those that the literal rules give for the
// text of the document; an empty text when there is none.
QString firstDifference(const QTextDocument &document, const CLiteralRules &rules);
// The same for rules made anew from a definition, for what only these rules know.
QString firstDifference(const QTextDocument &document, const CHighlightRules &rules);

// The ranges as additional formats, as a block carries them.
QVector<QTextLayout::FormatRange> toFormats(const SHighlightLine &line);
