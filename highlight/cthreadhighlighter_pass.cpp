// The worker's side of the highlighter.
#include "highlight/chighlightrules.h"
#include "highlight/cselectedword.h"
#include "highlight/cthreadhighlighter.h"

struct CThreadHighlighter::Pass
{
    uint nVersion = 0;
    // What follows is looked at anew for each batch.
    uint nGeneration = 0;
    bool bSyntax = false;
    bool bSelection = false;
    std::shared_ptr<const CHighlightRules> pRules;
    CSelectedWord word;
};

namespace {

QList<QTextLayout::FormatRange> toFormatRanges(const std::vector<HighlightRange> &lst)
{
    static const QTextCharFormat arrFormats[] = {
        CHighlightRules::format(HighlightRole::Keyword),
        CHighlightRules::format(HighlightRole::Comment),
        CHighlightRules::format(HighlightRole::String),
        CHighlightRules::format(HighlightRole::Number),
        CHighlightRules::format(HighlightRole::Operator),
    };
    QList<QTextLayout::FormatRange> lstResult;
    lstResult.reserve(int(lst.size()));
    for (const HighlightRange &range : lst) {
        lstResult.append({range.nStart, range.nLength, arrFormats[int(range.role)]});
    }
    return lstResult;
}

} // namespace

void CThreadHighlighter::run()
{
    Pass pass;
    do {
        beginPass(&pass);
        runPass(&pass);
    } while (!endPass(pass));
}

void CThreadHighlighter::beginPass(Pass *pPass)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    m_bActive = true;
    if (m_bSyntaxRestart) {
        m_bSyntaxWanted = true;
    }
    if (m_bSelectionRestart) {
        m_bSelectionWanted = true;
    }
    pPass->nVersion = m_pLines->version();
    m_bSyntaxRestart = false;
    m_bSelectionRestart = false;
}

void CThreadHighlighter::runPass(Pass *pPass)
{
    for (int nLine = 0; !isCutShort(*pPass);) {
        takeRules(pPass);
        // A restarted half of the pass would be abandoned line by line; the rest is not even read.
        pPass->bSyntax = m_bSyntaxWanted && !m_bSyntaxRestart;
        pPass->bSelection = m_bSelectionWanted && !m_bSelectionRestart;
        if (!pPass->bSyntax && !pPass->bSelection) {
            return;
        }
        const CLineStore::Batch batch = m_pLines->fetch(pPass->nVersion, nLine, !pPass->bSelection);
        if (batch.lst.empty()) {
            if (pPass->bSyntax) {
                m_pLines->finishPass(pPass->nVersion);
            }
            return;
        }
        if (processBatch(*pPass, batch)) {
            nLine = batch.nFirst + int(batch.lst.size());
        }
    }
}

// The rules may change in the middle of a pass. The generation is read first: a result of old rules
// is then never taken for one of the new.
void CThreadHighlighter::takeRules(Pass *pPass) const
{
    pPass->nGeneration = m_pLines->generation();
    const std::lock_guard<std::mutex> locker(m_mutex);
    pPass->pRules = m_pRules;
    if (pPass->word.text() != m_strWord) {
        pPass->word = CSelectedWord(m_strWord);
    }
}

// Nothing of an old version can be applied any more; the edit that began the new one brings a
// request.
bool CThreadHighlighter::isCutShort(const Pass &pass) const
{
    return m_bStop || (m_bSyntaxRestart && m_bSelectionRestart)
        || m_pLines->version() != pass.nVersion;
}

bool CThreadHighlighter::processBatch(const Pass &pass, const CLineStore::Batch &batch)
{
    const auto isSyntaxAborted = [&] { return m_bSyntaxRestart || isCutShort(pass); };
    const auto isSelectionAborted = [&] { return m_bSelectionRestart || isCutShort(pass); };
    std::vector<HighlightResult> lstResults;
    std::vector<CLineStore::Done> lstDone;
    HighlightLine coloured;
    int nState = batch.nStateBefore;
    bool bChanged = false; // the state in front of this line is not the one it was computed with
    bool bSyntax = pass.bSyntax;
    int nLine = batch.nFirst;
    for (const CLineStore::Line &line : batch.lst) {
        if (bSyntax && (line.bStale || bChanged)) {
            bSyntax = pass.pRules->highlight(line.strText, nState, &coloured, isSyntaxAborted);
            if (bSyntax) {
                bChanged = coloured.nState != line.nState;
                nState = coloured.nState;
                lstDone.push_back({nLine, nState});
                lstResults.push_back({HighlightResult::Syntax, pass.nVersion, nLine, nState,
                                      toFormatRanges(coloured.lstRanges)});
            }
        } else {
            nState = line.nState;
            bChanged = false;
        }
        QList<QTextLayout::FormatRange> lstMarks;
        if (pass.bSelection && pass.word.findMarks(line.strText, &lstMarks, isSelectionAborted)) {
            lstResults.push_back(
                {HighlightResult::SelectedWord, pass.nVersion, nLine, 0, lstMarks});
        }
        ++nLine;
    }
    if (!m_pLines->commit(pass.nVersion, pass.nGeneration, lstDone)) {
        return false;
    }
    send(pass, &lstResults);
    return true;
}

// True when the run is over. A request that comes later finds the worker inactive and starts it
// anew.
bool CThreadHighlighter::endPass(const Pass &pass)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    if (!m_bStop && (m_bSyntaxRestart || m_bSelectionRestart)) {
        m_bSyntaxWanted = false;
        m_bSelectionWanted = false;
        return false;
    }
    if (!m_bStop && m_pLines->version() == pass.nVersion) {
        m_bSyntaxWanted = false;
        m_bSelectionWanted = false;
    }
    m_bActive = false;
    return true;
}

void CThreadHighlighter::send(const Pass &pass, std::vector<HighlightResult> *pResults)
{
    m_queue.push(*pResults, [&] { return isCutShort(pass); });
    if (!m_bDelivering.exchange(true)) {
        QMetaObject::invokeMethod(this, &CThreadHighlighter::deliver, Qt::QueuedConnection);
    }
}
