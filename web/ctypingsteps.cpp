#include "web/ctypingsteps.h"

namespace {

const qint64 g_nPause = 1000; // Milliseconds.
const int g_nMaxWords = 20;

} // namespace

bool CTypingSteps::type(const QString &strText, bool bEnter, qint64 nTime)
{
    const bool bLetter =
        !bEnter && !strText.isEmpty() && !strText.at(0).isSpace() && strText.at(0).isPrint();
    const bool bWordBegins = bLetter && !m_bInWord;
    const bool bNew = !m_bStarted
        && (m_bEnded || nTime - m_nLastTime >= g_nPause
            || (bWordBegins && m_nWords >= g_nMaxWords));
    const bool bFirst = bNew || m_bStarted;
    if (bFirst)
        m_nWords = 0;
    if (bWordBegins || (bFirst && bLetter))
        ++m_nWords;
    m_bStarted = false;
    m_bInWord = bLetter;
    m_nLastTime = nTime;
    m_bEnded = bEnter;
    return bNew;
}

void CTypingSteps::start()
{
    m_bStarted = true;
    m_bEnded = false;
}
