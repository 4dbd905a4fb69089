#pragma once

#include "editor/linesearch.h"

#include <QByteArray>
#include <QMetaType>
#include <QString>
#include <QVector>

// A search in the files of a folder, and its matches.

struct SFindQuery
{
    QString strFolder;
    QString strNames; // Patterns of file names: see CNamePatterns.
    QString strText;
    SSearchOptions options; // bSearchUp has no effect here.
};

// A match with the part of its line that is shown. Columns and lengths count UTF-16 units of the
// line in the editor.
struct SFileMatch
{
    int nLine = 0; // Counts from 1.
    int nColumn = 0; // Counts from 0.
    int nLength = 0;
    QString strExcerpt; // A part of the line around the match.
    int nExcerptColumn = 0; // Place of the match in the excerpt, which may cut off its end.
};

struct SFileMatches
{
    QString strPath;
    QByteArray fingerprint; // The fingerprint of the searched bytes: see fingerprintOf().
    QVector<SFileMatch> lstMatches; // In the order of the file.
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
