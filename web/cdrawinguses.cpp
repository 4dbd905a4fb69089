#include "web/cdrawinguses.h"

namespace {

constexpr int g_nDeepest = 300; // Levels of parts within parts; deeper nesting counts as too much.

} // namespace

void CDrawingUses::begin(const QString &strId)
{
    use(strId);
    m_lstOpen.append(strId);
}

void CDrawingUses::end()
{
    if (!m_lstOpen.isEmpty())
        m_lstOpen.removeLast();
}

qint64 CDrawingUses::count() const
{
    QHash<QString, qint64> hashKnown;
    return countOf(QString(), 0, &hashKnown);
}

// A part that uses itself is inserted once.
qint64 CDrawingUses::countOf(const QString &strId, int nDepth, QHash<QString, qint64> *pKnown) const
{
    const auto it = pKnown->constFind(strId);
    if (it != pKnown->constEnd())
        return *it;
    if (nDepth > g_nDeepest)
        return g_nMostUses;
    pKnown->insert(strId, 0);
    qint64 nCount = 1;
    const QStringList lstUsed = m_hashUsed.value(strId);
    for (const QString &strUsed : lstUsed)
        nCount = qMin(g_nMostUses, nCount + countOf(strUsed, nDepth + 1, pKnown));
    pKnown->insert(strId, nCount);
    return nCount;
}
