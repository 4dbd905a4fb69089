// What a document learns about its file when others write it.
#include "cdocumentsfixture.h"

#include "document/cdocument.h"

#include <QDir>

class tst_changedfiles : public QObject
{
    Q_OBJECT

private slots:
    void change_isReportedOnce_data()
    {
        QTest::addColumn<QString>("how");
        QTest::newRow("written") << "write";
        QTest::newRow("replaced by rename") << "rename";
        QTest::newRow("deleted") << "delete";
        QTest::newRow("folder vanishes") << "folder";
    }

    void change_isReportedOnce()
    {
        QFETCH(QString, how);
        CDocumentsFixture f;
        QDir(f.path("")).mkdir("sub");
        const QString strPath = f.file("sub/a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        QSignalSpy spy(pDocument, &CDocument::noticeChanged);
        if (how == "write") {
            f.write(strPath, "new text");
        } else if (how == "rename") {
            f.write(f.path("b"), "new text");
            QFile::remove(strPath);
            QVERIFY(QFile::rename(f.path("b"), strPath));
        } else if (how == "delete") {
            QVERIFY(QFile::remove(strPath));
        } else {
            QVERIFY(QDir(f.path("sub")).removeRecursively());
        }
        QTRY_COMPARE(spy.size(), 1);
        QVERIFY(pDocument->notice().strText.contains(strPath));
        // Nine more changes belong to the one that was reported.
        for (int n = 0; n < 9; ++n) {
            if (how != "folder")
                f.write(strPath, QByteArray(n + 20, 'x'));
            f.documents().checkFiles();
        }
        QCOMPARE(spy.size(), 1);
    }

    void changeOfTheSameLength_rightAfterTheLoad_isSeen()
    {
        CDocumentsFixture f;
        for (int n = 0; n < 20; ++n) {
            const QString strPath = f.file(QStringLiteral("%1.txt").arg(n), "one");
            CDocument *pDocument = f.open(strPath);
            f.write(strPath, "two"); // Within a tick of the file system's clock.
            f.documents().checkFiles();
            QVERIFY(!pDocument->notice().strText.isEmpty());
        }
    }

    void ownSave_isNotReported_butTheNextForeignOneIs()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        f.type(pDocument, "mine ");
        QVERIFY(pDocument->save().isDone());
        f.documents().checkFiles();
        QCOMPARE(pDocument->notice().strText, QString());
        f.write(strPath, "their old"); // As long as ours.
        QTRY_VERIFY(!pDocument->notice().strText.isEmpty());
    }

    void newPlaceOfASavedFile_isWatched()
    {
        CDocumentsFixture f;
        QVERIFY(QDir(f.path("")).mkdir("sub"));
        CDocument *pDocument = f.open(f.file("a.txt", "text"));
        QVERIFY(pDocument->saveAs(f.path("sub/b.txt")).isDone());
        f.write(f.path("sub/b.txt"), "theirs");
        QTRY_VERIFY(pDocument->notice().strText.contains("b.txt"));
    }

