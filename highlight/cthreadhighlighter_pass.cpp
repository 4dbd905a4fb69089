// The worker's side of the highlighter.
#include "highlight/chighlightrules.h"
#include "highlight/clinestore.h"
#include "highlight/cresultqueue.h"
#include "highlight/cselectedword.h"
#include "highlight/cthreadhighlighter.h"
#include "highlight/packedranges.h"

#include <QTextLayout>

struct CThreadHighlighter::SPass
{
    uint nVersion = 0;
    // What follows is read again for each batch.
    uint nGeneration = 0;
    bool bSyntax = false;
    bool bSelection = false;
    std::shared_ptr<const CHighlightRules> pRules;
    CSelectedWord word;
    int nFirstVisible = 0;
    int nLastVisible = -1;
    bool bPaused = false;
};

// The results of a batch of lines.
struct CThreadHighlighter::SBatchResults
{
    std::vector<SHighlightResult> lst;
    std::vector<CLineStore::SDone> lstDone; // One for each syntax result.
    std::vector<uchar> packed; // Ranges that the store may keep.

    void addSyntax(uint nVersion, int nLine, SHighlightLine *pLine, bool bSend);
    void noteKept();
};

// Adds the ranges if they are to be sent.
void CThreadHighlighter::SBatchResults::addSyntax(uint nVersion, int nLine, SHighlightLine *pLine,
                                                  bool bSend)
{
    lst.push_back({SHighlightResult::Syntax, nVersion, nLine, pLine->nState, {}, {}});
    lst.back().bKept = !bSend;
    const size_t nBefore = packed.size();
    if (bSend)
        lst.back().lstRanges = std::move(pLine->lstRanges);
    else
        packRanges(pLine->lstRanges, &packed);
    lstDone.push_back({nLine, pLine->nState, int(packed.size() - nBefore)});
}

// A block may have asked for its ranges since the batch was fetched.
void CThreadHighlighter::SBatchResults::noteKept()
{
    auto done = lstDone.cbegin();
    const uchar *pPacked = packed.data();
    for (SHighlightResult &result : lst) {
        if (result.kind != SHighlightResult::Syntax)
            continue;
        if (result.bKept && done->bSend) {
            result.bKept = false;
            result.lstRanges = unpackRanges(pPacked, size_t(done->nPacked));
        }
        pPacked += done->nPacked;
        ++done;
    }
}

void CThreadHighlighter::run()
{
    SPass pass;
    do {
        beginPass(&pass);
        runPass(&pass);
        m_queue.endFirst();
    } while (!endPass(pass));
}

void CThreadHighlighter::beginPass(SPass *pPass)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    m_bActive = true;
    if (m_bSyntaxRestart)
        m_bSyntaxWanted = true;
    if (m_bSelectionRestart)
        m_bSelectionWanted = true;
    pPass->nVersion = m_pLines->version();
    m_bSyntaxRestart = false;
    m_bSelectionRestart = false;
}

void CThreadHighlighter::runPass(SPass *pPass)
{
    for (int nLine = 0; !isCutShort(*pPass);) {
        takeRules(pPass);
        // Otherwise each remaining line would be read and then abandoned.
        pPass->bSyntax = m_bSyntaxWanted && !m_bSyntaxRestart;
        pPass->bSelection = m_bSelectionWanted && !m_bSelectionRestart;
        if (!pPass->bSyntax && !pPass->bSelection)
            return;
        if (pPass->bSyntax && processVisible(*pPass))
            continue;
        m_queue.endFirst();
        if (pPass->bPaused)
            return;
        if (pPass->bSelection && nLine == 0)
            processVisibleMarks(*pPass);
        const CLineStore::SBatch batch = m_pLines->fetch(pPass->nVersion, nLine, wanted(*pPass));
        if (batch.lst.empty()) {
            if (pPass->bSyntax)
                m_pLines->finishPass(pPass->nVersion);
            return;
        }
        if (processBatch(*pPass, batch))
            nLine = batch.nFirst + int(batch.lst.size());
    }
}

// The marks of lines that no block holds are found when the line is laid out.
CLineStore::Which CThreadHighlighter::wanted(const SPass &pass) const
{
    if (!pass.bSelection)
        return CLineStore::Stale;
    return m_pLines->isSparse() && !m_bOthersListen ? CLineStore::StaleOrHeld : CLineStore::Any;
}

// The rules may change in the middle of a pass. The generation is read first, so that a result of
// old rules is never taken for one of the new rules.
void CThreadHighlighter::takeRules(SPass *pPass) const
{
    pPass->nGeneration = m_pLines->generation();
    const std::lock_guard<std::mutex> locker(m_mutex);
    pPass->pRules = m_pRules;
    pPass->nFirstVisible = m_nFirstVisible;
    pPass->nLastVisible = m_nLastVisible;
    pPass->bPaused = m_bPaused;
    if (pPass->word.text() != m_strWord)
        pPass->word = CSelectedWord(m_strWord);
}

// Results of an old version cannot be applied any more. The edit that began the new version brings
// a request.
bool CThreadHighlighter::isCutShort(const SPass &pass) const
{
    return m_bStop || (m_bSyntaxRestart && m_bSelectionRestart)
        || m_pLines->version() != pass.nVersion;
}

