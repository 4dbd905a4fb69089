#include "webtest.h"

#include "web/ctypingsteps.h"

// Steps of undo in a page, and the modified flag that follows them.
class tst_pageundo : public CPageTest
{
    Q_OBJECT

private:
    void type(const QString &strText) { QTest::keyClicks(m_pView, strText); }
    void undo() { m_pView->triggerEdit(QWebPage::Undo); }
    void redo() { m_pView->triggerEdit(QWebPage::Redo); }
    QString text() const { return textOf(m_pView).trimmed(); }
    void start(const QString &strHtml)
    {
        set(strHtml);
        m_pView->setFocus();
        run(m_pView, QStringLiteral("getSelection().collapse(document.body, 0)"));
        followChanges(m_pView);
    }

private slots:
    void steps_endWhereTheyShould();
    void oneStep_holdsWhatWasTypedInOneGo();
    void enter_endsAStep();
    void aSave_endsAStep();
    void aFormat_endsAStep();
    void twentyWords_endAStep();
    void redo_goesByTheSameSteps();
    void undoToTheSavedState_clearsTheFlag();
    void undoPastTheSavedState_setsTheFlag();
    void undoOfARecoveredPage_keepsTheFlag();
    void replaceAll_isOneStep();
};

void tst_pageundo::steps_endWhereTheyShould()
{
    CTypingSteps steps;
    QVERIFY(!steps.type(QStringLiteral("a"), false, 100));
    QVERIFY(!steps.type(QStringLiteral("b"), false, 1099));
    QVERIFY(steps.type(QStringLiteral("c"), false, 2099)); // A second later.
    QVERIFY(!steps.type(QStringLiteral("\r"), true, 2100));
    QVERIFY(steps.type(QStringLiteral("d"), false, 2101));
    steps.start(); // The owner has ended it.
    QVERIFY(!steps.type(QStringLiteral("e"), false, 9000));
    for (int n = 0; n < 19; ++n) {
        QVERIFY(!steps.type(QStringLiteral(" "), false, 9003));
        QVERIFY(!steps.type(QStringLiteral("w"), false, 9004));
    }
    QVERIFY(!steps.type(QStringLiteral(" "), false, 9005));
    QVERIFY(steps.type(QStringLiteral("w"), false, 9006));
    QVERIFY(!steps.type(QStringLiteral("w"), false, 9007));
}

void tst_pageundo::oneStep_holdsWhatWasTypedInOneGo()
{
    start(QStringLiteral("<p>x</p>"));
    type(QStringLiteral("some words "));
    QCOMPARE(text(), QStringLiteral("some words x"));
    undo();
    QCOMPARE(text(), QStringLiteral("x"));
}

void tst_pageundo::enter_endsAStep()
{
    start(QStringLiteral("<p>x</p>"));
    type(QStringLiteral("one"));
    QTest::keyClick(m_pView, Qt::Key_Return);
    type(QStringLiteral("two"));
    QVERIFY(text().contains(QLatin1String("two")));
    undo();
    QVERIFY(text().startsWith(QLatin1String("one")));
    QVERIFY(!text().contains(QLatin1String("two")));
    undo();
    QCOMPARE(text(), QStringLiteral("x"));
}

void tst_pageundo::aSave_endsAStep()
{
    start(QStringLiteral("<p>x</p>"));
    type(QStringLiteral("a"));
    m_pView->htmlForSaving();
    m_pView->markSaved();
    type(QStringLiteral("b"));
    undo();
    QCOMPARE(text(), QStringLiteral("ax"));
}

void tst_pageundo::aFormat_endsAStep()
{
    start(QStringLiteral("<p>x</p>"));
    type(QStringLiteral("a"));
    m_pView->triggerEdit(QWebPage::ToggleBold);
    type(QStringLiteral("b"));
    QVERIFY(body().contains(QLatin1String("<b>b</b>")));
    undo();
    QCOMPARE(text(), QStringLiteral("ax"));
}

void tst_pageundo::twentyWords_endAStep()
{
    start(QStringLiteral("<p>x</p>"));
    type(QStringLiteral("w ").repeated(21));
    undo();
    QCOMPARE(text().simplified(), QString(QStringLiteral("w ").repeated(20) + QLatin1Char('x')));
    undo();
    QCOMPARE(text(), QStringLiteral("x"));
}

void tst_pageundo::redo_goesByTheSameSteps()
{
    start(QStringLiteral("<p>x</p>"));
    type(QStringLiteral("a"));
    m_pView->markSaved();
    type(QStringLiteral("b"));
    undo();
    undo();
    QCOMPARE(text(), QStringLiteral("x"));
    redo();
    QCOMPARE(text(), QStringLiteral("ax"));
    redo();
    QCOMPARE(text(), QStringLiteral("abx"));
}

void tst_pageundo::undoToTheSavedState_clearsTheFlag()
{
    start(QStringLiteral("<p>x</p>"));
    QSignalSpy spy(m_pView, &CEditWebView::modifiedChanged);
    type(QStringLiteral("a"));
    QVERIFY(m_pView->isModified());
    undo();
    QVERIFY(!m_pView->isModified());
    QVERIFY(!m_pView->sourceEdit()->isModified());
    QCOMPARE(spy.count(), 1);
    redo();
    QVERIFY(m_pView->isModified());
    m_pView->markSaved();
    QVERIFY(!m_pView->isModified());
    type(QStringLiteral("b"));
    QVERIFY(m_pView->isModified());
    undo();
    QVERIFY(!m_pView->isModified());
    QCOMPARE(text(), QStringLiteral("ax"));
}

void tst_pageundo::undoPastTheSavedState_setsTheFlag()
{
    start(QStringLiteral("<p>x</p>"));
    type(QStringLiteral("a"));
    m_pView->markSaved();
    undo();
    QCOMPARE(text(), QStringLiteral("x"));
    QVERIFY(m_pView->isModified());
    redo();
    QVERIFY(!m_pView->isModified());
}

void tst_pageundo::undoOfARecoveredPage_keepsTheFlag()
{
    start(QStringLiteral("<p>x</p>"));
    m_pView->setModified(true); // Like a draft: the file has another text.
    type(QStringLiteral("a"));
    undo();
    QCOMPARE(text(), QStringLiteral("x"));
    QVERIFY(m_pView->isModified());
}

void tst_pageundo::replaceAll_isOneStep()
{
    start(QStringLiteral("<p>one two one <a href=\"#\">one</a> <code>one</code></p>"));
    const QString strBefore = body();
    g_pSettings->m_bFindSearchUp = false;
    QSignalSpy spy(m_pView, &CEditWebView::replaceNum);
    m_pView->replaceAllPageText(QStringLiteral("one"), QStringLiteral("three"));
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toInt(), 4);
    QCOMPARE(body().replace(QLatin1String("&nbsp;"), QLatin1String(" ")),
             QStringLiteral("<p>three two three <a href=\"#\">three</a> <code>three</code></p>"));
    undo();
    QCOMPARE(body(), strBefore);
    QVERIFY(!m_pView->isModified());
    redo();
    QVERIFY(body().startsWith(QLatin1String("<p>three two three")));
}

QTEST_MAIN(tst_pageundo)
#include "tst_pageundo.moc"
