#include "app/cdraftstore.h"
#include "support/files.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// The folder, or only the folders in it.
bool removeAll(const QString &strFolder, bool bItself)
{
    QDir folder(strFolder);
    if (bItself)
        return folder.removeRecursively();
    const QStringList lstNames = folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::all_of(lstNames.cbegin(), lstNames.cend(), [&](const QString &strName) {
        return QDir(folder.filePath(strName)).removeRecursively();
    });
}

class tst_draftstore : public QObject
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

    void origin_comesBack()
    {
        SDraft before = draft("text");
        before.reason = SDraft::Reason::Codec;
        before.nTime = 1763777777123;
        before.codec = "Shift_JIS";
        before.bNotWhole = true;
        before.nCaret = 3;
        QTemporaryDir folder;
        QFile file(folder.filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        before.began = fileStateOf(file.fileName());
        before.began.hash = hashOfContent("text");
        SDraft after;
        QVERIFY(draftFromBytes(draftToBytes(before), &after));
        QCOMPARE(after.reason, before.reason);
        QCOMPARE(after.nTime, before.nTime);
        QCOMPARE(after.codec, before.codec);
        QVERIFY(after.bNotWhole);
        QCOMPARE(after.nCaret, 3);
        QVERIFY(after.began.bExists && after.began == before.began);
        QCOMPARE(after.began.hash, before.began.hash);
    }

    void everyReason_comesBack()
    {
        for (int n = 0; n <= int(SDraft::Reason::Deleted); ++n) {
            SDraft before = draft("text");
            before.reason = SDraft::Reason(n);
            SDraft after;
            QVERIFY(draftFromBytes(draftToBytes(before), &after));
            QCOMPARE(int(after.reason), n);
        }
    }

    void draftOfAnOlderProgram_isRead()
    {
        SDraft after;
        QVERIFY(draftFromBytes("{\"format\":\"quillan-draft-1\",\"page\":true,\"path\":\"/a\","
                               "\"returnFormat\":0,\"units\":false}\ntext",
                               &after));
        QCOMPARE(after.strPath, QString("/a"));
        QCOMPARE(after.strText, QString("text"));
        QVERIFY(after.bPage);
        QVERIFY(!after.began.bExists && !after.bNotWhole && after.codec.isEmpty());
        QCOMPARE(after.reason, SDraft::Reason::Unsaved);
        QCOMPARE(after.nCaret, 0);
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
        // It was neither answered nor removed, so the next program finds it again.
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
#ifdef Q_OS_WIN
        QSKIP("The access lists of the user's folder see to it.");
#endif
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

    // In a container process numbers and host names repeat.
    void lockFileOfAnybody_hidesNoDraft_data()
    {
        QTest::addColumn<QByteArray>("lock");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("of this very process")
            << QByteArray::number(QCoreApplication::applicationPid()) + "\n"
                + QByteArray("tst_draftstore\n") + QSysInfo::machineHostName().toUtf8() + "\n";
        QTest::newRow("of process 1 elsewhere") << QByteArray("1\nquillan\nanother-host\n");
        QTest::newRow("nonsense") << QByteArray(5000, '\xff');
    }

    void lockFileOfAnybody_hidesNoDraft()
    {
        QFETCH(QByteArray, lock);
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("ended"));
        put(folder.filePath("ended/lock"), lock);
        put(folder.filePath("ended/" + CDraftStore::newId()), draftToBytes(draft("left")));
        const QVector<SDraft> lst = CDraftStore(folder.path()).takeAbandoned();
        QCOMPARE(lst.size(), 1);
        QCOMPARE(lst.at(0).strText, QString("left"));
        QVERIFY(!QFileInfo::exists(folder.filePath("ended")));
    }

    void folderInPlaceOfTheLock_hidesNoDraft()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkpath("ended/lock"));
        put(folder.filePath("ended/" + CDraftStore::newId()), draftToBytes(draft("left")));
        QCOMPARE(CDraftStore(folder.path()).takeAbandoned().size(), 1);
    }

    void removedFolder_isMadeAnew_data()
    {
        QTest::addColumn<QString>("strRemoved");
        QTest::newRow("all of it") << QString();
        QTest::newRow("what is in it") << QString("*");
    }

    void removedFolder_isMadeAnew()
    {
        QFETCH(QString, strRemoved);
        QTemporaryDir folder;
        const SDraft text = draft("unsaved");
        {
            const CDraftStore store(folder.filePath("recovery"));
            QCOMPARE(store.generation(), 1);
            QVERIFY(store.write(text));
            QCOMPARE(store.generation(), 1);
            const bool bRemoved = removeAll(folder.filePath("recovery"), strRemoved.isEmpty());
#ifdef Q_OS_WIN
            if (!bRemoved)
                QSKIP("This system keeps a folder in which a file is open.");
#endif
            QVERIFY(bRemoved);
            QString strError;
            QVERIFY2(store.write(text, &strError), qPrintable(strError));
            QCOMPARE(store.generation(), 2); // A program that had drafts there writes them again.
            QVERIFY(CDraftStore(folder.filePath("recovery")).takeAbandoned().isEmpty());
        }
        QCOMPARE(CDraftStore(folder.filePath("recovery")).takeAbandoned().size(), 1);
    }

    void failure_saysWhyAndIsTriedAgain()
    {
        QTemporaryDir folder;
        put(folder.filePath("recovery"), "no folder");
        const CDraftStore store(folder.filePath("recovery"));
        QString strError;
        QVERIFY(!store.write(draft("x"), &strError));
        QVERIFY(!strError.isEmpty());
        QVERIFY(!store.isValid());
        QVERIFY(QFile::remove(folder.filePath("recovery")));
        QVERIFY(store.write(draft("x")));
        QVERIFY(store.isValid());
    }

    void draftThatWasCutOff_isNotOfferedBesideTheWholeOne()
    {
        QTemporaryDir folder;
        QVERIFY(QDir(folder.path()).mkdir("ended"));
        const QString strPath = folder.filePath("ended/" + CDraftStore::newId());
        const QByteArray bytes = draftToBytes(draft("the whole text"));
        put(strPath, bytes);
        put(strPath + ".AbCdEf", bytes.chopped(5));
        const QVector<SDraft> lst = CDraftStore(folder.path()).takeAbandoned();
        QCOMPARE(lst.size(), 1);
        QCOMPARE(lst.at(0).strText, QString("the whole text"));
        QVERIFY(!QFileInfo::exists(folder.filePath("ended")));
    }

    void heads_areTakenWithoutTheTexts()
    {
        QTemporaryDir folder;
        {
            const CDraftStore ended(folder.path());
            for (int n = 0; n < 500; ++n) {
                SDraft one = draft(QString("text %1").arg(n));
                one.strPath = QString("/file%1").arg(n);
                put(QDirIterator(folder.path(), QDir::Dirs | QDir::NoDotAndDotDot).next() + "/"
                        + one.strId,
                    draftToBytes(one));
            }
        }
        const CDraftStore next(folder.path());
        const QVector<SDraft> lst = next.takeAbandoned(CDraftStore::Parts::Head);
        QCOMPARE(lst.size(), 500);
        for (const SDraft &head : lst) {
            QVERIFY(head.strText.isEmpty());
            SDraft whole;
            QVERIFY(next.read(head.strId, &whole));
            QCOMPARE("/file" + whole.strText.mid(5), head.strPath);
        }
        SDraft missing;
        QString strError;
        QVERIFY(!next.read("missing", &missing, &strError));
        QVERIFY(!strError.isEmpty());
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

QTEST_GUILESS_MAIN(tst_draftstore)
#include "tst_draftstore.moc"
