#include "app/cdraftstore.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

class TestDraftStore : public QObject
{
    Q_OBJECT

    static SDraft draft(const QString &strText)
    {
        SDraft draft;
        draft.strId = CDraftStore::newId();
        draft.strPath = "/some where/a\nb.txt";
        draft.nReturnFormat = 2;
        draft.strText = strText;
        return draft;
    }

private slots:
    void bytes_giveTheDraftBack()
    {
        SDraft before = draft(QString::fromUtf8("é\n\0x", 5));
        before.bPage = true;
        SDraft after;
        QVERIFY(draftFromBytes(draftToBytes(before), &after));
        QCOMPARE(after.strPath, before.strPath);
        QCOMPARE(after.strText, before.strText);
        QCOMPARE(after.nReturnFormat, 2);
        QVERIFY(after.bPage);
    }

    void textThatIsNoProperUnicode_comesBackAsItWas_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::newRow("lone high surrogate") << QString("a" + QString(QChar(0xD83D)));
        QTest::newRow("lone low surrogate") << QString(QString(QChar(0xDE00)) + "\nb");
        QTest::newRow("mark in front") << QString(QString(QChar(0xFEFF)) + "a");
        QTest::newRow("mark in reverse") << QString(QString(QChar(0xFFFE)) + "a");
    }

    void textThatIsNoProperUnicode_comesBackAsItWas()
    {
        QFETCH(QString, strText);
        SDraft after;
        QVERIFY(draftFromBytes(draftToBytes(draft(strText)), &after));
        QCOMPARE(after.strText, strText);
    }

    void otherBytes_areNoDraft_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no header") << QByteArray("text\n");
        QTest::newRow("another JSON") << QByteArray("{\"path\":\"/a\"}\ntext");
        QTest::newRow("cut off") << draftToBytes(draft("x")).left(20);
        QTest::newRow("an array") << QByteArray("[1]\ntext");
    }

    void otherBytes_areNoDraft()
    {
        QFETCH(QByteArray, bytes);
        SDraft result;
        QVERIFY(!draftFromBytes(bytes, &result));
    }

    void draftsOfAnEndedProgram_areTakenOver()
    {
        QTemporaryDir folder;
        const SDraft left = draft("unsaved");
        {
            CDraftStore ended(folder.filePath("recovery"));
            QVERIFY(ended.write(left));
        }
        CDraftStore next(folder.filePath("recovery"));
        const QVector<SDraft> lst = next.takeAbandoned();
        QCOMPARE(lst.size(), 1);
        QCOMPARE(lst.at(0).strText, left.strText);
        QVERIFY(next.takeAbandoned().isEmpty());
        // Neither answered nor removed: the program after that finds it again.
        QCOMPARE(
            QDir(folder.filePath("recovery")).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(),
            1);
    }

    void draftsOfARunningProgram_areLeftAlone()
    {
        QTemporaryDir folder;
        CDraftStore running(folder.path());
        QVERIFY(running.write(draft("mine")));
        CDraftStore other(folder.path());
        QVERIFY(other.takeAbandoned().isEmpty());
    }

    void removedDraft_isNotOffered()
    {
        QTemporaryDir folder;
        const SDraft left = draft("saved meanwhile");
        {
            CDraftStore ended(folder.path());
            QVERIFY(ended.write(left));
            ended.remove(left.strId);
        }
        QVERIFY(CDraftStore(folder.path()).takeAbandoned().isEmpty());
    }

    void draft_isForTheUserAlone()
    {
        QTemporaryDir folder;
        CDraftStore store(folder.filePath("recovery"));
        const SDraft secret = draft("secret");
        QVERIFY(store.write(secret));
        QDirIterator it(folder.path(), {secret.strId}, QDir::Files, QDirIterator::Subdirectories);
        QVERIFY(it.hasNext());
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup
            | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
        QVERIFY(!(QFileInfo(it.next()).permissions() & others));
        QVERIFY(!(QFileInfo(folder.filePath("recovery")).permissions() & others));
    }

    void foreignFiles_areLeftWhereTheyAre()
    {
        QTemporaryDir folder;
        QDir(folder.path()).mkpath("x");
        QFile file(folder.filePath("x/notes.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("no draft");
        file.close();
        QVERIFY(CDraftStore(folder.path()).takeAbandoned().isEmpty());
        QVERIFY(file.exists());
    }

    void folderThatCannotBeMade_keepsNothing()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        CDraftStore store(folder.filePath("file/recovery"));
        QVERIFY(!store.isValid());
        QVERIFY(!store.write(draft("x")));
        QVERIFY(store.takeAbandoned().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestDraftStore)
#include "tst_draftstore.moc"
