// How fast lines are coloured, without thread, document or screen, beside other engines and beside
// the literal reading of the rules. Prints a Markdown table.
#include "corpus.h"
#include "highlight/chighlightmgt.h"
#include "peers.h"

#include <QApplication>
#include <QTextStream>
#include <algorithm>
#include <functional>

namespace {

constexpr qint64 nMega = 1000 * 1000;

// The best of three, or of one when that took long.
double best(const std::function<double()> &measure)
{
    double fBest = measure();
    for (int n = 0; n < 2 && fBest >= 0 && fBest < 2; ++n) {
        fBest = std::min(fBest, measure());
    }
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

QList<Corpus> collectAll()
{
    const QStringList lstCpp {"/usr/include/c++", "/usr/include/x86_64-linux-gnu/qt5"};
    const QStringList lstCppPatterns {"*.h", "*.hpp", "*.tcc", "*.cpp", "algorithm", "bits"};
    const Corpus large = collect("C++ 50 MB", "a.cpp", lstCpp, lstCppPatterns, 50 * nMega);
    Corpus medium = large.head(10 * nMega);
    medium.strName = "C++ 10 MB";
    Corpus small = large.head(nMega);
    small.strName = "C++ 1 MB";
    return {small,
            medium,
            large,
            collect("HTML", "a.html", {"/usr/share/doc", "/usr/share"}, {"*.html"}, 5 * nMega),
            collect("JSON", "a.json", {"/usr/share", "/usr/lib"}, {"*.json"}, 5 * nMega),
            collect("Python", "a.py", {"/usr/lib/python3"}, {"*.py"}, 5 * nMega),
            collect("XML", "a.xml", {"/usr/share"}, {"*.xml"}, 5 * nMega)};
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
    const QList<Corpus> lstCorpora = collectAll();
    for (const Corpus &corpus : lstCorpora) {
        if (corpus.lstLines.isEmpty()) {
            out << "| " << corpus.strName << " | no such files here |\n";
            continue;
        }
        const QVariantMap mapDefinition = registry.definitionForFile(corpus.strFileName);
        // One megabyte is enough of a slow thing.
        const Corpus head = corpus.head(nMega);
        const double fOurs = best([&] { return secondsOfOurs(mapDefinition, corpus); });
        const double fSyntax = best([&] { return secondsOfKSyntaxHighlighting(corpus); });
        const double fScintilla = best([&] { return secondsOfScintilla(corpus); });
        const double fLiteral = best([&] { return secondsOfLiteral(mapDefinition, head); });
        const double fScale = double(corpus.nBytes) / double(head.nBytes);
        out << "| " << corpus.strName << (corpus.bRepeated ? " (repeated)" : "") << " | "
            << corpus.lstLines.size() << " | "
            << QString::number(corpus.lstLines.size() / 1e6 / fOurs, 'f', 2) << " | "
            << rate(fOurs, corpus.nBytes) << " | " << rate(fSyntax, corpus.nBytes) << " | "
            << rate(fScintilla, corpus.nBytes) << " | " << rate(fLiteral, head.nBytes) << " | "
            << ratio(fSyntax, fOurs) << " | " << ratio(fScintilla, fOurs) << " | "
            << ratio(fLiteral, fOurs, fScale) << " |\n";
        out.flush();
    }
    return 0;
}
