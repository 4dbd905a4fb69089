// The search in files finds what the editor's own search finds.
#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "editor/linesearch.h"
#include "findinfiles/cbytefilter.h"
#include "findinfiles/filereading.h"
#include "findinfiles/findquery.h"
#include "findinfiles/textmatches.h"

#include <QRandomGenerator>
#include <QTextBlock>
#include <QtTest>

using Places = QVector<QVector<int>>; // Line, column, length.

class tst_textmatches : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void matches_areThoseOfTheEditor_data();
    void matches_areThoseOfTheEditor();
    void randomTexts_giveWhatTheEditorGives();
    void longText_isSearchedInPieces();
    void excerpt_holdsTheMatch();
    void tooMany_areCutOff();
    void cancelledSearch_ends();

private:
    static Places placesInEditor(const QString &strFind, const SSearchOptions &options,
                                 const QByteArray &data);
    static Places placesFound(const QString &strFind, const SSearchOptions &options,
                              const QByteArray &data);

    std::unique_ptr<CSettings> m_pSettings;
};

void tst_textmatches::initTestCase()
{
    m_pSettings = std::make_unique<CSettings>(QStringLiteral("Test"), QStringLiteral("find"));
    g_pSettings = m_pSettings.get();
}

void tst_textmatches::cleanupTestCase()
{
    g_pSettings = nullptr;
    m_pSettings.reset();
}

// Find Next again and again, from the start.
Places tst_textmatches::placesInEditor(const QString &strFind, const SSearchOptions &options,
                                       const QByteArray &data)
{
    g_pSettings->m_bFindMatchCase = options.bMatchCase;
    g_pSettings->m_bFindMatchWholeWord = options.bWholeWord;
    g_pSettings->m_bFindUseRegularExpression = options.bRegExp;
    g_pSettings->m_bFindSearchUp = false;
    g_pSettings->m_bFindWrapSearch = false;
    CHighlightEdit edit;
    edit.setTextData(data, false);
    QTextCursor cursor(edit.document());
    Places places;
    while (edit.find(strFind, false, &cursor)) {
        const QTextBlock block = edit.document()->findBlock(cursor.selectionStart());
        places.append({block.blockNumber() + 1, cursor.selectionStart() - block.position(),
                       cursor.selectionEnd() - cursor.selectionStart()});
    }
    return places;
}

Places tst_textmatches::placesFound(const QString &strFind, const SSearchOptions &options,
                                    const QByteArray &data)
{
    const std::atomic<bool> bCancel = false;
    const QVector<SFileMatch> lstMatches = findInData(
        CLineSearch(strFind, options), CByteFilter(strFind, options), data, 1000000, bCancel);
    Places places;
    for (const SFileMatch &match : lstMatches)
        places.append({match.nLine, match.nColumn, match.nLength});
    return places;
}

void tst_textmatches::matches_areThoseOfTheEditor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("regExp");
    QTest::addColumn<bool>("word");
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("count");
    const auto row = [](const char *szName, const QString &strText, bool bRegExp, bool bWord,
                        const QByteArray &data, int nCount) {
        QTest::newRow(szName) << strText << bRegExp << bWord << data << nCount;
    };
    row("none", "x", false, false, "abc\n", 0);
    row("several in a line", "a", false, false, "aXa\na", 3);
    row("overlapping", "aa", false, false, "aaaaa", 2);
    row("case", "ab", false, false, "AB ab Ab", 3);
    row("words", "ab", false, true, "ab_ab", 2);
    row("first is no word", "ab", false, true, "abc ab\nab", 1);
    row("expression", "a[bc]+", true, false, "abcb ac\nab", 3);
    row("line starts", "^a", true, false, "aa\na", 2);
    row("line ends", "a$", true, false, "aa\r\na\rab", 2);
    row("empty expression matches", "x*", true, false, "abc\nxx", 1);
    row("all line ends", "a", false, false, "a\r\na\ra\n\na", 4);
    row("return at the end", "a", false, false, "a\r", 1);
    row("mark first", "a", false, false,
        "\xef\xbb\xbf"
        "a\n",
        1);
    row("umlauts", "Ö", false, false,
        "grö\xc3\x9f"
        "e ÖÖ",
        3);
    row("Latin", "gr", false, false,
        "gr\xfc\xdf"
        "e\ngr",
        2);
    row("line separator", "b", false, false,
        "a\xe2\x80\xa8"
        "b\nb",
        2);
    row("paragraph separator", "b", false, false,
        "a\xe2\x80\xa9"
        "b\nb",
        2);
    row("no-break space", "a b", false, false,
        "a\xc2\xa0"
        "b a b",
        1);
    row("frame signs", "b", false, false,
        "a\xef\xb7\x90"
        "b\xef\xb7\x91"
        "b\nb",
        3);
    row("outside the plane", "b", false, false,
        "\xf0\x9f\x98\x80"
        "b\nb",
        2);
    row("tabs", "\t", false, false, "\ta\t\n", 2);
}

