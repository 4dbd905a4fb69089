#include "mainwindow/cclosedtabs.h"

#include <algorithm>

void CClosedTabs::add(const SPlace &place)
{
    if (place.strPath.isEmpty())
        return;
    const auto isSame = [&place](const SPlace &other) { return other.strPath == place.strPath; };
    m_lstPlaces.erase(std::remove_if(m_lstPlaces.begin(), m_lstPlaces.end(), isSame),
                      m_lstPlaces.end());
    m_lstPlaces.append(place);
    if (m_lstPlaces.size() > g_nMaxClosedTabs)
        m_lstPlaces.removeFirst();
}

SPlace CClosedTabs::takeLast(const QStringList &lstOpen)
{
    while (!m_lstPlaces.isEmpty()) {
        SPlace place = m_lstPlaces.takeLast();
        if (!lstOpen.contains(place.strPath))
            return place;
    }
    return SPlace();
}
