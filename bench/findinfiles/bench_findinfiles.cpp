// bench_findinfiles [FILES] measures a search through a tree of FILES text files (100000) of two
// kilobytes each, with the disk's content in memory. For comparison it runs grep -rIn and ripgrep
// in turn, which print to /dev/null. It prints the best of five times each, in milliseconds, and
// the ratio to grep.
#include "findinfiles/cfindinfiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTextStream>

#include <functional>

namespace {

const int g_nRounds = 5;

QByteArray someText(QRandomGenerator *pRandom)
{
    static const QByteArrayList s_lstWords {
        "const",   "int",   "the",    "value", "return", "(",      ");",   "{",      "}",
        "QString", "count", "string", "of",    "find",   "größer", "line", "\n    ", "\n"};
    QByteArray text;
    while (text.size() < 2048)
        text += s_lstWords.at(pRandom->bounded(s_lstWords.size())) + ' ';
    return text;
}

void makeTree(const QString &strFolder, int nFiles)
{
    QRandomGenerator random(1);
    for (int n = 0; n < nFiles; ++n) {
        const QString strSub = QStringLiteral("%1/%2/%3").arg(strFolder).arg(n / 2500).arg(n / 50);
        if (n % 50 == 0)
            QDir().mkpath(strSub);
        QFile file(QStringLiteral("%1/file%2.cpp").arg(strSub).arg(n));
        const QByteArray needle = n % 1000 == 0 ? "a rareNeedle here\n" : "";
        if (!file.open(QIODevice::WriteOnly) || file.write(someText(&random) + needle) < 0)
            qFatal("cannot write %s", qPrintable(file.fileName()));
    }
}

struct SCase
{
    const char *szName;
    const char *szText;
    bool bMatchCase;
    bool bRegExp;
};

qint64 searchOwn(const QString &strFolder, const SCase &what, int *pMatches)
{
    SFindQuery query;
    query.strFolder = strFolder;
    query.strText = QString::fromUtf8(what.szText);
    query.options.bMatchCase = what.bMatchCase;
    query.options.bRegExp = what.bRegExp;
    CFindInFiles engine;
    QEventLoop loop;
    QObject::connect(&engine, &CFindInFiles::finished, [&](const SFindCounts &counts) {
        *pMatches = counts.nMatches;
        loop.quit();
    });
    QElapsedTimer timer;
    timer.start();
    engine.start(query);
    loop.exec();
    return timer.elapsed();
}

qint64 searchOther(const QString &strProgram, const QStringList &lstArguments, int *pLines)
{
    QProcess process;
    QElapsedTimer timer;
    timer.start();
    process.start(strProgram, lstArguments);
    QByteArray output;
    while (process.state() != QProcess::NotRunning) {
        process.waitForReadyRead(-1);
        output += process.readAllStandardOutput();
    }
    *pLines = output.count('\n');
    return process.error() == QProcess::FailedToStart ? -1 : timer.elapsed();
}

qint64 bestOf(const std::function<qint64()> &measure)
{
    qint64 nBest = measure();
    for (int n = 1; n < g_nRounds; ++n)
        nBest = qMin(nBest, measure());
    return nBest;
}

void compare(const QString &strFolder, const SCase &what, QTextStream *pOut)
{
    int nOwn = 0;
    int nGrep = 0;
    int nRipgrep = 0;
    const QString strText = QString::fromUtf8(what.szText);
    QStringList lstGrep {QStringLiteral("-rIn"),
                         what.bRegExp ? QStringLiteral("-E") : QStringLiteral("-F")};
    QStringList lstRipgrep {QStringLiteral("-n"), QStringLiteral("--no-config"),
                            QStringLiteral("--hidden")};
    if (!what.bRegExp)
        lstRipgrep << QStringLiteral("-F");
    if (!what.bMatchCase) {
        lstGrep << QStringLiteral("-i");
        lstRipgrep << QStringLiteral("-i");
    }
    for (QStringList *pList : {&lstGrep, &lstRipgrep})
        *pList << QStringLiteral("--") << strText << strFolder;
    const qint64 nOwnTime = bestOf([&] { return searchOwn(strFolder, what, &nOwn); });
    const qint64 nGrepTime =
        bestOf([&] { return searchOther(QStringLiteral("grep"), lstGrep, &nGrep); });
    const qint64 nRipgrepTime =
        bestOf([&] { return searchOther(QStringLiteral("rg"), lstRipgrep, &nRipgrep); });
    *pOut << what.szName << " | " << nOwnTime << " | " << nGrepTime << " | " << nRipgrepTime
          << " | " << QString::number(double(nOwnTime) / double(nGrepTime), 'f', 2) << " | " << nOwn
          << ", " << nGrep << ", " << nRipgrep << "\n";
    pOut->flush();
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    qputenv("LC_ALL", "C.UTF-8");
    const int nFiles = argc > 1 ? atoi(argv[1]) : 100000;
    const QTemporaryDir dir;
    makeTree(dir.path(), nFiles);
    QTextStream out(stdout);
    out << nFiles << " files, milliseconds\n"
        << "search | Quillan | grep -rIn | rg | Quillan / grep | matches; lines\n";
    const SCase arrCases[] = {
        {"rare text, any case", "rareneedle", false, false},
        {"rare text, this case", "rareNeedle", true, false},
        {"rare expression", "rare[A-Z]eedle", true, true},
        {"text that every tenth file could hold", "count of größer", true, false},
    };
    for (const SCase &what : arrCases)
        compare(dir.path(), what, &out);
    return 0;
}
