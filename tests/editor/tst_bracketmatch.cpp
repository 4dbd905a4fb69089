#include "editor/bracketlines.h"
#include "editor/cbracketfinder.h"
#include "editor/ccarets.h"
#include "highlight/chighlightmgt.h"
#include "highlight/chighlightrules.h"
#include "highlight/clinestore.h"
#include "highlight/ctextdocument.h"
#include "highlight/highlightline.h"

#include "editorcase.h"
#include "literaltext.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

// Lines in lower case; capitals stand in a comment or string.
class CMarkedLines : public CBracketLines
{
public:
    CMarkedLines(const QStringList &lstTexts, const QStringList &lstMarks)
        : m_lstTexts(lstTexts), m_lstMarks(lstMarks)
    {
    }
    bool goTo(int nLine) override
    {
        m_nLine = nLine;
        return true;
    }
    QString text() const override { return m_lstTexts.at(m_nLine); }
    QBitArray inside() override
    {
        QBitArray bits(text().length());
        for (int n = 0; n < bits.size(); ++n)
            bits.setBit(n, m_lstMarks.at(m_nLine).at(n) == '#');
        return bits;
    }

private:
    QStringList m_lstTexts;
    QStringList m_lstMarks;
    int m_nLine = 0;
};

// Removes pairs until none is left. strMarks has '#' inside comments and strings.
int literalPartner(const QString &strText, const QString &strMarks, int nAt)
{
    const QChar cBracket = strText.at(nAt);
    const QString strKinds = "()[]{}";
    const int nKind = strKinds.indexOf(cBracket) / 2;
    const bool bInside = strMarks.at(nAt) == '#';
    QVector<int> lstOpen;
    for (int n = 0; n < strText.length(); ++n) {
        if (strText.at(n) == '\n')
            continue;
        const bool bSameSide = (strMarks.at(n) == '#') == bInside;
        if (!bSameSide && bInside)
            lstOpen.clear(); // Another comment or string.
        if (!bSameSide)
            continue;
        if (strText.at(n) == strKinds.at(2 * nKind)) {
            lstOpen.append(n);
        } else if (strText.at(n) == strKinds.at(2 * nKind + 1)) {
            const int nOpen = lstOpen.isEmpty() ? -1 : lstOpen.takeLast();
            if (nOpen == nAt)
                return n;
            if (n == nAt)
                return nOpen;
        }
    }
    return -1;
}

QVariantMap cppDefinition()
{
    return CHighlightMgt(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr)
        .definitionForFile("a.cpp");
}

} // namespace

class tst_bracketmatch : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void anyText_matchesLikePairsTakenAway();
    void storedLines_areThoseOfTheDocument();
    void bracket_goesToItsPartner_data();
    void bracket_goesToItsPartner();
    void bracket_selectsToItsPartner_data();
    void bracket_selectsToItsPartner();
    void nothingToGoTo_isTold();
    void farPartner_isFoundOffTheKey();
    void farPartner_isNotGoneToOnceTheCursorMoved();
    void partner_isCorrectedWhenTheCommentsBecomeKnown();
    void farBracketsInComments_doNotCount();
    void farBracketsInCommentsThatBeginElsewhere_doNotCount();
    void brackets_areMarkedInTheView();

private:
    void showCode(const QString &strMarked)
    {
        const SMarkedText text = marked(strMarked);
        m_pEdit->setDefinition(cppDefinition());
        m_pEdit->setPlainText(text.strText);
        m_pEdit->resize(500, 300);
        m_pEdit->show();
        m_pEdit->setCarets(text.carets);
        QTRY_VERIFY(m_pEdit->textDocument()->lines()->isComplete());
    }
    QString state() const { return withMarks(m_pEdit->toPlainText(), m_pEdit->carets()); }
    void press(Qt::KeyboardModifiers modifiers)
    {
        QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), Qt::Key_M, QString(), modifiers);
    }
};

void tst_bracketmatch::init()
{
    makeEditor();
}

void tst_bracketmatch::cleanup()
{
    removeEditor();
}

