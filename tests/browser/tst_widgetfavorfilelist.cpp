#include "app/csettings.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cmenulistview.h"
#include "browser/cmenulistwidget.h"
#include "browser/cwidgetfavorfilelist.h"
#include "browser/cwidgetfavoritefolder.h"
#include "browser/cwidgetfilelist.h"
#include "browser/testtree.h"
#include "support/boxanswer.h"
#include "support/curlcatcher.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidgetItem>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QSplitter>
#include <QTextDocument>
#include <QtTest>

class tst_widgetfavorfilelist : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void newList_showsTheStoredFoldersInOrder();
    void buttons_areFlatAndNamed();
    void newFolder_comesFirstAndIsStored();
    void firstFolder_changesAndWritesNothing();
    void thirdFolder_movesToTheTop();
    void folderOfAnotherSpelling_isTheSystemsMatter();
    void removed_areExactlyTheSelected();
    void removeWithoutSelection_warns();
    void removeIsEnabledUntilAnOwnerConnects();
    void doubleClickedFavourite_opensAndMovesToTheTop();
    void destruction_storesTheListInMemory();
    void reveal_opensTheFirstSelected();
    void toolTipOfMarkup_isNotInterpreted();
    void panel_stacksBrowserAboveFavourites();
    void addWithoutAFolder_warns();
    void addedFolder_isTheOneShown();
    void openedFavourite_entersTheHistory();
    void signals_areRelayed();
    void openSelection_followsTheFocus();
    void enterInTheFavourites_opens();

private:
    static QStringList texts(const QWidget &widget)
    {
        const auto *pList = widget.findChild<CMenuListWidget *>();
        QStringList lst;
        for (int n = 0; n < pList->count(); ++n)
            lst.append(pList->item(n)->text());
        return lst;
    }
    static void selectRows(const QWidget &widget, const QList<int> &lstRows)
    {
        auto *pList = widget.findChild<CMenuListWidget *>();
        pList->clearSelection();
        for (const int nRow : lstRows)
            pList->item(nRow)->setSelected(true);
    }
    static QPushButton *button(const QWidget &widget, const char *szToolTip)
    {
        const QList<QPushButton *> lstButtons = widget.findChildren<QPushButton *>();
        for (QPushButton *pButton : lstButtons)
            if (pButton->toolTip() == QLatin1String(szToolTip))
                return pButton;
        return nullptr;
    }
    // The entries that a later start would read.
    static QStringList onDisk()
    {
        return QSettings(QStringLiteral("Test"), QStringLiteral("favourites"))
            .value(QStringLiteral("m_lstFavorFolders"))
            .toStringList();
    }

    const QStringList m_lstFour {fromRoot("/a"), fromRoot("/b"), fromRoot("/c"), fromRoot("/d")};
    std::unique_ptr<CSettings> m_pSettings;
};

void tst_widgetfavorfilelist::init()
{
    m_pSettings = std::make_unique<CSettings>(QStringLiteral("Test"), QStringLiteral("favourites"));
    m_pSettings->setFavorFolders(m_lstFour);
    g_pSettings = m_pSettings.get();
}

void tst_widgetfavorfilelist::cleanup()
{
    g_pSettings = nullptr;
    m_pSettings.reset();
    QSettings(QStringLiteral("Test"), QStringLiteral("favourites")).clear();
}

void tst_widgetfavorfilelist::newList_showsTheStoredFoldersInOrder()
{
    const CWidgetFavoriteFolder favourites;
    QCOMPARE(texts(favourites), m_lstFour);
    const auto *pList = favourites.findChild<CMenuListWidget *>();
    QCOMPARE(pList->item(2)->toolTip(), fromRoot("/c"));
    QCOMPARE(pList->selectionMode(), QAbstractItemView::ExtendedSelection);
    QCOMPARE(pList->selectionBehavior(), QAbstractItemView::SelectRows);
    const auto *pLabel = favourites.findChild<QLabel *>();
    QCOMPARE(pLabel->text(), QStringLiteral(" Main Folder List"));
    QCOMPARE(pLabel->styleSheet(), QStringLiteral("QLabel{background-color:#ccc;}"));
}

