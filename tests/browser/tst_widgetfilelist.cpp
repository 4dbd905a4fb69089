#include "app/csettings.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cmenulistview.h"
#include "browser/cwidgetfilelist.h"
#include "browser/testtree.h"
#include "support/awaittimers.h"
#include "support/boxanswer.h"
#include "support/curlcatcher.h"

#include <QAction>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QtTest>

// A panel on the screen, with helpers for the tests.
class CPanel : public CWidgetFileList
{
public:
    CPanel()
    {
        resize(320, 400);
        show();
        activateWindow();
    }

    QComboBox *box() const { return findChild<QComboBox *>(); }
    CMenuListView *list() const { return findChild<CMenuListView *>(); }
    QAbstractItemModel *model() const { return list()->model(); }

    QPushButton *button(const char *szToolTip) const
    {
        const QList<QPushButton *> lstButtons = findChildren<QPushButton *>();
        for (QPushButton *pButton : lstButtons)
            if (pButton->toolTip() == QLatin1String(szToolTip))
                return pButton;
        return nullptr;
    }

    QStringList history() const
    {
        QStringList lst;
        for (int n = 0; n < box()->count(); ++n)
            lst.append(box()->itemText(n));
        return lst;
    }

    QStringList names() const
    {
        QStringList lst;
        for (int n = 0; n < model()->rowCount(); ++n)
            lst.append(model()->index(n, 0).data().toString());
        return lst;
    }

    void select(int nRow, QItemSelectionModel::SelectionFlags flags = QItemSelectionModel::Select)
    {
        list()->selectionModel()->select(model()->index(nRow, 0), flags);
    }

    void type(const QString &strText)
    {
        box()->lineEdit()->selectAll();
        QTest::keyClicks(box()->lineEdit(), strText);
        QTest::keyClick(box()->lineEdit(), Qt::Key_Return);
    }

    bool doubleClick(int nRow)
    {
        const QPoint pos = list()->visualRect(model()->index(nRow, 0)).center();
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, pos);
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, pos);
        return pos.y() > 0;
    }
};

class tst_widgetfilelist : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void newPanel_isAsDescribed();
    void chosenFolder_isListedAndEntersTheHistory();
    void knownFolder_isNeitherAddedNorMoved();
    void doubleClickedFolder_staysOutOfTheHistory();
    void doubleClickedFile_isAskedFor();
    void typedFolder_isListedOnce();
    void typedBeginningOfAnother_isNotCompleted();
    void chosenEntryOfTheBox_isShown();
    void currentEntryOfTheBox_isShownAgain();
    void leavingTheBox_listsNothing();
    void refresh_showsWhatIsThereNow();
    void upper_goesUpWithoutHistory();
    void upperAtARoot_listsItAgain();
    void upperOfAGoneParent_doesNothing();
    void browsedFolder_isStoredAndShown();
    void cancelledBrowse_changesNothing();
    void browseWithoutRoot_startsInTheLastFolder();
    void quickSelections_giveOneSignal();
    void doubleClick_stopsTheSelectionSignal();
    void openSelection_opensFilesAndFirstFolder();
    void contextMenu_actsOnTheSelection();
    void keys_workInTheList();
    void keys_workInTheList_data();
    void backspaceInTheBox_edits();
    void fastSecondFolder_isShown();
    void fastSameFolder_isShownOnce();
    void namesWithSigns_areEnteredAndRefreshed();
    void destructionDuringAListing_isClean();

private:
    std::unique_ptr<CSettings> m_pSettings;
};

void tst_widgetfilelist::init()
{
    m_pSettings = std::make_unique<CSettings>(QStringLiteral("Test"), QStringLiteral("browser"));
    g_pSettings = m_pSettings.get();
}

void tst_widgetfilelist::cleanup()
{
    g_pSettings = nullptr;
    m_pSettings.reset();
    QSettings(QStringLiteral("Test"), QStringLiteral("browser")).clear();
}