// Visible lines come first, but never as a guess: its colours depend on the states of all lines
// before it. These states are computed first, which is fast; the results of those lines come in
// their turn, because showing them takes long. False when nothing that can be seen is left to do.
bool CThreadHighlighter::processVisible(const SPass &pass)
{
    if (pass.nLastVisible < pass.nFirstVisible)
        return false;
    const CLineStore::SBatch visible =
        m_pLines->fetchAmong(pass.nVersion, pass.nFirstVisible, pass.nLastVisible);
    if (!visible.lst.empty())
        return processBatch(pass, visible, CLineStore::First);
    const CLineStore::SBatch before =
        m_pLines->fetchBefore(pass.nVersion, pass.nFirstVisible, pass.nLastVisible);
    return !before.lst.empty() && processStates(pass, before);
}

// The marks that can be seen come before those of earlier lines. They come once more in their turn,
// and then change nothing.
void CThreadHighlighter::processVisibleMarks(const SPass &pass)
{
    const auto isAborted = [&] { return m_bSelectionRestart || isCutShort(pass); };
    int nLine = pass.nFirstVisible;
    while (nLine <= pass.nLastVisible && !isAborted()) {
        const CLineStore::SBatch batch = m_pLines->fetch(pass.nVersion, nLine, CLineStore::Any);
        if (batch.lst.empty())
            return;
        std::vector<SHighlightResult> lstResults;
        for (const CLineStore::SLine &line : batch.lst) {
            QList<QTextLayout::FormatRange> lstMarks;
            if (nLine > pass.nLastVisible
                || !pass.word.findMarks(line.strText, &lstMarks, isAborted))
                break;
            lstResults.push_back(
                {SHighlightResult::SelectedWord, pass.nVersion, nLine, 0, {}, lstMarks});
            ++nLine;
        }
        send(pass, &lstResults, CLineStore::First);
    }
}

bool CThreadHighlighter::processStates(const SPass &pass, const CLineStore::SBatch &batch)
{
    const auto isAborted = [&] { return m_bSyntaxRestart || isCutShort(pass); };
    std::vector<CLineStore::SDone> lstDone;
    SHighlightLine coloured;
    int nLine = batch.nFirst;
    int nState = batch.nStateBefore;
    for (const CLineStore::SLine &line : batch.lst) {
        if (!pass.pRules->highlight(line.strText, nState, &coloured, isAborted))
            break;
        nState = coloured.nState;
        lstDone.push_back({nLine++, nState});
    }
    return m_pLines->commitStates(pass.nVersion, pass.nGeneration, lstDone);
}

bool CThreadHighlighter::processBatch(const SPass &pass, const CLineStore::SBatch &batch,
                                      CLineStore::Order order)
{
    const auto isSyntaxAborted = [&] { return m_bSyntaxRestart || isCutShort(pass); };
    const auto isSelectionAborted = [&] { return m_bSelectionRestart || isCutShort(pass); };
    SBatchResults results;
    const bool bSendAll = !m_pLines->isSparse() || m_bOthersListen;
    SHighlightLine coloured;
    int nState = batch.nStateBefore;
    bool bChanged = false; // The state before this line is a new one.
    bool bSyntax = pass.bSyntax;
    const bool bSelection = pass.bSelection && order == CLineStore::InOrder;
    int nLine = batch.nFirst;
    for (const CLineStore::SLine &line : batch.lst) {
        if (bSyntax && (line.bStale || bChanged)) {
            bSyntax = pass.pRules->highlight(line.strText, nState, &coloured, isSyntaxAborted);
            if (bSyntax) {
                bChanged = coloured.nState != line.nState;
                nState = coloured.nState;
                results.addSyntax(pass.nVersion, nLine, &coloured, bSendAll || line.bHeld);
            }
        } else {
            nState = line.nState;
            bChanged = false;
        }
        QList<QTextLayout::FormatRange> lstMarks;
        if (bSelection && (bSendAll || line.bHeld)
            && pass.word.findMarks(line.strText, &lstMarks, isSelectionAborted)) {
            results.lst.push_back(
                {SHighlightResult::SelectedWord, pass.nVersion, nLine, 0, {}, lstMarks});
        }
        ++nLine;
    }
    if (!m_pLines->commit(pass.nVersion, pass.nGeneration, &results.lstDone, results.packed,
                          bSendAll, order))
        return false;
    results.noteKept();
    send(pass, &results.lst, order);
    return true;
}

// True when the run is over. A later request finds the worker inactive and starts it again.
bool CThreadHighlighter::endPass(const SPass &pass)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    const bool bAgain = !m_bStop && (m_bSyntaxRestart || (m_bSelectionRestart && !pass.bPaused));
    const bool bFinished = !m_bStop && m_pLines->version() == pass.nVersion;
    // What was asked for during a pause waits until the pause is over.
    if (!pass.bPaused && (bAgain || bFinished)) {
        m_bSyntaxWanted = false;
        m_bSelectionWanted = false;
    }
    m_bActive = bAgain;
    return !bAgain;
}

void CThreadHighlighter::send(const SPass &pass, std::vector<SHighlightResult> *pResults,
                              CLineStore::Order order)
{
    if (order == CLineStore::First)
        m_queue.pushFirst(*pResults);
    else
        m_queue.push(*pResults, [&] { return isCutShort(pass); });
    if (!m_bDelivering.exchange(true))
        QMetaObject::invokeMethod(this, &CThreadHighlighter::deliver, Qt::QueuedConnection);
}
