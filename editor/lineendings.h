#pragma once

#include <QByteArray>
#include <QString>

// Line-ending styles as plain functions. A style is an int, because menus and settings carry it as
// one: see ReturnFormat.

enum ReturnFormat {
    ReturnFormatWindows = 0, // CR LF
    ReturnFormatUnix = 1, // LF
    ReturnFormatOsx = 2, // CR
};

// The style of the data up to its first zero byte; nPrevious when there is no line end. Only
// presence counts: one CR LF makes the data Windows, else one LF Unix.
//
// Looks at bytes: in UTF-8, sound or broken, the bytes 10 and 13 are never part of another
// character.
int detectReturnFormat(const QByteArray &data, int nPrevious);

// The text with every CR LF, CR and LF as the style's line end; unchanged for an unknown style.
QString withLineEnds(const QString &strText, int nReturnFormat);

// The number of lines of a text with any line ends: one more than it has line ends.
int lineCount(const QString &strText);
