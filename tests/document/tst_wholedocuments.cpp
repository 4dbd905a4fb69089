// Bytes that cannot all be shown are never overwritten without asking, however they were read.
#include "cdocumentsfixture.h"

#include "app/cdraftstore.h"
#include "document/cdocument.h"
#include "document/crecovery.h"

#include <QTextCodec>

namespace {

const QByteArray g_broken = "caf\xe9 \x81\x8d\x8f \xff\xfe\xfd broken \xc3\x28\n";

} // namespace

class tst_wholedocuments : public QObject
{
    Q_OBJECT

private slots:
    // Each way by which bytes come into an open document.
    void notWhole_isAskedAboutBeforeASave_data()
    {
        QTest::addColumn<QString>("how");
        for (const char *szHow : {"open", "refresh", "menu", "codec"})
            QTest::newRow(szHow) << QString::fromLatin1(szHow);
    }

    void notWhole_isAskedAboutBeforeASave()
    {
        QFETCH(QString, how);
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", how == "open" ? g_broken : "caf\xc3\xa9\n");
        CDocument *pDocument = f.open(strPath);
        if (how != "open") {
            f.write(strPath, g_broken);
            if (how == "menu")
                pDocument->editor()->onRefresh();
            else
                QVERIFY(pDocument->reload().isDone());
        }
        if (how == "codec") {
            QVERIFY(pDocument->setCodec("windows-1252").isDone());
            QVERIFY(pDocument->setCodec("UTF-8").isDone());
        }
        QVERIFY(!pDocument->isWhole());
        f.type(pDocument, "x");
        QVERIFY(!pDocument->save().isDone());
        QVERIFY(pDocument->notice().strText.contains("not all of"));
        QCOMPARE(f.content(strPath), g_broken);
    }

    void recoveredText_thatWasNotWhole_isAskedAboutToo()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", g_broken);
        f.type(f.open(strPath), "x");
        f.start();
        QList<CDocument *> lstDocuments;
        connect(&f.documents().recovery(), &CRecovery::recoverWanted, this,
                [&](const SDraft &draft) {
                    auto *pDocument = new CEditorDocument(nullptr);
                    f.documents().add(pDocument);
                    f.documents().restore(pDocument, draft);
                    lstDocuments.append(pDocument);
                });
        f.documents().recovery().offerAbandoned();
        QVERIFY(choose(f.documents().recovery().notice(), "Recover"));
        QVERIFY(!lstDocuments.constFirst()->save().isDone());
        QCOMPARE(f.content(strPath), g_broken);
    }

    void codec_ofAnUneditedFile_readsTheFilesOwnBytes()
    {
        CDocumentsFixture f;
        const QByteArray bytes("\xff\xfe"
                               "a\0\xe9\0b",
                               7); // An odd last byte.
        CDocument *pDocument = f.open(f.file("a.txt", bytes));
        static_cast<void>(pDocument->setCodec("UTF-16")); // It may have been read so already.
        QCOMPARE(pDocument->editor()->rawText().left(2), QString::fromUtf8("a\xc3\xa9"));
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QCOMPARE(pDocument->editor()->rawText(),
                 QTextCodec::codecForName("windows-1252")->toUnicode(bytes));
        QVERIFY(!pDocument->isModified());
    }

    void codec_ofAnUneditedFile_tellsWhetherItFits()
    {
        CDocumentsFixture f;
        const QByteArray bytes = QByteArray("caf\xe9 na\xefve\n").repeated(20);
        const QString strPath = f.file("a.txt", bytes);
        CDocument *pDocument = f.open(strPath);
        QVERIFY(pDocument->isWhole());
        QVERIFY(pDocument->setCodec("UTF-8").isDone());
        QVERIFY(!pDocument->isWhole());
        f.type(pDocument, "x");
        QVERIFY(!pDocument->save().isDone());
        QCOMPARE(f.content(strPath), bytes);
        pDocument->editor()->undo();
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QVERIFY(pDocument->isWhole());
    }

    void codec_ofAnEditedFile_addsNoByteOrderMark()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", QByteArray("a\0b\0", 4)));
        QVERIFY(pDocument->setCodec("UTF-16").isDone());
        QCOMPARE(pDocument->editor()->rawText(), QString("ab"));
        f.type(pDocument, "x");
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QCOMPARE(pDocument->editor()->rawText(), QString::fromLatin1("x\0a\0b\0", 6));
    }

    void saveAs_asksToo_andWritesNothingBefore()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", g_broken));
        const QString strNew = f.path("b.txt");
        QVERIFY(!pDocument->saveAs(strNew).isDone());
        QVERIFY(!QFile::exists(strNew));
        QSignalSpy spy(pDocument, &CDocument::saveAsWanted);
        QVERIFY(choose(pDocument->notice(), "Save all the same"));
        QCOMPARE(spy.value(0).value(0).toString(), strNew);
        QVERIFY(pDocument->saveAsAnyway(strNew).isDone());
        QCOMPARE(pDocument->path(), strNew);
        QCOMPARE(f.content(f.path("a.txt")), g_broken);
        QVERIFY(pDocument->isWhole());
    }

    void saveAs_underTheSameName_isASave()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.txt", "old");
        CDocument *pDocument = f.open(strPath);
        f.write(strPath, "theirs");
        QVERIFY(!pDocument->saveAs(strPath).isDone());
        QCOMPARE(f.content(strPath), QByteArray("theirs"));
    }

    void guessedEncoding_isAskedAboutBeforeASave()
    {
        CDocumentsFixture f;
        // No text that anybody wrote.
        const QByteArray bytes = "\xa4\xb1\xc9\xd2\xe1 \xf5\xfd\x9a\n";
        const QString strPath = f.file("a.txt", bytes);
        CDocument *pDocument = f.open(strPath);
        QVERIFY(!pDocument->isCodecSure());
        f.type(pDocument, "x");
        QVERIFY(!pDocument->save().isDone());
        QVERIFY(pDocument->notice().strText.startsWith("Not saved: "));
        QCOMPARE(f.content(strPath), bytes);
        // Chosen by the user, it is a guess no longer.
        QVERIFY(pDocument->reload().isDone());
        QVERIFY(pDocument->setCodec("windows-1251").isDone()
                || pDocument->setCodec("KOI8-R").isDone());
        f.type(pDocument, "x");
        QVERIFY(pDocument->save().isDone());
    }

    void unknownCodec_changesNothing()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt", "abc"));
        QVERIFY(!pDocument->setCodec("no such codec").isDone());
        QCOMPARE(pDocument->editor()->rawText(), QString("abc"));
    }

    void byteOrderMark_isNoLoss()
    {
        CDocumentsFixture f;
        CDocument *pDocument = f.open(f.file("a.txt",
                                             "\xef\xbb\xbf"
                                             "caf\xc3\xa9"));
        QVERIFY(pDocument->isWhole());
    }
};

QTEST_MAIN(tst_wholedocuments)
#include "tst_wholedocuments.moc"
