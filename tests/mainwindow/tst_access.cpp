// Accessibility: every control has a name, every command a key, and every text enough contrast.

#include "editor/cdlgfind.h"
#include "editor/cdlggo.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/mainwindow.h"
#include "support/contrast.h"
#include "tests/mainwindow/cwindowfixture.h"
#include "web/ceditwebview.h"

#include <QAccessible>
#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QDockWidget>
#include <QImage>
#include <QLabel>
#include <QListView>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QShortcut>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QWebView>

namespace {

// Every control below the root that the user can see and the keyboard can reach.
QList<QWidget *> controls(QWidget *pRoot)
{
    QList<QWidget *> lstControls;
    const QList<QWidget *> lstWidgets = pRoot->findChildren<QWidget *>();
    for (QWidget *pWidget : lstWidgets) {
        const bool bOwnWindow = pWidget->window() != pRoot->window();
        if (!bOwnWindow && pWidget->isVisible() && (pWidget->focusPolicy() & Qt::TabFocus))
            lstControls.append(pWidget);
    }
    return lstControls;
}

QString describe(const QObject *pObject)
{
    return QStringLiteral("%1 \"%2\"")
        .arg(QLatin1String(pObject->metaObject()->className()), pObject->objectName());
}

// The names of what the accessibility tree calls focusable and leaves without a name.
void collectNameless(QAccessibleInterface *pNode, QStringList *pNameless, int *pFound)
{
    if (!pNode || pNode->state().invisible)
        return;
    const QObject *pObject = pNode->object();
    const auto *pWidget = qobject_cast<const QWidget *>(pObject);
    if (pNode->state().focusable && pWidget && pWidget->focusPolicy() != Qt::NoFocus) {
        ++*pFound;
        if (pNode->text(QAccessible::Name).isEmpty())
            pNameless->append(describe(pObject));
    }
    for (int n = 0; n < pNode->childCount(); ++n)
        collectNameless(pNode->child(n), pNameless, pFound);
}

QStringList nameless(QWidget *pRoot, int nAtLeast)
{
    QStringList lstNameless;
    int nFound = 0;
    collectNameless(QAccessible::queryAccessibleInterface(pRoot), &lstNameless, &nFound);
    if (nFound < nAtLeast)
        lstNameless.append(QStringLiteral("only %1 controls found").arg(nFound));
    // The tree may leave out what a view hides; the widgets themselves are asked as well.
    const QList<QWidget *> lstControls = controls(pRoot);
    for (QWidget *pControl : lstControls) {
        QAccessibleInterface *pNode = QAccessible::queryAccessibleInterface(pControl);
        if (!pNode || pNode->text(QAccessible::Name).isEmpty())
            lstNameless.append(describe(pControl));
    }
    lstNameless.removeDuplicates();
    return lstNameless;
}

void collectMenuActions(const QList<QAction *> &lstActions, QSet<QAction *> *pReachable)
{
    for (QAction *pAction : lstActions) {
        pReachable->insert(pAction);
        if (pAction->menu())
            collectMenuActions(pAction->menu()->actions(), pReachable);
    }
}

// The controls that Tab visits, from the one with the focus until it returns there.
QStringList tabOrder(QWidget *pWindow, QWidget *pFirst)
{
    QStringList lstNames;
    pFirst->setFocus();
    QWidget *pNow = pWindow->focusWidget();
    for (int n = 0; n < 100 && pNow && !lstNames.contains(pNow->objectName()); ++n) {
        lstNames.append(pNow->objectName());
        QTest::keyClick(pNow, Qt::Key_Tab);
        pNow = pWindow->focusWidget();
    }
    return lstNames;
}

QPalette darkPalette()
{
    QPalette pal(QColor(53, 53, 53), QColor(45, 45, 45));
    pal.setColor(QPalette::Base, QColor(25, 25, 25));
    pal.setColor(QPalette::AlternateBase, QColor(53, 53, 53));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                            QPalette::BrightText, QPalette::ToolTipText})
        pal.setColor(role, Qt::white);
    return pal;
}

} // namespace