void tst_widgetfavorfilelist::buttons_areFlatAndNamed()
{
    const CWidgetFavoriteFolder favourites;
    for (const char *szToolTip : {"Add", "Remove"}) {
        const QPushButton *pButton = button(favourites, szToolTip);
        QVERIFY(pButton);
        QVERIFY(pButton->isFlat());
        QVERIFY(pButton->text().isEmpty());
        QVERIFY(!pButton->icon().isNull());
        QVERIFY(!pButton->styleSheet().isEmpty());
        QCOMPARE(pButton->accessibleName(), QLatin1String(szToolTip));
    }
}

void tst_widgetfavorfilelist::newFolder_comesFirstAndIsStored()
{
    CWidgetFavoriteFolder favourites;
    selectRows(favourites, {2, 3});
    favourites.addFolder(fromRoot("/new"));
    const QStringList lstExpected = QStringList(fromRoot("/new")) + m_lstFour;
    QCOMPARE(texts(favourites), lstExpected);
    QCOMPARE(m_pSettings->getFavorFolders(), lstExpected);
    QCOMPARE(onDisk(), lstExpected);
    const auto *pList = favourites.findChild<CMenuListWidget *>();
    QCOMPARE(pList->selectedItems(), QList<QListWidgetItem *> {pList->item(0)});
    QCOMPARE(pList->currentRow(), 0);
    QCOMPARE(pList->item(0)->toolTip(), fromRoot("/new"));
}

void tst_widgetfavorfilelist::firstFolder_changesAndWritesNothing()
{
    CWidgetFavoriteFolder favourites;
    favourites.addFolder(fromRoot("/a"));
    QCOMPARE(texts(favourites), m_lstFour);
    QCOMPARE(onDisk(), QStringList());
    const auto *pList = favourites.findChild<CMenuListWidget *>();
    QVERIFY(pList->item(0)->isSelected());
}

void tst_widgetfavorfilelist::thirdFolder_movesToTheTop()
{
    CWidgetFavoriteFolder favourites;
    favourites.addFolder(fromRoot("/c"));
    const QStringList lstExpected {fromRoot("/c"), fromRoot("/a"), fromRoot("/b"), fromRoot("/d")};
    QCOMPARE(texts(favourites), lstExpected);
    QCOMPARE(onDisk(), lstExpected);
}

void tst_widgetfavorfilelist::folderOfAnotherSpelling_isTheSystemsMatter()
{
    CWidgetFavoriteFolder favourites;
    favourites.addFolder(fromRoot("/C"));
    QStringList lstExpected = m_lstFour;
    if (Platform::isSamePath(fromRoot("/C"), fromRoot("/c")))
        lstExpected.removeOne(fromRoot("/c"));
    lstExpected.prepend(fromRoot("/C"));
    QCOMPARE(texts(favourites), lstExpected);
}

void tst_widgetfavorfilelist::removed_areExactlyTheSelected()
{
    const CWidgetFavoriteFolder favourites;
    selectRows(favourites, {2, 0, 3});
    button(favourites, "Remove")->click();
    QCOMPARE(texts(favourites), QStringList(fromRoot("/b")));
    QCOMPARE(onDisk(), QStringList(fromRoot("/b")));
}

