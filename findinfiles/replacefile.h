#pragma once

#include "findinfiles/findquery.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

// The replacements in one file: matches of a search, in the order of the file.
struct SFileReplacement
{
    QString strPath;
    QByteArray fingerprint; // The fingerprint of the bytes in which the matches were found.
    QVector<SFileMatch> lstMatches;
};

// Replaces matches in files on the disk, each file whole or not at all.
class CFileReplacer
{
    Q_DECLARE_TR_FUNCTIONS(CFileReplacer)

public:
    // Replaces each match by strText (which has no line ends) and leaves every other byte as it is.
    // It fails if the file has changed since the search, if it is not UTF-8 or could not be written
    // as text without loss, or if writing fails. Then it gives false with the reason for the user,
    // and the file is as it was. Any thread.
    static bool replace(const SFileReplacement &replacement, const QString &strText,
                        QString *pReason);
};

// Replaces the matches in a text; false if one is not in it. Line ends stay.
bool replaceMatches(const QVector<SFileMatch> &lstMatches, const QString &strReplace,
                    QString *pText);
