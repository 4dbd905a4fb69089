#include "editor/textreading.h"

#include "app/textcodecs.h"
#include "editor/textslices.h"

#include <QBuffer>

#include <algorithm>

namespace {

qint64 g_nMostShownAtOnce = qint64(2) << 20;
int g_nHeaviestLineUnasked = 6000000;

// No unit takes less than a byte.
qint64 bytesOfLightLines()
{
    return unitsOfLightLines(g_nHeaviestLineUnasked);
}

bool endsLine(char c)
{
    return c == '\n' || c == '\r';
}

// Whether it is worth decoding the data to know how heavy the lines are. Where characters take two
// bytes, one of them may look like the end of a line.
bool mayHoldHeavyLine(const QByteArray &bytes)
{
    if (bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff"))
        return true;
    const auto end = bytes.cend();
    for (auto it = bytes.cbegin(); end - it > bytesOfLightLines();) {
        const auto lineEnd = std::find_if(it, end, endsLine);
        if (lineEnd - it > bytesOfLightLines())
            return true;
        it = lineEnd == end ? end : lineEnd + 1;
    }
    return false;
}

bool holdsHeavyLine(const QByteArray &bytes)
{
    if (!mayHoldHeavyLine(bytes))
        return false;
    const QTextCodec *pCodec = codecForName(detectCodec(bytes).strName);
    return heaviestLine(decodeText(pCodec, bytes)).nWeight > g_nHeaviestLineUnasked;
}

} // namespace

SReadLimits editorLimits()
{
    SReadLimits limits;
    limits.nMaxSize = g_nMaxReadable;
    // Bytes, text, blocks with their layouts, and the highlighter's copy.
    limits.nMemoryPerByte = 12;
    return limits;
}

SFileContent readForEditor(const QString &strPath)
{
    return readFile(strPath, editorLimits());
}

qint64 mostShownAtOnce()
{
    return g_nMostShownAtOnce;
}

bool isShownInSlices(const QString &strPath)
{
    const SFileContent content = lookAtFile(strPath, editorLimits());
    if (!content.isWhole())
        return false;
    if (content.state.nSize > mostShownAtOnce())
        return true;
    return content.state.nSize > bytesOfLightLines()
        && holdsHeavyLine(readForEditor(strPath).bytes);
}

void setMostShownAtOnce(qint64 nBytes)
{
    g_nMostShownAtOnce = nBytes;
}

int heaviestLineUnasked()
{
    return g_nHeaviestLineUnasked;
}

void setHeaviestLineUnasked(int nWeight)
{
    g_nHeaviestLineUnasked = nWeight;
}

QByteArray readAsText(const QByteArray &arrData)
{
    QBuffer buffer;
    buffer.setData(arrData);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    return buffer.readAll();
}
