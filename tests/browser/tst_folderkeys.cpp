// The list under real keys: it follows the disk, and renames, removes and makes files.
#include "app/csettings.h"
#include "browser/cfilesystemmodel.h"
#include "browser/cmenulistview.h"
#include "browser/cwidgetfilelist.h"
#include "browser/testtree.h"

#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalSpy>
#include <QtTest>

// A panel on the screen that shows a folder.
class CShownFolder : public CWidgetFileList
{
public:
    explicit CShownFolder(const QString &strFolder)
        : m_spyRenamed(this, &CWidgetFileList::fileRenamed),
          m_spyMessage(this, &CWidgetFileList::statusMessage)
    {
        resize(320, 300);
        show();
        setRootPath(strFolder);
        activateWindow();
        list()->setFocus();
    }

    CMenuListView *list() const { return findChild<CMenuListView *>(); }
    QLineEdit *box() const { return findChild<QComboBox *>()->lineEdit(); }
    QLineEdit *editor() const { return list()->viewport()->findChild<QLineEdit *>(); }
    QString current() const { return list()->currentIndex().data().toString(); }
    QString message() const
    {
        return m_spyMessage.isEmpty() ? QString() : m_spyMessage.last().first().toString();
    }

    QStringList names() const
    {
        QStringList lst;
        const QAbstractItemModel *pModel = list()->model();
        for (int n = 0; n < pModel->rowCount(); ++n)
            lst.append(pModel->index(n, 0).data().toString());
        return lst;
    }

    void go(const QString &strName)
    {
        list()->setCurrentIndex(list()->model()->index(names().indexOf(strName), 0));
    }

    void key(int nKey, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(list(), Qt::Key(nKey), modifiers);
    }

    QSignalSpy m_spyRenamed;
    QSignalSpy m_spyMessage;
};

class tst_folderkeys : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void changesOnTheDisk_areShown();
    void refreshedList_keepsWhatIsSeen();
    void goingUp_selectsTheFolderLeft();
    void renamedFile_isFollowedAndTakenBack();
    void escapedRename_changesNothing();
    void renameToATakenName_saysWhy();
    void controlSigns_areShownAndSurviveTheEditing();
    void deletedFiles_areTakenBack();
    void newFolder_isNamedAtOnce();
    void keysWithoutASelection_saySo();
    void typedPath_isCompleted();
    void rows_areDraggedAsAddresses();
    void longNames_haveRoom();
    void unseenRows_askForNoIcon();

private:
    std::unique_ptr<CSettings> m_pSettings;
};

void tst_folderkeys::init()
{
    m_pSettings = std::make_unique<CSettings>(QStringLiteral("Test"), QStringLiteral("keys"));
    g_pSettings = m_pSettings.get();
}

void tst_folderkeys::cleanup()
{
    g_pSettings = nullptr;
    m_pSettings.reset();
}

void tst_folderkeys::changesOnTheDisk_areShown()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("b"));
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names(), QStringList({"b"}));
    tree.addFile(QStringLiteral("a"));
    tree.addFolder(QStringLiteral("z"));
    QTRY_COMPARE(panel.names(), QStringList({"z", "a", "b"}));
    QFile::remove(tree.path(QStringLiteral("b")));
    QTRY_COMPARE(panel.names(), QStringList({"z", "a"}));
}

void tst_folderkeys::refreshedList_keepsWhatIsSeen()
{
    const CTestTree tree;
    tree.addFiles(500);
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names().size(), 500);
    panel.go(QStringLiteral("file00300.txt"));
    QTRY_VERIFY(panel.list()->verticalScrollBar()->value() > 0);
    const QRect before = panel.list()->visualRect(panel.list()->currentIndex());
    for (int n = 0; n < 50; ++n)
        tree.addFile(QStringLiteral("another%1").arg(n));
    QTRY_COMPARE(panel.names().size(), 550);
    QCoreApplication::processEvents();
    QCOMPARE(panel.current(), QStringLiteral("file00300.txt"));
    QCOMPARE(panel.list()->visualRect(panel.list()->currentIndex()), before);
    QCOMPARE(panel.list()->selectionModel()->selectedIndexes().size(), 1);
}

