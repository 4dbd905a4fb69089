#include "editor/spelledlines.h"
#include "highlight/chighlightrules.h"
#include "spelling/cspelling.h"
#include "tests/support/files.h"

#include "definitions.h"
#include "editorcase.h"
#include "spelling/smalldictionary.h"

#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QtTest>

// Words of comments and strings, with a dictionary of three words.
class tst_editorspelling : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();

    void onlyCommentsAndStrings_areRead();
    void textWithoutLanguage_isReadWhole();
    void veryLongLine_isLeftOut();
    void nextWord_isTheOneThePlaceTouchesOrALaterOne_data();
    void nextWord_isTheOneThePlaceTouchesOrALaterOne();

    void f4_selectsTheWordAndOffersOthers();
    void f4Again_goesToTheNextWord();
    void f4WithoutMisspeltWord_saysSo();
    void f4WithoutDictionary_saysSo();
    void suggestion_isOneUndoStep();
    void addedWord_isMarkedNoMore();
    void marks_areShownOnRequestOnly();

private:
    void show(const QString &strText)
    {
        m_pEdit->setPlainText(strText);
        m_pEdit->resize(400, 300);
        m_pEdit->show();
    }
    QMenu *menu() const { return m_pEdit->findChild<QMenu *>(QStringLiteral("suggestionMenu")); }
    // Red ink of the marks, with no highlighting around it.
    bool hasMarks() const
    {
        const QImage image = m_pEdit->viewport()->grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor clr = image.pixelColor(x, y);
                if (clr.red() > 180 && clr.green() < 110 && clr.blue() < 110)
                    return true;
            }
        }
        return false;
    }

    QTemporaryDir m_folder;
    std::unique_ptr<CSpelling> m_pSpelling;
};

static bool isRight(const QString &strWord)
{
    return strWord == QLatin1String("hello") || strWord == QLatin1String("world");
}

void tst_editorspelling::initTestCase()
{
    putDictionary(m_folder.path(), "en_US", "hello world three");
}

void tst_editorspelling::init()
{
    makeEditor();
    QFile::remove(m_folder.filePath("own.txt"));
    m_pSpelling = std::make_unique<CSpelling>(QStringList {m_folder.path()},
                                              m_folder.filePath("own.txt"), "en_US");
    g_pSpelling = m_pSpelling.get();
}

void tst_editorspelling::cleanup()
{
    removeEditor();
    g_pSpelling = nullptr;
    m_pSpelling.reset();
}

static QString misspelt(const QTextBlock &block, bool bHasLanguage)
{
    QStringList lst;
    for (const SSpellWord &word : misspeltWords(block, bHasLanguage, isRight))
        lst.append(block.text().mid(word.nStart, word.nLength));
    return lst.join(QLatin1Char('|'));
}

void tst_editorspelling::onlyCommentsAndStrings_areRead()
{
    show("retrun \"wrold helo\" naem // hello wrld\n");
    m_pEdit->setDefinition(languageDefinition("Test", "//"));
    const QTextBlock block = m_pEdit->document()->firstBlock();
    QTRY_VERIFY(!block.layout()->formats().isEmpty());
    QTRY_COMPARE(misspelt(block, true), QStringLiteral("wrold|helo|wrld"));
}

void tst_editorspelling::textWithoutLanguage_isReadWhole()
{
    show("hello wrld\nnot here");
    QCOMPARE(misspelt(m_pEdit->document()->firstBlock(), false), QStringLiteral("wrld"));
}

void tst_editorspelling::veryLongLine_isLeftOut()
{
    show(QStringLiteral("wrld ").repeated(3000));
    QCOMPARE(misspelt(m_pEdit->document()->firstBlock(), false), QString());
}

void tst_editorspelling::nextWord_isTheOneThePlaceTouchesOrALaterOne_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<int>("start");
    QTest::newRow("start of the text") << -1 << 6;
    QTest::newRow("within a word") << 7 << 6;
    QTest::newRow("its last character") << 9 << 6;
    QTest::newRow("its end") << 10 << 17;
    QTest::newRow("behind all") << 21 << 0;
}

void tst_editorspelling::nextWord_isTheOneThePlaceTouchesOrALaterOne()
{
    show("hello wrld\nhello thre");
    QFETCH(int, place);
    const QTextBlock block = m_pEdit->document()->findBlock(qMax(place, 0));
    QTEST(nextMisspeltWord(block, place, false, isRight, 10).nStart, "start");
    if (place < 0)
        QCOMPARE(nextMisspeltWord(block, 10, false, isRight, 1).nLength, 0);
}

void tst_editorspelling::f4_selectsTheWordAndOffersOthers()
{
    show("hello\nsome wrld");
    place(11, 11);
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4);
    QCOMPARE(selection(), Ends(11, 15));
    QVERIFY(menu() && menu()->isVisible());
    QCOMPARE(menu()->activeAction()->text(), QStringLiteral("world"));
    QCOMPARE(menu()->actions().last()->text(), QStringLiteral("Add to dictionary"));
}

void tst_editorspelling::f4Again_goesToTheNextWord()
{
    show("wrld hello\nthre");
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4);
    QCOMPARE(selection(), Ends(0, 4));
    menu()->hide();
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4);
    QCOMPARE(selection(), Ends(11, 15));
}

void tst_editorspelling::f4WithoutMisspeltWord_saysSo()
{
    show("hello world");
    QSignalSpy spy(m_pEdit.get(), &CHighlightEdit::statusMessage);
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4);
    QCOMPARE(spy.last().value(0).toString(), QStringLiteral("No misspelt word follows."));
    QCOMPARE(selection(), Ends(0, 0));
}

void tst_editorspelling::f4WithoutDictionary_saysSo()
{
    show("wrld");
    QSignalSpy spy(m_pEdit.get(), &CHighlightEdit::statusMessage);
    for (const bool bFolder : {true, false}) {
        CSpelling none(QStringList {m_folder.path()}, QString(), "it_IT");
        g_pSpelling = bFolder ? &none : nullptr;
        QTest::keyClick(m_pEdit.get(), Qt::Key_F4);
        QCOMPARE(spy.last().value(0).toString(),
                 QStringLiteral("There is no dictionary for this language."));
    }
}

void tst_editorspelling::suggestion_isOneUndoStep()
{
    show("some wrld here");
    place(7, 7);
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4);
    QTest::keyClick(menu(), Qt::Key_Return);
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("some world here"));
    QTest::keyClick(m_pEdit.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("some wrld here"));
}

void tst_editorspelling::addedWord_isMarkedNoMore()
{
    show("wrld");
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4, Qt::ShiftModifier);
    QVERIFY(hasMarks());
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4);
    menu()->actions().last()->trigger();
    menu()->hide();
    QVERIFY(!hasMarks());
    QCOMPARE(contents(m_folder.filePath("own.txt")), QByteArray("wrld\n"));
}

void tst_editorspelling::marks_areShownOnRequestOnly()
{
    show("wrld");
    QVERIFY(!hasMarks());
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4, Qt::ShiftModifier);
    QVERIFY(hasMarks());
    QVERIFY(!m_pEdit->isModified());
    QTest::keyClick(m_pEdit.get(), Qt::Key_F4, Qt::ShiftModifier);
    QVERIFY(!hasMarks());
}

QTEST_MAIN(tst_editorspelling)
#include "tst_editorspelling.moc"