class tst_access : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_palLight = QApplication::palette(); }
    void cleanup() { QApplication::setPalette(m_palLight); }

    void everyControl_hasAName_data();
    void everyControl_hasAName();
    void findDialog_everyControl_hasAName();
    void goToLineDialog_everyControl_hasAName();
    void noticeBar_everyControl_hasAName();
    void everyLabelBeforeAControl_isItsBuddy();
    void findDialog_tabOrder_isTheOrderSeen();
    void everyCommand_hasAKeyOrAMenuEntry();
    void noKey_belongsToTwoCommands();
    void f6_stepsThroughTheParts();
    void f6_withoutDocument_leavesNobodyStuck();
    void colourMenus_openByKey();
    void noticeBar_buttonsAreReachedByKey();
    void texts_haveContrast_data();
    void texts_haveContrast();
    void pages_haveContrast_data() { texts_haveContrast_data(); }
    void pages_haveContrast();

private:
    QPalette m_palLight;
};

void tst_access::everyControl_hasAName_data()
{
    QTest::addColumn<QString>("strName");
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("text") << "a.txt" << QByteArray("text\n");
    QTest::newRow("page") << "a.html" << QByteArray("<p>page</p>");
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray png;
    QBuffer buffer(&png);
    image.save(&buffer, "PNG");
    QTest::newRow("image") << "a.png" << png;
}

void tst_access::everyControl_hasAName()
{
    QFETCH(QString, strName);
    QFETCH(QByteArray, data);
    CWindowFixture fixture;
    const QString strPath = fixture.file(strName, data);
    fixture.window().openFile(strPath);
    fixture.window().onFileSelectionChanged(strPath); // The preview shows a view, too.
    QTRY_COMPARE(fixture.tabs().count(), 1);
    const QStringList lstNameless = nameless(&fixture.window(), 6);
    QVERIFY2(lstNameless.isEmpty(), qPrintable(lstNameless.join(", ")));
}

void tst_access::findDialog_everyControl_hasAName()
{
    CWindowFixture fixture;
    CDlgFind dialog(&fixture.window());
    for (const bool bReplace : {false, true}) {
        bReplace ? dialog.showReplace() : dialog.showFind();
        const QStringList lstNameless = nameless(&dialog, 8);
        QVERIFY2(lstNameless.isEmpty(), qPrintable(lstNameless.join(", ")));
    }
}

void tst_access::goToLineDialog_everyControl_hasAName()
{
    CWindowFixture fixture;
    CDlgGo dialog(&fixture.window());
    dialog.show();
    const QStringList lstNameless = nameless(&dialog, 3);
    QVERIFY2(lstNameless.isEmpty(), qPrintable(lstNameless.join(", ")));
}

void tst_access::noticeBar_everyControl_hasAName()
{
    CWindowFixture fixture;
    auto *pBar = fixture.window().findChild<CNoticeBar *>();
    pBar->show({QStringLiteral("Something happened."), {{QStringLiteral("Answer"), [] {}}}});
    const QStringList lstNameless = nameless(pBar, 2);
    QVERIFY2(lstNameless.isEmpty(), qPrintable(lstNameless.join(", ")));
}

void tst_access::everyLabelBeforeAControl_isItsBuddy()
{
    CWindowFixture fixture;
    CDlgFind find(&fixture.window());
    CDlgGo go(&fixture.window());
    int nBuddies = 0;
    for (QWidget *pRoot : {static_cast<QWidget *>(&find), static_cast<QWidget *>(&go)}) {
        const QList<QLabel *> lstLabels = pRoot->findChildren<QLabel *>();
        for (const QLabel *pLabel : lstLabels) {
            if (pLabel->objectName() == QLatin1String("label_info"))
                continue; // Tells results; it stands before nothing.
            QVERIFY2(pLabel->buddy(), qPrintable(pLabel->text()));
            ++nBuddies;
        }
    }
    QCOMPARE(nBuddies, 4);
}