void tst_widgetfavorfilelist::removeWithoutSelection_warns()
{
    const CWidgetFavoriteFolder favourites;
    selectRows(favourites, {});
    const CBoxAnswer answer;
    button(favourites, "Remove")->click();
    QCOMPARE(answer.boxes().size(), 1);
    QCOMPARE(answer.boxes().first().icon, QMessageBox::Warning);
    QCOMPARE(answer.boxes().first().strTitle, QStringLiteral("No selected folder"));
    QCOMPARE(answer.boxes().first().strText,
             QStringLiteral("Please select a favor folder on Main Folder List to remove."));
    QCOMPARE(answer.boxes().first().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(texts(favourites), m_lstFour);
}

void tst_widgetfavorfilelist::removeIsEnabledUntilAnOwnerConnects()
{
    CWidgetFavoriteFolder favourites;
    const QPushButton *pRemove = button(favourites, "Remove");
    selectRows(favourites, {1});
    selectRows(favourites, {});
    QVERIFY(pRemove->isEnabled());
    favourites.onListSelectionChanged();
    QVERIFY(!pRemove->isEnabled());
    selectRows(favourites, {1});
    favourites.onListSelectionChanged();
    QVERIFY(pRemove->isEnabled());
}

void tst_widgetfavorfilelist::doubleClickedFavourite_opensAndMovesToTheTop()
{
    CWidgetFavoriteFolder favourites;
    QSignalSpy spy(&favourites, &CWidgetFavoriteFolder::dbClickFolder);
    favourites.onDbClickItem(QModelIndex()); // Nothing is selected.
    QCOMPARE(spy.size(), 0);
    selectRows(favourites, {3});
    const auto *pList = favourites.findChild<CMenuListWidget *>();
    favourites.onDbClickItem(pList->model()->index(3, 0));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().first().toString(), fromRoot("/d"));
    const QStringList lstExpected {fromRoot("/d"), fromRoot("/a"), fromRoot("/b"), fromRoot("/c")};
    QCOMPARE(texts(favourites), lstExpected);
    QCOMPARE(onDisk(), lstExpected);
}

void tst_widgetfavorfilelist::destruction_storesTheListInMemory()
{
    {
        const CWidgetFavoriteFolder favourites;
        m_pSettings->setFavorFolders({});
    }
    QCOMPARE(m_pSettings->getFavorFolders(), m_lstFour);
}

void tst_widgetfavorfilelist::reveal_opensTheFirstSelected()
{
    CWidgetFavoriteFolder favourites;
    CUrlCatcher catcher;
    const QString strReveal = QStringLiteral("Open position of file/folder");
    favourites.onClickAction(strReveal);
    QVERIFY(catcher.m_lstUrls.isEmpty());
    selectRows(favourites, {1});
    favourites.onClickAction(QStringLiteral("something else"));
    QVERIFY(catcher.m_lstUrls.isEmpty());
#ifndef Q_OS_WIN // Which has a program of its own for it.
    favourites.onClickAction(strReveal);
    // The tests have no session bus, so the folder around it is opened.
    QCOMPARE(catcher.m_lstUrls.size(), 1);
    QCOMPARE(catcher.m_lstUrls.first(), QUrl::fromLocalFile(QStringLiteral("/")));
#endif
}

void tst_widgetfavorfilelist::toolTipOfMarkup_isNotInterpreted()
{
    CWidgetFavoriteFolder favourites;
    favourites.addFolder(fromRoot("/x/<b>bold"));
    const auto *pList = favourites.findChild<CMenuListWidget *>();
    QCOMPARE(pList->item(0)->text(), fromRoot("/x/<b>bold"));
    QTextDocument document;
    document.setHtml(pList->item(0)->toolTip());
    QCOMPARE(document.toPlainText(), fromRoot("/x/<b>bold"));
}

void tst_widgetfavorfilelist::panel_stacksBrowserAboveFavourites()
{
    const CWidgetFavorFileList panel;
    const auto *pSplitter = panel.findChild<QSplitter *>();
    QCOMPARE(pSplitter->orientation(), Qt::Vertical);
    QCOMPARE(pSplitter->count(), 2);
    QVERIFY(qobject_cast<CWidgetFileList *>(pSplitter->widget(0)));
    QVERIFY(qobject_cast<CWidgetFavoriteFolder *>(pSplitter->widget(1)));
}

void tst_widgetfavorfilelist::addWithoutAFolder_warns()
{
    CWidgetFavorFileList panel;
    panel.setRootPath(QString()); // The drives.
    const CBoxAnswer answer;
    button(panel, "Add")->click();
    QCOMPARE(answer.boxes().size(), 1);
    QCOMPARE(answer.boxes().first().icon, QMessageBox::Warning);
    QCOMPARE(answer.boxes().first().strTitle, QStringLiteral("No selected folder"));
    QCOMPARE(answer.boxes().first().strText,
             QStringLiteral("Please select a folder on Folder Browser."));
    QCOMPARE(texts(panel), m_lstFour);
}

