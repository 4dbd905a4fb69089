#include "editor/textreading.h"

#include <QBuffer>

namespace {

qint64 g_nMostShownAtOnce = qint64(2) << 20;
int g_nHeaviestLineUnasked = 6000000;

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
    return content.isWhole() && content.state.nSize > mostShownAtOnce();
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
