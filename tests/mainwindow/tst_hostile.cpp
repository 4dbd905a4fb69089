// Harmful files, names and settings: none may crash or stall the program, or make it read or
// request anything that the user did not ask for.

#include "cwindowfixture.h"
#include "document/cdocument.h"
#include "document/notice.h"
#include "hostilefiles.h"
#include "support/watched.h"
#include "tests/support/boxanswer.h"

#include "app/plaintext.h"
#include "browser/cwidgetfilelist.h"
#include "highlight/chighlightmgt.h"
#include "mainwindow/cnoticebar.h"

#include <QDir>
#include <QDockWidget>
#include <QImage>
#include <QListView>
#include <QRandomGenerator>
#include <QTcpServer>
#include <QTextDocument>

namespace {

// Milliseconds of processor time.
#ifdef QUILLAN_ADDRESS_SANITIZER
const int g_nLongestPause = 10000; // Everything takes several times as long.
#else
const int g_nLongestPause = 2000;
#endif

// What a tool tip shows.
QString shownToolTip(const QString &strToolTip)
{
    if (!Qt::mightBeRichText(strToolTip))
        return strToolTip;
    QTextDocument document;
    document.setHtml(strToolTip);
    return document.toPlainText();
}

// No label may take a name for markup.
void verifyLabelsArePlain(const QWidget *pWindow, const QString &strName)
{
    const auto lstLabels = pWindow->findChildren<QLabel *>();
    for (const QLabel *pLabel : lstLabels) {
        const bool bRich = pLabel->textFormat() == Qt::RichText
            || (pLabel->textFormat() == Qt::AutoText && Qt::mightBeRichText(pLabel->text()));
        QVERIFY2(!bRich || !pLabel->text().contains(strName), qPrintable(pLabel->objectName()));
    }
}

void settle()
{
    // Longer than the timers of preview and file watch.
    QElapsedTimer elapsed;
    elapsed.start();
    QTRY_VERIFY(elapsed.hasExpired(700));
}

} // namespace

class tst_hostile : public QObject
{
    Q_OBJECT

    static void addNames()
    {
        QTest::addColumn<QString>("strName");
        QTest::newRow("line end") << "one\ntwo.txt";
        QTest::newRow("quotes") << "it's \"quoted\" `here`.txt";
        QTest::newRow("placeholders") << "%1 %2 %n %L1 %%.txt";
        QTest::newRow("markup") << "<b>bold<img src=x>&lt;.txt";
        QTest::newRow("closing markup") << "<\u2215span>&amp;<p>.txt";
        QTest::newRow("mnemonic and mark") << "a&b [*] &&c.txt";
        QTest::newRow("right to left") << QString::fromUtf8("\u202Etxt.exe\u200F\u2066.txt");
        QTest::newRow("control characters") << "bell\a tab\t esc\x1b[31m.txt";
        QTest::newRow("as long as can be") << QString(QString(251, 'x') + ".txt");
        QTest::newRow("an option") << "--help.txt";
        QTest::newRow("shell") << "$(touch x);`touch y`|z.txt";
    }

private slots:
    void init() { m_pConsole.reset(new CConsole); }
    void cleanup()
    {
        const QStringList lstLines = CConsole::lines();
        m_pConsole.reset();
        QVERIFY2(lstLines.isEmpty(), qPrintable(lstLines.join(" | ")));
    }

    void fileName_showsAsItIs_data() { addNames(); }
    void fileName_showsAsItIs()
    {
        QFETCH(QString, strName);
        CWindowFixture f;
        const QString strPath = f.file(strName);
        f.window().parseArguments({strPath});
        QCOMPARE(f.tabs().count(), 1);
        QCOMPARE(f.tabs().tabText(0), withoutMnemonic(visibleName(strName)));
        QCOMPARE(shownToolTip(f.tabs().tabToolTip(0)), visibleName(strPath));
        QCOMPARE(f.window().windowTitle(),
                 plainWindowTitle(QString("Quillan(" + visibleName(strName) + ')')));
        QCOMPARE(f.action("actionRecent_File_1")->text(), withoutMnemonic(visibleName(strPath)));
        QCOMPARE(f.settings().getRecentFileList(), QStringList(strPath));

        f.editor()->insertPlainText("more ");
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(CWindowFixture::content(strPath), QByteArray("more text\n"));

        auto *pDock = f.window().findChild<QDockWidget *>("Preview");
        pDock->show();
        f.window().onFileSelectionChanged(strPath);
        const QString strTitle = "Preview(" + visibleName(strName) + ')';
        QTRY_COMPARE(pDock->windowTitle(), plainWindowTitle(strTitle));
        QCOMPARE(pDock->toggleViewAction()->text(), withoutMnemonic(strTitle));
        verifyLabelsArePlain(&f.window(), strName);
    }

