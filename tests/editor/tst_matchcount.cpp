#include "editor/cbackgroundjob.h"
#include "editor/linesearch.h"
#include "editor/matchcount.h"
#include "highlight/clinestore.h"

#include "editorcase.h"
#include "literaltext.h"

#include <QSignalSpy>
#include <QtTest>

namespace {

void fill(CLineStore *pStore, const QStringList &lst)
{
    int n = 0;
    pStore->replace(0, pStore->count(), lst.size(), [&] { return lst.at(n++); });
}

// Each place is tried.
SMatchCount literalCount(const QStringList &lstLines, const QString &strFind, bool bWords,
                         int nLine, int nPlace)
{
    SMatchCount count;
    for (int n = 0; n < lstLines.size(); ++n) {
        const QString strLine = ' ' + lstLines.at(n) + ' ';
        for (int nAt = 1; nAt < strLine.length(); ++nAt) {
            const bool bWhole = !bWords
                || (!strLine.at(nAt - 1).isLetterOrNumber()
                    && !strLine.at(qMin(nAt + strFind.length(), strLine.length() - 1))
                            .isLetterOrNumber());
            if (strLine.mid(nAt, strFind.length()) != strFind || !bWhole)
                continue;
            ++count.nCount;
            if (n < nLine || (n == nLine && nAt - 1 <= nPlace))
                ++count.nIndex;
            nAt += strFind.length() - 1;
        }
    }
    return count;
}

} // namespace

class tst_matchcount : public QObject, protected CEditorCase
{
    Q_OBJECT

private slots:
    void cleanup();

    void anyText_isCountedLikeOneTriedPlaceByPlace();
    void matchThatFindPassesOver_isCounted();
    void countingUpwards_countsWhatSearchingUpFinds();
    void otherVersion_isNotCounted();
    void cancelledCount_isNotTold();
    void job_replacedByAnother_doesNotFinish();
    void find_tellsWhichMatchItIs();
    void find_afterAWrap_tellsItOnce();
    void key_cancelsTheCount();
};

void tst_matchcount::cleanup()
{
    removeEditor();
}

void tst_matchcount::anyText_isCountedLikeOneTriedPlaceByPlace()
{
    CDice dice(29);
    for (int n = 0; n < 2000; ++n) {
        const QStringList lstLines = dice.text("ab \n", dice.upTo(40)).split('\n');
        const QString strFind = dice.text("ab", 1 + dice.upTo(1));
        SSearchOptions options;
        options.bMatchCase = true;
        options.bWholeWord = dice.upTo(1);
        CLineStore store;
        fill(&store, lstLines);
        const int nLine = dice.upTo(lstLines.size() - 1);
        const int nPlace = dice.upTo(lstLines.at(nLine).length());
        const SMatchCount count = countMatches(store, store.version(), {strFind, options}, nLine,
                                               nPlace, [] { return false; });
        const SMatchCount expected =
            literalCount(lstLines, strFind, options.bWholeWord, nLine, nPlace);
        QCOMPARE(count.nCount, expected.nCount);
        QCOMPARE(count.nIndex, expected.nIndex);
    }
}

void tst_matchcount::matchThatFindPassesOver_isCounted()
{
    CLineStore store;
    fill(&store, {"axx", "abc ab"});
    SSearchOptions options;
    options.bRegExp = true;
    QCOMPARE(
        countMatches(store, store.version(), {"x*", options}, 1, 0, [] { return false; }).nCount,
        1);
    options.bRegExp = false;
    options.bWholeWord = true;
    QCOMPARE(
        countMatches(store, store.version(), {"ab", options}, 1, 4, [] { return false; }).nIndex,
        1);
}

void tst_matchcount::countingUpwards_countsWhatSearchingUpFinds()
{
    CLineStore store;
    fill(&store, {"xx xx"});
    SSearchOptions options;
    options.bRegExp = true;
    options.bSearchUp = true;
    const SMatchCount count =
        countMatches(store, store.version(), {"x+", options}, 0, 3, [] { return false; });
    QCOMPARE(count.nCount, 4); // From behind, each begins where it can.
    QCOMPARE(count.nIndex, 3);
}

void tst_matchcount::otherVersion_isNotCounted()
{
    CLineStore store;
    fill(&store, {"a"});
    const uint nVersion = store.version();
    store.touch();
    QCOMPARE(countMatches(store, nVersion, {"a", {}}, 0, 0, [] { return false; }).nCount, -1);
}

void tst_matchcount::cancelledCount_isNotTold()
{
    CLineStore store;
    fill(&store, {"aaa"});
    QCOMPARE(countMatches(store, store.version(), {"a", {}}, 0, 0, [] { return true; }).nCount, -1);
}

void tst_matchcount::job_replacedByAnother_doesNotFinish()
{
    QStringList lstDone;
    CBackgroundJob job;
    job.start([&](const CBackgroundJob::Cancelled &isCancelled) -> CBackgroundJob::Finish {
        while (!isCancelled()) { }
        return [&lstDone] { lstDone.append("first"); };
    });
    job.start([&](const CBackgroundJob::Cancelled &) -> CBackgroundJob::Finish {
        return [&lstDone] { lstDone.append("second"); };
    });
    QTRY_COMPARE(lstDone, QStringList {"second"});
}

void tst_matchcount::find_tellsWhichMatchItIs()
{
    makeEditor();
    m_pEdit->setPlainText("ab\nab ab\nAB");
    QSignalSpy counted(m_pEdit.get(), &CHighlightEdit::findCounted);
    const auto last = [&counted] { return counted.isEmpty() ? QVariantList() : counted.last(); };
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QTRY_COMPARE(last(), (QVariantList {1, 4}));
    m_pEdit->find("ab", false, nullptr);
    m_pEdit->find("ab", false, nullptr);
    QTRY_COMPARE(last(), (QVariantList {3, 4}));
    QVERIFY(m_pEdit->findPrevious("ab"));
    QTRY_COMPARE(last(), (QVariantList {2, 4}));
}

void tst_matchcount::find_afterAWrap_tellsItOnce()
{
    makeEditor();
    m_pEdit->setPlainText("ab\nc c");
    m_pEdit->moveCursor(QTextCursor::End);
    QSignalSpy counted(m_pEdit.get(), &CHighlightEdit::findCounted);
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QTRY_COMPARE(counted.count(), 1);
    QVERIFY(!m_pEdit->find("x", false, nullptr));
    QVERIFY(m_pEdit->find("c", false, nullptr)); // Its count comes behind all others.
    QTRY_COMPARE(counted.last(), (QVariantList {1, 2}));
    QCOMPARE(counted.count(), 2);
}

void tst_matchcount::key_cancelsTheCount()
{
    makeEditor();
    m_pEdit->setPlainText("ab ab");
    QSignalSpy counted(m_pEdit.get(), &CHighlightEdit::findCounted);
    QVERIFY(m_pEdit->find("ab", false, nullptr));
    QTest::keyClick(m_pEdit.get(), Qt::Key_Right); // Before the event loop has run.
    m_pEdit->find("b", false, nullptr);
    QTRY_COMPARE(counted.count(), 1);
    QCOMPARE(counted.first(), (QVariantList {2, 2}));
}

QTEST_MAIN(tst_matchcount)
#include "tst_matchcount.moc"
