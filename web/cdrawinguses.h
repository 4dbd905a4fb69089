#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

// Counts how much a drawing grows when each part is inserted wherever another part uses it. A
// value.
class CDrawingUses
{
public:
    // A part with a name begins, inside the parts that have not ended.
    void begin(const QString &strId);
    void end();
    // The part that began last uses the one of that name.
    void use(const QString &strId) { m_hashUsed[m_lstOpen.value(m_lstOpen.size() - 1)] << strId; }

    // The number of parts, each counted as often as it is inserted; at most g_nMostUses.
    qint64 count() const;

private:
    qint64 countOf(const QString &strId, int nDepth, QHash<QString, qint64> *pKnown) const;

    QStringList m_lstOpen;
    // The uses by each part; the empty name stands for the whole drawing.
    QHash<QString, QStringList> m_hashUsed;
};

constexpr qint64 g_nMostUses = 1000000000;
