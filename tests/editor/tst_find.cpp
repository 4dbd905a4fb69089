#include "editorcase.h"
#include "literalsearch.h"

#include <QRandomGenerator>
#include <QtTest>

class tst_find : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void emptyText_doesNothing();
    void match_isSelectedAndVisible();
    void nextSearch_goesOnBehindTheMatch();
    void selectionFromRightToLeft_skipsOneCharacter();
    void searchUp_startsBeforeTheSelection();
    void searchUp_findsEveryLineFromItsStart();
    void searchUp_fromTheEnd_findsTheLastLine();
    void searchUp_atTheStart_findsNothing();
    void matches_neverSpanLines();
    void fromTheStartWithWrap_missing_hasNoSecondPass();
    void wrappedMiss_isToldTwice();
    void wrappedHit_tellsTheEnd();
    void wrappedUp_tellsTheTop();
    void upFromTheEndWithWrap_missing_hasNoSecondPass();
    void withoutWrap_missIsToldOnce();
    void fromEnd_neverWraps();
    void wholeWord_takesTheUnderscoreForASeparator();
    void wholeWord_skipsTheRestOfTheLine();
    void emptyMatches_areNeverSelected();
    void givenCursor_leavesTheEditorsAlone();
    void givenCursor_secondPassMovesTheEditors();
    void caseOption_isReadAtEachSearch();
    void noBreakSpace_isNotASpace();
    void findPrevious_turnsTheDirectionForOneSearch();
    void findPrevious_savesNothing();
    void randomSearches_equalTheLiteralOnes_data();
    void randomSearches_equalTheLiteralOnes();

private:
    std::unique_ptr<CSearchLog> m_pLog;
};

void tst_find::init()
{
    makeEditor();
    m_pLog = std::make_unique<CSearchLog>(m_pEdit.get());
}

void tst_find::cleanup()
{
    m_pLog.reset();
    removeEditor();
}

void tst_find::emptyText_doesNothing()
{
    m_pEdit->setPlainText("abc");
    place(1, 2);
    QVERIFY(!m_pEdit->find(QString(), false, nullptr));
    QVERIFY(!m_pEdit->find("", true, nullptr));
    QCOMPARE(m_pLog->lst, QStringList());
    QCOMPARE(selection(), Ends(1, 2));
}

void tst_find::match_isSelectedAndVisible()
{
    m_pEdit->resize(200, 200);
    m_pEdit->show();
    m_pEdit->setPlainText(QString("x\n").repeated(500) + "needle\n" + QString("x\n").repeated(500));
    QVERIFY(m_pEdit->find("needle", false, nullptr));
    QCOMPARE(selection(), Ends(1000, 1006));
    QVERIFY(m_pEdit->viewport()->rect().contains(m_pEdit->cursorRect()));
}

void tst_find::nextSearch_goesOnBehindTheMatch()
{
    m_pEdit->setPlainText("aaaa");
    QVERIFY(m_pEdit->find("aa", false, nullptr));
    QCOMPARE(selection(), Ends(0, 2));
    QVERIFY(m_pEdit->find("aa", false, nullptr));
    QCOMPARE(selection(), Ends(2, 4));
}

void tst_find::selectionFromRightToLeft_skipsOneCharacter()
{
    m_pEdit->setPlainText("abab ab");
    place(2, 0); // The first "ab", from right to left.
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QCOMPARE(selection(), Ends(5, 7)); // The second one begins at the skipped place.
    place(0, 2);
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QCOMPARE(selection(), Ends(2, 4));
}

void tst_find::searchUp_startsBeforeTheSelection()
{
    (*m_pSettings)->m_bFindSearchUp = true;
    m_pEdit->setPlainText("ab ab ab");
    place(3, 5);
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QCOMPARE(selection(), Ends(0, 2));
    place(8, 6);
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QCOMPARE(selection(), Ends(3, 5));
}

void tst_find::searchUp_findsEveryLineFromItsStart()
{
    (*m_pSettings)->m_bFindSearchUp = true;
    (*m_pSettings)->m_bFindWrapSearch = false;
    m_pEdit->setPlainText("ab\nab\nab");
    place(8, 8);
    for (const int nStart : {6, 3, 0}) {
        QVERIFY(m_pEdit->find("ab", false, nullptr));
        QCOMPARE(selection(), Ends(nStart, nStart + 2));
    }
    QVERIFY(!m_pEdit->find("ab", false, nullptr));
}

void tst_find::searchUp_fromTheEnd_findsTheLastLine()
{
    (*m_pSettings)->m_bFindSearchUp = true;
    m_pEdit->setPlainText("ab\nab");
    QVERIFY(m_pEdit->find("ab", true, nullptr));
    QCOMPARE(selection(), Ends(3, 5));
}

