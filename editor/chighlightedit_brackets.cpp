// Marks the bracket beside the cursor and its partner.
#include "editor/chighlightedit.h"

#include "editor/cbracketpair.h"

#include <QTextBlock>

#include <utility>

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

const SBracketPair &CHighlightEdit::currentPair()
{
    return m_pBrackets->at(
        textCursor().position(),
        {firstVisibleBlock(), viewport()->height(), [this] { return lastVisibleBlock(); }});
}

void CHighlightEdit::followBrackets()
{
    const SBracketPair &pair = currentPair();
    if (pair.isSamePair(m_shownPair))
        return;
    const SBracketPair before = std::exchange(m_shownPair, pair);
    repaintLines({before.nLine, before.nPartnerLine, pair.nLine, pair.nPartnerLine});
}

void CHighlightEdit::onBracketFound()
{
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