void tst_folderkeys::goingUp_selectsTheFolderLeft()
{
    const CTestTree tree;
    for (int n = 0; n < 60; ++n)
        tree.addFolder(QStringLiteral("folder%1").arg(n, 2, 10, QLatin1Char('0')));
    CShownFolder panel(tree.path(QStringLiteral("folder45")));
    panel.key(Qt::Key_Backspace);
    QTRY_COMPARE(panel.current(), QStringLiteral("folder45"));
    QVERIFY(panel.list()->selectionModel()->isSelected(panel.list()->currentIndex()));
    QTRY_VERIFY(panel.list()->viewport()->rect().contains(
        panel.list()->visualRect(panel.list()->currentIndex()).center()));
}

void tst_folderkeys::renamedFile_isFollowedAndTakenBack()
{
    const CTestTree tree;
    const QString strOld = tree.addFile(QStringLiteral("name.txt"), "text");
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names(), QStringList({"name.txt"}));
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.go(QStringLiteral("name.txt"));
    panel.key(Qt::Key_F2);
    QVERIFY(panel.editor());
    QTRY_COMPARE(panel.editor()->selectedText(), QStringLiteral("name"));
    QTest::keyClicks(panel.editor(), QStringLiteral("other"));
    QTest::keyClick(panel.editor(), Qt::Key_Return);
    const QString strNew = tree.path(QStringLiteral("other.txt"));
    QTRY_COMPARE(panel.names(), QStringList({"other.txt"}));
    QCOMPARE(panel.m_spyRenamed.size(), 1);
    QCOMPARE(panel.m_spyRenamed.first(), QVariantList({strOld, strNew}));
    QTRY_COMPARE(panel.current(), QStringLiteral("other.txt"));
    QVERIFY(!panel.message().isEmpty());

    panel.list()->setFocus();
    panel.key(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(panel.names(), QStringList({"name.txt"}));
    QCOMPARE(panel.m_spyRenamed.last(), QVariantList({strNew, strOld}));
}

void tst_folderkeys::escapedRename_changesNothing()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("name.txt"), "text");
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names(), QStringList({"name.txt"}));
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.go(QStringLiteral("name.txt"));
    panel.key(Qt::Key_F2);
    QTest::keyClicks(panel.editor(), QStringLiteral("other"));
    QTest::keyClick(panel.editor(), Qt::Key_Escape);
    QTRY_VERIFY(!panel.editor());
    QCOMPARE(panel.m_spyRenamed.size(), 0);
    QVERIFY(QFile::exists(tree.path(QStringLiteral("name.txt"))));
}

void tst_folderkeys::renameToATakenName_saysWhy()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"), "1");
    tree.addFile(QStringLiteral("b"), "2");
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names().size(), 2);
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.go(QStringLiteral("a"));
    panel.key(Qt::Key_F2);
    panel.editor()->setText(QStringLiteral("b"));
    QTest::keyClick(panel.editor(), Qt::Key_Return);
    QTRY_VERIFY(!panel.message().isEmpty());
    QCOMPARE(panel.m_spyRenamed.size(), 0);
    QCOMPARE(panel.names(), QStringList({"a", "b"}));
}

void tst_folderkeys::controlSigns_areShownAndSurviveTheEditing()
{
    const CTestTree tree;
    tree.addFile(nameWithSign(), "text");
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names(), QStringList(shownNameWithSign()));
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.go(panel.names().first());
    panel.key(Qt::Key_F2);
    QTest::keyClick(panel.editor(), Qt::Key_Return);
    QTRY_VERIFY(!panel.editor());
    QCOMPARE(panel.m_spyRenamed.size(), 0);
    QVERIFY(QFile::exists(tree.path(nameWithSign())));
}

void tst_folderkeys::deletedFiles_areTakenBack()
{
    const CTestTree tree;
    for (const char *szName : {"a", "b", "c"})
        tree.addFile(QLatin1String(szName), szName);
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names().size(), 3);
    panel.go(QStringLiteral("a"));
    panel.key(Qt::Key_Down, Qt::ShiftModifier);
    panel.key(Qt::Key_Delete);
    QTRY_COMPARE(panel.names(), QStringList({"c"}));
    QVERIFY(panel.message().contains(QLatin1Char('2')));
#ifdef Q_OS_WIN
    if (QOperatingSystemVersion::current() <= QOperatingSystemVersion::Windows7)
        QSKIP("This system's trash does not tell where a file is in it.");
#endif
    panel.key(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(panel.names(), QStringList({"a", "b", "c"}));
    QCOMPARE(panel.m_spyRenamed.size(), 0);
}

