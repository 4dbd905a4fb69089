// Compares the rules with their literal version, over random lines and real source files.
#include "highlight/chighlightmgt.h"
#include "highlight/chighlightrules.h"
#include "highlight/cliteralrules.h"
#include "highlight/definitions.h"
#include "highlight/highlightline.h"

#include <QDirIterator>
#include <QRandomGenerator>
#include <QTest>

class tst_highlightrules_random : public QObject
{
    Q_OBJECT
private slots:
    void randomLines_equalTheLiteralRules_data();
    void randomLines_equalTheLiteralRules();
    void realSources_equalTheLiteralRules_data();
    void realSources_equalTheLiteralRules();
    void samples_equalTheLiteralRulesUnderEveryDefinition();
    void machineThatGrowsTooLarge_equalsTheLiteralRules();
};

namespace {

QString describe(const SHighlightLine &line)
{
    QString str = QStringLiteral("state %1:").arg(line.nState);
    for (const SHighlightRange &range : line.lstRanges) {
        str +=
            QStringLiteral(" %1+%2:%3").arg(range.nStart).arg(range.nLength).arg(int(range.role));
    }
    return str;
}

bool isEqual(const SHighlightLine &a, const SHighlightLine &b)
{
    const auto isSame = [](const SHighlightRange &x, const SHighlightRange &y) {
        return x.nStart == y.nStart && x.nLength == y.nLength && x.role == y.role;
    };
    return a.nState == b.nState
        && std::equal(a.lstRanges.begin(), a.lstRanges.end(), b.lstRanges.begin(),
                      b.lstRanges.end(), isSame);
}

// Compares line after line; a message for the first that differs, empty when none does.
QString compare(const QVariantMap &mapDefinition, const QStringList &lstLines)
{
    const CHighlightRules rules(mapDefinition);
    const CLiteralRules literal(mapDefinition);
    int nState = -1;
    for (const QString &strLine : lstLines) {
        SHighlightLine ours;
        rules.highlight(strLine, nState, &ours);
        const SHighlightLine theirs = literal.highlight(strLine, nState);
        if (!isEqual(ours, theirs)) {
            return QStringLiteral("line %1 after state %2\nours    %3\nliteral %4")
                .arg(strLine)
                .arg(nState)
                .arg(describe(ours), describe(theirs));
        }
        nState = theirs.nState;
    }
    return QString();
}

QString randomLine(QRandomGenerator *pRandom)
{
    static const QStringList lstPieces = {
        "\"",     "\"",     "'",      "\\",     "\\",     "/",      "/",      "*",      "//",
        "/*",     "*/",     "<",      ">",      "<!--",   "-->",    "--",     "[[",     "#",
        "0",      "1",      "0x",     "9f",     "e",      "E5",     ".",      "+",      "-",
        "=",      "==",     "!",      "~",      "^",      "&",      "%",      "(",      ")",
        "{",      "}",      "[",      "]",      "?",      ":",      ";",      ",",      " ",
        " ",      "\t",     "if",     "IF",     "int",    "for",    "a",      "a-a",    "-a",
        "b",      "x",      "xx",     "xxy",    "x+y",    "ss",     "s",      "_",      "end",
        "end if", "\u00e9", "\u00c9", "\u0301", "\u4e2d", "\u0663", "\u212a", "\u017f", "\u0130",
        "k",      "K",      "kk",     "\u03c3", "\u03c2", "\u03a3", "$",      "@",      "|",
        "b.c",    "bxc",    "c++",    "#if"};
    QString str;
    const int nPieces = pRandom->bounded(24);
    for (int n = 0; n < nPieces; ++n)
        str += lstPieces.at(pRandom->bounded(lstPieces.size()));
    return str;
}

QStringList linesOf(const QString &strPath, int nMax)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly))
        return QStringList();
    return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n')).mid(0, nMax);
}

} // namespace

void tst_highlightrules_random::randomLines_equalTheLiteralRules_data()
{
    QTest::addColumn<QVariantMap>("definition");
    const QMap<QString, QVariantMap> mapDefinitions = nastyDefinitions();
    for (auto it = mapDefinitions.begin(); it != mapDefinitions.end(); ++it)
        QTest::newRow(qPrintable(it.key())) << it.value();
}

