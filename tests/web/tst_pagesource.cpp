#include "webtest.h"

#include "support/awaittimers.h"

#include "editor/chighlightedit.h"

#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCodec>
#include <QWebView>

// The page and its twin, the source editor.
class tst_pagesource : public QObject
{
    Q_OBJECT

private slots:
    void sourceIsHidden_untilShown();
    void hiddenSource_isNotTouchedByEdits();
    void shownSource_followsThePage();
    void pushingIntoTheSource_signalsNoModification_data();
    void pushingIntoTheSource_signalsNoModification();
    void sourceHasAlwaysUtf8();
    void keyRightAfterShowingTheSource_staysAnEdit();
    void swapWithoutTyping_changesNothing();
    void swapWithTyping_takesTheTextOver();
    void swapBackOfAForeignEncoding_keepsTheText();
    void sourceInAnotherTab_isFilledWhenTheLoadEnds();
    void caret_goesAlongToTheSourceAndBack();
    void sourceEdit_changesOneLine();
    void sourceAfterAnEdit_keepsUndoAndCaret();
    void mixedLineEnds_stayAsTheyAre();
    void chosenLineEnds_areWritten();
    void deletingThePage_deletesASourceThatMovedAway();
    void deletingTheSource_deletesThePage();
    void deletingTheCommonParent_isClean();
};

void tst_pagesource::sourceIsHidden_untilShown()
{
    const CWebCase c;
    CEditWebView view;
    view.show();
    QCOMPARE(view.sourceEdit()->pageEditor(), &view);
    QCOMPARE(view.sourceEdit()->parentWidget(), &view);
    QVERIFY(view.sourceEdit()->isHidden());
    view.setHtml(QStringLiteral("<p>x</p>"));
    view.showSource(true);
    QVERIFY(view.sourceEdit()->isVisible());
    QCOMPARE(view.sourceEdit()->getText(), QStringLiteral("<p>x</p>"));
    view.showSource(false);
    QVERIFY(view.sourceEdit()->isHidden());
}

void tst_pagesource::hiddenSource_isNotTouchedByEdits()
{
    const CWebCase c;
    CEditWebView view;
    view.show();
    view.setHtml(QStringLiteral("<p>x</p>"));
    const int nRevision = view.sourceEdit()->document()->revision();
    typeText(&view, QStringLiteral("typed"));
    QCOMPARE(view.sourceEdit()->document()->revision(), nRevision);
    QVERIFY(view.sourceEdit()->getText().isEmpty());
    view.showSource(true);
    QVERIFY(view.sourceEdit()->getText().contains(QLatin1String("typed")));
}

void tst_pagesource::shownSource_followsThePage()
{
    const CWebCase c;
    CEditWebView view;
    view.show();
    view.showSource(true);
    typeText(&view, QStringLiteral("typed"));
    QCOMPARE(view.sourceEdit()->getText(), view.toHtml());
    view.setHtml(QStringLiteral("<p>loaded</p>"));
    QCOMPARE(view.sourceEdit()->getText(), QStringLiteral("<p>loaded</p>"));
    selectElement(&view, QStringLiteral("p"));
    view.insertHtml(QStringLiteral("typed"));
    QCOMPARE(view.sourceEdit()->getText(), QStringLiteral("<p>typed</p>"));
}

void tst_pagesource::pushingIntoTheSource_signalsNoModification_data()
{
    QTest::addColumn<bool>("modified");
    QTest::newRow("clean") << false;
    QTest::newRow("modified") << true;
}

void tst_pagesource::pushingIntoTheSource_signalsNoModification()
{
    QFETCH(bool, modified);
    const CWebCase c;
    CEditWebView view;
    view.setHtml(QStringLiteral("<p>x</p>"));
    view.setModified(modified);
    QSignalSpy spyModified(view.sourceEdit(), &QPlainTextEdit::modificationChanged);
    QSignalSpy spyText(view.sourceEdit(), &QPlainTextEdit::textChanged);
    view.showSource(true);
    emit view.page()->contentsChanged();
    QVERIFY(awaitTimers(300)); // The loader's, and the one that pushes.
    QCOMPARE(spyModified.count(), 0);
    QCOMPARE(spyText.count(), 0);
    QCOMPARE(view.sourceEdit()->isModified(), modified);
    QCOMPARE(view.isModified(), modified);
}

void tst_pagesource::sourceHasAlwaysUtf8()
{
    const CWebCase c;
    CEditWebView view;
    QCOMPARE(view.sourceEdit()->codecName(), QStringLiteral("UTF-8"));
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), "<p>plain ASCII")));
    view.showSource(true);
    QCOMPARE(view.sourceEdit()->codecName(), QStringLiteral("UTF-8"));
    view.setHtml(QStringLiteral("<p>中文"));
    QCOMPARE(view.sourceEdit()->codecName(), QStringLiteral("UTF-8"));
    QVERIFY(view.sourceEdit()->getText().contains(QStringLiteral("中文")));
}

