// Compares regions with their literal version: the parts and the states must be the same, for
// random texts and all samples, in every shipped language and in made-up ones.
#include "highlight/chighlightmgt.h"
#include "highlight/chighlightrules.h"
#include "highlight/cliteralregions.h"
#include "highlight/definitions.h"
#include "highlight/highlightline.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>

class tst_regions_random : public QObject
{
    Q_OBJECT
private slots:
    void randomTexts_areDividedAsTheLiteralRulesDo_data();
    void randomTexts_areDividedAsTheLiteralRulesDo();
    void samples_areDividedAsTheLiteralRulesDo_data();
    void samples_areDividedAsTheLiteralRulesDo();
};

namespace {

constexpr int g_nLinesPerLanguage = 400;

const CHighlightMgt &registry()
{
    static const CHighlightMgt s_registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"),
                                          nullptr);
    return s_registry;
}

QString kindsOf(const SHighlightLine &line, int nSize)
{
    QString str(nSize, '.');
    for (const SHighlightRange &range : line.lstRanges) {
        const bool bComment = range.role == HighlightRole::Comment;
        if (bComment || range.role == HighlightRole::String)
            str.replace(range.nStart, range.nLength, QString(range.nLength, bComment ? 'c' : 's'));
    }
    return str;
}

// Line after line; a message for the first that differs, empty when none does. Equal numbers have
// to stand for what is open, and others for something else.
QString compare(const QVariantMap &mapDefinition, const QStringList &lstLines)
{
    const CHighlightRules rules(mapDefinition);
    CLiteralRegions literal(mapDefinition);
    QMap<int, QString> mapStates {{0, QString()}};
    int nState = -1;
    SHighlightLine line;
    for (int n = 0; n < lstLines.size(); ++n) {
        const QString &strLine = lstLines.at(n);
        const QString strBefore = literal.state();
        const QString strExpected = literal.divide(strLine);
        rules.highlight(strLine, nState, &line);
        const QString strActual = kindsOf(line, strLine.size());
        nState = line.nState;
        const QString strOpen = literal.state();
        const int nStack = nState >> 6;
        const bool bKnown = mapStates.contains(nStack);
        if (!bKnown)
            mapStates.insert(nStack, strOpen);
        if (strActual != strExpected || mapStates.value(nStack) != strOpen) {
            return QString("line %1:\n%2\nours    %3 %4\nliteral %5 %6\nbefore %7")
                .arg(n + 1)
                .arg(strLine, strActual, mapStates.value(nStack), strExpected, strOpen, strBefore);
        }
    }
    return QString();
}

void collectPieces(const QVariantMap &mapElement, QStringList *pPieces)
{
    static const QRegExp s_rxPiece("[A-Za-z]+|\\d+|\\S");
    for (const QVariant &attribute : mapElement.value("attributes").toMap()) {
        const QString strPattern = attribute.toString();
        for (int n = s_rxPiece.indexIn(strPattern); n >= 0;
             n = s_rxPiece.indexIn(strPattern, n + s_rxPiece.matchedLength()))
            pPieces->append(s_rxPiece.cap(0));
        // What is plain text after all, as a whole.
        QString strPlain = strPattern;
        pPieces->append(strPlain.remove('\\').remove('^').remove('$'));
    }
    for (const QVariant &child : mapElement.value("children").toList())
        collectPieces(child.toMap(), pPieces);
}

QStringList randomLines(const QVariantMap &mapDefinition, quint32 nSeed)
{
    QStringList lstPieces {" ", " ", "\t", "a", "B1", "_", "\u00e9", "\u4e2d", "\\", "\"", "'",
                           "`", "#", "/",  "=", "(",  ")", "{",      "}",      "<",  ">"};
    const int nGeneral = lstPieces.size();
    collectPieces(mapDefinition.value("regions").toMap(), &lstPieces);
    for (const QVariant &embedded : mapDefinition.value("embedded").toMap())
        collectPieces(embedded.toMap().value("regions").toMap(), &lstPieces);
    QRandomGenerator random(nSeed);
    QStringList lstLines;
    for (int n = 0; n < g_nLinesPerLanguage; ++n) {
        QString strLine;
        const int nPieces = int(random.bounded(14));
        for (int nPiece = 0; nPiece < nPieces; ++nPiece) {
            const int nAll = random.bounded(3) == 0 ? nGeneral : lstPieces.size();
            strLine += lstPieces.at(int(random.bounded(quint32(nAll))));
        }
        // Ends of here-documents are lines that stood before.
        const bool bAgain = !lstLines.isEmpty() && random.bounded(12) == 0;
        lstLines.append(bAgain ? lstLines.last().section('<', -1).trimmed() : strLine);
    }
    return lstLines;
}

} // namespace

void tst_regions_random::randomTexts_areDividedAsTheLiteralRulesDo_data()
{
    QTest::addColumn<QVariantMap>("definition");
    for (const QVariant &entry : registry().table()) {
        const QString strName = entry.toMap().value("name").toString();
        QTest::newRow(qPrintable(strName)) << registry().definitionForName(strName);
    }
    QTest::newRow("made up") << declaredDefinitions().first();
}

void tst_regions_random::randomTexts_areDividedAsTheLiteralRulesDo()
{
    QFETCH(QVariantMap, definition);
    if (!definition.contains("regions"))
        QSKIP("declares none");
    for (quint32 nSeed = 1; nSeed <= 2; ++nSeed) {
        const QString strDifference = compare(definition, randomLines(definition, nSeed));
        QVERIFY2(strDifference.isEmpty(), qPrintable(strDifference));
    }
}

void tst_regions_random::samples_areDividedAsTheLiteralRulesDo_data()
{
    QTest::addColumn<QString>("path");
    const QDir folder(QStringLiteral(QUILLAN_SOURCE_DIR "/tests/highlight/samples"));
    for (const QFileInfo &info : folder.entryInfoList(QDir::Files | QDir::Hidden))
        if (info.suffix() != "expected")
            QTest::newRow(qPrintable(info.fileName())) << info.absoluteFilePath();
}

void tst_regions_random::samples_areDividedAsTheLiteralRulesDo()
{
    QFETCH(QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lstLines = QString::fromUtf8(file.readAll()).split('\n');
    const QVariantMap mapDefinition =
        registry().definitionForContent(QFileInfo(path).fileName(), lstLines);
    if (!mapDefinition.contains("regions"))
        QSKIP("its language declares none");
    const QString strDifference = compare(mapDefinition, lstLines);
    QVERIFY2(strDifference.isEmpty(), qPrintable(strDifference));
}

QTEST_GUILESS_MAIN(tst_regions_random)
#include "tst_regions_random.moc"