void tst_access::findDialog_tabOrder_isTheOrderSeen()
{
    CWindowFixture fixture;
    CDlgFind dialog(&fixture.window());
    dialog.showFind();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    const QStringList lstFind = {"comboBox_find",
                                 "checkBox_match_whole_word",
                                 "checkBox_match_case",
                                 "checkBox_use_regular_exp",
                                 "checkBox_search_up",
                                 "checkBox_wrap_search",
                                 "checkBox_auto_close_after",
                                 "slider_transparent",
                                 "btn_find_next",
                                 "btn_replace",
                                 "btn_replace_all",
                                 "qt_tabwidget_tabbar"};
    QCOMPARE(tabOrder(&dialog, dialog.findChild<QComboBox *>("comboBox_find")).join(' '),
             lstFind.join(' '));
    dialog.showReplace();
    const QStringList lstReplace = {"comboBox_replace_find",
                                    "comboBox_repalce",
                                    "checkBox_match_whole_word_2",
                                    "checkBox_match_case_2",
                                    "checkBox_use_regular_exp_2",
                                    "slider_transparent_2",
                                    "btn_find_next",
                                    "btn_replace",
                                    "btn_replace_all",
                                    "qt_tabwidget_tabbar"};
    QCOMPARE(tabOrder(&dialog, dialog.findChild<QComboBox *>("comboBox_replace_find")).join(' '),
             lstReplace.join(' '));
}

void tst_access::everyCommand_hasAKeyOrAMenuEntry()
{
    CWindowFixture fixture;
    QSet<QAction *> reachable;
    collectMenuActions(fixture.window().menuBar()->actions(), &reachable);
    QVERIFY(reachable.size() > 100); // The languages and codecs are among them.
    const QList<QAction *> lstActions = fixture.window().findChildren<QAction *>();
    int nActions = 0;
    for (QAction *pAction : lstActions) {
        if (!pAction->objectName().startsWith(QLatin1String("action")))
            continue;
        ++nActions;
        const auto *pBar = qobject_cast<QToolBar *>(pAction->parent());
        const auto *pButton = pBar ? pBar->widgetForAction(pAction) : nullptr;
        const bool bByTab = pButton && (pButton->focusPolicy() & Qt::TabFocus);
        QVERIFY2(reachable.contains(pAction) || !pAction->shortcut().isEmpty() || bByTab,
                 qPrintable(pAction->objectName()));
    }
    QVERIFY(nActions > 40);
}

void tst_access::noKey_belongsToTwoCommands()
{
    CWindowFixture fixture;
    QHash<QString, QString> owners;
    const auto claim = [&owners](const QKeySequence &key, const QString &strOwner) {
        const QString strKey = key.toString();
        QVERIFY2(!owners.contains(strKey), qPrintable(strKey + ": " + strOwner));
        owners.insert(strKey, strOwner);
    };
    const QList<QAction *> lstActions = fixture.window().findChildren<QAction *>();
    for (const QAction *pAction : lstActions) {
        const QList<QKeySequence> lstKeys = pAction->shortcuts();
        for (const QKeySequence &key : lstKeys)
            claim(key, pAction->objectName());
    }
    const auto lstShortcuts = fixture.window().findChildren<QShortcut *>();
    for (const QShortcut *pShortcut : lstShortcuts)
        if (pShortcut->context() == Qt::WindowShortcut)
            claim(pShortcut->key(), QStringLiteral("shortcut"));
    QVERIFY(owners.size() > 30);
}

