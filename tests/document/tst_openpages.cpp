// Pages as documents: the shown page, the read bytes and the base of a save are of one moment. The
// encoding of a page can be chosen.
#include "cdocumentsfixture.h"

#include "app/filereader.h"
#include "document/cdocument.h"
#include "document/cpagedocument.h"
#include "web/ceditwebview.h"

#include <QDir>
#include <QWebFrame>
#include <QWebView>

namespace {

// A page of a file, with what was read from it, and loaded.
CPageDocument *openPage(CDocumentsFixture &f, const QString &strPath, const SFileContent &content)
{
    auto *pDocument = new CPageDocument(nullptr);
    f.documents().add(pDocument);
    const QSignalSpy spy(pDocument->page(), &QWebView::loadFinished);
    if (!pDocument->load(strPath, content).isDone() || !QTest::qWaitFor([&] { return spy.size(); }))
        qFatal("cannot open %s", qPrintable(strPath));
    return pDocument;
}

CPageDocument *openPage(CDocumentsFixture &f, const QByteArray &page)
{
    const QString strPath = f.file("a.html", page);
    return openPage(f, strPath, CDocument::read(strPath));
}

QString shownText(const CPageDocument &document)
{
    return document.page()->page()->mainFrame()->toPlainText().trimmed();
}

QString sourceOf(const CPageDocument &document)
{
    return document.page()->sourceEdit()->toPlainText();
}

const char g_szLatin[] = "<p>caf\xE9</p>\n";

} // namespace

