#pragma once

#include <QRandomGenerator>
#include <QStringList>

// At least so many UTF-16 units, made of the parts.
inline QString randomText(QRandomGenerator *pRandom, const QStringList &lstParts, int nLength)
{
    QString strText;
    while (strText.size() < nLength)
        strText += lstParts.at(pRandom->bounded(lstParts.size()));
    return strText;
}
