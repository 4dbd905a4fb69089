// Time and peak memory from start to window, and for opening C++ text, of this editor beside a bare
// QPlainTextEdit. The programs take turns, so that a busy machine slows both. The best of all
// rounds counts, which other programs disturbed least. Needs a display with a window manager:
//
//     scripts/private-run.sh --display build/bench/bench/startup/bench_startup [ROUNDS]

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>

namespace {

struct SSample
{
    qint64 nMicroseconds = 0;
    qint64 nProcessor = 0; // Microseconds of processor time of the GUI thread; 0: not known.
    int nPeak = 0; // KiB, when the window or the text was there.
    int nPeakAtRest = 0; // KiB, when all work was done.
    qint64 nFirst = 0; // Microseconds until the first lines were on the screen; 0: not known.
    qint64 nGap = 0; // Microseconds of processor time between two turns of the event loop, at most.
};

struct SProgram
{
    const char *szName;
    QString strPath;
    QList<SSample> lstSamples;
};

int peakMemory(qint64 nProcess)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(nProcess));
    file.open(QIODevice::ReadOnly);
    const QList<QByteArray> lstLines = file.readAll().split('\n');
    for (const QByteArray &line : lstLines)
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toInt();
    return 0;
}

// From the start of the process until the window manager has its window.
SSample startEmpty(const QString &strProgram)
{
    QProcess watcher; // Writes a line whenever the list of windows changes.
    watcher.start(QStringLiteral("xprop"), {"-root", "-spy", "_NET_CLIENT_LIST"});
    watcher.waitForReadyRead();
    watcher.readAll();

    QProcess program;
    QElapsedTimer timer;
    timer.start();
    program.start(strProgram, QStringList());
    SSample sample;
    while (watcher.waitForReadyRead(20000) && !watcher.readAll().contains("0x")) { }
    sample.nMicroseconds = timer.nsecsElapsed() / 1000;
    sample.nPeak = peakMemory(program.processId());
    program.waitForFinished(700); // It is not ended here, because its work at rest is measured.
    sample.nPeakAtRest = peakMemory(program.processId());
    program.terminate();
    program.waitForFinished();
    watcher.terminate();
    watcher.waitForFinished();
    return sample;
}

SSample openFile(const QString &strProgram, const QString &strFile)
{
    QProcess program;
    program.start(strProgram, {strFile});
    program.waitForFinished(-1);
    const QList<QByteArray> lstWords = program.readAllStandardOutput().trimmed().split(' ');
    return {lstWords.value(0).toLongLong(), lstWords.value(1).toLongLong(),
            lstWords.value(2).toInt(),      lstWords.value(3).toInt(),
            lstWords.value(4).toLongLong(), lstWords.value(5).toLongLong()};
}

QString writeRepeated(const QString &strPath, const QByteArray &text, int nMegabytes)
{
    QFile file(strPath);
    file.open(QIODevice::WriteOnly);
    while (file.size() < qint64(nMegabytes) * 1000000)
        file.write(text);
    return strPath;
}

// Plain text without a language.
QString writeLog(const QDir &dir, int nMegabytes)
{
    QByteArray lines;
    for (int n = 0; n < 10000; ++n) {
        lines += "2024-05-17 12:00:" + QByteArray::number(n % 60) + " host service["
            + QByteArray::number(n * 7919 % 32768) + "]: request " + QByteArray::number(n)
            + " of the session was answered after some milliseconds\n";
    }
    return writeRepeated(dir.filePath(QStringLiteral("%1.log").arg(nMegabytes)), lines, nMegabytes);
}

// Our own sources, again and again.
QString writeText(const QDir &dir, int nMegabytes)
{
    QByteArray sources;
    for (const char *szFolder : {"app", "editor", "highlight"}) {
        QDirIterator it(QStringLiteral(QUILLAN_SOURCE_DIR "/") + QLatin1String(szFolder),
                        {QStringLiteral("*.cpp")}, QDir::Files);
        while (it.hasNext()) {
            QFile file(it.next());
            file.open(QIODevice::ReadOnly);
            sources += file.readAll();
        }
    }
    return writeRepeated(dir.filePath(QStringLiteral("%1.cpp").arg(nMegabytes)), sources,
                         nMegabytes);
}