void tst_widgetfilelist::newPanel_isAsDescribed()
{
    const CPanel panel;
    for (const char *szToolTip : {"Refresh", "Upper", "Browse..."}) {
        const QPushButton *pButton = panel.button(szToolTip);
        QVERIFY(pButton);
        QVERIFY(pButton->isFlat());
        QVERIFY(pButton->text().isEmpty());
        QVERIFY(!pButton->icon().isNull());
        QVERIFY(!pButton->styleSheet().isEmpty());
        QCOMPARE(pButton->accessibleName(), QLatin1String(szToolTip));
    }
    QVERIFY(panel.box()->isEditable());
    QCOMPARE(panel.box()->insertPolicy(), QComboBox::NoInsert);
    QCOMPARE(panel.box()->count(), 0);
    QCOMPARE(panel.list()->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(panel.list()->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(panel.model()->parent(), panel.list());
    QCOMPARE(panel.rootPath(), QString());
    QCOMPARE(panel.model()->rowCount(), 0);
}

void tst_widgetfilelist::chosenFolder_isListedAndEntersTheHistory()
{
    const CTestTree first;
    first.addFile(QStringLiteral("a"));
    const CTestTree second;
    second.addFile(QStringLiteral("b"));
    CPanel panel;
    QSignalSpy spy(&panel, &CWidgetFileList::rootPathChanged);
    panel.setRootPath(first.path());
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("a")));
    panel.setRootPath(second.path());
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("b")));
    QCOMPARE(panel.history(), QStringList({second.path(), first.path()}));
    QCOMPARE(panel.box()->currentText(), second.path());
    QCOMPARE(panel.rootPath(), second.path());
    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy.last().first().toString(), second.path());
}

void tst_widgetfilelist::knownFolder_isNeitherAddedNorMoved()
{
    const CTestTree first;
    const CTestTree second;
    CPanel panel;
    panel.setRootPath(first.path());
    panel.setRootPath(second.path());
    panel.setRootPath(first.path());
    QCOMPARE(panel.history(), QStringList({second.path(), first.path()}));
    QCOMPARE(panel.box()->currentText(), first.path());
    QCOMPARE(panel.rootPath(), first.path());
}

void tst_widgetfilelist::doubleClickedFolder_staysOutOfTheHistory()
{
    const CTestTree tree;
    const QString strSub = tree.addFolder(QStringLiteral("sub"));
    tree.addFile(QStringLiteral("sub/inner"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QSignalSpy spy(&panel, &CWidgetFileList::rootPathChanged);
    QTRY_VERIFY(panel.list()->visualRect(panel.model()->index(0, 0)).height() > 0);
    panel.doubleClick(0);
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("inner")));
    QCOMPARE(panel.rootPath(), strSub);
    QCOMPARE(panel.box()->currentText(), strSub);
    QCOMPARE(panel.history(), QStringList(tree.path()));
    QCOMPARE(spy.size(), 0);
}

void tst_widgetfilelist::doubleClickedFile_isAskedFor()
{
    const CTestTree tree;
    const QString strFile = tree.addFile(QStringLiteral("a.txt"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QSignalSpy spy(&panel, &CWidgetFileList::dbClickFile);
    QTRY_VERIFY(panel.list()->visualRect(panel.model()->index(0, 0)).height() > 0);
    panel.doubleClick(0);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().toString(), strFile);
    QCOMPARE(panel.rootPath(), tree.path());
}

void tst_widgetfilelist::typedFolder_isListedOnce()
{
    const CTestTree known;
    const CTestTree typed;
    typed.addFile(QStringLiteral("a"));
    CPanel panel;
    panel.setRootPath(known.path());
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    for (int n = 0; n < 2; ++n) { // The second time it is in the history.
        QSignalSpy spy(&panel, &CWidgetFileList::rootPathChanged);
        panel.type(typed.path());
        QCOMPARE(spy.size(), 1);
        QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("a")));
        QCOMPARE(panel.history(), QStringList({typed.path(), known.path()}));
        QCOMPARE(panel.box()->currentText(), typed.path());
        panel.setRootPath(known.path());
    }
}

