// How far the colours of real files agree with those of KSyntaxHighlighting: character by
// character, is it comment or string? Prints a Markdown table with a row per language.
//   bench_colours [--others] FOLDER [LANGUAGE]
// With a language it names the runs of wrong lines and the peer's styles, too. --others takes other
// files than those of the table.
//   bench_colours --file FILE [NAME]
// shows a file, with what differs marked
#include "comparison.h"
#include "files.h"
#include "highlight/chighlightmgt.h"
#include "lookedat.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMap>
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

// The same files, compared in four ways.
struct Row
{
    Comparison fixed; // the fixed rules alone, with the peer as it stands
    Comparison asItStands;
    Comparison byGrammar; // the peer's styles put right
    Comparison left; // and the places left out that were looked at
    QMap<QString, int> mapStyles; // characters that differ then, by the peer's styles
    int nFiles = 0;
};

struct Options
{
    QString strRoot;
    QString strOnly; // the only language
    bool bOthers = false; // files that the list of looked-at places is not about
};

void nameRuns(QTextStream *pOut, const QString &strPath, const Comparison &one,
              const std::vector<WrongRun> &lstRuns)
{
    *pOut << "  " << QString::number(one.characterShare(), 'f', 2) << " % " << strPath << " "
          << QFileInfo(strPath).size() << "\n";
    for (const WrongRun &run : lstRuns) {
        *pOut << "    " << run.nLines << " lines from " << run.nFirst + 1 << "\n";
    }
}

void countStyles(const CharacterClasses &lstOurs, const CharacterClasses &lstPeers,
                 const std::vector<QStringList> &lstStyles, QMap<QString, int> *pStyles)
{
    for (size_t nLine = 0; nLine < lstOurs.size(); ++nLine) {
        for (size_t n = 0; n < lstOurs[nLine].size(); ++n) {
            if (lstOurs[nLine][n] != lstPeers[nLine][n]) {
                ++(*pStyles)[(lstOurs[nLine][n] ? "ours: " : "peer: ")
                             + lstStyles[nLine].at(int(n))];
            }
        }
    }
}

bool compareOne(const FileKind &kind, const QString &strPath, const QVariantMap &mapDefinition,
                const CLookedAt &lookedAt, Row *pRow, QTextStream *pRuns)
{
    const QStringList lstLines = readLines(strPath);
    PeersText peer = classesOfPeer(kind.strName, kind.strFileName, lstLines);
    if (peer.asItStands.empty()) {
        return false;
    }
    const CharacterClasses lstOurs = classesOfOurs(mapDefinition, lstLines);
    pRow->fixed.add(
        compareFile(classesOfOurs(withoutRegions(mapDefinition), lstLines), peer.asItStands));
    pRow->asItStands.add(compareFile(lstOurs, peer.asItStands));
    pRow->byGrammar.add(compareFile(lstOurs, peer.byGrammar));
    lookedAt.settle(kind.strName, strPath, QFileInfo(strPath).size(), lstOurs, &peer.byGrammar);
    std::vector<WrongRun> lstRuns;
    const Comparison left = compareFile(lstOurs, peer.byGrammar, nRunWorthNaming, &lstRuns);
    pRow->left.add(left);
    ++pRow->nFiles;
    if (pRuns) {
        nameRuns(pRuns, strPath, left, lstRuns);
        countStyles(lstOurs, peer.byGrammar, peer.lstStyles, &pRow->mapStyles);
    }
    return true;
}

Row compareKind(const FileKind &kind, const Options &options, const QVariantMap &mapDefinition,
                QTextStream *pRuns)
{
    static const CLookedAt s_lookedAt(
        QStringLiteral(QUILLAN_SOURCE_DIR "/bench/colours/peer-wrong.tsv"));
    Row row;
    const QStringList lstFiles =
        filesOf(kind, options.strRoot, nFilesPerLanguage, options.bOthers ? 1 : 0);
    for (const QString &strPath : lstFiles) {
        if (!compareOne(kind, strPath, mapDefinition, s_lookedAt, &row, pRuns)) {
            break;
        }
    }
    return row;
}

QString number(double f)
{
    return QString::number(f, 'f', 2);
}

void printRow(QTextStream *pOut, const QString &strName, const Row &row)
{
    for (auto it = row.mapStyles.begin(); it != row.mapStyles.end(); ++it) {
        *pOut << "  " << it.value() << " characters, " << it.key() << "\n";
    }
    *pOut << "| " << strName << " | " << row.nFiles << " | " << number(row.fixed.characterShare())
          << " | " << number(row.asItStands.characterShare()) << " | "
          << number(row.byGrammar.characterShare()) << " | "
          << number(row.byGrammar.characterShare() - row.left.characterShare()) << " | "
          << number(row.left.characterShare()) << " | " << number(row.left.lineShare()) << " | "
          << row.fixed.nLongestRun << " | " << row.asItStands.nLongestRun << " | "
          << row.left.nLongestRun << " |\n";
    pOut->flush();
}

int compareAll(const CHighlightMgt &registry, const Options &options)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << "| language | files | fixed rules, % | as it stands, % | styles put right, % | of it "
           "peer "
           "wrong (looked at), % | left, % | lines left, % | longest run, fixed rules | as it "
           "stands | left |\n|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
    double arrSums[4] = {};
    int nRows = 0;
    for (const FileKind &kind : fileKinds()) {
        if (!options.strOnly.isEmpty() && kind.strName != options.strOnly) {
            continue;
        }
        const Row row = compareKind(kind, options, registry.definitionForFile(kind.strFileName),
                                    options.strOnly.isEmpty() ? nullptr : &out);
        printRow(&out, kind.strName, row);
        arrSums[0] += row.fixed.characterShare();
        arrSums[1] += row.asItStands.characterShare();
        arrSums[2] += row.byGrammar.characterShare();
        arrSums[3] += row.left.characterShare();
        ++nRows;
    }
    const auto mean = [&](int n) { return number(arrSums[n] / std::max(1, nRows)); };
    out << "| mean | | " << mean(0) << " | " << mean(1) << " | " << mean(2) << " | | " << mean(3)
        << " | | | | |\n";
    return 0;
}

// Each line that differs, with what is ours alone as "o" and what is the peer's alone as "p".
int showFile(const CHighlightMgt &registry, const QString &strPath, const QString &strName)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    const QStringList lstLines = readLines(strPath);
    const CharacterClasses lstOurs = classesOfOurs(registry.definitionForFile(strName), lstLines);
    QString strLanguage;
    for (const FileKind &kind : fileKinds()) {
        if (kind.strFileName.section('.', -1) == strName.section('.', -1)) {
            strLanguage = kind.strName;
        }
    }
    const CharacterClasses lstPeers = classesOfPeer(strLanguage, strName, lstLines).byGrammar;
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
    Options options;
    options.bOthers = lst.value(1) == QLatin1String("--others");
    options.strRoot = lst.value(options.bOthers ? 2 : 1);
    options.strOnly = lst.value(options.bOthers ? 3 : 2);
    if (options.strRoot.isEmpty()) {
        QTextStream(stderr) << "bench_colours [--others] FOLDER [LANGUAGE] | --file FILE [NAME]\n";
        return 2;
    }
    return compareAll(registry, options);
}
