#include "realpages.h"

#include "web/ceditwebview.h"
#include "web/cpagemerge.h"
#include "web/cpagereader.h"
#include "web/pagecodec.h"

#include <QTest>
#include <algorithm>

// A page keeps its source: counts the lines that change in real pages when an author changes
// something.
class tst_realpages : public QObject
{
    Q_OBJECT

private slots:
    void unchangedPage_isWrittenAsItWasRead_data();
    void unchangedPage_isWrittenAsItWasRead();
    void oneChange_leavesTheOtherLines_data();
    void oneChange_leavesTheOtherLines();
};

namespace {

QVector<SRealPage> allPages()
{
    return installedPages() + samplePages();
}

// Pages that are too large for many changes in a test's time.
bool isSmall(const SRealPage &page)
{
    return page.content.size() < 300000;
}

} // namespace

void tst_realpages::unchangedPage_isWrittenAsItWasRead_data()
{
    QTest::addColumn<QByteArray>("content");
    for (const SRealPage &page : allPages())
        QTest::newRow(qPrintable(page.strName)) << page.content;
}

void tst_realpages::unchangedPage_isWrittenAsItWasRead()
{
    QFETCH(QByteArray, content);
    const CWebCase c;
    CEditWebView view;
    QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), content)));
    QCOMPARE(view.htmlForSaving(), declareUtf8(decodePage(content)).toUtf8());
}

void tst_realpages::oneChange_leavesTheOtherLines_data()
{
    QTest::addColumn<QByteArray>("action");
    for (const Author::SAction &action : Author::actions())
        QTest::newRow(action.szName) << QByteArray(action.szName);
}

void tst_realpages::oneChange_leavesTheOtherLines()
{
    QFETCH(QByteArray, action);
    const QVector<Author::SAction> lstActions = Author::actions();
    const auto it = std::find_if(lstActions.cbegin(), lstActions.cend(),
                                 [&](const Author::SAction &a) { return action == a.szName; });
    QRandomGenerator random(4711);
    CPageReader reader;
    // For each page: the number of lines that changed beside those that had to.
    QVector<int> lstOther;
    for (const SRealPage &page : allPages()) {
        const CWebCase c;
        const QString strPath = c.write(QStringLiteral("a.html"), page.content);
        const QString strBefore = asLines(decodePage(page.content));
        for (int n = 0; n < 2 && isSmall(page); ++n) {
            CEditWebView view;
            QVERIFY(loadAndWait(&view, strPath));
            const QString strShown = view.toHtml();
            const double dNode = random.generateDouble();
            if (!it->act(&view, dNode, random.generateDouble()) || view.toHtml() == strShown)
                continue;
            const QString strSaved = QString::fromUtf8(view.htmlForSaving());
            const QString strWanted = comparablePage(view.toHtml());
            const QString strRead = comparablePage(reader.serialised(strSaved));
            // What no text can make is as near to it as its own serialisation comes.
            if (strRead != strWanted)
                QCOMPARE(strRead, comparablePage(reader.serialised(view.toHtml())));
            const int nTouched = action == "letter" ? 1 : changedLines(strShown, view.toHtml());
            lstOther.append(qMax(0, changedLines(strBefore, asLines(strSaved)) - nTouched));
            if (lstOther.constLast() > 0)
                qInfo("%s: %d other lines", qPrintable(page.strName), lstOther.constLast());
        }
    }
    std::sort(lstOther.begin(), lstOther.end());
    const int nOne =
        int(std::upper_bound(lstOther.cbegin(), lstOther.cend(), 0) - lstOther.cbegin());
    qInfo("%s: %d of %d change no other line; median %d, worst %d", action.constData(), nOne,
          lstOther.size(), lstOther.at(lstOther.size() / 2), lstOther.constLast());
    QVERIFY(nOne * 10 >= lstOther.size() * 9);
    QVERIFY(lstOther.constLast() <= 10);
    if (installedPages().size() < 40)
        QSKIP("Fewer than 40 real pages are installed: run scripts/setup.sh pages.");
}

QTEST_MAIN(tst_realpages)
#include "tst_realpages.moc"