void tst_widgetfilelist::typedBeginningOfAnother_isNotCompleted()
{
    const CTestTree tree;
    const QString strLong = tree.addFolder(QStringLiteral("folder-long"));
    const QString strShort = tree.addFolder(QStringLiteral("folder"));
    const QString strUpper = tree.addFolder(QStringLiteral("Folder-long"));
    CPanel panel;
    panel.setRootPath(strLong);
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.type(strShort);
    QCOMPARE(panel.rootPath(), strShort);
    panel.type(strUpper);
    const bool bSame = Platform::isSamePath(strUpper, strLong); // The system's disks ignore case.
    QCOMPARE(panel.rootPath(), bSame ? strLong : strUpper);
    QCOMPARE(panel.history(),
             bSame ? QStringList({strShort, strLong}) : QStringList({strUpper, strShort, strLong}));
}

void tst_widgetfilelist::chosenEntryOfTheBox_isShown()
{
    const CTestTree first;
    first.addFile(QStringLiteral("a"));
    const CTestTree second;
    CPanel panel;
    panel.setRootPath(first.path());
    panel.setRootPath(second.path());
    QSignalSpy spy(&panel, &CWidgetFileList::rootPathChanged);
    // The box counts the first folder as its current entry, which moved down to row 1.
    panel.box()->setCurrentIndex(0);
    panel.setRootPath(second.path());
    spy.clear();
    panel.box()->setCurrentIndex(1);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(panel.rootPath(), first.path());
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("a")));
}

void tst_widgetfilelist::currentEntryOfTheBox_isShownAgain()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QTRY_VERIFY(panel.list()->visualRect(panel.model()->index(0, 0)).height() > 0);
    panel.doubleClick(0);
    QTRY_COMPARE(panel.names().size(), 0);
    QCOMPARE(panel.box()->currentIndex(), 0);
    QSignalSpy spy(&panel, &CWidgetFileList::rootPathChanged);
    panel.box()->showPopup();
    QTRY_VERIFY(panel.box()->view()->isVisible());
    QTest::keyClick(panel.box()->view(), Qt::Key_Return);
    QTRY_COMPARE(panel.rootPath(), tree.path());
    QCOMPARE(panel.box()->currentText(), tree.path());
    QCOMPARE(spy.size(), 1);
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("sub")));
}

void tst_widgetfilelist::leavingTheBox_listsNothing()
{
    const CTestTree tree;
    const QString strSub = tree.addFolder(QStringLiteral("sub"));
    CPanel panel;
    panel.setRootPath(strSub);
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.list()->setFocus();
    QTRY_VERIFY(panel.list()->hasFocus());
    panel.select(0);
    panel.openSelection();
    QCOMPARE(panel.rootPath(), strSub);
    QSignalSpy spyChanged(&panel, &CWidgetFileList::rootPathChanged);
    panel.box()->setFocus();
    QTRY_VERIFY(panel.box()->lineEdit()->hasFocus());
    panel.list()->setFocus();
    QTRY_VERIFY(panel.listHasFocus());
    QCOMPARE(spyChanged.size(), 0);
    QCOMPARE(panel.rootPath(), strSub);
}

void tst_widgetfilelist::refresh_showsWhatIsThereNow()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    tree.addFile(QStringLiteral("b"));
    panel.button("Refresh")->click();
    QTRY_COMPARE(panel.names(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    // The text in the box counts, whether it was typed or not.
    const CTestTree other;
    panel.box()->setEditText(other.path());
    panel.button("Refresh")->click();
    QCOMPARE(panel.rootPath(), other.path());
}

void tst_widgetfilelist::upper_goesUpWithoutHistory()
{
    const CTestTree tree;
    const QString strSub = tree.addFolder(QStringLiteral("sub"));
    CPanel panel;
    panel.setRootPath(strSub);
    QSignalSpy spy(&panel, &CWidgetFileList::rootPathChanged);
    panel.button("Upper")->click();
    QCOMPARE(panel.rootPath(), tree.path());
    QCOMPARE(panel.box()->currentText(), tree.path());
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("sub")));
    QCOMPARE(panel.history(), QStringList(strSub));
    QCOMPARE(spy.size(), 0);
}

