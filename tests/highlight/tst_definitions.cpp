#include "definitionfile.h"
#include "highlight/chighlightmgt.h"
#include "highlight/chighlightrules.h"
#include "highlight/highlightline.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <ctime>

Q_DECLARE_METATYPE(SDefinitionFile)

// Checks every file of highlighter/, and that the checks find the faults they look for.
class tst_definitions : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void definition_isWellFormedAndFollowsTheSchema_data() { addFileRows(); }
    void definition_isWellFormedAndFollowsTheSchema();
    void definition_hasNoFault_data() { addFileRows(); }
    void definition_hasNoFault();
    void definition_isFastOnLongLines_data() { addFileRows(); }
    void definition_isFastOnLongLines();
    void definition_hasASample_data() { addFileRows(); }
    void definition_hasASample();

    void definition_isFastWithItsRegions_data() { addFileRows(); }
    void definition_isFastWithItsRegions();
    void noTwoDefinitions_claimTheSame();
    void embeddedLanguages_areThere();
    void languagesOfTheMenu_areThere();

    void fault_isFound_data();
    void fault_isFound();
    void slowPattern_isFound();
    void doubleClaim_isFound();
    void schema_refusesAnUnknownElement();

private:
    void addFileRows() const;
    static bool followsSchema(const QString &path, QString *output);

    QVector<SDefinitionFile> m_lstFiles;
};

static const char frame[] =
    "<language name='%1' extensions='%2'>"
    "<general><keywords casesensitive='%3'/><comments>%4</comments></general>"
    "<highlighting>%5</highlighting></language>";

static SDefinitionFile written(const QTemporaryDir &folder, const QString &fileName,
                               const QString &content)
{
    QFile file(folder.filePath(fileName));
    if (!file.open(QIODevice::WriteOnly) || file.write(content.toUtf8()) < 0)
        qFatal("cannot write %s", qPrintable(file.fileName()));
    file.close();
    return readDefinition(file.fileName());
}

