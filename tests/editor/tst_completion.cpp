#include "editor/ccompletionlist.h"
#include "editor/completionwords.h"
#include "highlight/clinestore.h"

#include "editorcase.h"
#include "literaltext.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QtTest>

class tst_completion : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void words_areThoseThatBeginLikeIt_data();
    void words_areThoseThatBeginLikeIt();
    void anyText_givesTheWordsThatAnExpressionFinds();
    void keywords_areThoseThatAreWords();
    void otherVersion_givesNothing();
    void list_isNeverShownUnasked();
    void list_showsWordsAndKeywords();
    void enter_takesTheFirstWord();
    void word_isTakenAtEveryCaret();
    void word_isOneUndoStep();
    void typing_narrowsTheList();
    void leavingTheWord_hidesTheList();
    void escape_hidesTheListOnly();
    void nothingToOffer_isTold();
    void movedCursor_getsNoList();

private:
    void show(const QString &strMarked)
    {
        const SMarkedText text = marked(strMarked);
        m_pEdit->setDefinition(
            {{"highlighting", QVariantMap {{"keywords", QStringList {"alone"}}}}});
        m_pEdit->setPlainText(text.strText);
        m_pEdit->setCarets(text.carets);
        m_pEdit->resize(400, 300);
        m_pEdit->show();
    }
    QString state() const { return withMarks(m_pEdit->toPlainText(), m_pEdit->carets()); }
    void ask() { press(Qt::Key_Space, Qt::ControlModifier); }
    // Where the keyboard's keys go.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QWidget *pPopup = popup();
        QTest::keyClick(pPopup ? pPopup : m_pEdit.get(), key, modifiers);
    }
    QAbstractItemView *popup() const
    {
        auto *pView = qobject_cast<QAbstractItemView *>(QApplication::activePopupWidget());
        return pView && pView->isVisible() ? pView : nullptr;
    }
    QStringList offered() const
    {
        QStringList lst;
        const QAbstractItemModel *pModel = popup() ? popup()->model() : nullptr;
        for (int n = 0; pModel && n < pModel->rowCount(); ++n)
            lst.append(pModel->index(n, 0).data().toString());
        return lst;
    }
};

void tst_completion::init()
{
    makeEditor();
}

void tst_completion::cleanup()
{
    removeEditor();
}

void tst_completion::words_areThoseThatBeginLikeIt_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");
    QTest::newRow("beginning") << "abc ab xab" << QStringList {"abc"};
    QTest::newRow("letter case") << "ABC Abd" << QStringList {"ABC", "Abd"};
    QTest::newRow("underscore and digits") << "ab_1.ab2" << QStringList {"ab2", "ab_1"};
    QTest::newRow("letters of other scripts")
        << QString("ab\u00E4\u4E00") << QStringList {QString("ab\u00E4\u4E00")};
}

void tst_completion::words_areThoseThatBeginLikeIt()
{
    QFETCH(QString, line);
    QFETCH(QStringList, words);
    QSet<QString> found;
    addWordsLike("ab", line, -1, &found);
    QStringList lstFound = found.values();
    lstFound.sort();
    QCOMPARE(lstFound, words);
}

void tst_completion::anyText_givesTheWordsThatAnExpressionFinds()
{
    CDice dice(37);
    const QRegularExpression word("\\w+");
    for (int n = 0; n < 2000; ++n) {
        const QString strText = dice.text("abA1_ .\n", dice.upTo(60));
        const QString strBeginning = dice.text("ab", dice.upTo(2));
        QSet<QString> expected;
        auto it = word.globalMatch(strText);
        while (it.hasNext()) {
            const QString strWord = it.next().captured();
            if (strWord.length() > 1 && strWord != strBeginning && !strWord.at(0).isDigit()
                && strWord.toLower().startsWith(strBeginning)
                && strWord.length() > strBeginning.length())
                expected.insert(strWord);
        }
        const QStringList lstLines = strText.split('\n');
        CLineStore store;
        int nLine = 0;
        store.replace(
            0, 1, lstLines.size(), [&] { return lstLines.at(nLine++); });
        const QStringList lstFound =
            wordsToOffer(store, store.version(), {}, {strBeginning, -1, -1}, [] { return false; });
        QCOMPARE(QSet<QString>(lstFound.begin(), lstFound.end()), expected);
        QCOMPARE(lstFound.size(), expected.size());
    }
}