void tst_widgetfilelist::upperAtARoot_listsItAgain()
{
    CPanel panel;
    panel.setRootPath(QDir::rootPath());
    QTRY_VERIFY(panel.model()->rowCount() > 0);
    const QStringList lstNames = panel.names();
    QSignalSpy spy(panel.model(), &QAbstractItemModel::rowsRemoved);
    panel.button("Upper")->click();
    QCOMPARE(spy.size(), 1);
    QTRY_COMPARE(panel.names(), lstNames);
    QCOMPARE(panel.rootPath(), QDir::toNativeSeparators(QDir::rootPath()));
}

void tst_widgetfilelist::upperOfAGoneParent_doesNothing()
{
    CPanel panel;
    panel.setRootPath(fromRoot("/gone/folder"));
    panel.onUpper();
    QCOMPARE(panel.rootPath(), fromRoot("/gone/folder"));
}

void tst_widgetfilelist::browsedFolder_isStoredAndShown()
{
    const CTestTree tree;
    const CTestTree start;
    CPanel panel;
    panel.setRootPath(start.path());
    CFileDialogAnswer answer({tree.path()});
    panel.button("Browse...")->click();
    QCOMPARE(answer.caption(), QStringLiteral("Select a folder"));
    QCOMPARE(native(answer.directory()), start.path());
    QCOMPARE(panel.rootPath(), tree.path());
    QCOMPARE(panel.history(), QStringList({tree.path(), start.path()}));
    QCOMPARE(m_pSettings->m_strLastPathFileName, tree.path());
    QCOMPARE(QSettings(QStringLiteral("Test"), QStringLiteral("browser"))
                 .value(QStringLiteral("m_strLastPathFileName"))
                 .toString(),
             tree.path());
}

void tst_widgetfilelist::cancelledBrowse_changesNothing()
{
    const CTestTree tree;
    CPanel panel;
    panel.setRootPath(tree.path());
    QSignalSpy spy(&panel, &CWidgetFileList::rootPathChanged);
    const CFileDialogAnswer answer({});
    panel.button("Browse...")->click();
    QCOMPARE(answer.caption(), QStringLiteral("Select a folder"));
    QCOMPARE(spy.size(), 0);
    QCOMPARE(m_pSettings->m_strLastPathFileName, QString());
}

void tst_widgetfilelist::browseWithoutRoot_startsInTheLastFolder()
{
    const CTestTree tree;
    m_pSettings->setLastPathFileName(tree.path());
    CPanel panel;
    const CFileDialogAnswer answer({});
    panel.button("Browse...")->click();
    QCOMPARE(native(answer.directory()), tree.path());
}

void tst_widgetfilelist::quickSelections_giveOneSignal()
{
    const CTestTree tree;
    tree.addFiles(6);
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 6);
    QSignalSpy spy(&panel, &CWidgetFileList::fileSelectionChanged);
    QElapsedTimer timer;
    int nLongestPause = 1000;
    while (nLongestPause > 150) { // A busy machine may make a slow burst of it.
        nLongestPause = 0;
        spy.clear();
        for (int n = 0; n < 5; ++n) {
            timer.start();
            panel.select(n, QItemSelectionModel::ClearAndSelect);
            if (n < 4) {
                QTest::qWait(50); // Like somebody who holds an arrow key.
                nLongestPause = qMax(nLongestPause, int(timer.elapsed()));
            }
        }
    }
    QCOMPARE(spy.size(), 0);
    QVERIFY(spy.wait());
    QVERIFY(timer.elapsed() >= 190);
    QCOMPARE(spy.first().first().toString(), tree.path(QStringLiteral("file00004.txt")));
    QVERIFY(awaitTimers(200)); // As long as a selection waits.
    QCOMPARE(spy.size(), 1);
}