void tst_folderkeys::newFolder_isNamedAtOnce()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.key(Qt::Key_N, Qt::ControlModifier | Qt::AltModifier);
    QTRY_VERIFY(panel.editor());
    tree.addFile(QStringLiteral("b")); // The folder is listed again meanwhile.
    QTRY_COMPARE(panel.names().size(), 3);
    QCOMPARE(panel.editor()->selectedText(), QStringLiteral("New folder"));
    QTest::keyClicks(panel.editor(), QStringLiteral("mine"));
    QTest::keyClick(panel.editor(), Qt::Key_Return);
    QTRY_COMPARE(panel.names(), QStringList({"mine", "a", "b"}));
    QVERIFY(QFileInfo(tree.path(QStringLiteral("mine"))).isDir());
}

void tst_folderkeys::keysWithoutASelection_saySo()
{
    const CTestTree tree;
    CShownFolder panel(tree.path());
    for (const int nKey : {Qt::Key_F2, Qt::Key_Delete}) {
        panel.m_spyMessage.clear();
        panel.key(nKey);
        QCOMPARE(panel.m_spyMessage.size(), 1);
    }
    panel.m_spyMessage.clear();
    panel.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(panel.m_spyMessage.size(), 1);
}

void tst_folderkeys::typedPath_isCompleted()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("alpha"));
    tree.addFolder(QStringLiteral("alpine"));
    tree.addFolder(QStringLiteral("beta"));
    tree.addFile(QStringLiteral("alps"));
    CShownFolder panel(tree.path());
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    panel.box()->setFocus();
    panel.box()->end(false);
    QTest::keyClicks(panel.box(), QStringLiteral("/al"));
    QAbstractItemView *pPopup = panel.box()->completer()->popup();
    QTRY_VERIFY(pPopup->isVisible());
    QTRY_COMPARE(pPopup->model()->rowCount(), 2);
    // Nothing is inserted without being asked for.
    QCOMPARE(native(panel.box()->text()), tree.path(QStringLiteral("al")));
    QTest::keyClick(pPopup, Qt::Key_Down);
    QTest::keyClick(pPopup, Qt::Key_Down);
    QCOMPARE(panel.box()->text(), tree.path(QStringLiteral("alpine")));
    QTest::keyClick(pPopup, Qt::Key_Return);
    QTRY_COMPARE(panel.rootPath(), tree.path(QStringLiteral("alpine")));
}

void tst_folderkeys::rows_areDraggedAsAddresses()
{
    const CTestTree tree;
    const QString strFile = tree.addFile(QStringLiteral("a b#%.txt"));
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QAbstractItemModel *pModel = panel.list()->model();
    const QModelIndex index = pModel->index(0, 0);
    QVERIFY(panel.list()->dragEnabled());
    QVERIFY(pModel->flags(index).testFlag(Qt::ItemIsDragEnabled));
    QVERIFY(!pModel->flags(index).testFlag(Qt::ItemIsDropEnabled));
    QVERIFY(!pModel->supportedDragActions().testFlag(Qt::MoveAction));
    const std::unique_ptr<QMimeData> pData(pModel->mimeData({index}));
    QCOMPARE(pData->urls(), QList<QUrl>({QUrl::fromLocalFile(strFile)}));
}

void tst_folderkeys::longNames_haveRoom()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names().size(), 1);
    QCOMPARE(panel.list()->horizontalScrollBar()->maximum(), 0);
    tree.addFile(QString(200, QLatin1Char('w')));
    QTRY_COMPARE(panel.names().size(), 2);
    QTRY_VERIFY(panel.list()->horizontalScrollBar()->maximum() > 0);
    const QModelIndex index = panel.list()->model()->index(1, 0);
    QVERIFY(panel.list()->visualRect(index).width()
            > panel.list()->fontMetrics().horizontalAdvance(index.data().toString()));
}

void tst_folderkeys::unseenRows_askForNoIcon()
{
    const CTestTree tree;
    tree.addFiles(3000);
    CShownFolder panel(tree.path());
    QTRY_COMPARE(panel.names().size(), 3000);
    auto *pModel = static_cast<CFileSystemModel *>(panel.list()->model());
    const auto hasIcon = [pModel](int nRow) {
        return !pModel->nodeOf(pModel->index(nRow, 0))->m_icon.isNull();
    };
    QTRY_VERIFY(hasIcon(0));
    int nIcons = 0;
    for (int nRow = 0; nRow < 3000; ++nRow)
        nIcons += hasIcon(nRow) ? 1 : 0;
    QVERIFY2(nIcons < 100, qPrintable(QString::number(nIcons)));
}

QTEST_MAIN(tst_folderkeys)
#include "tst_folderkeys.moc"