    void refresh_answersTheNotice()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        f.write(strPath, "new text");
        f.documents().checkFiles();
        QVERIFY(!pDocument->notice().strText.isEmpty());
        QVERIFY(pDocument->reload().isDone());
        QCOMPARE(pDocument->notice().strText, QString());
        QCOMPARE(pDocument->editor()->toPlainText(), QString("new text"));
    }

    void contextMenuRefresh_answersTheNoticeToo()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        f.write(strPath, "new text");
        f.documents().checkFiles();
        pDocument->editor()->onRefresh();
        QCOMPARE(pDocument->notice().strText, QString());
        f.type(pDocument, "x");
        QVERIFY(pDocument->save().isDone()); // Nothing is asked about a file that was just read.
    }

    void failedRefresh_doesNotCountAsDone()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        QVERIFY(QFile::remove(strPath));
        QVERIFY(!pDocument->reload().isDone());
        QVERIFY(!pDocument->reload().text().isEmpty());
        f.write(strPath, "theirs"); // It is back, but not the file on which the document is based.
        f.type(pDocument, "mine ");
        QVERIFY(!pDocument->save().isDone());
        QCOMPARE(f.content(strPath), QByteArray("theirs"));
    }

    void fileThatComesBack_isSeenAgain()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        QVERIFY(QFile::remove(strPath));
        QTRY_VERIFY(pDocument->notice().strText.contains("no longer there"));
        f.write(strPath, "back");
        QVERIFY(pDocument->reload().isDone());
        QCOMPARE(pDocument->notice().strText, QString());
        f.write(strPath, "and changed");
        QTRY_VERIFY(pDocument->notice().strText.contains("changed"));
    }

    void closedDocument_isNotWatched()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        const QString strOther = f.file("b.txt", "old");
        CDocument *pClosed = f.open(strPath);
        CDocument *pDocument = f.open(strOther);
        f.documents().close(pClosed);
        f.write(strPath, "new text");
        f.write(strOther, "new text");
        QTRY_VERIFY(!pDocument->notice().strText.isEmpty());
    }

    void saveInAnotherTab_raisesTheNoticeAtOnce_data()
    {
        QTest::addColumn<QString>("spelling");
        QTest::newRow("same path") << "a.txt";
        QTest::newRow("other spelling") << "./a.txt";
#ifdef Q_OS_WIN
        QTest::newRow("other case") << "A.TXT";
#else
        QTest::newRow("symbolic link") << "link.txt";
#endif
    }

    void saveInAnotherTab_raisesTheNoticeAtOnce()
    {
        QFETCH(QString, spelling);
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        if (spelling == QLatin1String("link.txt"))
            QVERIFY(QFile::link(strPath, f.path("link.txt")));
        CDocument *pOne = f.open(strPath);
        CDocument *pTwo = f.open(f.path(spelling));
        f.type(pOne, "one ");
        f.type(pTwo, "two ");
        QVERIFY(pOne->save().isDone());
        QVERIFY(pTwo->notice().strText.contains("Another tab"));
        QVERIFY(!pTwo->save().isDone());
        QCOMPARE(f.content(strPath), QByteArray("one old"));
        QVERIFY(pTwo->saveAnyway().isDone());
        QCOMPARE(f.content(strPath), QByteArray("two old"));
        QVERIFY(pOne->notice().strText.contains("Another tab"));
    }

    void saveOfAnotherFile_takesNoBlameForAForeignChange()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pChanged = f.open(strPath);
        CDocument *pSaved = f.open(f.file("b.txt", "old"));
        f.write(strPath, "theirs");
        f.type(pSaved, "mine ");
        QVERIFY(pSaved->save().isDone());
        f.documents().checkFiles();
        QCOMPARE(pChanged->notice().strText,
                 QString("Another program has changed " + strPath + '.'));
    }

    void saveAsOverAFileThatAnotherTabShows_isKnownThere()
    {
        CDocumentsFixture f;
        CDocument *pOlder = f.open(f.file("a.txt", "older"));
        CDocument *pOther = f.open(f.file("b.txt", "other"));
        QVERIFY(pOther->saveAs(f.path("a.txt")).isDone());
        f.type(pOlder, "x");
        QVERIFY(!pOlder->save().isDone());
        QCOMPARE(f.content(f.path("a.txt")), QByteArray("other"));
    }

    void save_asksInTheBar_andOverwriteSaves()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        f.type(pDocument, "mine ");
        f.write(strPath, "theirs");
        const CResult refused = pDocument->save();
        QVERIFY(!refused.isDone());
        QCOMPARE(refused.text(), QString()); // The bar tells.
        QVERIFY(pDocument->isModified());
        QSignalSpy spy(pDocument, &CDocument::saveWanted);
        QVERIFY(choose(pDocument->notice(), "Overwrite"));
        QCOMPARE(spy.size(), 1);
        QVERIFY(pDocument->saveAnyway().isDone());
        QCOMPARE(pDocument->notice().strText, QString());
        QCOMPARE(f.content(strPath), QByteArray("mine old"));
    }
};

QTEST_MAIN(tst_changedfiles)
#include "tst_changedfiles.moc"
