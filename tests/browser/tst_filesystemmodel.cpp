#include "app/commonhelpers.h"
#include "browser/cfilenode.h"
#include "browser/cfilesystemmodel.h"
#include "browser/testtree.h"
#include "support/cunprivileged.h"

#include <QAbstractEventDispatcher>
#include <QAbstractItemModelTester>
#include <QDeadlineTimer>
#include <QFileIconProvider>
#include <QSignalSpy>
#include <QTextDocument>
#include <QTreeView>
#include <QtTest>

using Mode = QAbstractItemModelTester::FailureReportingMode;

class tst_filesystemmodel : public QObject
{
    Q_OBJECT

private slots:
    void newModel_hasItsDefaults();
    void folder_isListedFoldersFirst();
    void fileAsRoot_showsItsFolderAndRemembersTheName();
    void emptyRoot_listsDrivesAndTheirTopLevels();
    void emptyFolder_addsNoRowsAndIsNotLoaded();
    void unknownPath_isDropped();
    void secondListing_isNotMerged();
    void newRoot_dropsListingsStillUnderWay();
    void columns_tellFileAndFolder();
    void headers_data();
    void headers();
    void headerAlignment_isLeftInAnyOrientation();
    void danglingLink_showsItsOwnIcon();
    void knownFile_showsTheProvidersIcon();
    void toolTip_isThePath();
    void toolTipOfMarkup_isNotInterpreted();
    void state_colorsTheName();
    void nodes_areInsertedRemovedAndFound();
    void partners_areLinkedBothWaysAndReleased();
    void refreshedNode_tellsOfItsWholeRow();
    void hundredFolders_areListed();
    void fiftyThousandFiles_areListedInOneInsertion();
    void folderWithoutPermission_isEmpty();
    void destructionDuringAListing_isClean();
    void destroyedModel_clearsItsView();
};

// A model of a folder with its tester attached, filled.
struct SListed
{
    explicit SListed(const QString &strPath, int nRows) : tester(&model, Mode::QtTest)
    {
        model.setScanSubDirs(false);
        model.setRootPath(strPath, true);
        bFilled = QTest::qWaitFor([&] { return model.rowCount() == nRows; }, 20000);
    }

    QStringList names(int nColumn = 0) const
    {
        QStringList lst;
        for (int n = 0; n < model.rowCount(); ++n)
            lst.append(model.index(n, nColumn).data().toString());
        return lst;
    }

    CFileSystemModel model;
    QAbstractItemModelTester tester;
    bool bFilled = false;
};

void tst_filesystemmodel::newModel_hasItsDefaults()
{
    const CFileSystemModel model;
    QVERIFY(model.showDrives());
    QVERIFY(model.skipHidden());
    QVERIFY(!model.dirsOnly());
    QVERIFY(model.scanSubDirs());
    QCOMPARE(model.columnCount(), 1);
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.rootPath(), QString());
}

void tst_filesystemmodel::folder_isListedFoldersFirst()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("B.txt"));
    tree.addFile(QStringLiteral("a.txt"));
    tree.addFile(nameWithSign());
    tree.addFile(QStringLiteral("größe"));
    tree.addFile(QStringLiteral(".hidden"));
    tree.addFolder(QStringLiteral("z"));
    tree.addLink(linkName("loop"), tree.path());
    tree.addLink(linkName("gone"), QStringLiteral("/nowhere/at/all"));
    const SListed listed(tree.path(), 7);
    QCOMPARE(listed.names(),
             QStringList({linkName("loop"), QStringLiteral("z"), QStringLiteral("a.txt"),
                          QStringLiteral("B.txt"), linkName("gone"), QStringLiteral("größe"),
                          shownNameWithSign()}));
    QCOMPARE(listed.model.rootPath(), tree.path());
}

