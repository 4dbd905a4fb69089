#include "highlight/ctextdocument.h"

#include "highlight/clinestore.h"
#include "highlight/cplaintextlayout.h"
#include "highlight/highlightformats.h"
#include "highlight/highlightline.h"
#include "highlight/shiftedranges.h"

#include <QTextCursor>
#include <algorithm>
#include <iterator>
#include <vector>

namespace {

// For that many blocks it is quicker to copy the whole text at once and look for line ends than to
// ask each block for its text.
constexpr int g_nLinesToCopyAtOnce = 500;

// About as many as can be seen.
constexpr int g_nLinesToCompare = 100;

// The limits for Qt's layout of one line, beyond which it stalls: its time grows with the length,
// and faster than the number of ranges.
constexpr int g_nMaxColouredLength = 100000;
constexpr int g_nMaxRanges = 8000;

// In texts of this size, formats that nobody looks at would take more memory than the text.
constexpr int g_nLargeFrom = 4000000;

using Ranges = QVector<QTextLayout::FormatRange>;

// The ranges in the first part of a line, up to the number that can be shown.
Ranges shownRanges(const Ranges &lst)
{
    if (lst.size() <= g_nMaxRanges)
        return lst;
    std::vector<int> lstStarts;
    for (const QTextLayout::FormatRange &range : lst)
        lstStarts.push_back(range.start);
    std::nth_element(lstStarts.begin(), lstStarts.begin() + g_nMaxRanges, lstStarts.end());
    const int nLimit = lstStarts[g_nMaxRanges];
    Ranges lstShown;
    std::copy_if(lst.begin(), lst.end(), std::back_inserter(lstShown),
                 [nLimit](const QTextLayout::FormatRange &range) { return range.start < nLimit; });
    return lstShown;
}

QString textOfLines(const QTextBlock &first, int nLines)
{
    const QTextBlock last = first.document()->findBlockByNumber(first.blockNumber() + nLines - 1);
    QTextCursor cursor(first);
    cursor.setPosition(last.position() + last.length() - 1, QTextCursor::KeepAnchor);
    return cursor.selectedText();
}

// Joins the new ranges of one kind with the old ones of the other kind. Marks come last.
Ranges withOthers(bool bMarks, const Ranges &lst, const Ranges &lstBefore)
{
    const auto isReplaced = [bMarks](const QTextLayout::FormatRange &range) {
        return isMark(range) == bMarks;
    };
    if (std::all_of(lstBefore.begin(), lstBefore.end(), isReplaced))
        return lst;
    Ranges lstOthers;
    std::remove_copy_if(lstBefore.begin(), lstBefore.end(), std::back_inserter(lstOthers),
                        isReplaced);
    return bMarks ? lstOthers + lst : lst + lstOthers;
}

} // namespace

CTextDocument::CTextDocument(QObject *pParent)
    : QTextDocument(pParent),
      m_pLines(std::make_shared<CLineStore>()),
      m_pLayout(new CPlainTextLayout(this)),
      m_nLargeFrom(g_nLargeFrom)
{
    setDocumentLayout(m_pLayout);
    connect(this, &QTextDocument::contentsChange, this, &CTextDocument::updateLines);
}

CTextDocument::~CTextDocument() = default;

uint CTextDocument::version() const
{
    return m_pLines->version();
}

bool CTextDocument::isInRows(const QTextBlock &block) const
{
    return m_pLayout->isInRows(block);
}

void CTextDocument::onContentsChange()
{
    m_pLines->touch();
}

void CTextDocument::followSize()
{
    const bool bLarge = characterCount() >= m_nLargeFrom;
    if (bLarge && !m_pLines->mayKeepRanges())
        m_pLayout->setFormatSource([this](const QTextBlock &block, Ranges *pFormats) {
            return holdFormats(block, pFormats);
        });
    m_pLines->setSparse(bLarge);
}

// Qt gives the change in characters, and sometimes counts the last block's separator. The lines
// that hold the new characters are read again; how many they replace follows from the line counts.
void CTextDocument::updateLines(int nPosition, int nCharsRemoved, int nCharsAdded)
{
    followSize();
    const int nLast = characterCount() - 1;
    QTextBlock block = findBlock(std::clamp(nPosition, 0, nLast));
    int nFirst = block.blockNumber();
    int nNew = findBlock(std::min(nPosition + nCharsAdded, nLast)).blockNumber() - nFirst + 1;
    int nOld = m_pLines->count() - blockCount() + nNew;
    if (nOld < 1 || nFirst + nOld > m_pLines->count()) {
        block = begin();
        nFirst = 0;
        nNew = blockCount();
        nOld = m_pLines->count();
    } else if (nOld == 1 && nNew == 1) {
        shiftFormats(block, nPosition - block.position(), nCharsRemoved, nCharsAdded);
    } else if (nOld == nNew && nNew <= g_nLinesToCompare) {
        noteLines(block, nFirst, nNew);
    }
    if (nNew > g_nLinesToCopyAtOnce) {
        const bool bAll = nNew > blockCount() / 2;
        const QString strText = bAll ? toRawText() : textOfLines(block, nNew);
        int nAt = bAll ? block.position() : 0;
        m_pLines->replace(nFirst, nOld, nNew, [&strText, &nAt] {
            const int nEnd = strText.indexOf(QChar::ParagraphSeparator, nAt);
            QString strLine = strText.mid(nAt, nEnd < 0 ? -1 : nEnd - nAt);
            nAt += strLine.size() + 1;
            return strLine;
        });
        return;
    }
    m_pLines->replace(nFirst, nOld, nNew, [&block] {
        QString strText = block.text();
        block = block.next();
        return strText;
    });
}

