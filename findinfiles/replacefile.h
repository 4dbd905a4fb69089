#pragma once

#include "findinfiles/findquery.h"

#include <QCoreApplication>
#include <QString>
#include <QVector>

// What is to be replaced in one file: matches of a search, in the file's order.
struct SFileReplacement
{
    QString strPath;
    QByteArray fingerprint; // Of the bytes that the matches were found in.
    QVector<SFileMatch> lstMatches;
};

// Replaces matches in files on the disk, each file whole or not at all.
class CFileReplacer
{
    Q_DECLARE_TR_FUNCTIONS(CFileReplacer)

public:
    // Puts strText (no line ends) in the place of each match and leaves every other byte as it is.
    // False with the reason for the user, and the file is as it was: when it has changed since the
    // search, when it is not UTF-8 or not whole as text, so that it could not be written without
    // loss, or when writing fails. For any thread.
    static bool replace(const SFileReplacement &replacement, const QString &strText,
                        QString *pReason);
};

// The text with the matches replaced; false when one does not lie in it. Line ends stay.
bool replaceMatches(const QVector<SFileMatch> &lstMatches, const QString &strReplace,
                    QString *pText);