void tst_definitions::initTestCase()
{
    const QDir folder(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"));
    for (const QFileInfo &info : folder.entryInfoList(QDir::Files, QDir::Name))
        m_lstFiles.append(readDefinition(info.filePath()));
    QVERIFY2(!m_lstFiles.isEmpty(), qPrintable(folder.path()));
}

void tst_definitions::addFileRows() const
{
    QTest::addColumn<SDefinitionFile>("file");
    for (const SDefinitionFile &file : m_lstFiles)
        QTest::newRow(qPrintable(file.baseName)) << file;
}

bool tst_definitions::followsSchema(const QString &path, QString *output)
{
    QProcess xmllint;
    xmllint.setProcessChannelMode(QProcess::MergedChannels);
    xmllint.start("xmllint",
                  {"--noout", "--nonet", "--schema",
                   QStringLiteral(QUILLAN_SOURCE_DIR "/docs/language-file.xsd"), path});
    if (!xmllint.waitForStarted() || !xmllint.waitForFinished()) {
        *output = QStringLiteral("xmllint (package libxml2-utils) cannot be run: ")
            + xmllint.errorString();
        return false;
    }
    *output = QString::fromUtf8(xmllint.readAll());
    return xmllint.exitStatus() == QProcess::NormalExit && xmllint.exitCode() == 0;
}

void tst_definitions::definition_isWellFormedAndFollowsTheSchema()
{
    QFETCH(SDefinitionFile, file);
    QVERIFY2(file.error.isEmpty(), qPrintable(file.error));
    QString output;
    QVERIFY2(followsSchema(file.path, &output), qPrintable(output));
}

void tst_definitions::definition_hasNoFault()
{
    QFETCH(SDefinitionFile, file);
    const QStringList faults = attributeFaults(file) + commentFaults(file) + listFaults(file)
        + keywordFaults(file) + patternFaults(file) + regionFaults(file);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

void tst_definitions::definition_isFastOnLongLines()
{
    QFETCH(SDefinitionFile, file);
    const QStringList faults = slownessFaults(file);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

// All that the program does with a line, in processor time.
void tst_definitions::definition_isFastWithItsRegions()
{
    QFETCH(SDefinitionFile, file);
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    const CHighlightRules rules(registry.definitionForName(file.name));
    SHighlightLine line;
    for (const QChar c : QStringLiteral("\"'`#/${(<[-*")) {
        for (const QString &text :
             {QString(10000, c), QStringLiteral("a%1").arg(c).repeated(5000)}) {
            double best = 1;
            for (int i = 0; i < 3 && best > 0.1; ++i) {
                const std::clock_t start = std::clock();
                rules.highlight(text, -1, &line);
                best = std::min(best, double(std::clock() - start) / CLOCKS_PER_SEC);
            }
            QVERIFY2(best <= 0.1, qPrintable(text.left(2) + QString::number(best * 1000)));
        }
    }
}

void tst_definitions::definition_hasASample()
{
    QFETCH(SDefinitionFile, file);
    const QStringList samples = QDir(QStringLiteral(QUILLAN_SOURCE_DIR "/tests/highlight/samples"))
                                    .entryList(QDir::Files | QDir::Hidden);
    QVERIFY2(std::any_of(samples.begin(), samples.end(),
                         [&](const QString &sample) { return claims(file, sample); }),
             qPrintable("no file of tests/highlight/samples is named for " + file.name));
}

void tst_definitions::noTwoDefinitions_claimTheSame()
{
    const QStringList faults = claimFaults(m_lstFiles);
    QVERIFY2(faults.isEmpty(), qPrintable(faults.join('\n')));
}

void tst_definitions::embeddedLanguages_areThere()
{
    QStringList names;
    for (const SDefinitionFile &file : m_lstFiles)
        names << file.name;
    for (const SDefinitionFile &file : m_lstFiles)
        for (const QString &language : file.languagesUsed)
            QVERIFY2(names.contains(language), qPrintable(file.baseName + ": " + language));
}

void tst_definitions::languagesOfTheMenu_areThere()
{
    QStringList names;
    for (const SDefinitionFile &file : m_lstFiles)
        names << file.name;
    // The editor verifies and formats by these names.
    for (const char *name : {"HTML", "XML", "SVG", "JSON"})
        QVERIFY2(names.contains(QLatin1String(name)), name);
    QVERIFY2(names.size() >= 60, qPrintable(names.join(' ')));
}

void tst_definitions::fault_isFound_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("message");
    const QString f = QString::fromLatin1(frame);
    const QString list = QStringLiteral("<list name='%1'><item>%2</item></list>");

    QTest::newRow("not well-formed") << "<language>"
                                     << "line 1: unexpected end of file";
    QTest::newRow("no name") << f.arg("", "*.x", "true", "", "") << "the language has no name";
    QTest::newRow("no patterns") << f.arg("X", "", "true", "", "")
                                 << "the language claims no files";
    QTest::newRow("multi-line comment without an end")
        << f.arg("X", "*.x", "true", "<comment name='multiLine' start='/*'/>", "")
        << "a multiLine comment needs start and end";
    QTest::newRow("invalid single-line comment")
        << f.arg("X", "*.x", "true", "<comment name='singleLine' start='(a'/>", "")
        << "comment: (a is not valid: unexpected end";
    QTest::newRow("block comment that never ends")
        << f.arg("X", "*.x", "true", "<comment name='multiLine' start='/*' end='*/('/>", "")
        << "comment end: */( is not valid: unexpected end";
    QTest::newRow("block comment only for Toggle Comment, no fault")
        << f.arg("X", "*.x", "true", "<comment name='multiLine' start='(*' end='*)'/>", "") << "";
    QTest::newRow("keyword with a sign at its start")
        << f.arg("X", "*.x", "true", "", list.arg("a", "#include"))
        << "a: the keyword #include does not match its own text";
    QTest::newRow("keyword with pattern signs")
        << f.arg("X", "*.x", "true", "", list.arg("a", "x+y"))
        << "a: the keyword x+y does not match its own text";
    QTest::newRow("keyword in two lists")
        << f.arg("X", "*.x", "true", "", list.arg("a", "if") + list.arg("b", "if"))
        << "if stands twice";
    QTest::newRow("keyword in two cases")
        << f.arg("X", "*.x", "false", "", list.arg("a", "if") + list.arg("b", "IF"))
        << "IF stands twice";
    QTest::newRow("two lists of one name")
        << f.arg("X", "*.x", "true", "", list.arg("a", "if") + list.arg("a", "do"))
        << "a second list a replaces the first";
    QTest::newRow("invalid regular expression")
        << f.arg("X", "*.x", "true", "", list.arg("reg_exp", "(a"))
        << "reg_exp: (a is not valid: unexpected end";
    QTest::newRow("empty match") << f.arg("X", "*.x", "true", "", list.arg("reg_exp", "a*"))
                                 << "reg_exp: a* matches nothing at all";
    QTest::newRow("region with a pattern beyond its means")
        << f.arg("X", "*.x", "true", "",
                 "</highlighting><regions><region start='(a(?=b)|c)'/>"
                 "</regions><highlighting>")
        << "start: (a(?=b)|c) cannot be run";
    QTest::newRow("region with a group that is not there")
        << f.arg("X", "*.x", "true", "",
                 "</highlighting><regions><region start='a' inner='g top'/>"
                 "</regions><highlighting>")
        << "there is no group g";
    QTest::newRow("region whose next is not there")
        << f.arg("X", "*.x", "true", "",
                 "</highlighting><regions><region start='a' next='n'/>"
                 "</regions><highlighting>")
        << "there is no region n";
    QTest::newRow("tag region without an end")
        << f.arg("X", "*.x", "true", "",
                 "<contexts><context name='El Open'><DetectChar char='a'/></context></contexts>")
        << "a tag region needs both El Open and El Close";
}

void tst_definitions::fault_isFound()
{
    QFETCH(QString, content);
    QFETCH(QString, message);
    QTemporaryDir folder;
    const SDefinitionFile file = written(folder, "x.xml", content);
    QStringList faults = attributeFaults(file) + commentFaults(file) + listFaults(file)
        + keywordFaults(file) + patternFaults(file) + regionFaults(file);
    if (!file.error.isEmpty())
        faults = QStringList {file.error};
    QCOMPARE(faults.join('\n'), message);
}

void tst_definitions::slowPattern_isFound()
{
    QTemporaryDir folder;
    const QString list =
        QStringLiteral("<list name='reg_exp'><item>[a-z]+[a-z ]*\\d</item></list>");
    const SDefinitionFile file = written(
        folder, "x.xml", QString::fromLatin1(frame).arg("X", "*.x", "true", QString(), list));
    QVERIFY(slownessFaults(file).join('\n').contains("on a line of a"));
}

void tst_definitions::doubleClaim_isFound()
{
    QTemporaryDir folder;
    const QString f = QString::fromLatin1(frame);
    const SDefinitionFile a = written(folder, "a.xml", f.arg("A", "*.h;*.txt", "true", "", ""));
    const SDefinitionFile b = written(folder, "b.xml", f.arg("B", "*.H;note.txt", "true", "", ""));
    const QStringList expected {"a and b both claim *.h", "*.H of b is answered by a",
                                "note.txt of b is answered by a"};
    QCOMPARE(claimFaults({a, b}), expected);
}

void tst_definitions::schema_refusesAnUnknownElement()
{
    QTemporaryDir folder;
    const QString f = QString::fromLatin1(frame);
    const SDefinitionFile good =
        written(folder, "good.xml",
                f.arg("X", "*.x", "true", "<comment name='singleLine' start='#'/>", QString()));
    const SDefinitionFile bad =
        written(folder, "bad.xml",
                f.arg("X", "*.x", "true", "<comment name='singleLine' start='#'/>", "<words/>"));
    QString output;
    QVERIFY2(followsSchema(good.path, &output), qPrintable(output));
    QVERIFY(!followsSchema(bad.path, &output));
    QVERIFY2(output.contains("Element 'words'"), qPrintable(output));
}

QTEST_GUILESS_MAIN(tst_definitions)
#include "tst_definitions.moc"