void tst_textmatches::matches_areThoseOfTheEditor()
{
    QFETCH(QString, text);
    QFETCH(bool, regExp);
    QFETCH(bool, word);
    QFETCH(QByteArray, data);
    QFETCH(int, count);
    SSearchOptions options;
    options.bRegExp = regExp;
    options.bWholeWord = word;
    QCOMPARE(placesFound(text, options, data), placesInEditor(text, options, data));
    QCOMPARE(placesFound(text, options, data).size(), count);
}

void tst_textmatches::randomTexts_giveWhatTheEditorGives()
{
    QRandomGenerator random(11);
    const QString strSigns = QStringLiteral("aAbB_ .\n\r\té\u2028\u2029");
    const QStringList lstFinds {"a", "ab", "A.", "b$", "^a",   "[ab]+", "a*b",
                                "é", " ",  "_",  ".",  "a\\b", "\\bb",  "b(?=a)"};
    for (int n = 0; n < 1500; ++n) {
        QString strText;
        for (int nLeft = random.bounded(40); nLeft > 0; --nLeft)
            strText.append(strSigns.at(random.bounded(strSigns.length())));
        SSearchOptions options;
        options.bMatchCase = random.bounded(2);
        options.bWholeWord = random.bounded(2);
        options.bRegExp = random.bounded(2);
        const QString strFind = lstFinds.at(random.bounded(lstFinds.size()));
        const QByteArray data = strText.toUtf8();
        QCOMPARE(placesFound(strFind, options, data), placesInEditor(strFind, options, data));
    }
}

void tst_textmatches::longText_isSearchedInPieces()
{
    QByteArray data;
    for (int n = 0; n < 60000; ++n)
        data += n % 1000 == 7 ? "a needle here\n" : "some more hay\n";
    const Places places = placesFound(QStringLiteral("needle"), SSearchOptions(), data);
    QCOMPARE(places.size(), 60);
    for (int n = 0; n < 60; ++n)
        QCOMPARE(places.at(n), QVector<int>({n * 1000 + 8, 2, 6}));
}

void tst_textmatches::excerpt_holdsTheMatch()
{
    const std::atomic<bool> bCancel = false;
    const QString strLine = QString(5000, 'x') + "needle" + QString(5000, 'y');
    const CLineSearch search(QStringLiteral("needle"), SSearchOptions());
    const SFileMatch match = findMatches(search, strLine, 10, bCancel).first();
    QCOMPARE(match.nColumn, 5000);
    QVERIFY(match.strExcerpt.length() < 400);
    QCOMPARE(match.strExcerpt.mid(match.nExcerptColumn, 6), QStringLiteral("needle"));

    const SFileMatch whole =
        findMatches(search, QStringLiteral("a needle b\n"), 1, bCancel).first();
    QCOMPARE(whole.strExcerpt, QStringLiteral("a needle b"));
    QCOMPARE(whole.nExcerptColumn, 2);
}

void tst_textmatches::tooMany_areCutOff()
{
    const std::atomic<bool> bCancel = false;
    const CLineSearch search(QStringLiteral("a"), SSearchOptions());
    QCOMPARE(findMatches(search, QString(100, 'a'), 30, bCancel).size(), 30);
}

void tst_textmatches::cancelledSearch_ends()
{
    const std::atomic<bool> bCancel = true;
    const CLineSearch search(QStringLiteral("a"), SSearchOptions());
    QVERIFY(findMatches(search, QString(100, 'a'), 30, bCancel).isEmpty());
}

QTEST_MAIN(tst_textmatches)
#include "tst_textmatches.moc"