    void fileName_inBarsAndBoxes_showsAsItIs_data() { addNames(); }
    void fileName_inBarsAndBoxes_showsAsItIs()
    {
        QFETCH(QString, strName);
        CWindowFixture f;
        const QString strPath = f.file(strName);
        f.window().parseArguments({strPath});
        f.file(strName, "changed by another\n");
        auto *pBar = f.window().findChild<CNoticeBar *>();
        QTRY_VERIFY(pBar->text().contains(visibleName(strPath)));
        verifyLabelsArePlain(&f.window(), strName);

        QVERIFY(QFile::remove(strPath));
        f.window().onTabCloseRequested(0);
        const CBoxAnswer answer;
        f.window().on_actionRecent_File_1_triggered();
        QCOMPARE(answer.boxes().size(), 1);
        QVERIFY(answer.boxes().constFirst().strText.contains(visibleName(strPath)));
        QCOMPARE(answer.boxes().constFirst().format, Qt::PlainText);
    }

    void names_inTheBrowser_showAsTheyAre()
    {
        CWindowFixture f;
        addNamesTo(&f);
        f.window().openFileWithFolder(f.path("."));
        const auto *pList = f.window().findChild<CWidgetFileList *>()->findChild<QListView *>();
        QTRY_VERIFY(pList->model()->rowCount(pList->rootIndex()) >= 3);
        verifyLabelsArePlain(&f.window(), "<b>bold");
    }

    void xml_madeToHarm_isAnsweredAndReadsNothing_data()
    {
        QTest::addColumn<QByteArray>("svg");
        QTest::addColumn<bool>("bEntity"); // Names the secret file, whose path comes with the case.
        QTest::newRow("external entity") << QByteArray() << true;
        QTest::newRow("billion laughs") << billionLaughs() << false;
        QTest::newRow("deep nesting") << deepXml(50000) << false;
        QTest::newRow("nesting without end") << QByteArray("<g>").repeated(50000) << false;
        QTest::newRow("deep declaration")
            << QByteArray("<!DOCTYPE g [<!ELEMENT g " + QByteArray(200000, '(')) << false;
    }

    void xml_madeToHarm_isAnsweredAndReadsNothing()
    {
        QFETCH(QByteArray, svg);
        QFETCH(bool, bEntity);
        CWindowFixture f;
        const QString strSecret = f.file("secret.txt", "the secret");
        const CAccessWatch secret(strSecret);
        QVERIFY(secret.isWatching());
        f.window().findChild<QDockWidget *>("Preview")->show();
        CHeartbeat heartbeat;

        const QByteArray data = bEntity ? svgReading(strSecret) : svg;
        const QString strPath = f.file("picture.svg", data);
        f.window().openFile(strPath);
        f.window().onFileSelectionChanged(strPath);
        settle();
        const CBoxAnswer answer;
        f.window().on_actionVerify_Valid_triggered();
        QCOMPARE(answer.boxes().size(), 1);
        f.window().on_actionFormatting_triggered();
        settle();
        QVERIFY(!f.editor()->toPlainText().contains("the secret"));
        QVERIFY(!secret.wasOpened());
        QVERIFY2(heartbeat.longest() < g_nLongestPause,
                 qPrintable(QString::number(heartbeat.longest())));
    }

