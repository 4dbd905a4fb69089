// Each file of samples/ against the golden result beside it. A new sample needs nothing but its
// file; scripts/promote-samples.sh writes the results after somebody has looked at them.
#include "highlight/chighlightmgt.h"
#include "highlight/chighlightrules.h"
#include "highlight/highlightline.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryFile>
#include <QTest>
#include <QTextDocument>

class tst_samples : public QObject
{
    Q_OBJECT
private slots:
    void sample_equalsItsGoldenResult_data();
    void sample_equalsItsGoldenResult();
    void sample_withOtherLineEndsIsTheSame_data() { addSamples(); }
    void sample_withOtherLineEndsIsTheSame();
    void everyDefinition_hasASample();
    void everyGoldenResult_hasASample();

private:
    void addSamples() const;
    QStringList samples() const;

    const QDir m_dir {QStringLiteral(QUILLAN_SOURCE_DIR "/tests/highlight/samples")};
    const CHighlightMgt m_registry {QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr};
};

namespace {

const QString g_strExpectedSuffix = QStringLiteral(".expected");

QString readFile(const QString &strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// One line per range, "line:column+length colour text", the line counted from 1 and the column from
// 0; and one per line of the sample that leaves something open, "line: state".
QString describe(const QVariantMap &mapDefinition, const QString &strText)
{
    const CHighlightRules rules(mapDefinition);
    const QStringList lstLines = strText.split(QLatin1Char('\n'));
    QString str = QStringLiteral("# %1\n").arg(rules.languageName());
    SHighlightLine line;
    int nState = -1;
    for (int n = 0; n < lstLines.size(); ++n) {
        const QString &strLine = lstLines.at(n);
        rules.highlight(strLine, nState, &line);
        nState = line.nState;
        for (const SHighlightRange &range : line.lstRanges) {
            const QColor colour = CHighlightRules::format(range.role).foreground().color();
            str += QStringLiteral("%1:%2+%3 ").arg(n + 1).arg(range.nStart).arg(range.nLength)
                % colour.name() % QLatin1Char(' ') % strLine.mid(range.nStart, range.nLength)
                % QLatin1Char('\n');
        }
        if (nState != 0)
            str += QStringLiteral("%1: state %2\n").arg(n + 1).arg(nState);
    }
    return str;
}

QString difference(const QString &strExpectedPath, const QString &strActual)
{
    QTemporaryFile file;
    if (!file.open())
        return file.errorString();
    file.write(strActual.toUtf8());
    file.close();
    QProcess diff;
    diff.start(QStringLiteral("diff"), {QStringLiteral("-u"), strExpectedPath, file.fileName()});
    diff.waitForFinished();
    return QString::fromUtf8(diff.readAllStandardOutput()).left(4000);
}

} // namespace

QStringList tst_samples::samples() const
{
    QStringList lst = m_dir.entryList(QDir::Files | QDir::Hidden, QDir::Name);
    lst.erase(std::remove_if(lst.begin(), lst.end(),
                             [](const QString &str) { return str.endsWith(g_strExpectedSuffix); }),
              lst.end());
    return lst;
}

void tst_samples::addSamples() const
{
    QTest::addColumn<QString>("name");
    const QStringList lst = samples();
    for (const QString &strName : lst)
        QTest::newRow(qPrintable(strName)) << strName;
}

void tst_samples::sample_equalsItsGoldenResult_data()
{
    QVERIFY(!samples().isEmpty());
    addSamples();
}

void tst_samples::sample_equalsItsGoldenResult()
{
    QFETCH(QString, name);
    const QVariantMap mapDefinition = m_registry.definitionForFile(name);
    QVERIFY2(!mapDefinition.isEmpty(), "no definition claims this file name");
    const QString strPath = m_dir.filePath(name);
    const QString strActual = describe(mapDefinition, readFile(strPath));
    const QString strExpectedPath = strPath + g_strExpectedSuffix;
    if (qEnvironmentVariableIsSet("QUILLAN_PROMOTE_SAMPLES")) {
        QFile file(strExpectedPath);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(strActual.toUtf8());
        QSKIP("promoted");
    }
    QVERIFY2(QFile::exists(strExpectedPath), "there is no golden result: promote it");
    if (strActual != readFile(strExpectedPath))
        QFAIL(qPrintable(difference(strExpectedPath, strActual)));
}

// The text has the form of the document, which has lines and no line ends.
void tst_samples::sample_withOtherLineEndsIsTheSame()
{
    QFETCH(QString, name);
    const QVariantMap mapDefinition = m_registry.definitionForFile(name);
    const QString strText = readFile(m_dir.filePath(name));
    QTextDocument document;
    document.setPlainText(QString(strText).replace(QLatin1Char('\n'), QLatin1String("\r\n")));
    QCOMPARE(describe(mapDefinition, document.toPlainText()), describe(mapDefinition, strText));
}

void tst_samples::everyDefinition_hasASample()
{
    QSet<QString> setNames;
    const QStringList lst = samples();
    for (const QString &strName : lst) {
        const QVariantMap mapDefinition = m_registry.definitionForFile(strName);
        setNames.insert(mapDefinition.value(QStringLiteral("language"))
                            .toMap()
                            .value(QStringLiteral("name"))
                            .toString());
    }
    for (const QVariant &entry : m_registry.table()) {
        const QString strName = entry.toMap().value(QStringLiteral("name")).toString();
        QVERIFY2(setNames.contains(strName), qPrintable(strName));
    }
}

void tst_samples::everyGoldenResult_hasASample()
{
    const QStringList lst =
        m_dir.entryList({QLatin1Char('*') + g_strExpectedSuffix}, QDir::Files | QDir::Hidden);
    for (const QString &strName : lst) {
        const QString strSample = strName.chopped(g_strExpectedSuffix.size());
        QVERIFY2(m_dir.exists(strSample), qPrintable(strName));
    }
}

QTEST_MAIN(tst_samples)
#include "tst_samples.moc"
