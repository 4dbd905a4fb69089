// The helper that shows a page or drawing before the editor does (see web/ctaster.h). It reads
// lines from the standard input, each with a width, a height and the path of a file, the path's
// bytes as hexadecimal digits, and answers each with the line "shown". It ends with its input.
#include "app/platformfiles.h"
#include "taster/ctasting.h"
#include "taster/limits.h"

#include <QApplication>

#include <cstdio>
#include <iostream>
#include <string>

namespace {

void answer(const char *szWord)
{
    std::puts(szWord);
    std::fflush(stdout);
}

// Waits for the next line; false when there is none.
bool tasteNext(CTasting *pTasting)
{
    int nWidth = 0;
    int nHeight = 0;
    std::string strPath;
    if (!(std::cin >> nWidth >> nHeight >> strPath))
        return false;
    Limits::forOneFile();
    pTasting->taste(Platform::pathOfBytes(QByteArray::fromHex(QByteArray::fromStdString(strPath))),
                    QSize(nWidth, nHeight));
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    Limits::atStart();
#ifndef Q_OS_WIN // On Windows the offscreen platform has no fonts, and nothing here is ever shown.
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication app(argc, argv);
    CTasting tasting;
    const auto next = [&tasting] {
        if (!tasteNext(&tasting))
            QCoreApplication::quit();
    };
    QObject::connect(&tasting, &CTasting::shown, &app, [next] {
        Limits::forWaiting();
        answer("shown");
        QMetaObject::invokeMethod(qApp, next, Qt::QueuedConnection);
    });
    // Queued until the first page has made the engine load what it needs.
    QMetaObject::invokeMethod(qApp, next, Qt::QueuedConnection);
    return QCoreApplication::exec();
}
