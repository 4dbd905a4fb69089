// Shows a file as the editor does: showhostile preview|open FILE. Prints one line: "shown" or
// "refused", for how many milliseconds of work the event loop stood still at most, and how many
// megabytes the program took at most. The system ends it if it takes far too much. showhostile
// write FOLDER writes all files that were made to harm, to try them by hand.
#include "hostile/hostile.h"
#include "support/watched.h"
#include "web/ctaster.h"

#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "web/ceditwebview.h"
#include "web/cimagewidget.h"
#include "web/cpreviewwidget.h"
#include "web/pagecodec.h"
#include "web/pagehazards.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QWebView>

#include <cstdio>
#include <functional>
#include <memory>

#include <sys/resource.h>

namespace {

// Seconds of processor time. The page engine would take minutes for many of the pages. The dearest
// page that is opened takes one or two seconds, and three on a busy machine.
constexpr rlim_t g_nSeconds = 10;
constexpr rlim_t g_nMostBytes = 8UL * 1024 * 1024 * 1024;
constexpr int g_nStill = 300; // Milliseconds after which nothing more is expected.

void setLimits()
{
    const rlimit seconds = {g_nSeconds, g_nSeconds};
    setrlimit(RLIMIT_CPU, &seconds);
    const rlimit core = {0, 0};
    setrlimit(RLIMIT_CORE, &core);
#ifndef QUILLAN_ADDRESS_SANITIZER
    const rlimit bytes = {g_nMostBytes, g_nMostBytes};
    setrlimit(RLIMIT_AS, &bytes);
#endif
}

long peakMegabytes()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024;
}

// Runs the event loop until that holds and then a little longer.
void runUntil(const std::function<bool()> &done)
{
    QElapsedTimer since;
    while (!done())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    since.start();
    while (!since.hasExpired(g_nStill))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, g_nStill);
}

bool isTasted(const QString &strPath)
{
    const QString strSuffix = QFileInfo(strPath).suffix();
    return strSuffix == QLatin1String("html") || strSuffix.startsWith(QLatin1String("svg"));
}

bool preview(const QString &strPath)
{
    CPreviewWidget preview;
    preview.taster()->setProgram(QStringLiteral(QUILLAN_BINARY_DIR "/quillan-taste"));
    preview.resize(320, 600);
    preview.show();
    bool bDone = !isTasted(strPath);
    bool bShown = true;
    QObject::connect(preview.taster(), &CTaster::tasted,
                     [&](const QString &, CTaster::Result result) {
                         bDone = true;
                         bShown = result == CTaster::Result::Good;
                     });
    preview.previewFile(strPath);
    runUntil([&bDone] { return bDone; });
    const auto *pImage = preview.findChild<CImageWidget *>();
    return bShown && !(pImage && pImage->isVisible() && pImage->isNull());
}

// Where the window would open the source instead, the page is refused.
bool openPage(const QString &strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly)
        || pageHazard(decodePage(file.readAll())) != EPageHazard::None)
        return false;
    CEditWebView view;
    view.resize(900, 700);
    view.show();
    bool bDone = false;
    bool bShown = false;
    QObject::connect(&view, &QWebView::loadFinished, [&](bool bOk) {
        bDone = true;
        bShown = bOk;
    });
    if (!view.loadFile(strPath))
        return false;
    runUntil([&bDone] { return bDone; });
    view.icon();
    view.toHtml();
    return bShown;
}

bool openPicture(const QString &strPath)
{
    CImageWidget view;
    view.resize(900, 700);
    view.show();
    view.setImageFile(strPath);
    runUntil([] { return true; });
    return !view.isNull();
}

bool openText(const QString &strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    CHighlightEdit view;
    view.resize(900, 700);
    view.show();
    view.setTextData(file.readAll(), false);
    runUntil([] { return true; });
    return true;
}

bool open(const QString &strPath)
{
    const QString strFolder = QFileInfo(QFileInfo(strPath).path()).fileName();
    if (strFolder.startsWith(QLatin1String("page")))
        return openPage(strPath);
    return strFolder.startsWith(QLatin1String("text")) ? openText(strPath) : openPicture(strPath);
}

int writeAll(const QString &strFolder)
{
    const QList<SHostileFile> lstFiles = hostileFiles();
    for (const SHostileFile &file : lstFiles)
        if (writeHostile(file, strFolder).isEmpty())
            return 1;
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QStringList lstArguments = QCoreApplication::arguments();
    if (lstArguments.size() != 3)
        return 2;
    if (lstArguments.at(1) == QLatin1String("write"))
        return writeAll(lstArguments.at(2));
    const bool bOpen = lstArguments.at(1) == QLatin1String("open");
    setLimits();
    CSettings settings(QStringLiteral("Quillan Tests"), QStringLiteral("hostile"));
    g_pSettings = &settings;
    CHeartbeat heartbeat;
    const bool bShown = bOpen ? open(lstArguments.at(2)) : preview(lstArguments.at(2));
    std::printf("%s %lld %ld\n", bShown ? "shown" : "refused", heartbeat.longest(),
                peakMegabytes());
    g_pSettings = nullptr;
    return 0;
}