void tst_access::f6_stepsThroughTheParts()
{
    CWindowFixture fixture;
    MainWindow &window = fixture.window();
    const QString strPath = fixture.file("a.html", "<p>page</p>");
    window.openFile(strPath);
    window.onFileSelectionChanged(strPath);
    QVERIFY(QTest::qWaitForWindowActive(&window));
    QWidget *pPage = window.currentDocument().widget();
    pPage->setFocus();
    QWidget *pBrowser = window.findChild<QDockWidget *>("Folder Browser");
    QWidget *pPreview = window.findChild<QDockWidget *>("Preview");
    QWidget *pTools = window.findChild<QToolBar *>("htmlToolBar");
    const QList<QWidget *> lstParts = {fixture.tabs().tabBar(), pBrowser, pPreview, pTools, pPage};
    const auto inPart = [&window](const QWidget *pPart) {
        const QWidget *pFocus = window.focusWidget();
        return pFocus && (pFocus == pPart || pPart->isAncestorOf(pFocus));
    };
    for (QWidget *pPart : lstParts) {
        QTest::keyClick(window.focusWidget(), Qt::Key_F6);
        QVERIFY2(inPart(pPart), qPrintable(describe(pPart)));
    }
    // The list and not the first of the small buttons above it, the first time.
    QTest::keyClick(window.focusWidget(), Qt::Key_F6);
    QTest::keyClick(window.focusWidget(), Qt::Key_F6);
    QVERIFY2(qobject_cast<QListView *>(window.focusWidget()), qPrintable(describe(pBrowser)));
    // And back.
    QTest::keyClick(window.focusWidget(), Qt::Key_F6, Qt::ShiftModifier);
    QTest::keyClick(window.focusWidget(), Qt::Key_F6, Qt::ShiftModifier);
    QVERIFY(inPart(pPage));
}

void tst_access::f6_withoutDocument_leavesNobodyStuck()
{
    CWindowFixture fixture;
    MainWindow &window = fixture.window();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    const QWidget *pPanel = window.findChild<QWidget *>("startPanel");
    const auto inPanel = [&window, pPanel] {
        return window.focusWidget() && pPanel->isAncestorOf(window.focusWidget());
    };
    QTest::keyClick(&window, Qt::Key_F6);
    QVERIFY(window.focusWidget());
    if (!inPanel())
        QTest::keyClick(window.focusWidget(), Qt::Key_F6);
    for (int n = 0; n < 2; ++n) {
        QVERIFY(inPanel());
        QTest::keyClick(window.focusWidget(), Qt::Key_F6);
        QVERIFY(qobject_cast<QListView *>(window.focusWidget()));
        QTest::keyClick(window.focusWidget(), Qt::Key_F6);
    }
}

void tst_access::colourMenus_openByKey()
{
    CWindowFixture fixture;
    MainWindow &window = fixture.window();
    window.openFile(fixture.file("a.html", "<p>page</p>"));
    QSignalSpy spyLoaded(window.currentDocument().page(), &CEditWebView::loadFinished);
    QVERIFY(spyLoaded.wait()); // Refreshes the window, the HTML tools among it.
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *pTools = window.findChild<QToolBar *>("htmlToolBar");
    auto *pSize = window.findChild<QComboBox *>("comboSize");
    // A narrow tool bar hides its end behind a button, where Tab does not go; the window manager
    // grants the width in its own time.
    window.resize(1250, 800);
    for (const char *szAction : {"actionText_Color", "actionBack_Color"})
        QTRY_VERIFY(pTools->widgetForAction(fixture.action(szAction))->isVisible());
    pSize->setFocus();
    QTRY_VERIFY(pSize->hasFocus());
    for (const char *szAction : {"actionText_Color", "actionBack_Color"}) {
        QAction *pAction = fixture.action(szAction);
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        QTRY_COMPARE(window.focusWidget(), pTools->widgetForAction(pAction));
        bool bOpened = false;
        QTimer::singleShot(0, [pAction, &bOpened] {
            QTRY_VERIFY(pAction->menu()->isVisible());
            // As nobody does before the menu is seen: the desktop would make it active afterwards.
            bOpened = QTest::qWaitForWindowExposed(pAction->menu());
            pAction->menu()->hide();
        });
        QTest::keyClick(window.focusWidget(), Qt::Key_Down, Qt::AltModifier);
        QTRY_VERIFY(bOpened);
        QTRY_VERIFY(window.isActiveWindow());
    }
}