class tst_openpages : public QObject
{
    Q_OBJECT

private slots:
    // Noted for the next start, in case the load crashes the program.
    void load_isNotedWhileItLasts()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.html", "<p>x</p>");
        const auto notes = [&f] { return QDir(f.path("loading")).entryList(QDir::Files).size(); };
        f.documents().beginLoad(strPath);
        QCOMPARE(notes(), 1);
        f.documents().endLoad(strPath);
        QCOMPARE(notes(), 0);
    }

    void fileThatChangedSinceItWasRead_isShownAsRead_andSaveAsks()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.html", "<p>read</p>\n");
        const SFileContent content = CDocument::read(strPath);
        f.write(strPath, "<p>theirs, and longer</p>\n");
        CPageDocument *pDocument = openPage(f, strPath, content);
        QCOMPARE(shownText(*pDocument), QString("read"));
        QVERIFY(pDocument->page()->htmlForSaving().contains("read"));
        QVERIFY(!pDocument->save().isDone());
        QVERIFY(f.content(strPath).contains("theirs"));
    }

    void fileThatChangesWhileItLoads_isSavedFromWhatIsShown()
    {
        CDocumentsFixture f;
        const QString strPath = f.file("a.html", "<p>read</p>\n");
        CPageDocument *pDocument = openPage(f, strPath, CDocument::read(strPath));
        f.write(strPath, "<p>read again</p>\n");
        QSignalSpy spy(pDocument->page(), &QWebView::loadFinished);
        QVERIFY(pDocument->reload().isDone());
        f.write(strPath, "<p>theirs, and longer</p>\n");
        QVERIFY(spy.size() || spy.wait());
        QCOMPARE(shownText(*pDocument), QString("read again"));
        pDocument->checkFile();
        QVERIFY(pDocument->notice().strText.contains("Another program has changed"));
    }

    void backToTheDocument_standsOnTheFileAsItIsNow()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, "<p>old</p>\n");
        const QString strOther = f.file("b.html", "<p>other</p>\n");
        pDocument->page()->setUrl(QUrl::fromLocalFile(strOther));
        QTRY_COMPARE(shownText(*pDocument), QString("other"));
        f.write(pDocument->path(), "<p>their longer text</p>\n");
        pDocument->page()->back();
        QTRY_COMPARE(shownText(*pDocument), QString("their longer text"));
        QVERIFY(pDocument->save().isDone());
    }

    void searchAndReplacement_workOnWhatIsShown()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, "<p>one two one</p>\n");
        QVERIFY(pDocument->replace("two", "2").isDone());
        QCOMPARE(shownText(*pDocument), QString("one 2 one"));
        QVERIFY(pDocument->replaceAll("one", "1").isDone());
        QCOMPARE(shownText(*pDocument), QString("1 2 1"));
        QVERIFY(!pDocument->find("<p>", false).isDone());

        pDocument->showSource(true);
        QVERIFY(pDocument->find("<p>", false).isDone());
        QVERIFY(!pDocument->replace("<p>", "<p >").isDone()); // Replaced; no other one follows.
        QCOMPARE(sourceOf(*pDocument).trimmed(), QString("<p >1 2 1</p>"));
        QVERIFY(pDocument->replaceAll("p >", "p>").isDone());
        QCOMPARE(sourceOf(*pDocument).trimmed(), QString("<p>1 2 1</p>"));
    }

    void chosenCodec_readsThePageAnew()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, g_szLatin);
        pDocument->showSource(true);
        QVERIFY(pDocument->setCodec("IBM850").isDone());
        QTRY_VERIFY(sourceOf(*pDocument).contains(QString::fromUtf8("cafÚ")));
        QCOMPARE(pDocument->codecName(), QString("IBM850"));
        QVERIFY(!pDocument->isModified());
        pDocument->showSource(false);
        QCOMPARE(shownText(*pDocument), QString::fromUtf8("cafÚ"));
    }

    void chosenCodec_overrulesTheDeclarationAndStaysForRefresh_untilASave()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, QByteArray("<meta charset=koi8-r>") + g_szLatin);
        pDocument->showSource(true);
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QTRY_VERIFY(sourceOf(*pDocument).contains(QString::fromUtf8("café")));
        QSignalSpy spy(pDocument->page(), &QWebView::loadFinished);
        QVERIFY(pDocument->reload().isDone());
        QVERIFY(spy.wait());
        QVERIFY(sourceOf(*pDocument).contains(QString::fromUtf8("café")));
        QVERIFY(pDocument->save().isDone());
        QCOMPARE(f.content(pDocument->path()),
                 QByteArray("<meta charset=utf-8><p>caf\xC3\xA9</p>\n"));
        QCOMPARE(pDocument->codecName(), QString("UTF-8"));
    }

    void codecThatDoesNotFit_asksBeforeASave()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, g_szLatin);
        pDocument->showSource(true);
        QVERIFY(pDocument->isWhole());
        QVERIFY(pDocument->setCodec("UTF-8").isDone());
        QVERIFY(!pDocument->isWhole());
        QTRY_VERIFY(sourceOf(*pDocument).contains(QChar(QChar::ReplacementCharacter)));
        QVERIFY(!pDocument->save().isDone());
        QVERIFY(pDocument->notice().strText.contains("Not saved"));
        QCOMPARE(f.content(pDocument->path()), QByteArray(g_szLatin));
        QVERIFY(pDocument->setCodec("windows-1252").isDone());
        QTRY_VERIFY(sourceOf(*pDocument).contains(QString::fromUtf8("café")));
        QVERIFY(pDocument->save().isDone());
    }

    void typedSource_staysTyped_inAnotherCodec()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, QByteArray("<meta charset=latin1>") + g_szLatin);
        pDocument->showSource(true);
        pDocument->editor()->insertPlainText("<!-- mine -->");
        QVERIFY(pDocument->setCodec("IBM850").isDone());
        QVERIFY(sourceOf(*pDocument).startsWith("<!-- mine -->"));
        QVERIFY(sourceOf(*pDocument).contains(QString::fromUtf8("cafÚ")));
        QVERIFY(pDocument->isModified());
        QVERIFY(pDocument->notice().strText.isEmpty()); // Nothing was lost.
        pDocument->showSource(false);
        QTRY_COMPARE(shownText(*pDocument), QString::fromUtf8("cafÚ"));
    }

    void typedSource_inACodecThatDoesNotFit_asksBeforeASave()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, QByteArray("<meta charset=latin1>") + g_szLatin);
        pDocument->showSource(true);
        pDocument->editor()->insertPlainText("<!-- mine -->");
        QVERIFY(pDocument->setCodec("UTF-8").isDone());
        QVERIFY(sourceOf(*pDocument).contains(QChar(QChar::ReplacementCharacter)));
        QVERIFY(!pDocument->isWhole());
        QVERIFY(!pDocument->save().isDone());
        QVERIFY(f.content(pDocument->path()).endsWith(g_szLatin));
    }

    void typedSourceThatTheCodecCannotHold_isKeptAndOffered()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, QByteArray("<meta charset=latin1>") + g_szLatin);
        pDocument->showSource(true);
        const QString strTyped = QString::fromUtf8("日本");
        pDocument->editor()->insertPlainText(strTyped);
        QVERIFY(pDocument->setCodec("IBM850").isDone());
        QVERIFY(!sourceOf(*pDocument).contains(strTyped));
        QVERIFY(choose(pDocument->notice(), "Restore"));
        QTRY_VERIFY(sourceOf(*pDocument).contains(strTyped));
        QVERIFY(pDocument->isModified());
    }

    void codecWithoutTheSource_orWithoutAName_isRefused()
    {
        CDocumentsFixture f;
        CPageDocument *pDocument = openPage(f, g_szLatin);
        QVERIFY(!pDocument->setCodec("IBM850").isDone());
        pDocument->showSource(true);
        QVERIFY(!pDocument->setCodec("no codec").isDone());
        QVERIFY(!pDocument->setCodec(pDocument->codecName()).isDone());
    }
};

QTEST_MAIN(tst_openpages)
#include "tst_openpages.moc"
