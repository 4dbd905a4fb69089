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

// What the rules need to know of a selection.
struct SCommentSelection
{
    QString strText; // In the form of QTextCursor::selectedText().
    QStringList lstLines; // Every line it touches, in full.
    QString strPrefix; // The first line before the selection.
    QString strSuffix; // The last line after the selection.
};

// What toggling does to a selection.
struct SCommentToggle
{
    enum Action {
        Unwrap, // Removes the markers at the selection's two ends.
        Uncomment, // Each line loses its first lstLengths characters.
        CommentLines, // Each line gets the single-line marker in its first column.
        Wrap // The selection gets the markers around it.
    };
    Action action = Wrap;
    QVector<int> lstLengths;
    int nEndLength = 0; // Unwrap: how many characters are removed before the selection's end.
    int nStartLength = 0; // Unwrap: how many characters are removed from its start on.
};

// The tests are made in the order of Action. Without block markers every selection passes the first
// test, which then removes nothing. The single-line marker is used as a QRegExp without escaping.
SCommentToggle toggleOf(const SCommentSelection &selection, const SCommentMarkers &markers);
