#include "cwindowfixture.h"

#include "tests/support/boxanswer.h"

#include <QClipboard>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QToolBar>

namespace {

// A menu or toolbar as the list of its entries' texts; "-" for a separator.
QStringList entries(const QWidget *pWidget)
{
    QStringList lstTexts;
    const QList<QAction *> lstActions = pWidget->actions();
    for (const QAction *pAction : lstActions)
        lstTexts.append(pAction->isSeparator() ? QStringLiteral("-") : pAction->text());
    return lstTexts;
}

QMenu *menu(const MainWindow &window, const char *szName)
{
    return window.findChild<QMenu *>(QLatin1String(szName));
}

} // namespace

class tst_frame : public QObject
{
    Q_OBJECT

private slots:
    void withoutDocument_titleIsTheName()
    {
        CWindowFixture f;
        QCOMPARE(f.window().windowTitle(), QStringLiteral("Quillan"));
    }

    void everyAction_hasItsTextAndToolTip_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("toolTip");
        QTest::addColumn<QString>("shortcut");
        const struct
        {
            const char *szName;
            const char *szText;
            const char *szToolTip;
            const char *szShortcut;
        } rows[] = {
            {"actionOpen", "Open...", nullptr, "Ctrl+O"},
            {"actionAbout", "About", nullptr, ""},
            {"actionSave", "Save", nullptr, "Ctrl+S"},
            {"actionSave_As", "Save As...", nullptr, "Ctrl+Shift+S"},
            {"actionSave_All", "Save All", nullptr, ""},
            {"actionCut", "Cut", nullptr, "Ctrl+X"},
            {"actionCopy", "Copy", nullptr, "Ctrl+C"},
            {"actionPaste", "Paste", nullptr, "Ctrl+V"},
            {"actionBold", "Bold", nullptr, "Ctrl+B"},
            {"actionItalic", "Italic", nullptr, "Ctrl+I"},
            {"actionUnderline", "Underline", nullptr, "Ctrl+U"},
            {"actionLeft_to_Right", "Left to Right", nullptr, "Ctrl+Shift+L"},
            {"actionRight_to_Left", "Right to Left", nullptr, "Ctrl+Shift+R"},
            {"actionRefresh", "Refresh", nullptr, "F5"},
            {"actionUndo", "Undo", nullptr, "Ctrl+Z"},
            {"actionRedo", "Redo", nullptr, "Ctrl+Shift+Z"},
            {"actionBack", "Back", nullptr, "Alt+Left"},
            {"actionForward", "Forward", nullptr, "Alt+Right"},
            {"actionNewHtml", "New HTML", nullptr, "Ctrl+Shift+N"},
            {"actionExit", "Exit", nullptr, ""},
            {"actionFind", "Find...", "Find", "Ctrl+F"},
            {"actionNewText", "New Text", "New Text", "Ctrl+N"},
            {"actionUnknown", "Unknown Format", nullptr, ""},
            {"actionSelect_All", "Select All", nullptr, "Ctrl+A"},
            {"actionSwapHtml", "SwapHtml", "Switch html and source", "F12"},
            {"actionVerify_Valid", "Verify Valid", "Verify Valid of content", "F7"},
            {"actionFormatting", "Formatting", "Formatting", "F8"},
            {"actionLine_Wrap", "Line Wrap", "Line Wrap", ""},
            {"actionFind_Next", "Find Next", nullptr, "F3"},
            {"actionFind_Previous", "Find Previous", nullptr, "Shift+F3"},
            {"actionToggle_Comment", "Toggle Comment", "Toggle Comment", "Ctrl+/"},
            {"actionColor_Dialog", "Color Dialog", "Color Dialog", "F9"},
            {"actionGo_to_Line", "Go to Line...", nullptr, "Ctrl+G"},
            {"actionReplace", "Replace...", "Replace", "Ctrl+H"},
            {"actionWindows", "Windows", nullptr, ""},
            {"actionUnix", "Unix", nullptr, ""},
            {"actionOSX", "OSX", nullptr, ""},
        };
        for (const auto &row : rows) {
            QTest::newRow(row.szName)
                << QString::fromLatin1(row.szText)
                << QString::fromLatin1(row.szToolTip ? row.szToolTip : row.szText)
                << QString::fromLatin1(row.szShortcut);
        }
    }

    void everyAction_hasItsTextAndToolTip()
    {
        QFETCH(QString, text);
        QFETCH(QString, toolTip);
        QFETCH(QString, shortcut);
        CWindowFixture f;
        const QAction *pAction = f.action(QTest::currentDataTag());
        QVERIFY(pAction);
        QCOMPARE(pAction->text(), text);
        QCOMPARE(pAction->toolTip(), toolTip);
        QCOMPARE(pAction->shortcut(), QKeySequence(shortcut));
    }

    void noKey_belongsToTwoActions()
    {
        CWindowFixture f;
        QHash<QString, QString> owners;
        const QList<QAction *> lstActions = f.window().findChildren<QAction *>();
        for (const QAction *pAction : lstActions) {
            // The context menu of an editor only shows the window's key.
            if (pAction->objectName().isEmpty())
                continue;
            const QList<QKeySequence> lstKeys = pAction->shortcuts();
            for (const QKeySequence &key : lstKeys) {
                QVERIFY2(!owners.contains(key.toString()), qPrintable(key.toString()));
                owners.insert(key.toString(), pAction->objectName());
            }
        }
        QVERIFY(owners.size() > 20);
    }

    void menus_standInOrder()
    {
        CWindowFixture f;
        QCOMPARE(entries(f.window().menuBar()),
                 QStringList({"File", "Edit", "Format", "View", "Help"}));
        QCOMPARE(entries(menu(f.window(), "menuFile")).mid(0, 9),
                 QStringList({"New Text", "New HTML", "Open...", "Save", "Save As...", "Save All",
                              "-", "Exit", "-"}));
        QCOMPARE(menu(f.window(), "menuFile")->actions().size(), 15);
        QCOMPARE(entries(menu(f.window(), "menuEdit")),
                 QStringList({"Undo", "Redo", "Cut", "Copy", "Paste", "-", "Select All", "-",
                              "Find...", "Find Next", "Find Previous", "Replace...", "-",
                              "Go to Line...", "Toggle Comment", "-", "Refresh"}));
        QCOMPARE(entries(menu(f.window(), "menuFormat")),
                 QStringList({"Bold", "Italic", "Underline", "-", "Language", "-", "Text Codec",
                              "Return Format"}));
        QCOMPARE(entries(menu(f.window(), "menuReturn_Format")),
                 QStringList({"Windows", "Unix", "OSX"}));
        QCOMPARE(entries(menu(f.window(), "menuView")),
                 QStringList({"Line Wrap", "-", "Preview", "Folder Browser"}));
        QCOMPARE(entries(menu(f.window(), "menuHelp")), QStringList({"About"}));
    }

    void toolBars_standInOrder()
    {
        CWindowFixture f;
        const auto *pMain = f.window().findChild<QToolBar *>("mainToolBar");
        QCOMPARE(pMain->windowTitle(), QStringLiteral("Main ToolBar"));
        QCOMPARE(entries(pMain), QStringList({"New Text",     "New HTML",   "Open...",
                                              "Save",         "-",          "Cut",
                                              "Copy",         "Paste",      "-",
                                              "Undo",         "Redo",       "-",
                                              "Verify Valid", "Formatting", "-",
                                              "Color Dialog", "Refresh",    "-",
                                              "SwapHtml",     "Preview",    "Folder Browser"}));
        const auto *pHtml = f.window().findChild<QToolBar *>("htmlToolBar");
        QCOMPARE(pHtml->windowTitle(), QStringLiteral("HTML ToolBar"));
        QCOMPARE(entries(pHtml).mid(0, 5), QStringList({"-", "Bold", "Italic", "Underline", "-"}));
        QVERIFY(f.window().findChild<QWidget *>("comboSize"));
    }

    void languageMenu_endsWithTheUnknownFormat()
    {
        CWindowFixture f;
        const QStringList lst = entries(menu(f.window(), "menuLanguage"));
        QCOMPARE(lst.mid(lst.size() - 2), QStringList({"-", "Unknown Format"}));
    }

    void docks_areNamedAfterTheirTitles()
    {
        CWindowFixture f;
        const auto lstDocks = f.window().findChildren<QDockWidget *>();
        QCOMPARE(lstDocks.size(), 3); // The third is hidden at first: Find in Files.
        const auto *pPreview = f.window().findChild<QDockWidget *>("Preview");
        const auto *pBrowser = f.window().findChild<QDockWidget *>("Folder Browser");
        auto &window = f.window();
        QCOMPARE(window.dockWidgetArea(const_cast<QDockWidget *>(pPreview)),
                 Qt::RightDockWidgetArea);
        QCOMPARE(window.dockWidgetArea(const_cast<QDockWidget *>(pBrowser)),
                 Qt::LeftDockWidgetArea);
    }

    void statusLabels_haveToolTipsAndFollowTheFontSize()
    {
        CWindowFixture f;
        QStringList lstTips;
        for (const char *szName :
             {"labelCursor", "labelLanguage", "labelReturnFormat", "labelTextCodec"}) {
            const auto *pLabel = f.window().findChild<QLabel *>(szName);
            QCOMPARE(pLabel->margin(), 2);
            QCOMPARE(pLabel->minimumWidth(), 50);
            QCOMPARE(pLabel->frameShadow(), QFrame::Sunken);
            QCOMPARE(pLabel->styleSheet(), QStringLiteral("QLabel{color:#444;font-size:10px}"));
            lstTips.append(pLabel->toolTip());
        }
        QCOMPARE(lstTips,
                 QStringList(
                     {"Col, Row and Selected", "Program Language", "Return Format", "Text Codec"}));
        f.settings().setTextFontSize(20);
        QCOMPARE(f.window().findChild<QLabel *>("labelCursor")->styleSheet(),
                 QStringLiteral("QLabel{color:#444;font-size:16px}"));
    }

    void copyingText_enablesPaste()
    {
        CWindowFixture f;
        QGuiApplication::clipboard()->clear();
        QTRY_VERIFY(!f.action("actionPaste")->isEnabled());
        QGuiApplication::clipboard()->setText("x");
        QTRY_VERIFY(f.action("actionPaste")->isEnabled());
        auto *pData = new QMimeData;
        pData->setData("image/x-raw", "x");
        QGuiApplication::clipboard()->setMimeData(pData);
        QTRY_VERIFY(!f.action("actionPaste")->isEnabled());
    }

    void frameState_survivesAWindow()
    {
        CWindowFixture f;
        f.window().findChild<QDockWidget *>("Preview")->hide();
        QByteArray arrState;
        {
            MainWindow other;
            other.findChild<QDockWidget *>("Folder Browser")->hide();
        }
        arrState = f.settings().getFrameState();
        QVERIFY(!arrState.isEmpty());
        MainWindow third;
        QVERIFY(third.findChild<QDockWidget *>("Folder Browser")->isHidden());
    }

    void about_namesProgramAndVersion()
    {
        CWindowFixture f;
        CBoxAnswer answer;
        f.action("actionAbout")->trigger();
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(answer.boxes().at(0).strTitle, QStringLiteral("About Quillan"));
        QVERIFY(answer.boxes().at(0).strText.startsWith("<h2>Quillan 1.2</h2>"));
    }
};

QTEST_MAIN(tst_frame)
#include "tst_frame.moc"
