// bench_browser [FILES]: how long a folder of FILES files (50000) takes to show, and how long the
// event loop of the windows is held up meanwhile. Beside it QFileSystemModel in a list of its own,
// and the time that the icons of all files take, asked of the provider one by one.
#include "app/csettings.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cwidgetfilelist.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileIconProvider>
#include <QFileSystemModel>
#include <QListView>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <functional>

namespace {

struct SResult
{
    qint64 nFirstRows = 0; // All times in milliseconds from the choice of the folder on.
    qint64 nAllRows = 0;
    qint64 nLongestGap = 0;
};

// Runs the event loop with a timer on each of its turns until nothing happens any more.
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
            qFatal("the folder was not shown within two minutes");
    }
    return result;
}

SResult measurePanel(const QString &strFolder, int nFiles)
{
    CWidgetFileList panel;
    panel.resize(300, 600);
    panel.show();
    QCoreApplication::processEvents();
    auto *pView = panel.findChild<QListView *>();
    return measure(
        nFiles, [&] { panel.setRootPath(strFolder); }, pView,
        [&] { return pView->model()->rowCount(); });
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

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const int nFiles = argc > 1 ? atoi(argv[1]) : 50000;
    const QTemporaryDir dir;
    const char *const arrSuffixes[] = {".cpp", ".html", ".txt", ".png", "", ".unknown"};
    for (int n = 0; n < nFiles; ++n) {
        QFile file(dir.filePath(QStringLiteral("Some file %1%2")
                                    .arg((n * 7919) % nFiles)
                                    .arg(QLatin1String(arrSuffixes[n % 6]))));
        if (!file.open(QIODevice::WriteOnly) || file.write("text\n") < 0)
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }
    CSettings settings(QStringLiteral("Quillan benchmark"), QStringLiteral("browser"));
    g_pSettings = &settings;

    QTextStream out(stdout);
    out << nFiles << " files, milliseconds\n"
        << "shown by | first rows | all rows | longest gap\n";
    for (int n = 0; n < 3; ++n) {
        const SResult own = measurePanel(dir.path(), nFiles);
        const SResult other = measureQt(dir.path(), nFiles);
        out << "Quillan | " << own.nFirstRows << " | " << own.nAllRows << " | " << own.nLongestGap
            << "\nQFileSystemModel | " << other.nFirstRows << " | " << other.nAllRows << " | "
            << other.nLongestGap << "\n";
        out.flush();
    }
    out << "icons one by one | " << measureIcons(dir.path()) << "\n";
    return 0;
}
