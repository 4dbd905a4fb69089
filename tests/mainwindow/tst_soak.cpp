// A long session in short: random work on many documents, the disk compared with a model after
// every save, nothing on the console, and the memory back where it was when all tabs are closed.
// QUILLAN_SOAK_SECONDS: how long (25 by default); QUILLAN_SOAK_SEED: another session.

#include "cwindowfixture.h"
#include "document/cdocument.h"
#include "support/watched.h"
#include "tests/support/boxanswer.h"

#include "browser/cwidgetfilelist.h"
#include "web/ceditwebview.h"

#include <QDir>
#include <QDockWidget>
#include <QMessageBox>
#include <QPixmapCache>
#include <QRandomGenerator>
#include <QTextBlock>
#include <QWebSettings>

#include <cstring>
#include <malloc.h>

namespace {

int number(const char *szVariable, int nDefault)
{
    bool bGiven = false;
    const int nGiven = qEnvironmentVariableIntValue(szVariable, &bGiven);
    return bGiven ? nGiven : nDefault;
}

// One of the sizes that the system keeps of this process, in KB.
qint64 memory(const char *szLabel)
{
    QFile file("/proc/self/status");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray status = file.readAll();
    return status.mid(status.indexOf(szLabel) + int(strlen(szLabel)))
        .trimmed()
        .split(' ')
        .at(0)
        .toLongLong();
}

// What the process has resident, in KB, after everything free has gone back to the system. The
// caches of pixmaps and pages have limits of their own.
struct SResident
{
    SResident()
    {
        QPixmapCache::clear();
        QWebSettings::clearMemoryCaches();
        malloc_trim(0);
        nAll = memory("VmRSS:");
        nOwn = memory("RssAnon:");
    }

    qint64 nAll = 0;
    qint64 nOwn = 0; // Without the pages of files, which come and go with the system's cache.
};

// The address sanitizer keeps what was freed, so as to see it used: there the memory only grows.
#ifdef QUILLAN_ADDRESS_SANITIZER
const bool g_bFreedMemoryReturns = false;
#else
const bool g_bFreedMemoryReturns = true;
#endif

const char *const g_arrWords[] = {"int ", "\"text\" ", "/* open\n", "*/ ",  "// line\n", "0x1F + ",
                                  "<b>",  "\n",        "\t",        "é漢 ", "{\n",       "}\n"};

} // namespace

class tst_soak : public QObject
{
    Q_OBJECT

private slots:
    void longSession_losesNothingAndKeepsNothing()
    {
        CWindowFixture f;
        m_pFixture = &f;
        m_random.seed(quint32(number("QUILLAN_SOAK_SEED", 1)));
        makeFiles();
        const CConsole console;

        // Things that are made only once are made in the first third: fonts, glyphs, panels, the
        // web view's heap.
        const int nDuration = number("QUILLAN_SOAK_SECONDS", 25) * 1000;
        int nSteps = work(1000) + workFor(nDuration / 3);
        closeAll();
        const SResident before;
        nSteps += workFor(nDuration - nDuration / 3);
        if (QTest::currentTestFailed())
            return;
        closeAll();
        const SResident after;
        const QString strSummary =
            QString("%1 steps, %2 saves, %3 KB of %4 KB its own before, %5 KB after")
                .arg(nSteps)
                .arg(m_nSaves)
                .arg(before.nOwn)
                .arg(before.nAll)
                .arg(after.nOwn);
        fprintf(stderr, "%s\n", qPrintable(strSummary)); // Messages are what it looks for.
        QVERIFY(m_nSaves > 0 && before.nOwn > 0);
        QVERIFY2(!g_bFreedMemoryReturns || after.nOwn <= before.nOwn + before.nAll / 10,
                 qPrintable(strSummary));
        QVERIFY2(CConsole::lines().isEmpty(), qPrintable(CConsole::lines().join('\n')));
    }

private:
    MainWindow &window() { return m_pFixture->window(); }
    int below(int nEnd) { return int(m_random.bounded(nEnd)); }

    // Texts whose model is the bytes on the disk; pages, whose saved form is the page editor's own.
    void makeFiles()
    {
        for (const char *szName : {"a.cpp", "b.py", "c.txt", "d.json", "e.xml", "f.css", "g.md"})
            m_mapModel.insert(m_pFixture->file(szName, "one\ntwo\nthree\n"),
                              QByteArray("one\ntwo\nthree\n"));
        m_mapModel.insert(m_pFixture->file("dos.c", "one\r\ntwo\r\n"), "one\r\ntwo\r\n");
        m_lstPages =
            QStringList {m_pFixture->file("p.html", "<html><title>p</title><p>page</p></html>"),
                         m_pFixture->file("q.htm", "<html><body>q <i>x</i></body></html>")};
        QDir().mkpath(m_pFixture->path("folder/deeper"));
    }