void tst_widgetfavorfilelist::addedFolder_isTheOneShown()
{
    const CTestTree tree;
    CWidgetFavorFileList panel;
    panel.setRootPath(tree.path());
    button(panel, "Add")->click();
    QCOMPARE(texts(panel), QStringList(tree.path()) + m_lstFour);
    QCOMPARE(onDisk().first(), tree.path());
}

void tst_widgetfavorfilelist::openedFavourite_entersTheHistory()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    m_pSettings->setFavorFolders({fromRoot("/a"), tree.path()});
    CWidgetFavorFileList panel;
    QSignalSpy spy(&panel, &CWidgetFavorFileList::rootPathChanged);
    selectRows(panel, {1});
    panel.findChild<CWidgetFavoriteFolder *>()->openSelection();
    QCOMPARE(panel.rootPath(), tree.path());
    QCOMPARE(panel.findChild<QComboBox *>()->itemText(0), tree.path());
    QCOMPARE(spy.size(), 1);
    QCOMPARE(texts(panel), QStringList({tree.path(), fromRoot("/a")}));
    QTRY_COMPARE(panel.findChild<CFileSystemModel *>()->rowCount(), 1);
}

void tst_widgetfavorfilelist::signals_areRelayed()
{
    CWidgetFavorFileList panel;
    auto *pFileList = panel.findChild<CWidgetFileList *>();
    QSignalSpy spyFile(&panel, &CWidgetFavorFileList::dbClickFile);
    QSignalSpy spyRoot(&panel, &CWidgetFavorFileList::rootPathChanged);
    QSignalSpy spySelection(&panel, &CWidgetFavorFileList::fileSelectionChanged);
    emit pFileList->dbClickFile(fromRoot("/1"));
    emit pFileList->rootPathChanged(fromRoot("/2"));
    emit pFileList->fileSelectionChanged(fromRoot("/3"));
    QCOMPARE(spyFile.value(0).value(0).toString(), fromRoot("/1"));
    QCOMPARE(spyRoot.value(0).value(0).toString(), fromRoot("/2"));
    QCOMPARE(spySelection.value(0).value(0).toString(), fromRoot("/3"));
}

void tst_widgetfavorfilelist::openSelection_followsTheFocus()
{
    const CTestTree tree;
    const QString strFile = tree.addFile(QStringLiteral("a"));
    CWidgetFavorFileList panel;
    panel.show();
    panel.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.setRootPath(tree.path());
    QTRY_COMPARE(panel.findChild<CFileSystemModel *>()->rowCount(), 1);
    auto *pList = panel.findChild<CMenuListView *>();
    pList->selectAll();
    selectRows(panel, {2});
    QSignalSpy spyFile(&panel, &CWidgetFavorFileList::dbClickFile);

    panel.findChild<QComboBox *>()->setFocus();
    QTRY_VERIFY(!panel.hasFocusList());
    QVERIFY(!panel.openSelection());
    QCOMPARE(spyFile.size(), 0);
    QCOMPARE(panel.rootPath(), tree.path());

    pList->setFocus();
    QTRY_VERIFY(panel.hasFocusList());
    QVERIFY(panel.openSelection());
    QCOMPARE(spyFile.size(), 1);
    QCOMPARE(spyFile.first().first().toString(), strFile);
    QCOMPARE(panel.rootPath(), tree.path());

    panel.findChild<CMenuListWidget *>()->setFocus();
    QTRY_VERIFY(panel.hasFocusList());
    panel.openSelection();
    QCOMPARE(spyFile.size(), 1);
    QCOMPARE(panel.rootPath(), fromRoot("/c"));
    QCOMPARE(texts(panel).first(), fromRoot("/c"));
}

void tst_widgetfavorfilelist::enterInTheFavourites_opens()
{
    CWidgetFavorFileList panel;
    selectRows(panel, {1});
    QTest::keyClick(panel.findChild<CMenuListWidget *>(), Qt::Key_Return);
    QCOMPARE(panel.rootPath(), fromRoot("/b"));
}

QTEST_MAIN(tst_widgetfavorfilelist)
#include "tst_widgetfavorfilelist.moc"
