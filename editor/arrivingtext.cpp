#include "editor/arrivingtext.h"

#include "app/codecdetection.h"
#include "app/platformfiles.h"
#include "app/textcodecs.h"
#include "editor/lineendings.h"
#include "editor/textreading.h"

#include <QTextCodec>
#include <QTextDecoder>

#include <algorithm>
#include <memory>
#include <new>
#include <utility>

namespace {

using Fault = SFileContent::Fault;

const int g_nLinePiece = 1000; // UTF-16 units; some screens wide.
const int g_nFirstSlice = 0x10000; // Bytes. Enough to fill a screen.
// The memory that the widget and the highlighter need, in bytes. Short lines need much more than
// their text.
const qint64 g_nBytesPerLine = 400;
const qint64 g_nBytesPerCharacter = 6;

bool goesOn(const SArrivalSteps &steps, qint64 nBytes)
{
    return !steps.progress || steps.progress(nBytes, nBytes);
}

void decideCodec(const STextRequest &request, const QByteArray &bytes, SArrivedText *pText)
{
    pText->strCodec = request.strCodec;
    pText->bCodecSure = request.bCodecSure;
    pText->nReturnFormat = request.nReturnFormat;
    if (request.reading != STextRequest::Reading::AsFile)
        return;
    if (request.strCodec.isEmpty()) {
        const SDetectedCodec detected = detectCodec(bytes);
        pText->strCodec = detected.strName;
        pText->bCodecSure = detected.bSure;
    } else {
        pText->strCodec = codecNameForData(request.strCodec, bytes);
    }
    pText->nReturnFormat = detectReturnFormat(bytes, request.nReturnFormat);
}

// A document takes these characters for line ends. Their stand-ins depend on the whole text.
bool needsTheWholeText(QChar c)
{
    return c.unicode() == 0x2029 || (c.unicode() & 0xFFFE) == 0xFDD0;
}

// Gives the whole lines at the beginning of the data. Empty if the first line is long.
QString firstLines(const QTextCodec *pCodec, const QByteArray &bytes, const SSliceLimits &limits)
{
    const QByteArray beginning = bytes.left(qMin(limits.nCharacters, g_nFirstSlice));
    if (!pCodec && beginning.contains('\0'))
        return QString();
    const std::unique_ptr<QTextDecoder> pDecoder(pCodec ? pCodec->makeDecoder() : nullptr);
    const QString strText =
        pDecoder ? pDecoder->toUnicode(beginning) : decodeText(nullptr, beginning);
    if (std::any_of(strText.cbegin(), strText.cend(), needsTheWholeText))
        return QString();
    // The last line may go on, and a CR at the very end may be half of a line end.
    const int nLast = qMax(strText.lastIndexOf(QLatin1Char('\n'), -2),
                           strText.lastIndexOf(QLatin1Char('\r'), -2));
    if (strText.size() < 2 || nLast < 0)
        return QString();
    const bool bPair =
        strText.at(nLast) == QLatin1Char('\r') && strText.at(nLast + 1) == QLatin1Char('\n');
    return strText.left(qMin(sliceEnd(strText, 0, limits), nLast + (bPair ? 2 : 1)));
}

// Guesses the first lines before the rest is known. ASCII is the same in nearly all codecs, and
// other text is hardly ever valid UTF-8 by chance. Empty if in doubt.
QString probableFirstLines(const STextRequest &request, const QByteArray &beginning)
{
    if (request.reading != STextRequest::Reading::AsFile)
        return QString();
    const QByteArray bytes = withoutCutUtf8(beginning.left(g_nFirstSlice));
    const bool bAscii = isAscii(bytes) && !hasEscapedCharacters(bytes) && !bytes.contains('\0');
    if (!bAscii && !isMultiByteUtf8(bytes))
        return QString();
    const QTextCodec *pWanted = codecForName(request.strCodec);
    const QTextCodec *pUtf8 = codecForName(QStringLiteral("UTF-8"));
    const bool bKeeps = request.strCodec.isEmpty() || pWanted == pUtf8
        || (bAscii && pWanted && mapsAsciiToItself(pWanted));
    return bKeeps ? firstLines(pUtf8, bytes, request.slices) : QString();
}

// Throws std::bad_alloc if there is not enough memory to show the text.
void checkMemory(int nLines, qint64 nCharacters)
{
    const qint64 nMemory = Platform::availableMemory();
    const qint64 nNeeded = nLines * g_nBytesPerLine + nCharacters * g_nBytesPerCharacter;
    if (nMemory >= 0 && nNeeded > nMemory)
        throw std::bad_alloc();
}

QString startOf(const QByteArray &ascii, int nLength)
{
    return QString::fromLatin1(ascii.constData(), qMin(nLength, ascii.size()));
}

QString startOf(const QString &strText, int nLength)
{
    return strText.left(nLength);
}

// Makes the slices after strFirst, which was given already. False, without slices, if the user has
// to be asked about a line first.
template<class Text>
bool cut(const Text &text, const QString &strFirst, const STextRequest &request,
         SArrivedText *pText)
{
    pText->bBeginsOtherwise = startOf(text, strFirst.size()) != strFirst;
    const int nFrom = pText->bBeginsOtherwise ? 0 : strFirst.size();
    STextLines lines = linesOf(text, nFrom, request.slices);
    pText->nLines = lines.nLines;
    pText->nHeaviestLine = lines.heaviest.nLength;
    const bool bTooLong = lines.heaviest.nWeight > request.nHeaviestLine;
    checkMemory(lines.nLines, text.size());
    if (bTooLong && request.longLines != LongLines::Whole)
        return false;
    pText->slices = CTextSlices(text, nFrom, std::move(lines.lstSliceEnds));
    return true;
}

bool isAsciiText(const QTextCodec *pCodec, const QByteArray &bytes)
{
    return pCodec && mapsAsciiToItself(pCodec) && isAscii(bytes);
}

void prepare(SFileContent content, const STextRequest &request, const SArrivalSteps &steps,
             QString strFirst, SArrivedText *pText)
{
    decideCodec(request, content.bytes, pText);
    if (!goesOn(steps, content.bytes.size()))
        return;
    QByteArray bytes = std::move(content.bytes);
    const bool bAsUtf8 = request.reading == STextRequest::Reading::AsUtf8;
    const QTextCodec *pCodec = bAsUtf8 ? nullptr : codecForName(pText->strCodec);
    if (bAsUtf8)
        bytes = readAsText(bytes);
    if (steps.firstSlice && strFirst.isEmpty()) {
        strFirst = firstLines(pCodec, bytes, request.slices);
        if (!strFirst.isEmpty())
            steps.firstSlice(strFirst);
    }
    if (isAsciiText(pCodec, bytes) && cut(bytes, strFirst, request, pText))
        return;
    pText->bWhole = isWholeText(pCodec, bytes);
    const qint64 nBytes = bytes.size();
    QString strText = decodeText(pCodec, std::exchange(bytes, QByteArray()));
    strText = pText->standIns.hide(strText);
    if (!goesOn(steps, nBytes) || cut(strText, strFirst, request, pText))
        return;
    pText->bAsk = request.longLines == LongLines::Ask;
    pText->bInPieces = !pText->bAsk;
    if (pText->bAsk)
        return;
    STextRequest whole = request;
    whole.longLines = LongLines::Whole;
    const int nHeaviest = pText->nHeaviestLine;
    cut(inPieces(strText, g_nLinePiece, request.nHeaviestLine), strFirst, whole, pText);
    pText->nHeaviestLine = nHeaviest;
}

// Makes the slices after strFirst, which was given already.
SArrivedText slicesBehind(const QString &strFirst, SFileContent content,
                          const STextRequest &request, const SArrivalSteps &steps)
{
    SArrivedText text;
    text.content.state = content.state;
    text.content.fault = content.fault;
    text.content.strError = content.strError;
    try {
        prepare(std::move(content), request, steps, strFirst, &text);
    } catch (const std::bad_alloc &) {
        text = SArrivedText();
        text.content = readingFailed(Fault::NoMemory, content.state);
    }
    return text;
}

} // namespace

SArrivedText slicesOf(SFileContent content, const STextRequest &request, const SArrivalSteps &steps)
{
    return slicesBehind(QString(), std::move(content), request, steps);
}

SArrivedText readInSlices(const STextRequest &request, const SArrivalSteps &steps)
{
    SReadLimits limits = editorLimits();
    limits.progress = steps.progress;
    QString strFirst;
    if (request.bFirstLinesEarly && steps.firstSlice) {
        limits.beginning = [&](const QByteArray &beginning) {
            if (!strFirst.isEmpty())
                return;
            strFirst = probableFirstLines(request, beginning);
            if (!strFirst.isEmpty())
                steps.firstSlice(strFirst);
        };
    }
    SFileContent content = readFile(request.strPath, limits);
    if (!content.isWhole() && content.fault != Fault::Changing) {
        SArrivedText text;
        text.content = content;
        return text;
    }
    return slicesBehind(strFirst, std::move(content), request, steps);
}