void tst_filesystemmodel::fileAsRoot_showsItsFolderAndRemembersTheName()
{
    const CTestTree tree;
    const QString strFile = tree.addFile(QStringLiteral("a.txt"));
    SListed listed(strFile, 1);
    QVERIFY(listed.bFilled);
    QCOMPARE(listed.model.rootPath(), tree.path());
    QCOMPARE(listed.model.currentFile(), QStringLiteral("a.txt"));
    listed.model.setRootPath(tree.path(), false);
    QCOMPARE(listed.model.currentFile(), QString());
    QCOMPARE(listed.model.rowCount(), 0);
}

void tst_filesystemmodel::emptyRoot_listsDrivesAndTheirTopLevels()
{
    const QFileInfoList lstDrives = QDir::drives();
    const SListed listed(QString(), lstDrives.size());
    QVERIFY(listed.bFilled);
    const QModelIndex drive = listed.model.index(0, 0);
    const QString strDrive = QDir::toNativeSeparators(lstDrives.first().absoluteFilePath());
    QCOMPARE(drive.data().toString(), strDrive);
    QTRY_VERIFY(listed.model.rowCount(drive) > 0);
    const QModelIndex below = listed.model.index(0, 0, drive);
    QCOMPARE(below.parent(), drive);
    QVERIFY(!drive.parent().isValid());
    QCOMPARE(listed.model.rootPath(), QString());
}

void tst_filesystemmodel::emptyFolder_addsNoRowsAndIsNotLoaded()
{
    const CTestTree tree;
    CFileSystemModel model;
    QSignalSpy spyLoaded(&model, &CFileSystemModel::directoryLoaded);
    QSignalSpy spyInserted(&model, &QAbstractItemModel::rowsInserted);
    model.setRootPath(tree.path(), false);
    model.onNewListOfFiles(tree.path(), {});
    QCOMPARE(spyLoaded.size(), 0);
    QCOMPARE(spyInserted.size(), 0);
    model.onNewListOfFiles(tree.path(), {QFileInfo(tree.path(QStringLiteral("x")))});
    QCOMPARE(spyLoaded.size(), 1);
    QCOMPARE(spyLoaded.first().first().toString(), tree.path());
}

void tst_filesystemmodel::unknownPath_isDropped()
{
    const CTestTree tree;
    CFileSystemModel model;
    QSignalSpy spyLoaded(&model, &CFileSystemModel::directoryLoaded);
    model.setRootPath(tree.path(), false);
    model.onNewListOfFiles(QStringLiteral("/elsewhere"), {QFileInfo(QStringLiteral("/a"))});
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(spyLoaded.size(), 0);
}

void tst_filesystemmodel::secondListing_isNotMerged()
{
    const CTestTree tree;
    CFileSystemModel model;
    QAbstractItemModelTester tester(&model, Mode::QtTest);
    model.setRootPath(tree.path(), false);
    const QFileInfoList lst {QFileInfo(tree.addFile(QStringLiteral("a")))};
    model.onNewListOfFiles(tree.path(), lst);
    model.onNewListOfFiles(tree.path(), lst);
    QCOMPARE(model.rowCount(), 2);
    QSignalSpy spyRemoved(&model, &QAbstractItemModel::rowsRemoved);
    model.setRootPath(tree.path(), false);
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(spyRemoved.size(), 1);
}

// A listing may wait in the event queue when its folder is chosen once more.
void tst_filesystemmodel::newRoot_dropsListingsStillUnderWay()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    CFileSystemModel model;
    model.setScanSubDirs(false);
    connect(&model, &CFileSystemModel::fetchMissed, this,
            [&] { model.setRootPath(tree.path(), true); });
    QSignalSpy spyEnded(&model, &CFileSystemModel::fetchEnded);
    QCoreApplication::processEvents();
    model.setRootPath(tree.path(), true);
    // No event loop: the first listing waits in the queue.
    const QDeadlineTimer deadline(20000);
    while (!QAbstractEventDispatcher::instance()->hasPendingEvents() && !deadline.hasExpired())
        QThread::yieldCurrentThread();
    model.setRootPath(tree.path(), true);
    QTRY_VERIFY(!spyEnded.isEmpty());
    QCOMPARE(model.rowCount(), 1);
}

