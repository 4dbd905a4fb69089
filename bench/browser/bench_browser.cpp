// bench_browser [FILES] shows a folder of FILES files (50000) with names of a thousand kinds in the
// whole window. It measures how long that takes, and how long the event loop stalls meanwhile; then
// the same while another 10000 files come, one listing later. For comparison it measures the folder
// browser alone, QFileSystemModel in a list, and the time for the icons of all files, asked of the
// provider one by one.
#include "app/csettings.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cmenulistview.h"
#include "browser/cwidgetfavorfilelist.h"
#include "browser/cwidgetfilelist.h"
#include "mainwindow/mainwindow.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QListView>
#include <QMimeDatabase>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <filesystem>
#include <functional>
#include <thread>

namespace {

struct SResult
{
    qint64 nFirstRows = 0; // All times in milliseconds from the choice of the folder on.
    qint64 nAllRows = 0;
    qint64 nLongestGap = 0;
};

// Runs the event loop until nothing happens any more, with a timer in each turn.
SResult measure(int nFiles, const std::function<void()> &choose, QAbstractItemView *pView,
                const std::function<int()> &rows)
{
    SResult result;
    QElapsedTimer total;
    QElapsedTimer sinceTurn;
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, [&] {
        result.nLongestGap = qMax(result.nLongestGap, sinceTurn.restart());
        const QRect first = pView->visualRect(pView->model()->index(0, 0, pView->rootIndex()));
        if (result.nFirstRows == 0 && rows() > 0 && !first.isEmpty())
            result.nFirstRows = total.elapsed();
        if (result.nAllRows == 0 && rows() == nFiles)
            result.nAllRows = total.elapsed();
    });
    tick.start(0);
    sinceTurn.start();
    total.start();
    choose();
    while (result.nAllRows == 0 || total.elapsed() < result.nAllRows + 1000) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (total.elapsed() > 120000)
            qFatal("%d rows of %d were shown within two minutes", rows(), nFiles);
    }
    return result;
}

SResult measurePanel(const QString &strFolder, int nFiles)
{
    CWidgetFileList panel;
    panel.resize(300, 600);
    panel.show();
    QCoreApplication::processEvents();
    auto *pView = panel.findChild<CMenuListView *>();
    return measure(
        nFiles, [&] { panel.setRootPath(strFolder); }, pView,
        [&] { return pView->model()->rowCount(); });
}

// Measures the window's folder browser, and then a storm of changes in the same folder.
void measureWindow(const QString &strFolder, int nFiles, SResult *pShown, SResult *pStorm)
{
    MainWindow window;
    window.resize(1000, 700);
    window.show();
    auto *pBrowser = window.findChild<CWidgetFavorFileList *>();
    auto *pView = pBrowser->findChild<CMenuListView *>();
    QCoreApplication::processEvents();
    const auto rows = [pView] { return pView->model()->rowCount(); };
    *pShown = measure(
        nFiles, [&] { pBrowser->setRootPath(strFolder); }, pView, rows);
    const int nNew = 10000;
    const auto newFile = [&strFolder](int n) {
        return QStringLiteral("%1/Some new file %2").arg(strFolder).arg(n);
    };
    std::thread maker;
    // The files are links to one file: after many removals a file system may search long for room
    // for a new file.
    const auto make = [&] {
        QFile(newFile(0)).open(QIODevice::WriteOnly);
        std::error_code error;
        for (int n = 1; n < nNew; ++n)
            std::filesystem::create_hard_link(newFile(0).toStdString(), newFile(n).toStdString(),
                                              error);
    };
    *pStorm = measure(
        nFiles + nNew, [&] { maker = std::thread(make); }, pView, rows);
    maker.join();
    for (int n = 0; n < nNew; ++n)
        QFile::remove(newFile(n));
}

SResult measureQt(const QString &strFolder, int nFiles)
{
    QListView view;
    QFileSystemModel model;
    view.setModel(&model);
    view.resize(300, 600);
    view.show();
    QCoreApplication::processEvents();
    return measure(
        nFiles, [&] { view.setRootIndex(model.setRootPath(strFolder)); }, &view,
        [&] { return model.rowCount(view.rootIndex()); });
}

qint64 measureIcons(const QString &strFolder)
{
    const QFileInfoList lstInfos = QDir(strFolder).entryInfoList(QDir::Files);
    const QFileIconProvider provider;
    QElapsedTimer timer;
    timer.start();
    for (const QFileInfo &info : lstInfos)
        provider.icon(info);
    return timer.elapsed();
}

// A thousand: those that the system knows, and others.
QStringList suffixes()
{
    QStringList lst {QString()};
    const QList<QMimeType> lstTypes = QMimeDatabase().allMimeTypes();
    for (const QMimeType &type : lstTypes)
        for (const QString &strSuffix : type.suffixes())
            lst.append(QLatin1Char('.') + strSuffix);
    lst = lst.mid(0, 800);
    while (lst.size() < 1000)
        lst.append(QStringLiteral(".unknown%1").arg(lst.size()));
    return lst;
}

void print(QTextStream *pOut, const char *szWhat, const SResult &result)
{
    *pOut << szWhat << " | " << result.nFirstRows << " | " << result.nAllRows << " | "
          << result.nLongestGap << "\n";
    pOut->flush();
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const int nFiles = argc > 1 ? atoi(argv[1]) : 50000;
    const QTemporaryDir dir;
    const QStringList lstSuffixes = suffixes();
    for (int n = 0; n < nFiles; ++n) {
        QFile file(dir.filePath(QStringLiteral("Some file %1%2")
                                    .arg((n * 7919) % nFiles)
                                    .arg(lstSuffixes.at(n % lstSuffixes.size()))));
        if (!file.open(QIODevice::WriteOnly) || file.write("text\n") < 0)
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }
    CSettings settings(QStringLiteral("Quillan benchmark"), QStringLiteral("browser"));
    g_pSettings = &settings;

    QTextStream out(stdout);
    out << nFiles << " files, milliseconds\n"
        << "shown by | first rows | all rows | longest gap\n";
    for (int n = 0; n < 3; ++n) {
        SResult shown;
        SResult storm;
        measureWindow(dir.path(), nFiles, &shown, &storm);
        print(&out, "Quillan's window", shown);
        print(&out, "10000 more in it", storm);
        print(&out, "folder browser alone", measurePanel(dir.path(), nFiles));
        print(&out, "QFileSystemModel", measureQt(dir.path(), nFiles));
    }
    out << "icons one by one | " << measureIcons(dir.path()) << "\n";
    return 0;
}
