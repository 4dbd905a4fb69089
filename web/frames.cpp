#include "web/frames.h"

#include <QUrl>
#include <QWebFrame>

namespace {

constexpr int g_nDeepestFrame = 3;
constexpr int g_nMaxFrames = 100;

int countFrames(const QWebFrame *pFrame)
{
    int nFrames = 1;
    const QList<QWebFrame *> lstChildren = pFrame->childFrames();
    for (const QWebFrame *pChild : lstChildren)
        nFrames += countFrames(pChild);
    return nFrames;
}

// An address that differs only in the query is the same file.
bool isSameFile(const QUrl &a, const QUrl &b)
{
    return a.isLocalFile() && a.matches(b, QUrl::RemoveFragment | QUrl::RemoveQuery);
}

} // namespace

bool mayShowInFrame(const QWebFrame *pFrame, const QUrl &url)
{
    int nDepth = 0;
    const QWebFrame *pTop = pFrame;
    while (const QWebFrame *pAround = pTop->parentFrame()) {
        pTop = pAround;
        ++nDepth;
        if (isSameFile(url, pTop->url()) || isSameFile(url, pTop->requestedUrl()))
            return false;
    }
    return nDepth <= g_nDeepestFrame && countFrames(pTop) <= g_nMaxFrames;
}