void tst_filesystemmodel::columns_tellFileAndFolder()
{
    const CTestTree tree;
    const QString strFolder = tree.addFolder(QStringLiteral("folder.d"));
    const QString strFile = tree.addFile(QStringLiteral("file.tar.gz"), QByteArray(2048, 'x'));
    SListed listed(tree.path(), 2);
    listed.model.setColumnCount(4);
    QCOMPARE(listed.model.index(0, 0).data().toString(), QStringLiteral("folder.d"));
    QVERIFY(!listed.model.index(0, 1).data().isValid());
    QVERIFY(!listed.model.index(0, 2).data().isValid());
    QCOMPARE(listed.model.index(0, 3).data().toString(),
             getDateText(QFileInfo(strFolder).lastModified()));
    QCOMPARE(listed.model.index(1, 0).data().toString(), QStringLiteral("file.tar.gz"));
    QCOMPARE(listed.model.index(1, 1).data().toString(), QStringLiteral("gz"));
    QCOMPARE(listed.model.index(1, 2).data().toString(), QStringLiteral("2 KB"));
    QCOMPARE(listed.model.index(1, 3).data().toString(),
             getDateText(QFileInfo(strFile).lastModified()));
    QVERIFY(listed.model.index(1, 0).data(Qt::DecorationRole).isValid());
    QVERIFY(!listed.model.index(1, 1).data(Qt::DecorationRole).isValid());
    QVERIFY(!listed.model.index(1, 4).isValid());
}

void tst_filesystemmodel::headers_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<QVariant>("text");
    QTest::newRow("name") << 0 << QVariant(QStringLiteral("Name"));
    QTest::newRow("extension") << 1 << QVariant(QStringLiteral("Ext. Name"));
    QTest::newRow("size") << 2 << QVariant(QStringLiteral("Size"));
    QTest::newRow("date") << 3 << QVariant(QStringLiteral("Date Modified"));
    QTest::newRow("further") << 4 << QVariant();
}

void tst_filesystemmodel::headers()
{
    QFETCH(int, section);
    QFETCH(QVariant, text);
    const CFileSystemModel model;
    QCOMPARE(model.headerData(section, Qt::Horizontal), text);
    QCOMPARE(model.headerData(section, Qt::Vertical), QVariant(section + 1));
}

void tst_filesystemmodel::headerAlignment_isLeftInAnyOrientation()
{
    const CFileSystemModel model;
    for (const auto orientation : {Qt::Horizontal, Qt::Vertical}) {
        QCOMPARE(model.headerData(9, orientation, Qt::TextAlignmentRole), QVariant(1));
        QCOMPARE(model.headerData(9, orientation, Qt::DecorationRole), QVariant(1));
        QVERIFY(!model.headerData(0, orientation, Qt::ToolTipRole).isValid());
    }
}

static QImage shownImage(const QModelIndex &index)
{
    return index.data(Qt::DecorationRole).value<QIcon>().pixmap(16, 16).toImage();
}

void tst_filesystemmodel::danglingLink_showsItsOwnIcon()
{
    const CTestTree tree;
    tree.addLink(linkName("gone"), QStringLiteral("/nowhere/at/all"));
    const SListed listed(tree.path(), 1);
    const QImage image = shownImage(listed.model.index(0, 0));
    QVERIFY(!image.isNull());
    QCOMPARE(image, QIcon(QStringLiteral(":/res/link_un.png")).pixmap(16, 16).toImage());
}

void tst_filesystemmodel::knownFile_showsTheProvidersIcon()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a.txt"));
    tree.addFolder(QStringLiteral("folder"));
    tree.addLink(linkName("link"), tree.path(QStringLiteral("a.txt")));
    const SListed listed(tree.path(), 3);
    const QFileIconProvider provider;
    for (int n = 0; n < 3; ++n) {
        const QModelIndex index = listed.model.index(n, 0);
        const QFileInfo info(tree.path(index.data().toString()));
        QVERIFY(!shownImage(index).isNull());
        QCOMPARE(shownImage(index), provider.icon(info).pixmap(16, 16).toImage());
    }
}

