#pragma once

#include "highlight/clinestore.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"

#include <QTest>

// Runs the event loop until every line has its colours and nothing follows. Listens to no signal of
// the highlighter, because a listener would get every result. False after a minute.
inline bool awaitColours(const CTextDocument &document, const CThreadHighlighter &highlighter)
{
    int nQuiet = 0;
    return QTest::qWaitFor(
        [&] {
            const bool bBusy = highlighter.isRunning() || !document.lines()->isComplete();
            nQuiet = bBusy ? 0 : nQuiet + 1;
            return nQuiet > 5;
        },
        60000);
}