void tst_access::noticeBar_buttonsAreReachedByKey()
{
    CWindowFixture fixture;
    MainWindow &window = fixture.window();
    window.on_actionNewText_triggered();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    auto *pBar = window.findChild<CNoticeBar *>();
    bool bChosen = false;
    pBar->show({QStringLiteral("Something happened."),
                {{QStringLiteral("Answer"), [&bChosen] { bChosen = true; }}}});
    for (int n = 0; n < 6 && !pBar->isAncestorOf(window.focusWidget()); ++n)
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_F6);
    QVERIFY(qobject_cast<QPushButton *>(window.focusWidget()));
    QTest::keyClick(window.focusWidget(), Qt::Key_Space);
    QVERIFY(bChosen);
    const QSignalSpy spyDismissed(pBar, &CNoticeBar::dismissed);
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    QTest::keyClick(window.focusWidget(), Qt::Key_Space);
    QCOMPARE(spyDismissed.count(), 1);
}

void tst_access::texts_haveContrast_data()
{
    QTest::addColumn<bool>("bDark");
    QTest::newRow("light desktop") << false;
    QTest::newRow("dark desktop") << true;
}

// Exempt, because their colours are given: the numbers of the gutter (#ccc and #888 on #F9F9F9) and
// the result line of the find dialog (red and #27a650).
void tst_access::texts_haveContrast()
{
    QFETCH(bool, bDark);
    if (bDark)
        QApplication::setPalette(darkPalette());
    CWindowFixture fixture;
    MainWindow &window = fixture.window();
    window.openFile(fixture.file("a.txt", "MMMMMM lllll IIIII\n"));
    fixture.action("actionLine_Wrap")->setChecked(false);
    auto *pBar = window.findChild<CNoticeBar *>();
    pBar->show({QStringLiteral("Something happened."), {{QStringLiteral("Answer"), [] {}}}});
    QList<QWidget *> lstTexts;
    for (const char *szLabel : {"labelCursor", "labelReturnFormat", "labelTextCodec"})
        lstTexts.append(window.findChild<QLabel *>(szLabel));
    lstTexts.append(window.findChild<QLabel *>("labelFavorites"));
    lstTexts.append(pBar->findChild<QLabel *>());
    lstTexts.append(pBar->findChild<QPushButton *>());
    lstTexts.append(window.menuBar());
    lstTexts.append(fixture.tabs().tabBar());
    lstTexts.append(fixture.editor()->viewport());
    for (QWidget *pText : qAsConst(lstTexts)) {
        QVERIFY(pText && pText->isVisible());
        const double dRatio = Contrast::ofText(pText);
        QVERIFY2(dRatio >= 4.5,
                 qPrintable(QStringLiteral("%1: %2").arg(describe(pText)).arg(dRatio)));
    }
}

// A page that names no colours, in the editor and in the preview.
void tst_access::pages_haveContrast()
{
    QFETCH(bool, bDark);
    if (bDark)
        QApplication::setPalette(darkPalette());
    CWindowFixture fixture;
    MainWindow &window = fixture.window();
    window.resize(1200, 800);
    const QString strPath = fixture.file("a.html", "<h1>MMMMMM</h1>");
    window.openFile(strPath);
    window.onFileSelectionChanged(strPath);
    QTRY_COMPARE(window.findChildren<QWebView *>().size(), 2);
    const QList<QWebView *> lstViews = window.findChildren<QWebView *>();
    for (QWebView *pView : lstViews)
        QTRY_VERIFY2(Contrast::ofText(pView) >= 4.5, qPrintable(describe(pView)));
}

QTEST_MAIN(tst_access)
#include "tst_access.moc"