void tst_filesystemmodel::toolTip_isThePath()
{
    const CTestTree tree;
    const QString strQuoted = QStringLiteral("it's \"a & b\" 1 < 2");
    const bool bQuotes = Platform::isFileName(strQuoted);
    const QString strPath = tree.addFile(bQuotes ? strQuoted : QStringLiteral("it's a & b"));
    SListed listed(tree.path(), 1);
    listed.model.setColumnCount(4);
    for (int n = 0; n < 4; ++n)
        QCOMPARE(listed.model.index(0, n).data(Qt::ToolTipRole).toString(), strPath);
}

void tst_filesystemmodel::toolTipOfMarkup_isNotInterpreted()
{
    const CTestTree tree;
    tree.addFile(nameWithMarkup());
    const SListed listed(tree.path(), 1);
    const QModelIndex index = listed.model.index(0, 0);
    QCOMPARE(index.data().toString(), nameWithMarkup());
    QTextDocument document;
    document.setHtml(index.data(Qt::ToolTipRole).toString());
    QCOMPARE(document.toPlainText(), tree.path(index.data().toString()));
}

void tst_filesystemmodel::state_colorsTheName()
{
    const CTestTree tree;
    CFileSystemModel model;
    model.setRootPath(tree.path(), false);
    auto *pNode = new CFileNode;
    QCOMPARE(pNode->m_nState, 1);
    model.appendNode(pNode, nullptr);
    const QModelIndex index = model.index(0, 0);
    QVERIFY(!index.data(Qt::ForegroundRole).isValid());
    const QList<QPair<int, Qt::GlobalColor>> lstColors {
        {2, Qt::blue}, {3, Qt::darkRed}, {4, Qt::red}};
    for (const auto &color : lstColors) {
        pNode->m_nState = color.first;
        QCOMPARE(index.data(Qt::ForegroundRole).value<QColor>(), QColor(color.second));
    }
    pNode->m_nState = 5;
    QVERIFY(!index.data(Qt::ForegroundRole).isValid());
}

void tst_filesystemmodel::nodes_areInsertedRemovedAndFound()
{
    CFileSystemModel model;
    QAbstractItemModelTester tester(&model, Mode::QtTest);
    model.setRootPath(fromRoot("/r"), false);
    QList<CFileNode *> lstNodes;
    for (const char *szPath : {"/r/a", "/r/b", "/r/a/x"}) {
        lstNodes.append(new CFileNode);
        lstNodes.last()->setPath(fromRoot(szPath));
    }
    model.appendNode(lstNodes.at(1), nullptr);
    model.insertNode(lstNodes.at(0), model.rootNode(), 0);
    model.appendNode(lstNodes.at(2), lstNodes.at(0));
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.index(0, 0, model.index(0, 0)).data().toString(), QStringLiteral("x"));
    QCOMPARE(model.findNode(fromRoot("/r/a/x")), lstNodes.at(2));
    QCOMPARE(model.findNode(fromRoot("/r")), model.rootNode());
    QVERIFY(!model.findNode(fromRoot("/r/c")));
    model.removeNode(lstNodes.at(0));
    QCOMPARE(model.rowCount(), 1);
    QCOMPARE(model.index(0, 0).data().toString(), QStringLiteral("b"));
    QVERIFY(!model.findNode(fromRoot("/r/a/x")));
}

void tst_filesystemmodel::partners_areLinkedBothWaysAndReleased()
{
    CFileSystemModel model;
    auto *pA = new CFileNode;
    auto *pB = new CFileNode;
    model.appendNode(pA, nullptr);
    model.appendNode(pB, nullptr);
    pA->setPartner(pB);
    QCOMPARE(pB->m_pPartner, pA);
    CFileNode other;
    other.setPartner(pB);
    QVERIFY(!pA->m_pPartner);
    pA->setPartner(pB);
    QVERIFY(!other.m_pPartner);
    model.removeNode(pA);
    QVERIFY(!pB->m_pPartner);
}