void tst_find::searchUp_atTheStart_findsNothing()
{
    (*m_pSettings)->m_bFindSearchUp = true;
    (*m_pSettings)->m_bFindWrapSearch = false;
    m_pEdit->setPlainText("ab");
    QVERIFY(!m_pEdit->find("ab", false, nullptr));
    QCOMPARE(m_pLog->lst, QStringList("cannotFound"));
}

void tst_find::matches_neverSpanLines()
{
    (*m_pSettings)->m_bFindUseRegularExpression = true;
    m_pEdit->setPlainText("a\nb");
    QVERIFY(!m_pEdit->find("a\\sb", true, nullptr));
    QVERIFY(!m_pEdit->find("a\nb", true, nullptr));
}

void tst_find::fromTheStartWithWrap_missing_hasNoSecondPass()
{
    m_pEdit->setPlainText("abc");
    QVERIFY(!m_pEdit->find("x", false, nullptr));
    QCOMPARE(m_pLog->lst, QStringList({"findToBottom", "cannotFound"}));
}

void tst_find::wrappedMiss_isToldTwice()
{
    m_pEdit->setPlainText("abc");
    place(1, 1);
    QVERIFY(!m_pEdit->find("x", false, nullptr));
    QCOMPARE(m_pLog->lst, QStringList({"cannotFound", "findToBottom", "cannotFound"}));
}

void tst_find::wrappedHit_tellsTheEnd()
{
    m_pEdit->setPlainText("abc");
    place(3, 3);
    QVERIFY(m_pEdit->find("a", false, nullptr));
    QCOMPARE(m_pLog->lst, QStringList("findToBottom"));
    QCOMPARE(selection(), Ends(0, 1));
}

void tst_find::wrappedUp_tellsTheTop()
{
    (*m_pSettings)->m_bFindSearchUp = true;
    m_pEdit->setPlainText("abc\n");
    QVERIFY(m_pEdit->find("c", false, nullptr));
    QCOMPARE(m_pLog->lst, QStringList("findToTop"));
    QCOMPARE(selection(), Ends(2, 3));
}

void tst_find::upFromTheEndWithWrap_missing_hasNoSecondPass()
{
    (*m_pSettings)->m_bFindSearchUp = true;
    m_pEdit->setPlainText("abc");
    // One before the cursor is the document's end only for a cursor behind it: there is none, so
    // the second pass takes place, and the miss is told twice.
    place(3, 3);
    QVERIFY(!m_pEdit->find("x", false, nullptr));
    QCOMPARE(m_pLog->lst, QStringList({"cannotFound", "findToTop", "cannotFound"}));
}

void tst_find::withoutWrap_missIsToldOnce()
{
    (*m_pSettings)->m_bFindWrapSearch = false;
    m_pEdit->setPlainText("abc");
    place(1, 1);
    QVERIFY(!m_pEdit->find("a", false, nullptr));
    QCOMPARE(m_pLog->lst, QStringList("cannotFound"));
}

void tst_find::fromEnd_neverWraps()
{
    m_pEdit->setPlainText("abc");
    QVERIFY(!m_pEdit->find("x", true, nullptr));
    QCOMPARE(m_pLog->lst, QStringList("cannotFound"));
}

void tst_find::wholeWord_takesTheUnderscoreForASeparator()
{
    (*m_pSettings)->m_bFindMatchWholeWord = true;
    m_pEdit->setPlainText("ab_ab");
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QCOMPARE(selection(), Ends(0, 2));
}

void tst_find::wholeWord_skipsTheRestOfTheLine()
{
    (*m_pSettings)->m_bFindMatchWholeWord = true;
    m_pEdit->setPlainText("abc ab\nab");
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QCOMPARE(selection(), Ends(7, 9));
}

void tst_find::emptyMatches_areNeverSelected()
{
    (*m_pSettings)->m_bFindUseRegularExpression = true;
    m_pEdit->setPlainText("abc\nxx");
    QVERIFY(m_pEdit->find("x*", false, nullptr));
    QCOMPARE(selection(), Ends(4, 6));
    m_pEdit->setPlainText("abc");
    QVERIFY(!m_pEdit->find("x*", false, nullptr));
    QVERIFY(!m_pEdit->textCursor().hasSelection());
}

void tst_find::givenCursor_leavesTheEditorsAlone()
{
    m_pEdit->setPlainText("abc abc");
    QTextCursor cursor(m_pEdit->document());
    QVERIFY(m_pEdit->find("bc", false, &cursor));
    QCOMPARE(cursor.anchor(), 1);
    QCOMPARE(cursor.position(), 3);
    QCOMPARE(selection(), Ends(0, 0));
}