void tst_widgetfilelist::doubleClick_stopsTheSelectionSignal()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QSignalSpy spy(&panel, &CWidgetFileList::fileSelectionChanged);
    panel.select(0);
    panel.onDbClickListItem(panel.model()->index(0, 0));
    panel.onDbClickListItem(QModelIndex());
    QVERIFY(awaitTimers(200));
    QCOMPARE(spy.size(), 0);
}

void tst_widgetfilelist::openSelection_opensFilesAndFirstFolder()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("a"));
    const QString strB = tree.addFolder(QStringLiteral("b"));
    tree.addFile(QStringLiteral("c"));
    tree.addFile(QStringLiteral("d"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 4);
    QSignalSpy spy(&panel, &CWidgetFileList::dbClickFile);
    QSignalSpy spyChanged(&panel, &CWidgetFileList::rootPathChanged);
    for (const int nRow : {3, 1, 2, 0})
        panel.select(nRow);
    panel.openSelection();
    QStringList lstOpened;
    for (const QList<QVariant> &lstArguments : spy)
        lstOpened.append(lstArguments.first().toString());
    QCOMPARE(lstOpened,
             QStringList({tree.path(QStringLiteral("d")), tree.path(QStringLiteral("c"))}));
    QCOMPARE(panel.rootPath(), strB);
    QCOMPARE(panel.box()->currentText(), strB);
    QCOMPARE(spyChanged.size(), 0);
    panel.openSelection(); // Nothing is selected any more.
    QCOMPARE(panel.rootPath(), strB);
}

void tst_widgetfilelist::contextMenu_actsOnTheSelection()
{
    const CTestTree tree;
    const QString strFile = tree.addFile(QStringLiteral("a b%20#.txt"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    const QString strOpen = QStringLiteral("Open file/folder by default application");
    const QString strReveal = QStringLiteral("Open position of file/folder");
    CUrlCatcher catcher;
    panel.onClickAction(strOpen);
    panel.onClickAction(strReveal);
    QVERIFY(catcher.m_lstUrls.isEmpty());
    panel.select(0);
    panel.onClickAction(QStringLiteral("something else"));
    QVERIFY(catcher.m_lstUrls.isEmpty());

    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), QCursor::pos());
    QApplication::sendEvent(panel.list()->viewport(), &event);
    const auto *pMenu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(pMenu);
    QCOMPARE(pMenu->actions().size(), 2);
    QCOMPARE(pMenu->actions().at(0)->text(), strReveal);
    QCOMPARE(pMenu->actions().at(1)->text(), strOpen);
    pMenu->actions().at(1)->trigger();
    QApplication::activePopupWidget()->close();
    QCOMPARE(catcher.m_lstUrls, QList<QUrl> {QUrl::fromLocalFile(strFile)});
#ifndef Q_OS_WIN // Which has a program of its own for it.
    // No session bus in the tests: the folder is opened instead.
    panel.onClickAction(strReveal);
    QCOMPARE(catcher.m_lstUrls.size(), 2);
    QCOMPARE(catcher.m_lstUrls.last(), QUrl::fromLocalFile(tree.path()));
#endif
}

void tst_widgetfilelist::keys_workInTheList_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("folder");
    QTest::newRow("enter") << int(Qt::Key_Enter) << QStringLiteral("sub/inner");
    QTest::newRow("return") << int(Qt::Key_Return) << QStringLiteral("sub/inner");
    QTest::newRow("backspace") << int(Qt::Key_Backspace) << QString();
    QTest::newRow("F5") << int(Qt::Key_F5) << QStringLiteral("sub");
}

