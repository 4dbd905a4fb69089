#include "editor/bracketlines.h"

#include "highlight/ctextdocument.h"
#include "highlight/highlightformats.h"
#include "highlight/highlightline.h"

namespace {

const int g_nCharsAtOnce = 64 * 1024;
const int g_nLinesBack = 32; // The most lines in a batch of the store.

} // namespace

CShownLines::CShownLines(const QTextBlock &first, const QTextBlock &last)
    : m_first(first),
      m_nFirst(first.blockNumber()),
      m_nLast(last.blockNumber()),
      m_block(first),
      m_nCharsLeft(g_nCharsAtOnce)
{
}

bool CShownLines::goTo(int nLine)
{
    if (nLine < m_nFirst || nLine > m_nLast || m_nCharsLeft < 0)
        return false;
    const int nBy = nLine - m_block.blockNumber();
    if (nBy == 1)
        m_block = m_block.next();
    else if (nBy == -1)
        m_block = m_block.previous();
    else if (nBy != 0)
        m_block = m_block.document()->findBlockByNumber(nLine);
    m_nCharsLeft -= m_block.length();
    return m_nCharsLeft >= 0;
}

QBitArray commentsAndStrings(const QTextBlock &block)
{
    // The two roles have the same look.
    static const QTextCharFormat s_comment = CHighlightRules::format(HighlightRole::Comment);
    QBitArray inside(block.length());
    const auto *pDocument = qobject_cast<const CTextDocument *>(block.document());
    const QVector<QTextLayout::FormatRange> lstFormats =
        pDocument ? pDocument->formats(block) : block.layout()->formats();
    for (const QTextLayout::FormatRange &range : lstFormats) {
        if (!isMark(range) && range.start < inside.size()) {
            inside.fill(range.format.foreground() == s_comment.foreground(), range.start,
                        qMin(range.start + range.length, inside.size()));
        }
    }
    return inside;
}

QBitArray CShownLines::inside()
{
    return commentsAndStrings(m_block);
}

CStoredLines::CStoredLines(const CLineStore &store, uint nVersion, const CHighlightRules &rules,
                           const std::function<bool()> &isCancelled)
    : m_store(store), m_nVersion(nVersion), m_rules(rules), m_isCancelled(isCancelled)
{
}

bool CStoredLines::holds(int nLine) const
{
    return nLine >= m_batch.nFirst && nLine < m_batch.nFirst + int(m_batch.lst.size());
}

bool CStoredLines::goTo(int nLine)
{
    if (!holds(nLine)) {
        if (m_isCancelled())
            return false;
        const bool bBack = nLine < m_nLine;
        m_batch = m_store.fetch(m_nVersion, bBack ? qMax(nLine - g_nLinesBack + 1, 0) : nLine,
                                CLineStore::Any);
        if (!holds(nLine)) // With long lines the batch ended earlier.
            m_batch = m_store.fetch(m_nVersion, nLine, CLineStore::Any);
        if (!holds(nLine))
            return false;
    }
    m_nLine = nLine;
    return true;
}

int CStoredLines::stateBefore() const
{
    const int nBefore = m_nLine - m_batch.nFirst - 1;
    return nBefore < 0 ? m_batch.nStateBefore : m_batch.lst[nBefore].nState;
}

// The search skips lines without brackets, and they may begin a comment. Colours the lines since
// the last known state.
void CStoredLines::meetRegions()
{
    const int nLine = m_nLine;
    while (m_nLine > 0 && !m_rules.knows(stateBefore()))
        if (!goTo(m_nLine - 1))
            return;
    while (m_nLine < nLine) {
        SHighlightLine passed;
        if (!m_rules.highlight(text(), stateBefore(), &passed, m_isCancelled) || !goTo(m_nLine + 1))
            return;
    }
    m_bStrangeStates = !m_rules.knows(stateBefore());
}

QBitArray CStoredLines::inside()
{
    if (!m_bStrangeStates && !m_rules.knows(stateBefore()))
        meetRegions();
    const int nState = stateBefore();
    SHighlightLine coloured;
    QBitArray inside(line().strText.length());
    if (!m_rules.highlight(line().strText, nState, &coloured, m_isCancelled))
        return inside;
    for (const SHighlightRange &range : coloured.lstRanges) {
        const bool bInside =
            range.role == HighlightRole::Comment || range.role == HighlightRole::String;
        if (range.nStart < inside.size())
            inside.fill(bInside, range.nStart, qMin(range.nStart + range.nLength, inside.size()));
    }
    return inside;
}
