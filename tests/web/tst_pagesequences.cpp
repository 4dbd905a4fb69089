#include "realpages.h"

#include "web/ceditwebview.h"
#include "web/cpagemerge.h"
#include "web/cpagereader.h"
#include "web/pagecodec.h"

// After any sequence of edits the saved page is the shown page.
class tst_pagesequences : public QObject
{
    Q_OBJECT

private slots:
    void anyChanges_readBackAsTheShownPage();
};

namespace {

#ifdef QUILLAN_ADDRESS_SANITIZER
const int g_nSequences = 200;
#else
const int g_nSequences = 2000;
#endif
const int g_nLargest = 30000; // The largest page, in bytes, that is tried many times.

} // namespace

void tst_pagesequences::anyChanges_readBackAsTheShownPage()
{
    const int nSequences = qEnvironmentVariableIntValue("QUILLAN_PAGE_SEQUENCES") > 0
        ? qEnvironmentVariableIntValue("QUILLAN_PAGE_SEQUENCES")
        : g_nSequences;
    QVector<SRealPage> lstPages = samplePages();
    for (const SRealPage &page : installedPages())
        if (page.content.size() < g_nLargest)
            lstPages.append(page);
    const QVector<Author::SAction> lstActions = Author::actions();
    CPageReader reader;
    const CWebCase c;
    CEditWebView view;
    int nNearest = 0;
    for (int nSeed = 0; nSeed < nSequences; ++nSeed) {
        QRandomGenerator random(nSeed);
        const SRealPage &page = lstPages.at(random.bounded(lstPages.size()));
        view.setHtml(decodePage(page.content));
        for (int n = random.bounded(1, 6); n > 0; --n) {
            const double dNode = random.generateDouble();
            lstActions.at(random.bounded(lstActions.size()))
                .act(&view, dNode, random.generateDouble());
            if (random.bounded(4) == 0) {
                view.htmlForSaving();
                view.markSaved();
            }
        }
        const QString strSaved = QString::fromUtf8(view.htmlForSaving());
        const QString strRead = comparablePage(reader.serialised(strSaved));
        if (strRead == comparablePage(view.toHtml()))
            continue;
        ++nNearest;
        if (strRead != comparablePage(reader.serialised(view.toHtml()))) {
            qInfo("seed %d, %s", nSeed, qPrintable(page.strName));
            QCOMPARE(strRead, comparablePage(reader.serialised(view.toHtml())));
        }
    }
    qInfo("%d sequences, %d pages that no text makes", nSequences, nNearest);
}

QTEST_MAIN(tst_pagesequences)
#include "tst_pagesequences.moc"
