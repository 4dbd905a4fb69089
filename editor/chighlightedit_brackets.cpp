// Marks the bracket beside the cursor and its partner.
#include "editor/chighlightedit.h"

#include "editor/bracketlines.h"
#include "editor/bracketmatch.h"
#include "editor/cbracketfinder.h"
#include "highlight/ctextdocument.h"

#include <QTextBlock>

QTextBlock CHighlightEdit::lastVisibleBlock() const
{
    QTextBlock block = firstVisibleBlock();
    qreal dBottom = blockBoundingGeometry(block).translated(contentOffset()).bottom();
    while (dBottom < viewport()->height() && block.next().isValid()) {
        block = block.next();
        dBottom += blockBoundingRect(block).height();
    }
    return block;
}

// The bracket after the cursor comes first, but if it has no partner, the other one counts.
CHighlightEdit::SBracketPair CHighlightEdit::bracketPair()
{
    const QTextCursor cursor = textCursor();
    const int nPosition = cursor.position();
    SBracketPair pair;
    for (const int nBracket : {nPosition, nPosition - 1}) {
        if (nBracket < 0 || !isBracket(document()->characterAt(nBracket)))
            continue;
        const QTextBlock block = document()->findBlock(nBracket);
        const SBracketPair found = pairOf(block, nBracket - block.position());
        if (found.nPartner >= 0 || found.bSearching)
            return found;
        pair = found;
    }
    return pair;
}

// Searches the visible text by its colours. A thread finds partners farther away.
CHighlightEdit::SBracketPair CHighlightEdit::pairOf(const QTextBlock &block, int nInBlock)
{
    SBracketPair pair;
    pair.nBracket = block.position() + nInBlock;
    pair.nLine = block.blockNumber();
    CShownLines shown(firstVisibleBlock(), lastVisibleBlock());
    SBracketMatch match = matchingBracket(&shown, blockCount(), block.blockNumber(), nInBlock);
    if (match.result == SBracketMatch::Beyond) {
        if (!m_pBrackets) {
            m_pBrackets = new CBracketFinder(m_pDocument->lines(), this);
            connect(m_pBrackets, &CBracketFinder::found, this, &CHighlightEdit::onBracketFound);
            if (m_definition)
                m_pBrackets->setDefinition(*m_definition);
        }
        const std::optional<SBracketMatch> answer =
            m_pBrackets->ask({m_pDocument->version(), block.blockNumber(), nInBlock});
        pair.bSearching = !answer;
        match = answer.value_or(SBracketMatch());
    }
    if (match.result == SBracketMatch::Found) {
        pair.nPartnerLine = match.nLine;
        pair.nPartner = document()->findBlockByNumber(match.nLine).position() + match.nInLine;
    }
    return pair;
}

void CHighlightEdit::onBracketFound()
{
    m_pairKey.reset();
    followBrackets();
    if (!m_jump)
        return;
    const bool bSelect = *m_jump;
    m_jump.reset();
    if (textCursor().position() == m_nJumpFrom)
        goToPartner(bSelect);
}

void CHighlightEdit::goToBracket()
{
    goToPartner(false);
}

void CHighlightEdit::selectToBracket()
{
    goToPartner(true);
}

// Goes to the same side of the partner, so that the same key leads back; a selection holds both
// brackets.
void CHighlightEdit::goToPartner(bool bSelect)
{
    const SBracketPair pair = currentPair();
    const int nPosition = textCursor().position();
    if (pair.bSearching) {
        m_jump = bSelect;
        m_nJumpFrom = nPosition;
    } else if (pair.nBracket < 0) {
        tell(tr("There is no bracket beside the cursor."));
    } else if (pair.nPartner < 0) {
        tell(tr("This bracket has no partner."));
    } else if (!bSelect) {
        const int nPlace = pair.nPartner + nPosition - pair.nBracket;
        selectRange(nPlace, nPlace, false);
    } else {
        const bool bForward = pair.nPartner > pair.nBracket;
        const int nFirst = qMin(pair.nBracket, pair.nPartner);
        const int nLast = qMax(pair.nBracket, pair.nPartner);
        selectRange(nFirst, nLast + 1, !bForward);
    }
}