    int work(int nSteps)
    {
        for (int n = 0; n < nSteps && !QTest::currentTestFailed(); ++n) {
            step();
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
        return nSteps;
    }

    int workFor(int nMs)
    {
        int nSteps = 0;
        QElapsedTimer elapsed;
        elapsed.start();
        while (elapsed.elapsed() < nMs && !QTest::currentTestFailed())
            nSteps += work(50);
        return nSteps;
    }

    void step()
    {
        const int nStep = below(100);
        if (nStep < 12)
            openOne();
        else if (nStep < 50)
            edit();
        else if (nStep < 62)
            save();
        else if (nStep < 68)
            closeOne();
        else if (nStep < 74)
            search();
        else
            wander(nStep);
    }

    void openOne()
    {
        const QStringList lstFiles = m_mapModel.keys() + m_lstPages;
        const CBoxAnswer answer({QMessageBox::No});
        window().parseArguments({lstFiles.at(below(lstFiles.size()))});
    }

    void edit()
    {
        CHighlightEdit *pEditor = m_pFixture->editor();
        if (!pEditor) {
            window().on_actionBold_triggered();
            return;
        }
        QTextCursor cursor = pEditor->textCursor();
        cursor.setPosition(below(pEditor->document()->characterCount()));
        if (below(3) == 0)
            cursor.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor, below(60));
        pEditor->setTextCursor(cursor);
        if (pEditor->document()->characterCount() > 20000)
            pEditor->clear();
        else if (below(8) == 0)
            below(2) ? window().on_actionUndo_triggered() : window().on_actionRedo_triggered();
        else
            pEditor->insertPlainText(
                QString::fromUtf8(g_arrWords[below(12)]).repeated(1 + below(9)));
    }

    void save()
    {
        const CDocument &document = window().currentDocument();
        if (document.path().isEmpty() || document.kind() == CDocument::Kind::Image)
            return;
        QByteArray expected;
        if (document.kind() == CDocument::Kind::Text) {
            // The blocks of the document and the line end of the file, as the user sees them.
            QStringList lstLines;
            for (QTextBlock block = document.editor()->document()->begin(); block.isValid();
                 block = block.next())
                lstLines.append(block.text());
            const bool bDos = document.path().endsWith("dos.c");
            expected = lstLines.join(bDos ? "\r\n" : "\n").toUtf8();
            document.editor()->setReturnFormat(bDos ? 0 : 1);
        }
        QVERIFY(window().on_actionSave_triggered());
        QVERIFY(!document.isModified());
        ++m_nSaves;
        if (document.kind() == CDocument::Kind::Text)
            m_mapModel.insert(document.path(), expected);
        for (auto it = m_mapModel.cbegin(); it != m_mapModel.cend(); ++it)
            QCOMPARE(CWindowFixture::content(it.key()), it.value());
    }

    void closeOne()
    {
        if (m_pFixture->tabs().count() == 0)
            return;
        const CBoxAnswer answer({QMessageBox::No});
        window().onTabCloseRequested(m_pFixture->tabs().currentIndex());
    }

    void closeAll()
    {
        const CBoxAnswer answer({QMessageBox::No});
        while (m_pFixture->tabs().count() > 0)
            window().onTabCloseRequested(0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    void search()
    {
        CHighlightEdit *pEditor = m_pFixture->editor();
        if (!pEditor)
            return;
        pEditor->find(QStringLiteral("int"), below(2), nullptr);
        if (below(3) == 0)
            pEditor->replaceAll(QStringLiteral("text"), QStringLiteral("words"));
    }

    void wander(int nStep)
    {
        CTabWidget &tabs = m_pFixture->tabs();
        if (nStep < 82 && tabs.count() > 0)
            tabs.setCurrentIndex(below(tabs.count()));
        else if (nStep < 86)
            m_pFixture->settings().setTextFontSize(8 + below(20));
        else if (nStep < 90)
            window().on_actionSwapHtml_triggered();
        else if (nStep < 93)
            window().openFileWithFolder(m_pFixture->path(below(2) ? "folder" : "folder/deeper"));
        else if (nStep < 95)
            window().on_actionNewText_triggered();
        else if (nStep < 97)
            window().findChild<QDockWidget *>("Preview")->setVisible(below(2));
        else
            window().resize(600 + below(600), 400 + below(400));
    }

    CWindowFixture *m_pFixture = nullptr;
    QRandomGenerator m_random;
    QMap<QString, QByteArray> m_mapModel;
    QStringList m_lstPages;
    int m_nSaves = 0;
};

QTEST_MAIN(tst_soak)
#include "tst_soak.moc"
