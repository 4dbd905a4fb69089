#include "editor/documentsearch.h"

#include "editor/linereplace.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

int searchStart(const QTextCursor &cursor, bool bSearchUp, bool bFromEnd)
{
    if (bFromEnd)
        return bSearchUp ? documentEnd(cursor.document()) : 0;
    const int nPosition = cursor.position();
    const int nAnchor = cursor.anchor();
    if (bSearchUp)
        return qMin(nPosition, nAnchor) - 1;
    return nPosition < nAnchor ? nAnchor + 1 : qMax(nPosition, 0);
}

int documentEnd(const QTextDocument *pDocument)
{
    const QTextBlock last = pDocument->lastBlock();
    return last.position() + last.length() - 1;
}

DocumentMatch findFrom(const QTextDocument *pDocument, const CLineSearch &search, int nStart)
{
    const bool bUp = search.options().bSearchUp;
    DocumentMatch match;
    if (nStart < 0)
        return match;
    QTextBlock block = pDocument->findBlock(nStart);
    int nOffset = nStart - block.position();
    while (block.isValid()) {
        match.range = search.find(block.text(), nOffset);
        if (match.isValid()) {
            match.block = block;
            return match;
        }
        block = bUp ? block.previous() : block.next();
        nOffset = bUp ? -1 : 0;
    }
    return match;
}

namespace {

void select(QTextCursor *pEdit, int nStart, int nLength)
{
    pEdit->setPosition(nStart);
    pEdit->setPosition(nStart + nLength, QTextCursor::KeepAnchor);
}

void applyToBlock(QTextCursor *pEdit, const QTextBlock &block, const LineReplacement &replacement,
                  const QString &strReplace, bool bOneByOne)
{
    const int nBlock = block.position();
    // With the format given, the cursor need not look up the one in force at each place.
    const QTextCharFormat format;
    if (!bOneByOne) {
        select(pEdit, nBlock, block.length() - 1);
        pEdit->insertText(replacement.strText, format);
        return;
    }
    for (const LineMatch &edit : replacement.lstEdits) {
        select(pEdit, nBlock + edit.nStart, edit.nLength);
        pEdit->insertText(strReplace, format);
    }
}

} // namespace

int replaceEverywhere(QTextCursor *pEdit, const CLineSearch &search, const QString &strReplace,
                      const QTextCursor &keep)
{
    const bool bUp = search.options().bSearchUp;
    const QTextDocument *pDocument = pEdit->document();
    const QTextBlock keepPosition = pDocument->findBlock(keep.position());
    const QTextBlock keepAnchor = pDocument->findBlock(keep.anchor());
    int nCount = 0;
    QTextBlock block = bUp ? pDocument->lastBlock() : pDocument->begin();
    // The first search upwards starts behind the last line's text, as does one that follows a match
    // in the first column; all others at the last character. Empty matches tell the difference.
    int nOffset = bUp ? block.length() - 1 : 0;
    while (block.isValid()) {
        const LineReplacement replacement =
            replaceInLine(search, block.text(), nOffset, strReplace);
        nCount += replacement.nMatches;
        if (!replacement.lstEdits.isEmpty()) {
            applyToBlock(pEdit, block, replacement, strReplace,
                         block == keepPosition || block == keepAnchor);
        }
        block = bUp ? block.previous() : block.next();
        nOffset = !bUp ? 0 : replacement.bAtLineStart ? block.length() - 1 : -1;
    }
    return nCount;
}

bool holdsBlockEnd(const QString &strText)
{
    // Qt takes these for ends of paragraphs and frames.
    static const ushort s_arrEnds[] = {'\n', '\r', 0x2029, 0xfdd0, 0xfdd1};
    return std::any_of(strText.cbegin(), strText.cend(), [](QChar c) {
        return std::find(std::begin(s_arrEnds), std::end(s_arrEnds), c.unicode())
            != std::end(s_arrEnds);
    });
}
