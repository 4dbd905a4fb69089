// How far the colours of real files agree with those of KSyntaxHighlighting: character by
// character, is it comment or string? Prints a Markdown table with a row per language.
//   bench_colours FOLDER [LANGUAGE]    names the runs of wrong lines of one language, too
//   bench_colours --file FILE [NAME]   shows a file, with what differs marked
#include "comparison.h"
#include "files.h"
#include "highlight/chighlightmgt.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

namespace {

constexpr int nFilesPerLanguage = 24;
constexpr int nRunWorthNaming = 4;

QStringList readLines(const QString &strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly)) {
        return QStringList();
    }
    QStringList lst = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (QString &strLine : lst) {
        if (strLine.endsWith(QLatin1Char('\r'))) {
            strLine.chop(1);
        }
    }
    return lst;
}

QVariantMap withoutRegions(QVariantMap mapDefinition)
{
    mapDefinition.remove(QStringLiteral("regions"));
    return mapDefinition;
}

struct Row
{
    Comparison declared;
    Comparison fixed; // with the fixed rules alone
    int nFiles = 0;
};

Row compareKind(const FileKind &kind, const QString &strRoot, const QVariantMap &mapDefinition,
                QTextStream *pRuns)
{
    Row row;
    const QStringList lstFiles = filesOf(kind, strRoot, nFilesPerLanguage);
    for (const QString &strPath : lstFiles) {
        const QStringList lstLines = readLines(strPath);
        const CharacterClasses lstPeers = classesOfPeer(kind.strFileName, lstLines);
        if (lstPeers.empty()) {
            return row;
        }
        ++row.nFiles;
        std::vector<WrongRun> lstRuns;
        Comparison one;
        const CharacterClasses lstOurs = classesOfOurs(mapDefinition, lstLines);
        compareFile(lstOurs, lstPeers, &one, nRunWorthNaming, &lstRuns);
        row.declared.add(one);
        Comparison fixed;
        std::vector<WrongRun> lstOthers;
        compareFile(classesOfOurs(withoutRegions(mapDefinition), lstLines), lstPeers, &fixed,
                    nRunWorthNaming, &lstOthers);
        row.fixed.add(fixed);
        if (pRuns) {
            *pRuns << "  " << QString::number(one.characterShare(), 'f', 2) << " % " << strPath
                   << "\n";
            for (const WrongRun &run : lstRuns) {
                *pRuns << "    " << run.nLines << " lines from " << run.nFirst + 1 << "\n";
            }
        }
    }
    return row;
}

void printRow(QTextStream *pOut, const QString &strName, const Row &row)
{
    const auto number = [](double f) { return QString::number(f, 'f', 2); };
    *pOut << "| " << strName << " | " << row.nFiles << " | " << number(row.fixed.characterShare())
          << " | " << number(row.declared.characterShare()) << " | "
          << number(row.declared.lineShare()) << " | " << row.fixed.nLongestRun << " | "
          << row.declared.nLongestRun << " |\n";
    pOut->flush();
}

int compareAll(const CHighlightMgt &registry, const QString &strRoot, const QString &strOnly)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << "| language | files | fixed rules: characters, % | characters, % | lines, % | "
           "fixed rules: longest run | longest run |\n|---|--:|--:|--:|--:|--:|--:|\n";
    double fSum = 0;
    double fSumFixed = 0;
    int nRows = 0;
    for (const FileKind &kind : fileKinds()) {
        if (!strOnly.isEmpty() && kind.strName != strOnly) {
            continue;
        }
        const Row row = compareKind(kind, strRoot, registry.definitionForFile(kind.strFileName),
                                    strOnly.isEmpty() ? nullptr : &out);
        printRow(&out, kind.strName, row);
        fSum += row.declared.characterShare();
        fSumFixed += row.fixed.characterShare();
        ++nRows;
    }
    out << "| mean | | " << QString::number(fSumFixed / std::max(1, nRows), 'f', 2) << " | "
        << QString::number(fSum / std::max(1, nRows), 'f', 2) << " | | | |\n";
    return 0;
}

// Each line that differs, with what is ours alone as "o" and what is the peer's alone as "p".
int showFile(const CHighlightMgt &registry, const QString &strPath, const QString &strName)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    const QStringList lstLines = readLines(strPath);
    const CharacterClasses lstOurs = classesOfOurs(registry.definitionForFile(strName), lstLines);
    const CharacterClasses lstPeers = classesOfPeer(strName, lstLines);
    for (int nLine = 0; nLine < lstLines.size() && !lstPeers.empty(); ++nLine) {
        const std::vector<bool> &lstOne = lstOurs[size_t(nLine)];
        const std::vector<bool> &lstTwo = lstPeers[size_t(nLine)];
        if (lstOne == lstTwo) {
            continue;
        }
        QString strMarks;
        for (size_t n = 0; n < lstOne.size(); ++n) {
            strMarks += QLatin1Char(lstOne[n] == lstTwo[n] ? ' ' : lstOne[n] ? 'o' : 'p');
        }
        out << QStringLiteral("%1: ").arg(nLine + 1, 5)
            << QString(lstLines.at(nLine)).replace('\t', ' ') << "\n       " << strMarks << "\n";
    }
    return 0;
}

} // namespace

int main(int nArguments, char *arrArguments[])
{
    const QCoreApplication application(nArguments, arrArguments);
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    const QStringList lst = application.arguments();
    if (lst.size() > 2 && lst.at(1) == QLatin1String("--file")) {
        return showFile(registry, lst.at(2), lst.value(3, lst.at(2).section('/', -1)));
    }
    if (lst.size() < 2) {
        QTextStream(stderr) << "bench_colours FOLDER [LANGUAGE] | --file FILE [NAME]\n";
        return 2;
    }
    return compareAll(registry, lst.at(1), lst.value(2));
}