void tst_filesystemmodel::refreshedNode_tellsOfItsWholeRow()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    SListed listed(tree.path(), 1);
    listed.model.setColumnCount(4);
    QCOMPARE(listed.model.index(0, 2).data().toString(), QStringLiteral("0 B"));
    tree.addFile(QStringLiteral("a"), "12345");
    QSignalSpy spy(&listed.model, &QAbstractItemModel::dataChanged);
    listed.model.refreshNode(listed.model.nodeOf(listed.model.index(0, 0)));
    QCOMPARE(spy.size(), 1);
    QCOMPARE(spy.first().at(0).toModelIndex(), listed.model.index(0, 0));
    QCOMPARE(spy.first().at(1).toModelIndex(), listed.model.index(0, 3));
    QCOMPARE(listed.model.index(0, 2).data().toString(), QStringLiteral("5 B"));
}

void tst_filesystemmodel::hundredFolders_areListed()
{
    const CTestTree tree;
    for (int n = 0; n < 100; ++n)
        tree.addFolder(QStringLiteral("folder%1/inner").arg(n, 3, 10, QLatin1Char('0')));
    const SListed listed(tree.path(), 100);
    QVERIFY(listed.bFilled);
    QCOMPARE(listed.names().at(42), QStringLiteral("folder042"));
    QCOMPARE(listed.model.rowCount(listed.model.index(42, 0)), 0);
}

void tst_filesystemmodel::fiftyThousandFiles_areListedInOneInsertion()
{
    const CTestTree tree;
    tree.addFiles(50000);
    CFileSystemModel model;
    model.setScanSubDirs(false);
    QSignalSpy spy(&model, &QAbstractItemModel::rowsInserted);
    model.setRootPath(tree.path(), true);
    QTRY_COMPARE_WITH_TIMEOUT(model.rowCount(), 50000, 20000);
    QCOMPARE(spy.size(), 1);
    QCOMPARE(model.index(49999, 0).data().toString(), QStringLiteral("file49999.txt"));
}

void tst_filesystemmodel::folderWithoutPermission_isEmpty()
{
#ifndef Q_OS_LINUX
    QSKIP("Nothing takes this program's permissions away here.");
#endif
    const CTestTree tree;
    const QString strClosed = tree.addFolder(QStringLiteral("closed"));
    tree.addFile(QStringLiteral("closed/file"));
    QFile::setPermissions(strClosed, {});
    const CUnprivileged unprivileged;
    CFileSystemModel model;
    QSignalSpy spyEnded(&model, &CFileSystemModel::fetchEnded);
    model.setRootPath(strClosed, true);
    QTRY_VERIFY(!spyEnded.isEmpty());
    QCOMPARE(model.rowCount(), 0);
    QFile::setPermissions(strClosed, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

void tst_filesystemmodel::destructionDuringAListing_isClean()
{
    const CTestTree tree;
    tree.addFiles(5000);
    tree.addFolder(QStringLiteral("a/b/c"));
    for (int nDelay = 0; nDelay < 60; nDelay += 3) {
        auto pModel = std::make_unique<CFileSystemModel>();
        pModel->setRootPath(tree.path(), true);
        QTest::qWait(nDelay); // Before, in and behind the listing.
        QElapsedTimer timer;
        timer.start();
        if (nDelay % 2 == 1)
            pModel->stop(); // Does what the panel does.
        pModel.reset();
        QVERIFY(timer.elapsed() < 5000);
        QCoreApplication::processEvents(); // Queued events must find no receiver.
    }
}

void tst_filesystemmodel::destroyedModel_clearsItsView()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    QTreeView view;
    auto pListed = std::make_unique<SListed>(tree.path(), 1);
    view.setModel(&pListed->model);
    QSignalSpy spy(&pListed->model, &QAbstractItemModel::rowsRemoved);
    pListed.reset();
    QCOMPARE(spy.size(), 1);
    QVERIFY(view.model() == nullptr || view.model()->rowCount() == 0);
}

QTEST_MAIN(tst_filesystemmodel)
#include "tst_filesystemmodel.moc"
