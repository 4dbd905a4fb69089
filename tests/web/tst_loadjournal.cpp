#include "web/cloadjournal.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#include <sys/wait.h>
#include <unistd.h>

class tst_loadjournal : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_pFolder = std::make_unique<QTemporaryDir>();
        write(QStringLiteral("a.html"), "one");
        write(QStringLiteral("b.html"), "two");
    }

    void loadThatEnded_isForgotten();
    void loadThatEndedTheProgram_isBlamed();
    void loadsAtTheSameTime_areAllBlamed();
    void programThatEndsInOrder_blamesNothing();
    void changedFile_isNotBlamed_data();
    void changedFile_isNotBlamed();
    void programThatRuns_blamesNothing();
    void forgivenFile_isBlamedOnlyAnew();
    void crashAfterCrash_staysBlamed();
    void sameFileTwice_isNotedTwice();
    void oddNames_areBlamed();
    void missingFile_isNeverBlamed();
    void folderThatCannotBeMade_notesNothing();
    void nonsenseInTheFolder_isPassedOver();
    void notes_areTheUsersAlone();

private:
    QString path(const QString &strName) const { return m_pFolder->filePath(strName); }
    QString folder() const { return path(QStringLiteral("journal")); }
    QStringList notes() const { return QDir(folder()).entryList(QDir::Files); }
    void write(const QString &strName, const QByteArray &data) const
    {
        QFile file(path(strName));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(data);
    }
    // Begins to load the files in a program of its own, which then ends in no order at all.
    void crash(const QStringList &lstNames) const
    {
        const pid_t nChild = fork();
        if (nChild == 0) {
            auto *pJournal = new CLoadJournal(folder());
            for (const QString &strName : lstNames)
                pJournal->begin(path(strName));
            _exit(0);
        }
        int nStatus = 0;
        QCOMPARE(waitpid(nChild, &nStatus, 0), nChild);
    }
    bool isBlamed(const QString &strName) const
    {
        return CLoadJournal(folder()).isBlamed(path(strName));
    }

    std::unique_ptr<QTemporaryDir> m_pFolder;
};

void tst_loadjournal::loadThatEnded_isForgotten()
{
    CLoadJournal journal(folder());
    journal.begin(path("a.html"));
    QCOMPARE(notes().size(), 1);
    journal.end(path("a.html"));
    QCOMPARE(notes(), QStringList());
    journal.end(path("a.html"));
    QVERIFY(!journal.isBlamed(path("a.html")));
}

void tst_loadjournal::loadThatEndedTheProgram_isBlamed()
{
    QVERIFY(!isBlamed("a.html"));
    crash({"a.html"});
    QVERIFY(isBlamed("a.html"));
    QVERIFY(isBlamed("a.html")); // Asking changes nothing.
    QVERIFY(!isBlamed("b.html"));
}

void tst_loadjournal::loadsAtTheSameTime_areAllBlamed()
{
    crash({"a.html", "b.html"});
    QVERIFY(isBlamed("a.html") && isBlamed("b.html"));
}

void tst_loadjournal::programThatEndsInOrder_blamesNothing()
{
    {
        CLoadJournal journal(folder());
        journal.begin(path("a.html"));
    }
    QVERIFY(!isBlamed("a.html"));
    QCOMPARE(notes(), QStringList());
}

void tst_loadjournal::changedFile_isNotBlamed_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("longer") << QByteArray("longer");
    QTest::newRow("as long") << QByteArray("two");
}

void tst_loadjournal::changedFile_isNotBlamed()
{
    QFETCH(QByteArray, content);
    crash({"a.html"});
    const QDateTime timeBefore = QFileInfo(path("a.html")).lastModified();
    do { // The clock of the disk ticks slowly.
        write("a.html", content);
    } while (QFileInfo(path("a.html")).lastModified() == timeBefore);
    QCOMPARE(notes().size(), 1);
    QVERIFY(!isBlamed("a.html"));
    QCOMPARE(notes(), QStringList());
}

void tst_loadjournal::programThatRuns_blamesNothing()
{
    CLoadJournal journal(folder());
    journal.begin(path("a.html"));
    QVERIFY(!isBlamed("a.html"));
    CLoadJournal other(folder());
    other.forgive(path("a.html"));
    QCOMPARE(notes().size(), 1);
    journal.end(path("a.html"));
    QCOMPARE(notes(), QStringList());
}

void tst_loadjournal::forgivenFile_isBlamedOnlyAnew()
{
    crash({"a.html", "b.html"});
    CLoadJournal journal(folder());
    journal.forgive(path("a.html"));
    QVERIFY(!journal.isBlamed(path("a.html")));
    QVERIFY(!isBlamed("a.html") && isBlamed("b.html"));
    crash({"a.html"});
    QVERIFY(isBlamed("a.html"));
}

void tst_loadjournal::crashAfterCrash_staysBlamed()
{
    for (int n = 0; n < 3; ++n)
        crash({"a.html"});
    QVERIFY(isBlamed("a.html"));
    CLoadJournal(folder()).forgive(path("a.html"));
    QVERIFY(!isBlamed("a.html"));
    QCOMPARE(notes(), QStringList());
}

void tst_loadjournal::sameFileTwice_isNotedTwice()
{
    CLoadJournal journal(folder());
    journal.begin(path("a.html"));
    journal.begin(path("a.html"));
    journal.end(path("a.html"));
    QCOMPARE(notes().size(), 1);
    journal.end(path("a.html"));
    QCOMPARE(notes(), QStringList());
}

void tst_loadjournal::oddNames_areBlamed()
{
    const QString strName = QString::fromUtf8("a\n\t%1 \u65e5\u202e.html");
    write(strName, "x");
    crash({strName});
    QVERIFY(isBlamed(strName));
}

void tst_loadjournal::missingFile_isNeverBlamed()
{
    crash({"none.html"});
    QCOMPARE(notes(), QStringList());
    QVERIFY(!isBlamed("none.html"));
    crash({"a.html"});
    QVERIFY(QFile::remove(path("a.html")));
    QVERIFY(!isBlamed("a.html"));
}

void tst_loadjournal::folderThatCannotBeMade_notesNothing()
{
    write("journal", "a file");
    CLoadJournal journal(folder());
    journal.begin(path("a.html"));
    journal.end(path("a.html"));
    QVERIFY(!journal.isBlamed(path("a.html")));
}

void tst_loadjournal::nonsenseInTheFolder_isPassedOver()
{
    crash({"a.html"});
    write("journal/x.load", QByteArray("\0\xff\n\n\n", 5));
    write("journal/empty.load", "");
    write("journal/other", "x");
    QVERIFY(QFile::link("/dev/zero", path("journal/zero.load")));
    QVERIFY(QDir(folder()).mkdir("folder.load"));
    QVERIFY(isBlamed("a.html"));
    QVERIFY(!isBlamed("b.html"));
}

void tst_loadjournal::notes_areTheUsersAlone()
{
    crash({"a.html"});
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther
        | QFile::WriteOther | QFile::ExeOther;
    QCOMPARE(QFile::permissions(folder()) & others, QFile::Permissions());
    QCOMPARE(QFile::permissions(folder() + '/' + notes().constFirst()) & others,
             QFile::Permissions());
}

QTEST_GUILESS_MAIN(tst_loadjournal)
#include "tst_loadjournal.moc"
