#include "editor/cbracketfinder.h"

#include "editor/bracketlines.h"
#include "highlight/chighlightrules.h"

namespace {

// Somebody who types or holds an arrow key does not wait for the answer.
const int g_nPauseMs = 30;
const int g_nPauseWhileColouringMs = 300;

} // namespace

CBracketFinder::CBracketFinder(std::shared_ptr<CLineStore> pLines, QObject *pParent)
    : QObject(pParent), m_pLines(std::move(pLines))
{
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CBracketFinder::search);
}

void CBracketFinder::setDefinition(const QVariantMap &mapDefinition)
{
    m_definition = mapDefinition;
    m_answered = SQuestion();
    m_asked.reset();
    m_job.cancel();
}

std::optional<SBracketMatch> CBracketFinder::ask(const SQuestion &question)
{
    if (question == m_answered)
        return m_answer;
    if (!m_asked || !(*m_asked == question)) {
        m_asked = question;
        m_job.cancel();
        m_timer.start(g_nPauseMs);
    }
    return std::nullopt;
}

void CBracketFinder::search()
{
    if (!m_asked)
        return;
    const auto work = [this, pLines = m_pLines, question = *m_asked,
                       definition = m_definition](const CBackgroundJob::Cancelled &isCancelled) {
        const CHighlightRules rules = definition ? CHighlightRules(*definition) : CHighlightRules();
        // While states are missing, comments may begin elsewhere, so the answer may change.
        const bool bComplete = pLines->isComplete();
        CStoredLines lines(*pLines, question.nVersion, rules, isCancelled);
        const SBracketMatch match =
            matchingBracket(&lines, pLines->count(), question.nLine, question.nInLine);
        CBackgroundJob::Finish finish = [this, question, match, bComplete] {
            const bool bNews = !(m_answered == question) || !(m_answer == match);
            m_answered = question;
            m_answer = match;
            if (!bComplete)
                m_timer.start(g_nPauseWhileColouringMs);
            if (bNews)
                emit found();
        };
        return finish;
    };
    m_job.start(work);
}