void tst_highlightrules_random::randomLines_equalTheLiteralRules()
{
    QFETCH(QVariantMap, definition);
    // 100,000 lines over all rows.
    const int nLines = 100000 / nastyDefinitions().size() + 1;
    QRandomGenerator random(20161120);
    QStringList lstLines;
    for (int n = 0; n < nLines; ++n)
        lstLines.append(randomLine(&random));
    const QString strDifference = compare(definition, lstLines);
    QVERIFY2(strDifference.isEmpty(), qPrintable(strDifference));
}

void tst_highlightrules_random::realSources_equalTheLiteralRules_data()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("pattern");
    QTest::newRow("C headers") << "/usr/include"
                               << "*.h";
    QTest::newRow("Python") << "/usr/lib/python3"
                            << "*.py";
    QTest::newRow("shell and others in /etc") << "/etc"
                                              << "*";
}

void tst_highlightrules_random::realSources_equalTheLiteralRules()
{
    QFETCH(QString, folder);
    QFETCH(QString, pattern);
    const QMap<QString, QVariantMap> mapDefinitions = nastyDefinitions();
    QStringList lstLines;
    QDirIterator it(folder, {pattern}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext() && lstLines.size() < 600)
        lstLines += linesOf(it.next(), 100);
    if (lstLines.size() < 100)
        QSKIP("there are no such files on this machine");
    for (const QVariantMap &mapDefinition : mapDefinitions) {
        const QString strDifference = compare(mapDefinition, lstLines);
        QVERIFY2(strDifference.isEmpty(), qPrintable(strDifference));
    }
}

void tst_highlightrules_random::samples_equalTheLiteralRulesUnderEveryDefinition()
{
    const QString strSource = QStringLiteral(QUILLAN_SOURCE_DIR);
    QDirIterator itDefinition(strSource + QLatin1String("/highlighter"), QDir::Files);
    const QFileInfoList lstSamples =
        QDir(strSource + QLatin1String("/tests/highlight/samples")).entryInfoList(QDir::Files);
    if (lstSamples.isEmpty() || !itDefinition.hasNext())
        QSKIP("there are no samples yet");
    QStringList lstLines;
    for (const QFileInfo &info : lstSamples)
        if (info.suffix() != QLatin1String("expected"))
            lstLines += linesOf(info.absoluteFilePath(), 8);
    while (itDefinition.hasNext()) {
        const QString strPath = itDefinition.next();
        QVariantMap mapDefinition = CHighlightMgt::parse(strPath);
        // What is declared is no part of the literal rules.
        mapDefinition.remove("regions");
        const QString strDifference = compare(mapDefinition, lstLines);
        QVERIFY2(strDifference.isEmpty(), qPrintable(strPath + QLatin1Char('\n') + strDifference));
    }
}

// Each order of the last twelve letters needs a state, so the machine gives up within a line.
void tst_highlightrules_random::machineThatGrowsTooLarge_equalsTheLiteralRules()
{
    STestDefinition definition;
    definition.mapLists["keywords"] = QStringList {"if"};
    definition.mapLists["reg_exp"] =
        QStringList {"x[ab]*a[ab][ab][ab][ab][ab][ab][ab][ab][ab][ab][ab]c"};
    QRandomGenerator random(20161120);
    QStringList lstLines;
    for (int n = 0; n < 20; ++n) {
        QString strLine;
        for (int nWord = 0; nWord < 12; ++nWord) {
            strLine += "if x";
            for (int nLetter = 0; nLetter < 200; ++nLetter)
                strLine += random.bounded(2) == 0 ? 'a' : 'b';
            strLine += "c ";
        }
        lstLines.append(strLine);
    }
    const QString strDifference = compare(definition.toMap(), lstLines);
    QVERIFY2(strDifference.isEmpty(), qPrintable(strDifference));
}

QTEST_GUILESS_MAIN(tst_highlightrules_random)
#include "tst_highlightrules_random.moc"
