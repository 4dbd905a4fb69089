// Harmful files: each is selected and opened in a separate program, which must survive and answer.
// The results are written to hostile.txt in the build folder.
#include "hostile/hostile.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QThread>

#include <memory>

using Kind = SHostileFile::Kind;

namespace {

// The result for one file.
struct SOutcome
{
    QString strFile;
    QString strWord; // "shown", "refused"; "ended" when the program did not live through it.
    int nStill = 0; // Milliseconds of work for which the event loop stood still at most.
    int nMegabytes = 0;
};

#ifdef QUILLAN_ADDRESS_SANITIZER
constexpr int g_nSlower = 5;
#else
constexpr int g_nSlower = 1;
#endif
constexpr int g_nLongestStill = 2000 * g_nSlower;
constexpr int g_nMostMegabytes = 1024 * g_nSlower;

} // namespace

class tst_hostilefiles : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void files_areManyAndDifferent();
    void selectedFile_endsNothingAndHoldsNothingUp_data();
    void selectedFile_endsNothingAndHoldsNothingUp();
    void openedFile_endsNothing_data();
    void openedFile_endsNothing();

private:
    QList<SOutcome> showAll(const QString &strMode, Kind kind);
    SOutcome outcomeOf(QProcess *pProcess) const;
    void report(const QString &strMode, Kind kind, const QList<SOutcome> &lstOutcomes);

    QTemporaryDir m_folder;
};

void tst_hostilefiles::initTestCase()
{
    QFile::remove(QStringLiteral(QUILLAN_BINARY_DIR "/hostile.txt"));
    const QList<SHostileFile> lstFiles = hostileFiles();
    for (const SHostileFile &file : lstFiles)
        QVERIFY2(!writeHostile(file, m_folder.path()).isEmpty(), qPrintable(file.strName));
}

void tst_hostilefiles::files_areManyAndDifferent()
{
    QSet<QString> setNames;
    QSet<QByteArray> setContents;
    const QList<SHostileFile> lstFiles = hostileFiles();
    for (const SHostileFile &file : lstFiles) {
        setNames.insert(kindName(file.kind) + file.strName);
        setContents.insert(file.strName.section('.', -1).toLatin1() + file.data
                           + file.mapBeside.values().join());
    }
    QVERIFY2(lstFiles.size() >= 150, qPrintable(QString::number(lstFiles.size())));
    QCOMPARE(setNames.size(), lstFiles.size());
    QCOMPARE(setContents.size(), lstFiles.size());
}

// As many at a time as there are processors.
QList<SOutcome> tst_hostilefiles::showAll(const QString &strMode, Kind kind)
{
    QList<SOutcome> lstOutcomes;
    QList<QProcess *> lstRunning;
    const auto awaitFirst = [&] {
        const std::unique_ptr<QProcess> pProcess(lstRunning.takeFirst());
        lstOutcomes.append(outcomeOf(pProcess.get()));
    };
    const QList<SHostileFile> lstFiles = hostileFiles();
    for (const SHostileFile &file : lstFiles) {
        if (file.kind != kind)
            continue;
        if (lstRunning.size() >= QThread::idealThreadCount())
            awaitFirst();
        auto *pProcess = new QProcess;
        pProcess->setObjectName(file.strName);
        pProcess->start(
            QStringLiteral(QUILLAN_BINARY_DIR "/tests/hostile/showhostile"),
            {strMode, m_folder.filePath(kindName(kind) + ' ' + file.strName + '/' + file.strName)});
        lstRunning.append(pProcess);
    }
    while (!lstRunning.isEmpty())
        awaitFirst();
    return lstOutcomes;
}

SOutcome tst_hostilefiles::outcomeOf(QProcess *pProcess) const
{
    SOutcome outcome {pProcess->objectName(), QStringLiteral("ended"), 0, 0};
    const bool bEnded = pProcess->waitForFinished(100000);
    const QStringList lstWords =
        QString::fromLatin1(pProcess->readAllStandardOutput()).split(' ', Qt::SkipEmptyParts);
    if (!bEnded || pProcess->exitStatus() != QProcess::NormalExit || lstWords.size() != 3)
        return outcome;
    outcome.strWord = lstWords.at(0);
    outcome.nStill = lstWords.at(1).toInt();
    outcome.nMegabytes = lstWords.at(2).trimmed().toInt();
    return outcome;
}

void tst_hostilefiles::report(const QString &strMode, Kind kind, const QList<SOutcome> &lstOutcomes)
{
    QMap<QString, int> mapWords;
    SOutcome worst;
    QFile file(QStringLiteral(QUILLAN_BINARY_DIR "/hostile.txt"));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
    QTextStream stream(&file);
    for (const SOutcome &outcome : lstOutcomes) {
        ++mapWords[outcome.strWord];
        worst.nStill = qMax(worst.nStill, outcome.nStill);
        worst.nMegabytes = qMax(worst.nMegabytes, outcome.nMegabytes);
        stream << strMode << " | " << kindName(kind) << " | " << outcome.strFile << " | "
               << outcome.strWord << " | " << outcome.nStill << " ms | " << outcome.nMegabytes
               << " MB\n";
    }
    const QString strSum =
        QStringLiteral("%1, %2: %3 files, %4 shown, %5 refused, %6 ended, at most %7 ms, %8 MB")
            .arg(strMode, kindName(kind))
            .arg(lstOutcomes.size())
            .arg(mapWords.value("shown"))
            .arg(mapWords.value("refused"))
            .arg(mapWords.value("ended"))
            .arg(worst.nStill)
            .arg(worst.nMegabytes);
    stream << strSum << '\n';
    qInfo("%s", qPrintable(strSum));
}

void tst_hostilefiles::selectedFile_endsNothingAndHoldsNothingUp_data()
{
    QTest::addColumn<int>("kind");
    for (const Kind kind : {Kind::Page, Kind::Picture, Kind::Drawing, Kind::Text})
        QTest::newRow(kindName(kind).toLatin1()) << int(kind);
}

void tst_hostilefiles::selectedFile_endsNothingAndHoldsNothingUp()
{
    QFETCH(int, kind);
    const QList<SOutcome> lstOutcomes = showAll(QStringLiteral("preview"), Kind(kind));
    report(QStringLiteral("selected"), Kind(kind), lstOutcomes);
    for (const SOutcome &outcome : lstOutcomes) {
        QVERIFY2(outcome.strWord != QLatin1String("ended"), qPrintable(outcome.strFile));
        QVERIFY2(outcome.nStill < g_nLongestStill, qPrintable(outcome.strFile));
        QVERIFY2(outcome.nMegabytes < g_nMostMegabytes, qPrintable(outcome.strFile));
    }
}

void tst_hostilefiles::openedFile_endsNothing_data()
{
    QTest::addColumn<int>("kind");
    for (const Kind kind : {Kind::Page, Kind::Picture, Kind::Drawing, Kind::Text})
        QTest::newRow(kindName(kind).toLatin1()) << int(kind);
}

void tst_hostilefiles::openedFile_endsNothing()
{
    QFETCH(int, kind);
    const QList<SOutcome> lstOutcomes = showAll(QStringLiteral("open"), Kind(kind));
    report(QStringLiteral("opened"), Kind(kind), lstOutcomes);
    for (const SOutcome &outcome : lstOutcomes) {
        QVERIFY2(outcome.strWord != QLatin1String("ended"), qPrintable(outcome.strFile));
        QVERIFY2(outcome.nMegabytes < g_nMostMegabytes, qPrintable(outcome.strFile));
    }
}

QTEST_GUILESS_MAIN(tst_hostilefiles)
#include "tst_hostilefiles.moc"
