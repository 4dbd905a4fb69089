#include "agreement.h"

#include "bench/colours/classes.h"
#include "comparison.h"
#include "files.h"
#include "lookedat.h"

#include <QFileInfo>
#include <QMap>
#include <QTextStream>
#include <algorithm>

namespace {

constexpr int g_nFilesPerLanguage = 24;
constexpr int g_nRunWorthNaming = 4;

QVariantMap withoutRegions(QVariantMap mapDefinition)
{
    mapDefinition.remove(QStringLiteral("regions"));
    return mapDefinition;
}

// Compares the same files in four ways.
struct SRow
{
    SComparison fixed; // The fixed rules alone, and the peer as it is.
    SComparison asItStands;
    SComparison byGrammar; // With the peer's wrong styles put right.
    SComparison left; // The same without the places that were looked at.
    QMap<QString, int> mapStyles; // The characters that still differ, by the peer's styles.
    int nFiles = 0;
};

void nameRuns(QTextStream *pOut, const QString &strPath, const SComparison &one,
              const std::vector<SWrongRun> &lstRuns)
{
    *pOut << "  " << QString::number(one.characterShare(), 'f', 2) << " % " << strPath << " "
          << QFileInfo(strPath).size() << "\n";
    for (const SWrongRun &run : lstRuns)
        *pOut << "    " << run.nLines << " lines from " << run.nFirst + 1 << "\n";
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

bool compareOne(const SFileKind &kind, const QString &strPath, const QVariantMap &mapDefinition,
                const CLookedAt &lookedAt, SRow *pRow, QTextStream *pRuns)
{
    const QStringList lstLines = readLines(strPath);
    SPeersText peer = classesOfPeer(kind.strName, kind.strFileName, lstLines);
    if (peer.asItStands.empty())
        return false;
    const CharacterClasses lstOurs = classesOfOurs(mapDefinition, lstLines);
    pRow->fixed.add(
        compareFile(classesOfOurs(withoutRegions(mapDefinition), lstLines), peer.asItStands));
    pRow->asItStands.add(compareFile(lstOurs, peer.asItStands));
    pRow->byGrammar.add(compareFile(lstOurs, peer.byGrammar));
    lookedAt.settle(kind.strName, strPath, QFileInfo(strPath).size(), lstOurs, &peer.byGrammar);
    std::vector<SWrongRun> lstRuns;
    const SComparison left = compareFile(lstOurs, peer.byGrammar, g_nRunWorthNaming, &lstRuns);
    pRow->left.add(left);
    ++pRow->nFiles;
    if (pRuns) {
        nameRuns(pRuns, strPath, left, lstRuns);
        countStyles(lstOurs, peer.byGrammar, peer.lstStyles, &pRow->mapStyles);
    }
    return true;
}

SRow compareKind(const SFileKind &kind, const SOptions &options, const QVariantMap &mapDefinition,
                 QTextStream *pRuns)
{
    static const CLookedAt s_lookedAt(
        QStringLiteral(QUILLAN_SOURCE_DIR "/bench/colours/peer-wrong.tsv"));
    SRow row;
    const QStringList lstFiles =
        filesOf(kind, options.strRoot, g_nFilesPerLanguage, options.bOthers ? 1 : 0);
    for (const QString &strPath : lstFiles)
        if (!compareOne(kind, strPath, mapDefinition, s_lookedAt, &row, pRuns))
            break;
    return row;
}

QString number(double f)
{
    return QString::number(f, 'f', 2);
}

void printRow(QTextStream *pOut, const QString &strName, const SRow &row)
{
    for (auto it = row.mapStyles.begin(); it != row.mapStyles.end(); ++it)
        *pOut << "  " << it.value() << " characters, " << it.key() << "\n";
    *pOut << "| " << strName << " | " << row.nFiles << " | " << number(row.fixed.characterShare())
          << " | " << number(row.asItStands.characterShare()) << " | "
          << number(row.byGrammar.characterShare()) << " | "
          << number(row.byGrammar.characterShare() - row.left.characterShare()) << " | "
          << number(row.left.characterShare()) << " | " << number(row.left.lineShare()) << " | "
          << row.fixed.nLongestRun << " | " << row.asItStands.nLongestRun << " | "
          << row.left.nLongestRun << " |\n";
    pOut->flush();
}

} // namespace

void printAgreement(const CHighlightMgt &registry, const SOptions &options)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << "| language | files | fixed rules, % | as it stands, % | styles put right, % | of it "
           "peer "
           "wrong (looked at), % | left, % | lines left, % | longest run, fixed rules | as it "
           "stands | left |\n|---|--:|--:|--:|--:|--:|--:|--:|--:|--:|--:|\n";
    double arrSums[4] = {};
    int nRows = 0;
    for (const SFileKind &kind : fileKinds()) {
        if (!options.strOnly.isEmpty() && kind.strName != options.strOnly)
            continue;
        const SRow row = compareKind(kind, options, registry.definitionForFile(kind.strFileName),
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
}
