#pragma once

#include "document/place.h"

#include <QStringList>
#include <QVector>

const int g_nMaxClosedTabs = 50;

// Remembers closed documents, to open them again one after the other. Each path is in the list
// once, where it was last closed.
class CClosedTabs
{
public:
    // A document without a path cannot be opened again.
    void add(const SPlace &place);
    // Takes the last closed document whose path is not open, and drops those closed after it. The
    // path is empty if none is left.
    SPlace takeLast(const QStringList &lstOpen);
    bool isEmpty() const { return m_lstPlaces.isEmpty(); }

private:
    QVector<SPlace> m_lstPlaces; // The last closed one is at the end.
};
