#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// A language's comment markers; any may be empty.
struct SCommentMarkers
{
    QString strSingle;
    QString strStart;
    QString strEnd;
};

// A selection as the rules see it.
struct SCommentSelection
{
    QString strText; // As QTextCursor::selectedText() gives it.
    QStringList lstLines; // Every line it touches, in full.
    QString strPrefix; // The first line before the selection.
    QString strSuffix; // The last line behind it.
};

// What toggling does to a selection.
struct SCommentToggle
{
    enum Action {
        Unwrap, // The markers at the selection's two ends go.
        Uncomment, // Each line loses its first lstLengths characters.
        CommentLines, // Each line gets the single-line marker in its first column.
        Wrap // The selection gets the markers around it.
    };
    Action action = Wrap;
    QVector<int> lstLengths;
    int nEndLength = 0; // Unwrap: characters before the selection's end.
    int nStartLength = 0; // Unwrap: characters from its start on.
};

// The tests follow one another in the order of Action. The first is met by every selection when
// there are no block markers, and then takes nothing away. The single-line marker is searched for
// as a QRegExp, as it stands.
SCommentToggle toggleOf(const SCommentSelection &selection, const SCommentMarkers &markers);