void tst_bracketmatch::anyText_matchesLikePairsTakenAway()
{
    CDice dice(31);
    int nFound = 0;
    for (int n = 0; n < 3000; ++n) {
        const QString strText = dice.text("()()[]\n", 1 + dice.upTo(30));
        QString strMarks = dice.text("..#", strText.length());
        if (dice.upTo(1)) // Long comments, too.
            strMarks.replace("..", "##");
        const int nAt = dice.upTo(strText.length() - 1);
        if (!isBracket(strText.at(nAt)))
            continue;
        QStringList lstMarks;
        int nStart = 0;
        const QStringList lstTexts = strText.split('\n');
        for (const QString &strLine : lstTexts) {
            lstMarks.append(strMarks.mid(nStart, strLine.length()));
            nStart += strLine.length() + 1;
        }
        CMarkedLines lines(lstTexts, lstMarks);
        const CListLines places(lstTexts);
        const SBracketMatch match =
            matchingBracket(&lines, lstTexts.size(), places.lineAt(nAt), places.column(nAt));
        const bool bFound = match.result == SBracketMatch::Found;
        QCOMPARE(bFound ? places.start(match.nLine) + match.nInLine : -1,
                 literalPartner(strText, strMarks, nAt));
        nFound += int(bFound);
    }
    QVERIFY(nFound > 200);
}

void tst_bracketmatch::storedLines_areThoseOfTheDocument()
{
    QString strText;
    for (int n = 0; n < 500; ++n)
        strText += n % 7 == 3 ? "/* (\n ( */ \"(\" x(\n" : "int a; // (\n";
    showCode(strText + '|');
    const CHighlightRules rules(cppDefinition());
    const auto pStore = m_pEdit->textDocument()->lines();
    CStoredLines stored(*pStore, pStore->version(), rules, [] { return false; });
    QTextDocument *pDocument = m_pEdit->document();
    const auto compare = [&](int nLine) {
        CShownLines shown(pDocument->findBlockByNumber(nLine), pDocument->findBlockByNumber(nLine));
        QVERIFY(stored.goTo(nLine) && shown.goTo(nLine));
        QCOMPARE(stored.text(), shown.text());
        const QBitArray inside = stored.inside();
        const QBitArray seen = shown.inside();
        for (int n = 0; n < inside.size(); ++n)
            QCOMPARE(inside.testBit(n), seen.testBit(n));
    };
    for (int nLine = 0; nLine < pDocument->blockCount(); ++nLine)
        compare(nLine);
    for (int nLine = pDocument->blockCount() - 1; nLine >= 0; --nLine)
        compare(nLine);
    m_pEdit->insertPlainText("x");
    CStoredLines passed(*pStore, pStore->version() - 1, rules, [] { return false; });
    QVERIFY(!passed.goTo(0));
}

void tst_bracketmatch::bracket_goesToItsPartner_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("behind the cursor") << "f|(a(b)c);"
                                       << "f(a(b)c|);";
    QTest::newRow("before the cursor") << "f(a(b)c)|;"
                                       << "f(|a(b)c);";
    QTest::newRow("over lines") << "if (a) |{\n  {}\n}"
                                << "if (a) {\n  {}\n|}";
    QTest::newRow("not in a string") << "f|(\")\", g)"
                                     << "f(\")\", g|)";
    QTest::newRow("not in a comment") << "f|(a // )\n/* ) */)"
                                      << "f(a // )\n/* ) */|)";
    QTest::newRow("within a comment") << "( // a |(b) (\n)"
                                      << "( // a (b|) (\n)";
    QTest::newRow("one without a partner") << "(a)|)"
                                           << "(|a))";
}

void tst_bracketmatch::bracket_goesToItsPartner()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    showCode(before);
    press(Qt::ControlModifier);
    QCOMPARE(state(), after);
}

void tst_bracketmatch::bracket_selectsToItsPartner_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("forward") << "f|(a)"
                             << "f^(a)|";
    QTest::newRow("backward") << "f(a)|b"
                              << "f|(a)^b";
}

void tst_bracketmatch::bracket_selectsToItsPartner()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    showCode(before);
    press(Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(state(), after);
}

