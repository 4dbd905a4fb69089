#pragma once

#include "classes.h"

// Places of real files where somebody found that the peer is wrong. They come from a list beside
// the source: language, end of the file's path, its size in bytes, lines counted from 1, reason.
class CLookedAt
{
public:
    explicit CLookedAt(const QString &strListPath);

    // Replaces the peer's classes by ours in the lines that the list has for this file. A file of
    // another size is another version, and the list says nothing about it.
    void settle(const QString &strLanguage, const QString &strPath, qint64 nSize,
                const CharacterClasses &lstOurs, CharacterClasses *pPeers) const;

private:
    struct SPlace
    {
        QString strLanguage;
        QString strPathEnd;
        qint64 nSize;
        int nFirst; // From 1.
        int nLast;
    };

    QList<SPlace> m_lstPlaces;
};
