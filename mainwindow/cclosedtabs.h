#pragma once

#include "document/place.h"

#include <QStringList>
#include <QVector>

const int g_nMaxClosedTabs = 50;

// The documents that were closed, to be opened again one after the other. A path stands in it once,
// where it was closed last.
class CClosedTabs
{
public:
    // Without a path there is nothing to open again.
    void add(const SPlace &place);
    // The one closed last that is not among the open paths; those behind it go, too. Without a path
    // when none is left.
    SPlace takeLast(const QStringList &lstOpen);
    bool isEmpty() const { return m_lstPlaces.isEmpty(); }

private:
    QVector<SPlace> m_lstPlaces; // The one closed last stands last.
};