void tst_completion::keywords_areThoseThatAreWords()
{
    const QVariantMap mapLists {{"keywords", QStringList {" if ", "a-b", "", "else"}},
                                {"reg_exp", QStringList {"for"}}};
    QCOMPARE(keywordsOf({{"highlighting", mapLists}}), (QStringList {"if", "else"}));
}

void tst_completion::otherVersion_givesNothing()
{
    CLineStore store;
    store.replace(0, 1, 1, [] { return QString("abc"); });
    const uint nVersion = store.version();
    QCOMPARE(wordsToOffer(store, nVersion, {}, {"a", -1, -1}, [] { return false; }).size(), 1);
    store.touch();
    QVERIFY(wordsToOffer(store, nVersion, {}, {"a", -1, -1}, [] { return false; }).isEmpty());
}

void tst_completion::list_isNeverShownUnasked()
{
    show("abc\n|");
    QTest::keyClicks(m_pEdit.get(), "ab");
    QVERIFY(!m_pEdit->findChild<CCompletionList *>()); // No list is made that could appear later.
    QVERIFY(!popup());
}

void tst_completion::list_showsWordsAndKeywords()
{
    show("alpha beta\nAlso a|l");
    ask();
    QTRY_COMPARE(offered(), (QStringList {"alone", "alpha", "Also"}));
}

void tst_completion::enter_takesTheFirstWord()
{
    show("alpha\nal|");
    ask();
    QTRY_VERIFY(popup());
    press(Qt::Key_Down); // The keyword comes first.
    press(Qt::Key_Return);
    QCOMPARE(state(), QString("alpha\nalpha|"));
    QVERIFY(!popup());
    show("alpha\nalp|");
    ask();
    QTRY_VERIFY(popup());
    press(Qt::Key_Return);
    QCOMPARE(state(), QString("alpha\nalpha|"));
}

void tst_completion::word_isTakenAtEveryCaret()
{
    show("alpha\nal|\nx|\nal|");
    ask();
    QTRY_VERIFY(popup());
    press(Qt::Key_Return);
    QCOMPARE(state(), QString("alpha\nalone|\nx|\nalone|"));
}

void tst_completion::word_isOneUndoStep()
{
    show("alpha\nAL|");
    ask();
    QTRY_VERIFY(popup());
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    QCOMPARE(state(), QString("alpha\nalpha|"));
    m_pEdit->undo();
    QCOMPARE(state(), QString("alpha\nAL|"));
}

void tst_completion::typing_narrowsTheList()
{
    show("alpha\nal|");
    ask();
    QTRY_COMPARE(offered().size(), 2);
    press(Qt::Key_O);
    QCOMPARE(state(), QString("alpha\nalo|"));
    QCOMPARE(offered(), QStringList {"alone"});
    press(Qt::Key_Backspace);
    QCOMPARE(offered().size(), 2);
    press(Qt::Key_X);
    QVERIFY(!popup());
}

void tst_completion::leavingTheWord_hidesTheList()
{
    show("alpha\nal|");
    ask();
    QTRY_VERIFY(popup());
    press(Qt::Key_Space);
    QVERIFY(!popup());
    QCOMPARE(state(), QString("alpha\nal |"));
}

void tst_completion::escape_hidesTheListOnly()
{
    show("alpha\nal|\nal|");
    ask();
    QTRY_VERIFY(popup());
    press(Qt::Key_Escape);
    QVERIFY(!popup());
    QCOMPARE(state(), QString("alpha\nal|\nal|"));
}

void tst_completion::nothingToOffer_isTold()
{
    show("xyz xy_z|");
    const QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    ask();
    QTRY_COMPARE(told.count(), 1);
    QVERIFY(!popup());
}

void tst_completion::movedCursor_getsNoList()
{
    show("alpha\nal|");
    ask();
    m_pEdit->moveCursor(QTextCursor::Start);
    const QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    show("xyz|");
    ask();
    QTRY_COMPARE(told.count(), 1); // The later answer is there, and the first one came before it.
    QVERIFY(!popup());
}

QTEST_MAIN(tst_completion)
#include "tst_completion.moc"
