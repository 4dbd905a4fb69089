#include "webtest.h"

// Find and replace in the rendered page.
class tst_pagesearch : public CPageTest
{
    Q_OBJECT

private slots:
    void find_followsTheOptions_data();
    void find_followsTheOptions();
    void findReverse_leavesTheSettingAlone();
    void replace_takesHtmlAndIgnoresTheOptions();
    void replaceAll_replacesEverything_data();
    void replaceAll_replacesEverything();
};

void tst_pagesearch::find_followsTheOptions_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>(
        "options"); // u: up, c: case, w: wrap, b: word beginnings, e: from edge
    QTest::addColumn<QString>("expected"); // The elements found by calling again, "-" for a miss.

    // The caret starts in the middle, behind the second of four.
    QTest::newRow("backward without wrap") << "ab"
                                           << ""
                                           << "21-";
    QTest::newRow("forward without wrap") << "ab"
                                          << "u"
                                          << "34-";
    QTest::newRow("backward with wrap") << "ab"
                                        << "w"
                                        << "214";
    QTest::newRow("forward with wrap") << "ab"
                                       << "uw"
                                       << "341";
    QTest::newRow("from the start, backward") << "ab"
                                              << "e"
                                              << "-";
    QTest::newRow("from the start, backward with wrap") << "ab"
                                                        << "ew"
                                                        << "4";
    QTest::newRow("from the end, forward") << "ab"
                                           << "ue"
                                           << "-";
    QTest::newRow("from the end, forward with wrap") << "ab"
                                                     << "uew"
                                                     << "1";
    QTest::newRow("case") << "AB"
                          << "ucw"
                          << "44";
    QTest::newRow("word beginnings") << "ab"
                                     << "uwb"
                                     << "412";
    QTest::newRow("not there") << "xyz"
                               << "w"
                               << "-";
}

void tst_pagesearch::find_followsTheOptions()
{
    QFETCH(QString, text);
    QFETCH(QString, options);
    QFETCH(QString, expected);
    CSettings &settings = m_pCase->m_settings;
    settings.m_bFindSearchUp = options.contains(QLatin1Char('u'));
    settings.m_bFindMatchCase = options.contains(QLatin1Char('c'));
    settings.m_bFindWrapSearch = options.contains(QLatin1Char('w'));
    settings.m_bFindMatchWholeWord = options.contains(QLatin1Char('b'));

    set(QStringLiteral("<p id=1>ab</p><p id=2>ab</p><p id=c>mid</p><p id=3>zab</p><p id=4>AB</p>"));
    run(m_pView,
        QStringLiteral("getSelection().collapse(document.getElementById('c').firstChild, 1)"));
    QString strFound;
    for (int i = 0; i < expected.size(); ++i) {
        const bool bFound = m_pView->findPageText(text, options.contains(QLatin1Char('e')));
        strFound += bFound
            ? run(m_pView, QStringLiteral("getSelection().anchorNode.parentNode.id")).toString()
            : QStringLiteral("-");
    }
    QCOMPARE(strFound, expected);
}

void tst_pagesearch::findReverse_leavesTheSettingAlone()
{
    set(QStringLiteral("<p id=1>ab</p><p id=c>mid</p><p id=2>ab</p>"));
    run(m_pView,
        QStringLiteral("getSelection().collapse(document.getElementById('c').firstChild, 1)"));
    QVERIFY(m_pView->findPageTextReverse(QStringLiteral("ab"), false));
    QCOMPARE(run(m_pView, QStringLiteral("getSelection().anchorNode.parentNode.id")).toString(),
             QStringLiteral("2"));
    QVERIFY(!m_pCase->m_settings.m_bFindSearchUp);
    QVERIFY(!m_pCase->m_settings.contains(QStringLiteral("m_bFindSearchUp")));
}

void tst_pagesearch::replace_takesHtmlAndIgnoresTheOptions()
{
    m_pCase->m_settings.m_bFindMatchCase = true;
    set(QStringLiteral("<p>AB ab</p>"));
    QVERIFY(m_pView->replacePageText(QStringLiteral("ab"), QStringLiteral("<i>x</i>")));
    QCOMPARE(textOf(m_pView).simplified(), QStringLiteral("x ab"));
    QVERIFY(body().contains(QLatin1String("<i>x</i>")));
    QVERIFY(m_pView->replacePageText(QStringLiteral("ab"), QStringLiteral("y")));
    QVERIFY(!m_pView->replacePageText(QStringLiteral("ab"), QStringLiteral("y")));
    QCOMPARE(textOf(m_pView).simplified(), QStringLiteral("x y"));
}

void tst_pagesearch::replaceAll_replacesEverything_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("replacement");
    QTest::addColumn<bool>("up");
    QTest::addColumn<QString>("expected");
    QTest::newRow("several") << "<p>a b A</p><p>a</p>"
                             << "a"
                             << "x" << false << "x b x x";
    QTest::newRow("longer with itself") << "<p>aaa</p>"
                                        << "a"
                                        << "aa" << false << "aaaaaa";
    QTest::newRow("by nothing") << "<p>xaya</p>"
                                << "a"
                                << "" << false << "xy";
    QTest::newRow("up replaces nothing") << "<p>a b a</p>"
                                         << "a"
                                         << "x" << true << "a b a";
    QTest::newRow("empty page") << ""
                                << "a"
                                << "x" << false << "";
    QTest::newRow("empty text") << "<p>abc</p>"
                                << ""
                                << "x" << false << "abc";
    QTest::newRow("not editable there") << "<p>a</p><input value=a><p>a</p>"
                                        << "a"
                                        << "x" << false << "x x";
}

void tst_pagesearch::replaceAll_replacesEverything()
{
    QFETCH(QString, html);
    QFETCH(QString, text);
    QFETCH(QString, replacement);
    QFETCH(bool, up);
    QFETCH(QString, expected);
    m_pCase->m_settings.m_bFindSearchUp = up;
    set(html);
    QVERIFY(m_pView->replaceAllPageText(text, replacement));
    QCOMPARE(textOf(m_pView).simplified(), expected);
}

QTEST_MAIN(tst_pagesearch)
#include "tst_pagesearch.moc"
