#pragma once

#include "editor/linesearch.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QVector>

// What is searched for in the files of a folder, and what was found.

struct SFindQuery
{
    QString strFolder;
    QString strNames; // Patterns of file names: see CNamePatterns.
    QString strText;
    SSearchOptions options; // bSearchUp means nothing here.
};

// A match, with as much of its line as is shown. Columns and lengths are UTF-16 units of the line
// as the editor has it.
struct SFileMatch
{
    int nLine = 0; // From 1 on.
    int nColumn = 0; // From 0 on.
    int nLength = 0;
    QString strExcerpt; // A part of the line around the match.
    int nExcerptColumn = 0; // Of the match in the excerpt. Its end may be cut off there.
};

struct SFileMatches
{
    QString strPath;
    QByteArray fingerprint; // Of the bytes that were searched: see fingerprintOf().
    QVector<SFileMatch> lstMatches; // In the file's order.
};

struct SFindCounts
{
    int nFiles = 0; // Searched.
    int nMatchedFiles = 0;
    int nMatches = 0;
    int nBinary = 0; // Left out.
    int nHuge = 0;
    int nUnreadable = 0;
    bool bCutOff = false; // There are more matches than are kept.
    bool bCancelled = false;
};

Q_DECLARE_METATYPE(SFindCounts)
Q_DECLARE_METATYPE(QVector<SFileMatches>)
