#include "lookedat.h"

#include <QFile>
#include <algorithm>

CLookedAt::CLookedAt(const QString &strListPath)
{
    QFile file(strListPath);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(strListPath));
    const QStringList lstLines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString &strLine : lstLines) {
        const QStringList lst = strLine.split(QLatin1Char('\t'));
        if (strLine.startsWith(QLatin1Char('#')) || lst.size() != 5)
            continue;
        const QStringList lstRange = lst.at(3).split(QLatin1Char('-'));
        m_lstPlaces.append({lst.at(0), lst.at(1), lst.at(2).toLongLong(), lstRange.first().toInt(),
                            lstRange.last().toInt()});
    }
}

void CLookedAt::settle(const QString &strLanguage, const QString &strPath, qint64 nSize,
                       const CharacterClasses &lstOurs, CharacterClasses *pPeers) const
{
    for (const SPlace &place : m_lstPlaces) {
        if (place.strLanguage != strLanguage || place.nSize != nSize
            || !strPath.endsWith(place.strPathEnd))
            continue;
        const int nLast = std::min(place.nLast, int(lstOurs.size()));
        for (int n = place.nFirst; n <= nLast; ++n)
            (*pPeers)[size_t(n - 1)] = lstOurs[size_t(n - 1)];
    }
}
