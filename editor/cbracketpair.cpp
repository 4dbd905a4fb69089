#include "editor/cbracketpair.h"

#include "editor/bracketlines.h"
#include "editor/bracketmatch.h"
#include "editor/cbracketfinder.h"
#include "highlight/ctextdocument.h"

CBracketPair::CBracketPair(CTextDocument *pDocument, QObject *pParent)
    : QObject(pParent),
      m_pDocument(pDocument),
      m_pFinder(new CBracketFinder(pDocument->lines(), this))
{
    connect(
        m_pFinder, &CBracketFinder::found, this,
        [this] {
            m_key.reset();
            emit found();
        });
}

void CBracketPair::setDefinition(const QVariantMap &mapDefinition)
{
    m_key.reset();
    m_pFinder->setDefinition(mapDefinition);
}

const SBracketPair &CBracketPair::at(int nPosition, const SView &view)
{
    const SKey key {m_pDocument->version(), m_pDocument->look(), nPosition,
                    view.first.blockNumber(), view.nHeight};
    if (!m_key || !(*m_key == key)) {
        m_pair = search(nPosition, view);
        m_key = key;
    }
    return m_pair;
}

// The bracket after the cursor comes first, but if it has no partner, the other one counts.
SBracketPair CBracketPair::search(int nPosition, const SView &view)
{
    SBracketPair pair;
    for (const int nBracket : {nPosition, nPosition - 1}) {
        if (nBracket < 0 || !isBracket(m_pDocument->characterAt(nBracket)))
            continue;
        const QTextBlock block = m_pDocument->findBlock(nBracket);
        const SBracketPair found = pairOf(block, nBracket - block.position(), view);
        if (found.nPartner >= 0 || found.bSearching)
            return found;
        pair = found;
    }
    return pair;
}

SBracketPair CBracketPair::pairOf(const QTextBlock &block, int nInBlock, const SView &view)
{
    SBracketPair pair;
    pair.nBracket = block.position() + nInBlock;
    pair.nLine = block.blockNumber();
    CShownLines shown(view.first, view.last());
    SBracketMatch match =
        matchingBracket(&shown, m_pDocument->blockCount(), block.blockNumber(), nInBlock);
    if (match.result == SBracketMatch::Beyond) {
        const std::optional<SBracketMatch> answer =
            m_pFinder->ask({m_pDocument->version(), block.blockNumber(), nInBlock});
        pair.bSearching = !answer;
        match = answer.value_or(SBracketMatch());
    }
    if (match.result == SBracketMatch::Found) {
        pair.nPartnerLine = match.nLine;
        pair.nPartner = m_pDocument->findBlockByNumber(match.nLine).position() + match.nInLine;
    }
    return pair;
}