// The colours move with the text, so that after most keys the new ones change nothing.
void CTextDocument::shiftFormats(const QTextBlock &block, int nAt, int nRemoved, int nAdded)
{
    m_pLayout->noteLine(
        block, shiftedRanges(block.layout()->formats(), nAt, nRemoved, nAdded, block.length() - 1));
}

// For an edit at several carets, which are in only some of the lines.
void CTextDocument::noteLines(const QTextBlock &first, int nFirst, int nCount)
{
    QVector<QTextBlock> lstChanged;
    QTextBlock block = first;
    for (int n = nFirst; n < nFirst + nCount; ++n, block = block.next()) {
        if (isInRows(block))
            return;
        if (m_pLines->text(n) != block.text())
            lstChanged.append(block);
    }
    m_pLayout->noteLines(first, nCount, lstChanged);
}

// NOLINTBEGIN(performance-unnecessary-value-param): as the queued signals carry them.
void CTextDocument::onHighlightBlock(uint nVer, QTextBlock tb, QList<QTextLayout::FormatRange> lst)
{
    replaceRanges(SyntaxRange, nVer, tb, lst.toVector());
}

void CTextDocument::onHighlightSelected(uint nVer, QTextBlock tb,
                                        QList<QTextLayout::FormatRange> lst)
{
    replaceRanges(SelectedWordMark, nVer, tb, lst.toVector());
}
// NOLINTEND(performance-unnecessary-value-param)

void CTextDocument::setSyntaxRanges(uint nVer, const QTextBlock &block, const Ranges &lst)
{
    replaceRanges(SyntaxRange, nVer, block, lst);
}

void CTextDocument::replaceRanges(Kind kind, uint nVer, const QTextBlock &tb, const Ranges &lst)
{
    QTextLayout *pLayout = nVer == version() && tb.isValid() ? tb.layout() : nullptr;
    if (!pLayout)
        return;
    Ranges lstBefore = pLayout->formats();
    if (m_pLines->mayKeepRanges())
        holdFormats(tb, &lstBefore);
    Ranges lstRanges;
    if (tb.length() <= g_nMaxColouredLength)
        lstRanges = shownRanges(withOthers(kind == SelectedWordMark, lst, lstBefore));
    if (lstRanges == pLayout->formats())
        return; // Most blocks of a pass that marks a word.

    ++m_nLook;
    m_pLayout->setFormats(tb, lstRanges);
}

Ranges CTextDocument::marksIn(const QTextBlock &block) const
{
    return m_marker ? m_marker(block.text()).toVector() : Ranges();
}

Ranges CTextDocument::formats(const QTextBlock &block) const
{
    const auto kept =
        m_pLines->mayKeepRanges() ? m_pLines->keptRanges(block.blockNumber()) : std::nullopt;
    if (!kept)
        return block.layout()->formats();
    return block.length() <= g_nMaxColouredLength
        ? shownRanges(withOthers(true, marksIn(block), formatsOf(*kept)))
        : Ranges();
}

// Makes all further results go to the block. False when the block has all known ranges already.
bool CTextDocument::holdFormats(const QTextBlock &block, Ranges *pFormats)
{
    std::vector<SHighlightRange> lstKept;
    const CLineStore::Ranges found = m_pLines->hold(block.blockNumber(), &lstKept);
    if (found == CLineStore::Ranges::Held)
        return false;
    const bool bKept = found == CLineStore::Ranges::Kept;
    const Ranges lstSyntax = bKept ? formatsOf(lstKept) : block.layout()->formats();
    pFormats->clear();
    if (block.length() <= g_nMaxColouredLength)
        *pFormats = shownRanges(withOthers(true, marksIn(block), lstSyntax));
    return true;
}

void CTextDocument::clearAdditionalFormats()
{
    if (m_pLines->mayKeepRanges()) {
        const std::vector<int> lstHeld = m_pLines->forgetRanges();
        for (const int nLine : lstHeld)
            findBlockByNumber(nLine).layout()->clearFormats();
    } else {
        for (QTextBlock block = begin(); block.isValid(); block = block.next())
            if (QTextLayout *pLayout = block.layout())
                pLayout->clearFormats();
    }
    ++m_nLook;
    markContentsDirty(0, characterCount());
    // The blocks no longer have the ranges that an incremental pass would leave alone.
    m_pLines->markAllStale();
}