void tst_pagesource::keyRightAfterShowingTheSource_staysAnEdit()
{
    const CWebCase c;
    CEditWebView view;
    view.setHtml(QStringLiteral("<p>x</p>"));
    view.showSource(true);
    QTest::keyClick(view.sourceEdit(), Qt::Key_A);
    QVERIFY(view.sourceEdit()->isModified());
    QVERIFY(awaitTimers(10)); // The loader's.
    QVERIFY(view.sourceEdit()->isModified());
}

void tst_pagesource::swapWithoutTyping_changesNothing()
{
    const CWebCase c;
    CEditWebView view;
    followChanges(&view);
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("a.html"),
                                page("<p>a&nbsp;b \xE2\x80\xA8 <b>c</b></p><pre>\n\nx</pre>"))));
    const QString strBefore = view.toHtml();
    QSignalSpy spy(&view, &QWebView::loadStarted);
    for (int i = 0; i < 3; ++i) {
        view.showSource(true);
        QVERIFY(!view.sourceEdit()->isModified());
        view.applySource(view.sourceEdit()->getText());
        view.showSource(false);
        QVERIFY(!view.isModified());
    }
    QCOMPARE(view.toHtml(), strBefore);
    QVERIFY(spy.isEmpty());

    // An edit of the page survives, and stays to be undone.
    typeText(&view, QStringLiteral("typed"));
    view.showSource(true);
    QVERIFY(view.sourceEdit()->isModified());
    view.applySource(view.sourceEdit()->getText());
    view.showSource(false);
    QVERIFY(view.isModified());
    QVERIFY(view.toHtml().contains(QLatin1String("typed")));
    view.triggerEdit(QWebPage::Undo);
    QCOMPARE(view.toHtml(), strBefore);
}

void tst_pagesource::swapWithTyping_takesTheTextOver()
{
    const CWebCase c;
    CEditWebView view;
    followChanges(&view);
    const QString strPath = c.write(QStringLiteral("a.html"), page("<p>x</p><img src=a.png>"));
    QVERIFY(loadAndWait(&view, strPath));
    view.showSource(true);
    QTextCursor cursor = view.sourceEdit()->document()->find(QStringLiteral("x</p>"));
    cursor.insertText(QStringLiteral("xy&nbsp;</p>"));
    QVERIFY(view.sourceEdit()->isModified());
    view.applySource(view.sourceEdit()->getText());
    view.showSource(false);
    QVERIFY(view.isModified());
    QVERIFY(view.sourceEdit()->isModified());
    QVERIFY(view.toHtml().contains(QLatin1String("<p>xy&nbsp;</p>")));
    QCOMPARE(view.url(), QUrl::fromLocalFile(strPath));
    QVERIFY(view.showsOwnFile());
    view.showSource(true);
    QCOMPARE(view.sourceEdit()->getText(),
             QString::fromLatin1(page("<p>xy&nbsp;</p><img src=a.png>")));
}

void tst_pagesource::swapBackOfAForeignEncoding_keepsTheText()
{
    const CWebCase c;
    CEditWebView view;
    const QString strHtml = QStringLiteral("<meta charset=gb2312><p>中文</p>");
    const QString strPath =
        c.write(QStringLiteral("a.html"), QTextCodec::codecForName("GB2312")->fromUnicode(strHtml));
    QVERIFY(loadAndWait(&view, strPath));
    view.showSource(true);
    view.sourceEdit()->appendPlainText(QStringLiteral("<p>é</p>"));
    view.applySource(view.sourceEdit()->getText());
    QVERIFY(textOf(&view).contains(QStringLiteral("中文")));
    QVERIFY(textOf(&view).contains(QStringLiteral("é")));
    // The file itself is still the old one.
    QSignalSpy spy(&view, &QWebView::loadFinished);
    QVERIFY(view.reload());
    QVERIFY(spy.wait());
    QCOMPARE(textOf(&view).trimmed(), QStringLiteral("中文"));
}

void tst_pagesource::sourceInAnotherTab_isFilledWhenTheLoadEnds()
{
    const CWebCase c;
    QWidget tab;
    CEditWebView view;
    view.showSource(true);
    view.sourceEdit()->setParent(&tab); // Not the current tab: not visible.
    QVERIFY(!view.sourceEdit()->isVisible());
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page("<p>x</p>"))));
    QCOMPARE(view.sourceEdit()->getText(), view.toHtml());
}