template<class Member> auto best(const QList<SSample> &lstSamples, Member member)
{
    const auto isLess = [member](const SSample &a, const SSample &b) {
        return a.*member < b.*member;
    };
    return (*std::min_element(lstSamples.cbegin(), lstSamples.cend(), isLess)).*member;
}

// Milliseconds and how many times those of the bare program.
QByteArray timeCells(const SProgram &program, const SProgram &bare, qint64 SSample::*pMember)
{
    const double dTime = best(program.lstSamples, pMember) / 1000.0;
    const double dBare = best(bare.lstSamples, pMember) / 1000.0;
    if (dTime == 0.0)
        return " | ";
    return QByteArray::number(dTime, 'f', 0) + " | " + QByteArray::number(dTime / dBare, 'f', 2);
}

QByteArray milliseconds(const SProgram &program, qint64 SSample::*pMember)
{
    const double dTime = best(program.lstSamples, pMember) / 1000.0;
    return dTime == 0.0 ? QByteArray() : QByteArray::number(dTime, 'f', 0);
}

void printRow(const char *szWhat, const SProgram &program, const SProgram &bare)
{
    std::printf("| %s | %s | %s | %s | %s | %s | %.0f | %.0f |\n", szWhat, program.szName,
                milliseconds(program, &SSample::nFirst).constData(),
                milliseconds(program, &SSample::nGap).constData(),
                timeCells(program, bare, &SSample::nMicroseconds).constData(),
                timeCells(program, bare, &SSample::nProcessor).constData(),
                best(program.lstSamples, &SSample::nPeak) / 1024.0,
                best(program.lstSamples, &SSample::nPeakAtRest) / 1024.0);
    std::fflush(stdout);
}

template<class Run>
void measure(const char *szWhat, QList<SProgram> lstPrograms, int nRounds, const Run &run)
{
    for (int n = 0; n < nRounds; ++n)
        for (SProgram &program : lstPrograms)
            program.lstSamples.append(run(program.strPath));
    for (const SProgram &program : qAsConst(lstPrograms))
        printRow(szWhat, program, lstPrograms.first());
}

} // namespace

int main(int nArgc, char **ppArgv)
{
    QCoreApplication app(nArgc, ppArgv);
    const int nRounds =
        qMax(1, QCoreApplication::arguments().value(1, QStringLiteral("5")).toInt());
    const QDir dir(QCoreApplication::applicationDirPath());
    const QTemporaryDir folder;
    const QList<SProgram> lstOpening = {
        {"bare QPlainTextEdit", dir.filePath(QStringLiteral("startup_bare")), {}},
        {"editor", dir.filePath(QStringLiteral("startup_editor")), {}}};
    QList<SProgram> lstStarting = lstOpening;
    const QString strWhole = QStringLiteral(QUILLAN_BINARY_DIR "/quillan");
    if (QFile::exists(strWhole))
        lstStarting.append({"whole program", strWhole, {}});

    std::puts(
        "| what | program | first lines, ms | longest gap, ms | ms | times bare | processor ms "
        "| times bare | peak MiB | peak MiB at rest |");
    std::puts("|---|---|---|---|---|---|---|---|---|---|");
    measure("empty start", lstStarting, 2 * nRounds, startEmpty);
    const auto open = [&](const QByteArray &what, const QString &strFile) {
        measure(what.constData(), lstOpening, nRounds,
                [&strFile](const QString &strProgram) { return openFile(strProgram, strFile); });
        QFile::remove(strFile);
    };
    for (const int nMegabytes : {1, 10, 50})
        open("C++, " + QByteArray::number(nMegabytes) + " MB",
             writeText(QDir(folder.path()), nMegabytes));
    open("log, 100 MB", writeLog(QDir(folder.path()), 100));
    return 0;
}