void tst_widgetfilelist::keys_workInTheList()
{
    QFETCH(int, key);
    QFETCH(QString, folder);
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub/inner"));
    CPanel panel;
    // A shortcut of the window on the same key must not take it.
    QAction windowAction(&panel);
    windowAction.setShortcut(QKeySequence(key));
    panel.addAction(&windowAction);
    QSignalSpy spyWindow(&windowAction, &QAction::triggered);
    panel.setRootPath(tree.path(QStringLiteral("sub")));
    QTRY_COMPARE(panel.names().size(), 1);
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.list()->setFocus();
    QTRY_VERIFY(panel.listHasFocus());
    panel.select(0);
    QSignalSpy spyRemoved(panel.model(), &QAbstractItemModel::rowsRemoved);
    QTest::keyClick(panel.list(), Qt::Key(key));
    QCOMPARE(panel.rootPath(), tree.path(folder));
    QCOMPARE(spyRemoved.size(), 1);
    QCOMPARE(spyWindow.size(), 0);
}

void tst_widgetfilelist::backspaceInTheBox_edits()
{
    const CTestTree tree;
    CPanel panel;
    panel.setRootPath(tree.path());
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.box()->setFocus();
    QTRY_VERIFY(panel.box()->lineEdit()->hasFocus());
    QVERIFY(!panel.listHasFocus());
    panel.box()->lineEdit()->end(false);
    QTest::keyClick(panel.box()->lineEdit(), Qt::Key_Backspace);
    QCOMPARE(panel.rootPath(), tree.path());
    QCOMPARE(panel.box()->currentText(), tree.path().chopped(1));
}

void tst_widgetfilelist::fastSecondFolder_isShown()
{
    const CTestTree first;
    first.addFiles(500);
    const CTestTree second;
    second.addFile(QStringLiteral("b"));
    // The second choice falls before, in and behind the first listing.
    for (int nDelay = 0; nDelay < 130; nDelay += 13) {
        CPanel panel;
        panel.setRootPath(first.path());
        QTest::qWait(nDelay);
        panel.setRootPath(second.path());
        QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("b")));
        QCOMPARE(panel.history(), QStringList({second.path(), first.path()}));
    }
}

void tst_widgetfilelist::fastSameFolder_isShownOnce()
{
    const CTestTree tree;
    tree.addFiles(500);
    for (int nDelay = 0; nDelay < 130; nDelay += 26) {
        CPanel panel;
        QSignalSpy spy(&panel, &CWidgetFileList::listing);
        for (int n = 0; n < 3; ++n) {
            panel.setRootPath(tree.path());
            QTest::qWait(nDelay); // Before, in and behind the listing.
        }
        QTRY_VERIFY(!spy.last().first().toBool());
        QCOMPARE(panel.names().size(), 500);
    }
}

void tst_widgetfilelist::namesWithSigns_areEnteredAndRefreshed()
{
    const CTestTree tree;
    const QString strFolder = tree.addFolder(nameWithSign());
    tree.addFile(nameWithSign() + QStringLiteral("/inner"));
    CPanel panel;
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.names(), QStringList(shownNameWithSign()));
    panel.select(0);
    panel.openSelection();
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("inner")));
    panel.onRefresh();
    QCOMPARE(panel.rootPath(), strFolder);
    QTRY_COMPARE(panel.names(), QStringList(QStringLiteral("inner")));
}

void tst_widgetfilelist::destructionDuringAListing_isClean()
{
    const CTestTree tree;
    tree.addFiles(5000);
    for (int nDelay = 0; nDelay < 100; nDelay += 10) {
        auto pPanel = std::make_unique<CPanel>();
        pPanel->setRootPath(tree.path());
        QTest::qWait(nDelay); // Before, in and behind the listing.
        pPanel->list()->selectAll();
        QElapsedTimer timer;
        timer.start();
        pPanel.reset();
        QVERIFY(timer.elapsed() < 5000);
        QCoreApplication::processEvents();
    }
}

QTEST_MAIN(tst_widgetfilelist)
#include "tst_widgetfilelist.moc"
