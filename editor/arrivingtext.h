#pragma once

#include "app/filereader.h"
#include "editor/cstandins.h"
#include "editor/ctextslices.h"
#include "editor/longlines.h"
#include "editor/textslices.h"

#include <QString>

#include <functional>

// Reads a large file for an editor and divides it into slices. This is the slow part of loading and
// needs no widget. Reentrant; any thread.

// What an editor wants to read, and what it knows already.
struct STextRequest
{
    enum class Reading {
        AsFile, // Detects the codec, and keeps strCodec if possible.
        InCodec, // Uses strCodec, whatever the bytes look like, and keeps nReturnFormat.
        AsUtf8, // Like the context menu's Refresh: UTF-8 without CR, up to the first zero byte.
    };

    QString strPath;
    QString strCodec; // Empty if it has to be detected.
    bool bCodecSure = true; // Whether strCodec is more than a guess.
    int nReturnFormat = 0; // Kept if the file has no line end. See ReturnFormat.
    Reading reading = Reading::AsFile;
    LongLines longLines = LongLines::Ask;
    // Whether the first lines may be shown before the file is read. If reading then fails, only
    // they are left.
    bool bFirstLinesEarly = false;
    qint64 nHeaviestLine = 0x7fffffff; // The user is asked about heavier ones; see SHeaviestLine.
    SSliceLimits slices;
};

// A text that is ready to be shown.
struct SArrivedText
{
    SFileContent content; // Without the bytes.
    QString strCodec;
    bool bCodecSure = true;
    bool bWhole = true; // Whether all bytes can be shown.
    int nReturnFormat = 0;
    CStandIns standIns;
    int nLines = 0;
    int nHeaviestLine = 0; // UTF-16 units.
    bool bAsk = false; // A line is too heavy. There are no slices until the user has answered.
    bool bInPieces = false; // Lines were cut, so the text differs from the file.
    bool bBeginsOtherwise = false; // The first slice was wrong; the slices begin again.
    CTextSlices slices; // They follow the first slice, if there was one.
};

struct SArrivalSteps
{
    // Called from time to time. If it returns false, the work stops. May be empty.
    std::function<bool(qint64 nDone, qint64 nAll)> progress;
    // Gets the beginning of the text while the work goes on. Called at most once. May be empty.
    std::function<void(const QString &strSlice)> firstSlice;
};

// Reads the file. If it cannot be read, content.fault says why, and there are no slices.
SArrivedText readInSlices(const STextRequest &request, const SArrivalSteps &steps);

// The same for a file that was read already. Takes the bytes, and frees each form of the text as
// soon as the next one is made.
SArrivedText slicesOf(SFileContent content, const STextRequest &request,
                      const SArrivalSteps &steps);