void tst_find::givenCursor_secondPassMovesTheEditors()
{
    m_pEdit->setPlainText("abc abc");
    QTextCursor cursor(m_pEdit->document());
    cursor.setPosition(7);
    QVERIFY(m_pEdit->find("abc", false, &cursor));
    QCOMPARE(cursor.position(), 7);
    QVERIFY(!cursor.hasSelection());
    QCOMPARE(selection(), Ends(0, 3));
}

void tst_find::caseOption_isReadAtEachSearch()
{
    m_pEdit->setPlainText("AB ab");
    (*m_pSettings)->m_bFindMatchCase = true;
    QVERIFY(m_pEdit->find("ab", true, nullptr));
    QCOMPARE(selection(), Ends(3, 5));
    (*m_pSettings)->m_bFindMatchCase = false;
    QVERIFY(m_pEdit->find("ab", true, nullptr));
    QCOMPARE(selection(), Ends(0, 2));
}

void tst_find::noBreakSpace_isNotASpace()
{
    m_pEdit->setPlainText(QString::fromUtf8("a\u00a0b"));
    QVERIFY(!m_pEdit->find("a b", true, nullptr));
    QVERIFY(m_pEdit->find(QString::fromUtf8("a\u00a0b"), true, nullptr));
}

void tst_find::findPrevious_turnsTheDirectionForOneSearch()
{
    m_pEdit->setPlainText("ab ab ab");
    place(5, 5);
    QVERIFY(m_pEdit->findPrevious("ab"));
    QCOMPARE(selection(), Ends(3, 5));
    QVERIFY(!(*m_pSettings)->m_bFindSearchUp);
    (*m_pSettings)->m_bFindSearchUp = true;
    QVERIFY(m_pEdit->findPrevious("ab"));
    QCOMPARE(selection(), Ends(6, 8));
    QVERIFY((*m_pSettings)->m_bFindSearchUp);
}

void tst_find::findPrevious_savesNothing()
{
    (*m_pSettings)->save();
    m_pEdit->setPlainText("ab");
    m_pEdit->findPrevious("x");
    QCOMPARE((*m_pSettings)->value("m_bFindSearchUp").toBool(), false);
    QCOMPARE(m_pLog->lst.value(1), QString("findToTop"));
}

void tst_find::randomSearches_equalTheLiteralOnes_data()
{
    QTest::addColumn<int>("options");
    for (int i = 0; i < 32; ++i) {
        QTest::addRow("%s%s%s%s%s", i & 1 ? "case " : "", i & 2 ? "word " : "", i & 4 ? "up " : "",
                      i & 8 ? "expression " : "plain ", i & 16 ? "wrap" : "no wrap")
            << i;
    }
}

void tst_find::randomSearches_equalTheLiteralOnes()
{
    QFETCH(int, options);
    const QString strAlphabet("aabbAx _\n\n");
    const QStringList lstPlain {"a", "ab", "aa", "x", "b "};
    const QStringList lstExpressions {"a*", "^a", "a$", "[ab]+", "x*", "a(?=b)", "^", "("};
    const QStringList &lstTexts = options & 8 ? lstExpressions : lstPlain;
    QRandomGenerator random(options + 1);
    for (int i = 0; i < 60; ++i) {
        QString strText;
        // Once more than is read from the document at once.
        for (int n = i == 1 ? 40000 : random.bounded(40); n > 0; --n)
            strText.append(strAlphabet.at(random.bounded(strAlphabet.length())));
        CLiteralSearch literal(strText);
        literal.options = literalOptions(options);
        literal.bWrap = options & 16;
        applyOptions(m_pSettings->get(), literal.options, literal.bWrap);
        m_pEdit->setPlainText(strText);
        const int nAnchor = random.bounded(strText.length() + 1);
        const int nPosition = random.bounded(strText.length() + 1);
        place(nAnchor, nPosition);
        literal.own.setPosition(nAnchor);
        literal.own.setPosition(nPosition, QTextCursor::KeepAnchor);
        m_pLog->lst.clear();
        for (int n = 0; n < 6; ++n) {
            const QString strFind = lstTexts.at(random.bounded(lstTexts.size()));
            const bool bFromEnd = random.bounded(4) == 0;
            QCOMPARE(m_pEdit->find(strFind, bFromEnd, nullptr),
                     literal.find(strFind, bFromEnd, nullptr));
            QCOMPARE(selection(), Ends(literal.own.anchor(), literal.own.position()));
        }
        QCOMPARE(m_pLog->lst, literal.log);
    }
}

QTEST_MAIN(tst_find)
#include "tst_find.moc"