    void definition_madeToHarm_isNoDefinition_data()
    {
        xml_madeToHarm_isAnsweredAndReadsNothing_data();
    }
    void definition_madeToHarm_isNoDefinition()
    {
        QFETCH(QByteArray, svg);
        QFETCH(bool, bEntity);
        const QTemporaryDir folder;
        QFile secret(folder.filePath("secret.txt"));
        QVERIFY(secret.open(QIODevice::WriteOnly));
        secret.close();
        const CAccessWatch watch(secret.fileName());
        QVERIFY(QDir(folder.path()).mkdir("languages"));
        QFile file(folder.filePath("languages/x.xml"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bEntity ? svgReading(secret.fileName()) : svg);
        file.close();
        CHeartbeat heartbeat;
        const CHighlightMgt registry(folder.filePath("languages"), nullptr);
        QVERIFY(!CHighlightMgt::parse(file.fileName()).contains("highlighting"));
        QVERIFY(!watch.wasOpened());
        QVERIFY(heartbeat.longest() < g_nLongestPause);
    }

    void page_madeToHarm_asksNobodyAndReadsNothing()
    {
        CWindowFixture f;
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        // In a folder beside the page's, which no page of a site may read.
        QTemporaryDir elsewhere;
        QFile file(elsewhere.filePath("secret.txt"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("the secret");
        file.close();
        const CAccessWatch secret(file.fileName());
        QVERIFY(secret.isWatching());
        f.window().findChild<QDockWidget *>("Preview")->show();
        CHeartbeat heartbeat;

        const QByteArray page = trapPage(file.fileName(), server.serverPort());
        const QString strPath = f.file("trap.html", page);
        f.window().openFile(strPath);
        // Its nesting is deep enough for the program to show its source at first.
        const SNotice notice = f.window().currentDocument().notice();
        QCOMPARE(notice.lstChoices.size(), 1);
        notice.lstChoices.constFirst().chosen();
        f.window().onFileSelectionChanged(strPath);
        settle();
        QTRY_COMPARE(f.tabs().tabText(0), QString("trap"));
        f.window().on_actionSwapHtml_triggered();
        settle();
        f.window().on_actionSwapHtml_triggered();
        settle();
        QTRY_COMPARE(f.tabs().tabText(0), QString("trap"));
        QVERIFY(!server.hasPendingConnections());
        QVERIFY(!secret.wasOpened());
        QCOMPARE(CWindowFixture::content(strPath), page);
        QVERIFY2(heartbeat.longest() < g_nLongestPause,
                 qPrintable(QString::number(heartbeat.longest())));
    }

    void hugeImage_isShownOrNot()
    {
        CWindowFixture f;
        QImage image(1, 1, QImage::Format_Mono);
        const QString strPath = f.path("huge.png");
        QVERIFY(image.save(strPath));
        // The header promises four billion pixels; no checksum is looked at before the size.
        QFile file(strPath);
        QVERIFY(file.open(QIODevice::ReadWrite) && file.seek(16));
        QCOMPARE(file.write("\0\0\xff\xff\0\0\xff\xff", 8), qint64(8));
        file.close();
        CHeartbeat heartbeat;
        f.window().openFile(strPath);
        f.window().openFile(f.file("huge.bmp", QByteArray("BM") + QByteArray(200, '\x7f')));
        f.window().openFile(f.file("text.gif", "GIF89a\xff\xff\xff\xff"));
        settle();
        QCOMPARE(f.tabs().count(), 3);
        QVERIFY(heartbeat.longest() < g_nLongestPause);
        CConsole::lines().clear(); // The picture libraries may say what they think of it.
    }

    void linksInCircles_areListedAndNotFollowed()
    {
        CWindowFixture f;
        const QString strFolder = f.path("circle");
        QVERIFY(QDir().mkpath(strFolder));
        QVERIFY(QFile::link(strFolder, strFolder + "/itself"));
        QVERIFY(QFile::link(f.path("."), strFolder + "/above"));
        QVERIFY(QFile::link(strFolder + "/b", strFolder + "/a"));
        QVERIFY(QFile::link(strFolder + "/a", strFolder + "/b"));
        QVERIFY(QFile::link("/no/such/file", strFolder + "/dangling"));
        CHeartbeat heartbeat;
        auto *pList = f.window().findChild<CWidgetFileList *>();
        const auto *pView = pList->findChild<QListView *>();
        QString strPath = strFolder;
        for (int n = 0; n < 20; ++n) {
            f.window().openFileWithFolder(strPath);
            QTRY_VERIFY(pView->model()->rowCount(pView->rootIndex()) >= 2);
            strPath += "/itself";
        }
        const CBoxAnswer answer;
        f.window().openFile(strFolder + "/a");
        QCOMPARE(answer.boxes().size(), 1);
        f.window().openFile(strFolder + "/itself");
        QCOMPARE(f.tabs().count(), 0);
        QVERIFY(heartbeat.longest() < g_nLongestPause);
    }

    void settingsOfNonsense_startAllTheSame_data()
    {
        QTest::addColumn<int>("nSeed");
        for (int nSeed = 1; nSeed <= 10; ++nSeed)
            QTest::addRow("seed %d", nSeed) << nSeed;
    }

    void settingsOfNonsense_startAllTheSame()
    {
        QFETCH(int, nSeed);
        const QByteArray frameState = CWindowFixture().window().saveState();
        QRandomGenerator random {quint32(nSeed)};
        CSettings settings("Tavrel Software", QString("nonsense %1").arg(nSeed));
        QByteArray state = frameState;
        for (int n = 0; n < nSeed * 3; ++n)
            state[int(random.bounded(state.size()))] = char(random.generate());
        settings.setValue("m_arrFrameState", nSeed % 3 ? state.left(state.size() - nSeed) : state);
        settings.setValue("m_strLastPathFileName", QString(5000, QChar('/')));
        settings.setValue("m_lstFavorFolders",
                          QStringList({"", "\n", "/dev/null", "<b>", "/proc"}));
        settings.setValue("m_lstRecentFiles",
                          QStringList(QVector<QString>(3000, "/none\n").toList()));
        settings.setValue("m_nTextFontSize", "9999999999");
        settings.setValue("m_clrTextColor", "rgb(");
        settings.setValue("m_bLineWrap", QByteArray("\xff\xfe"));
        settings.setValue("m_nFindTransparent", -5);
        settings.read();
        g_pSettings = &settings;
        {
            CHeartbeat heartbeat;
            MainWindow window;
            window.show();
            window.on_actionNewText_triggered();
            window.on_actionFind_triggered();
            settle();
            QCOMPARE(window.currentDocument().kind(), CDocument::Kind::Text);
            QVERIFY(heartbeat.longest() < g_nLongestPause);
        }
        g_pSettings = nullptr;
    }

private:
    static void addNamesTo(CWindowFixture *pFixture)
    {
        for (const char *szName : {"<b>bold<img src=x>.txt", "one\ntwo.txt", "%1 & [*].txt"})
            pFixture->file(QString::fromUtf8(szName));
    }

    std::unique_ptr<CConsole> m_pConsole;
};

QTEST_MAIN(tst_hostile)
#include "tst_hostile.moc"