void tst_pagesource::caret_goesAlongToTheSourceAndBack()
{
    const CWebCase c;
    CEditWebView view;
    view.resize(300, 200);
    view.show();
    QByteArray body;
    for (int n = 0; n < 100; ++n)
        body += "<p>line&nbsp;" + QByteArray::number(n) + " &amp; more\r\n";
    QVERIFY(loadAndWait(&view,
                        c.write(QStringLiteral("a.html"),
                                "<html>\r\n<body>\r\n" + body + "<h2>Overview</h2>\r\n")));
    run(&view,
        QStringLiteral("var t = document.querySelector('h2').firstChild;"
                       "getSelection().collapse(t, 4);"
                       "t.parentNode.scrollIntoView()"));
    view.showSource(true);
    QTextCursor cursor = view.sourceEdit()->textCursor();
    QCOMPARE(cursor.block().text(), QStringLiteral("<h2>Overview</h2>"));
    QCOMPARE(cursor.positionInBlock(), 8);

    // And back, from another place.
    cursor = view.sourceEdit()->document()->find(QStringLiteral("50 &amp; more"));
    cursor.setPosition(cursor.selectionEnd() - 2);
    view.sourceEdit()->setTextCursor(cursor);
    view.showSource(false);
    view.applySource(view.sourceEdit()->getText());
    QCOMPARE(run(&view, QStringLiteral("getSelection().focusNode.data.trim()")).toString(),
             QStringLiteral("line\u00A050 & more"));
    QCOMPARE(run(&view, QStringLiteral("getSelection().focusOffset")).toInt(), 12);
    const QString strSeen =
        QStringLiteral("(function(r) { return r.top >= 0 && r.bottom <= innerHeight })"
                       "(getSelection().focusNode.parentNode.getBoundingClientRect())");
    QVERIFY(run(&view, strSeen).toBool());
}

void tst_pagesource::sourceEdit_changesOneLine()
{
    const CWebCase c;
    CEditWebView view;
    const QByteArray content = "<HTML>\r\n<!-- one -->\r\n<BODY>\r\n<P>x<br/>y\r\n</BODY>\r\n";
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), content)));
    view.showSource(true);
    view.sourceEdit()->document()->find(QStringLiteral("one")).insertText(QStringLiteral("two"));
    QByteArray expected = content;
    expected.replace("one", "two");
    QCOMPARE(view.htmlForSaving(), expected);
    view.showSource(false);
    view.applySource(view.sourceEdit()->getText());
    QCOMPARE(view.htmlForSaving(), expected);
}

void tst_pagesource::sourceAfterAnEdit_keepsUndoAndCaret()
{
    const CWebCase c;
    CEditWebView view;
    view.show();
    view.setHtml(QStringLiteral("<p>one</p>\n<p>two</p>\n"));
    view.showSource(true);
    QTextCursor cursor = view.sourceEdit()->document()->find(QStringLiteral("two"));
    cursor.insertText(QStringLiteral("three"));
    view.sourceEdit()->setTextCursor(cursor);
    view.showSource(false);
    view.applySource(view.sourceEdit()->getText());
    QCOMPARE(textOf(&view).simplified(), QStringLiteral("one three"));
    view.showSource(true);
    QCOMPARE(view.sourceEdit()->textCursor().position(), cursor.position());
    QVERIFY(view.sourceEdit()->document()->isUndoAvailable());
    view.sourceEdit()->undo();
    QCOMPARE(view.sourceEdit()->toPlainText(), QStringLiteral("<p>one</p>\n<p>two</p>\n"));
}

void tst_pagesource::mixedLineEnds_stayAsTheyAre()
{
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), "<p>a\r\n<p>b\n<p>c\r\n<p>d\n")));
    view.showSource(true);
    view.sourceEdit()->document()->find(QStringLiteral("c")).insertText(QStringLiteral("X"));
    QCOMPARE(view.htmlForSaving(), QByteArray("<p>a\r\n<p>b\n<p>X\r\n<p>d\n"));
}

void tst_pagesource::chosenLineEnds_areWritten()
{
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), "<p>a\n<p>b\r\n")));
    view.showSource(true);
    view.sourceEdit()->setReturnFormat(1); // Unix.
    QCOMPARE(view.htmlForSaving(), QByteArray("<p>a\n<p>b\n"));
    view.showSource(false);
    view.applySource(view.sourceEdit()->getText());
    QCOMPARE(view.htmlForSaving(), QByteArray("<p>a\n<p>b\n"));
}

void tst_pagesource::deletingThePage_deletesASourceThatMovedAway()
{
    const CWebCase c;
    QWidget tab;
    auto *pView = new CEditWebView;
    QPointer<CHighlightEdit> pSource = pView->sourceEdit();
    pSource->setParent(&tab);
    delete pView;
    QVERIFY(!pSource);
}

void tst_pagesource::deletingTheSource_deletesThePage()
{
    const CWebCase c;
    QWidget tab;
    QPointer<CEditWebView> pView = new CEditWebView(&tab);
    pView->sourceEdit()->setParent(&tab);
    delete pView->sourceEdit();
    QTRY_VERIFY(!pView);
}

void tst_pagesource::deletingTheCommonParent_isClean()
{
    const CWebCase c;
    for (const bool bSourceFirst : {false, true}) {
        auto *pTab = new QWidget;
        QPointer<CEditWebView> pView = new CEditWebView;
        QPointer<CHighlightEdit> pSource = pView->sourceEdit();
        if (bSourceFirst)
            pSource->setParent(pTab);
        pView->setParent(pTab);
        pSource->setParent(pTab);
        delete pTab;
        QVERIFY(!pView);
        QVERIFY(!pSource);
    }
}

QTEST_MAIN(tst_pagesource)
#include "tst_pagesource.moc"
