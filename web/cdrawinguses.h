#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

// How much a drawing grows when each of its parts is put in wherever another part uses it. A
// value.
class CDrawingUses
{
public:
    // A part with a name begins; it lies within the parts that have not ended.
    void begin(const QString &strId);
    void end();
    // The part that began last uses the one of that name.
    void use(const QString &strId) { m_hashUsed[m_lstOpen.value(m_lstOpen.size() - 1)] << strId; }

    // Parts in all, each counted as often as it is put in; no more than g_nMostUses.
    qint64 count() const;

private:
    qint64 countOf(const QString &strId, int nDepth, QHash<QString, qint64> *pKnown) const;

    QStringList m_lstOpen;
    QHash<QString, QStringList> m_hashUsed; // By each part; an empty name for the whole.
};

constexpr qint64 g_nMostUses = 1000000000;
