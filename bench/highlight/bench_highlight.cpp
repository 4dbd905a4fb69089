// Measures how fast lines are coloured, without thread, document or screen, in comparison with
// other engines and with the literal version of the rules. Prints a Markdown table. bench_highlight
// [--ours] [--folder FOLDER] [NAME...] FOLDER holds the real files that bench_colours reads and
// adds a row for each of its languages. With names only those rows; --ours leaves the other engines
// out, as a profiler wants it.
#include "colours/files.h"
#include "corpus.h"
#include "highlight/chighlightmgt.h"
#include "peers.h"

#include <QApplication>
#include <QTextStream>
#include <algorithm>
#include <functional>

namespace {

constexpr qint64 g_nMega = 1000 * 1000;

// The best of three times, or the only one if that took long.
double best(const std::function<double()> &measure)
{
    double fBest = measure();
    for (int n = 0; n < 2 && fBest >= 0 && fBest < 2; ++n)
        fBest = std::min(fBest, measure());
    return fBest;
}

QString rate(double fSeconds, qint64 nBytes)
{
    return fSeconds <= 0 ? QStringLiteral("-")
                         : QString::number(double(nBytes) / 1e6 / fSeconds, 'f', 1);
}

QString ratio(double fSeconds, double fOurs, double fScale = 1)
{
    return fSeconds <= 0 ? QStringLiteral("-") : QString::number(fSeconds * fScale / fOurs, 'f', 1);
}

struct SOptions
{
    bool bOnlyOurs = false;
    QString strFolder;
    QStringList lstNames; // Empty for all.

    bool wants(const QString &strName) const
    {
        return lstNames.isEmpty() || lstNames.contains(strName);
    }
};

SOptions readOptions(QStringList lst)
{
    SOptions options;
    lst.removeFirst();
    options.bOnlyOurs = lst.removeAll(QStringLiteral("--ours")) > 0;
    const int nFolder = lst.indexOf(QStringLiteral("--folder"));
    if (nFolder >= 0 && nFolder + 1 < lst.size()) {
        options.strFolder = lst.at(nFolder + 1);
        lst.erase(lst.begin() + nFolder, lst.begin() + nFolder + 2);
    }
    options.lstNames = lst;
    return options;
}

QList<SCorpus> collectCpp(const SOptions &options)
{
    const QStringList lstFolders {"/usr/include/c++", "/usr/include/x86_64-linux-gnu/qt5"};
    const QStringList lstPatterns {"*.h", "*.hpp", "*.tcc", "*.cpp", "algorithm", "bits"};
    const QList<QPair<QString, int>> lstSizes {
        {"C++ 1 MB", 1}, {"C++ 10 MB", 10}, {"C++ 50 MB", 50}};
    QList<SCorpus> lst;
    for (const auto &[strName, nMegabytes] : lstSizes)
        if (options.wants(strName))
            lst.append(collect(strName, "a.cpp", lstFolders, lstPatterns, nMegabytes * g_nMega));
    return lst;
}

QList<SCorpus> collectAll(const SOptions &options)
{
    struct SKind
    {
        QString strName;
        QString strFileName;
        QStringList lstFolders;
        QString strPattern;
    };
    const QList<SKind> lstKinds {
        {"HTML", "a.html", {"/usr/share/doc", "/usr/share"}, "*.html"},
        {"JSON", "a.json", {"/usr/share", "/usr/lib"}, "*.json"},
        {"Python", "a.py", {"/usr/lib/python3"}, "*.py"},
        {"XML", "a.xml", {"/usr/share"}, "*.xml"},
    };
    QList<SCorpus> lst = collectCpp(options);
    for (const SKind &kind : lstKinds) {
        if (options.wants(kind.strName)) {
            lst.append(collect(kind.strName, kind.strFileName, kind.lstFolders, {kind.strPattern},
                               5 * g_nMega));
        }
    }
    const QList<SFileKind> lstReal = options.strFolder.isEmpty() ? QList<SFileKind>() : fileKinds();
    for (const SFileKind &kind : lstReal) {
        const QString strName = kind.strName + QStringLiteral(", real files");
        if (options.wants(strName)) {
            lst.append(readFiles(strName, kind.strFileName, filesOf(kind, options.strFolder, 24),
                                 2 * g_nMega));
        }
    }
    return lst;
}

void measure(const SCorpus &corpus, const QVariantMap &mapDefinition, bool bOnlyOurs,
             QTextStream *pOut)
{
    // One megabyte is enough for a slow engine.
    const SCorpus head = bOnlyOurs ? SCorpus() : corpus.head(g_nMega);
    const auto peer = [&](const std::function<double()> &seconds) {
        return bOnlyOurs ? -1 : best(seconds);
    };
    const double fOurs = best([&] { return secondsOfOurs(mapDefinition, corpus); });
    const double fSyntax = peer([&] { return secondsOfKSyntaxHighlighting(corpus); });
    const double fScintilla = peer([&] { return secondsOfScintilla(corpus); });
    const double fLiteral = peer([&] { return secondsOfLiteral(mapDefinition, head); });
    const double fScale = double(corpus.nBytes) / std::max(1.0, double(head.nBytes));
    *pOut << "| " << corpus.strName << (corpus.bRepeated ? " (repeated)" : "") << " | "
          << corpus.lstLines.size() << " | "
          << QString::number(corpus.lstLines.size() / 1e6 / fOurs, 'f', 2) << " | "
          << rate(fOurs, corpus.nBytes) << " | " << rate(fSyntax, corpus.nBytes) << " | "
          << rate(fScintilla, corpus.nBytes) << " | " << rate(fLiteral, head.nBytes) << " | "
          << ratio(fSyntax, fOurs) << " | " << ratio(fScintilla, fOurs) << " | "
          << ratio(fLiteral, fOurs, fScale) << " |\n";
    pOut->flush();
}

} // namespace

int main(int nArguments, char *arrArguments[])
{
    const QApplication application(nArguments, arrArguments);
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << "| text | lines | Mlines/s | MB/s | KSyntaxHighlighting MB/s | QScintilla MB/s | "
           "literal MB/s | to KSyntaxHighlighting | to QScintilla | to literal |\n"
        << "|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
    const SOptions options = readOptions(application.arguments());
    const QList<SCorpus> lstCorpora = collectAll(options);
    for (const SCorpus &corpus : lstCorpora) {
        if (corpus.lstLines.isEmpty()) {
            out << "| " << corpus.strName << " | no such files here |\n";
            continue;
        }
        measure(corpus, registry.definitionForFile(corpus.strFileName), options.bOnlyOurs, &out);
    }
    return 0;
}
