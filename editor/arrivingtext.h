#pragma once

#include "app/filereader.h"
#include "editor/cstandins.h"
#include "editor/ctextslices.h"
#include "editor/longlines.h"
#include "editor/textslices.h"

#include <QString>

#include <functional>

// Reading a large file for an editor: all that takes long, without the widget. Reentrant; any
// thread.

// What is wanted, and what the editor knows that wants it.
struct STextRequest
{
    enum class Reading {
        AsFile, // In its codec.
        InCodec, // In strCodec, whatever the data look like; the line ends are known already.
        AsUtf8, // As the context menu's Refresh does: UTF-8 without CR, up to a zero byte.
    };

    QString strPath;
    QString strCodec; // Kept where it can be; empty: detected.
    bool bCodecSure = true; // Of strCodec.
    int nReturnFormat = 0; // Kept where the data have no line end. See ReturnFormat.
    Reading reading = Reading::AsFile;
    LongLines longLines = LongLines::Ask;
    // The first lines may be given before the file is read. If that fails, they are all there is.
    bool bFirstLinesEarly = false;
    qint64 nHeaviestLine = 0x7fffffff; // That is shown unasked; see SHeaviestLine.
    SSliceLimits slices;
};

// A text that is ready to be shown.
struct SArrivedText
{
    SFileContent content; // Without the bytes.
    QString strCodec;
    bool bCodecSure = true;
    bool bWhole = true; // All bytes could be shown.
    int nReturnFormat = 0;
    CStandIns standIns;
    int nLines = 0;
    int nHeaviestLine = 0; // UTF-16 units.
    bool bAsk = false; // There is a line too long, and no slice before the user has answered.
    bool bInPieces = false; // Lines were cut: the text is not the file's.
    bool bBeginsOtherwise = false; // The slice given before does not begin this text after all.
    CTextSlices slices; // Behind the one given before. At least one line end each but last.
};

struct SArrivalSteps
{
    // Called now and then; false gives up. May be empty.
    std::function<bool(qint64 nDone, qint64 nAll)> progress;
    // The beginning of the text, while the rest is still worked on. Called at most once; may be
    // empty.
    std::function<void(const QString &strSlice)> firstSlice;
};

// Reads the file. Where content.fault is not one that still gives bytes, there are no slices.
SArrivedText readInSlices(const STextRequest &request, const SArrivalSteps &steps);

// The same with a file that was read. Takes the bytes, and frees each part of the work as soon as
// the next one has it.
SArrivedText slicesOf(SFileContent content, const STextRequest &request,
                      const SArrivalSteps &steps);