void tst_bracketmatch::nothingToGoTo_isTold()
{
    const QSignalSpy told(m_pEdit.get(), &CHighlightEdit::statusMessage);
    showCode("a|b");
    press(Qt::ControlModifier);
    showCode("(|");
    press(Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(told.count() >= 2);
    QCOMPARE(told.first().at(0).toString(), QString("There is no bracket beside the cursor."));
    QCOMPARE(told.last().at(0).toString(), QString("This bracket has no partner."));
    QCOMPARE(state(), QString("(|"));
}

void tst_bracketmatch::farPartner_isFoundOffTheKey()
{
    const QString strLines = QString("a(b);\n").repeated(3000);
    showCode("{|\n{\n" + strLines + "}\n}\n");
    m_pEdit->setCarets(CCarets(SCaret {3, 3})); // No paint event has asked for this one.
    press(Qt::ControlModifier);
    QCOMPARE(m_pEdit->textCursor().position(), 3); // Not at once.
    QTRY_COMPARE(m_pEdit->textCursor().position(), 4 + strLines.length() + 1);
    press(Qt::ControlModifier); // And back.
    QTRY_COMPARE(m_pEdit->textCursor().position(), 3);
}

void tst_bracketmatch::farPartner_isNotGoneToOnceTheCursorMoved()
{
    const QString strLines = QString("a(b);\n").repeated(3000);
    showCode("{|\n{\n" + strLines + "}\n}\n");
    m_pEdit->setCarets(CCarets(SCaret {3, 3}));
    press(Qt::ControlModifier);
    const auto *pFinder = m_pEdit->findChild<CBracketFinder *>();
    QSignalSpy found(pFinder, &CBracketFinder::found);
    m_pEdit->moveCursor(QTextCursor::Start);
    QTRY_VERIFY(!found.isEmpty()); // Whichever answer it is.
    QCOMPARE(m_pEdit->textCursor().position(), 0);
}

void tst_bracketmatch::partner_isCorrectedWhenTheCommentsBecomeKnown()
{
    const QStringList lstTexts = {"(", "/*", ")", "*/", ")"};
    const auto pStore = std::make_shared<CLineStore>();
    int nNext = 0;
    pStore->replace(0, 1, lstTexts.size(), [&] { return lstTexts.at(nNext++); });
    CBracketFinder finder(pStore);
    finder.setDefinition(cppDefinition());
    const auto partner = [&] {
        const auto answer = finder.ask({pStore->version(), 0, 0});
        return answer ? answer->nLine : -1;
    };
    QTRY_COMPARE(partner(), 2); // As long as no state is known, the comment is not one.
    const QSignalSpy found(&finder, &CBracketFinder::found);
    const CHighlightRules rules(cppDefinition());
    std::vector<CLineStore::SDone> lstDone;
    int nState = -1;
    for (int nLine = 0; nLine < lstTexts.size(); ++nLine) {
        SHighlightLine line;
        QVERIFY(rules.highlight(lstTexts.at(nLine), nState, &line, [] { return false; }));
        nState = line.nState;
        lstDone.push_back({nLine, nState, 0, true});
    }
    const int nDone = int(lstDone.size());
    QVERIFY(pStore->commit(pStore->version(), pStore->generation(), &lstDone, {}, true));
    pStore->confirm(pStore->version(), nDone);
    QTRY_COMPARE(found.size(), 1);
    QCOMPARE(partner(), 4);
}

void tst_bracketmatch::farBracketsInComments_doNotCount()
{
    const QString strLines = QString("// }\n\"}\";\n/* }\n} */\n").repeated(500);
    showCode("{|\n" + strLines + "}\n");
    press(Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(m_pEdit->textCursor().position(), 2 + strLines.length() + 1);
    QCOMPARE(m_pEdit->textCursor().anchor(), 0);
}

void tst_bracketmatch::farBracketsInCommentsThatBeginElsewhere_doNotCount()
{
    const QString strLines = QString("/*\n\n}\n*/\n").repeated(500);
    showCode("{|\n" + strLines + "}\n");
    press(Qt::ControlModifier);
    QTRY_COMPARE(m_pEdit->textCursor().position(), 2 + strLines.length() + 1);
    press(Qt::ControlModifier); // And back.
    QTRY_COMPARE(m_pEdit->textCursor().position(), 1);
}

void tst_bracketmatch::brackets_areMarkedInTheView()
{
    showCode("ab|cd\n\n{\n}\n");
    const auto isMarked = [this](int nPosition) {
        QTextCursor cursor(m_pEdit->document());
        cursor.setPosition(nPosition);
        const QRect spot = m_pEdit->cursorRect(cursor);
        const QImage image = m_pEdit->viewport()->grab().toImage();
        bool bMarked = false;
        bool bFramed = false;
        for (int nX = 0; nX < 6; ++nX) {
            bMarked |= image.pixelColor(spot.left() + nX, spot.top() + 2) == QColor("#d5e5fb");
            bFramed |= image.pixelColor(spot.left() + nX, spot.top()) == QColor("#6b98d6");
        }
        return bMarked && bFramed;
    };
    QVERIFY(!isMarked(6) && !isMarked(8));
    m_pEdit->setCarets(CCarets(SCaret {6, 6}));
    QVERIFY(isMarked(6) && isMarked(8));
    m_pEdit->setCarets(CCarets(SCaret {5, 5}));
    QVERIFY(!isMarked(6) && !isMarked(8));
}

QTEST_MAIN(tst_bracketmatch)
#include "tst_bracketmatch.moc"
