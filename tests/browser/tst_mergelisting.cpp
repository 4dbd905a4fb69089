// Bringing a folder's rows up to date always gives what a fresh listing would show.
#include "browser/cfilesystemmodel.h"
#include "browser/testtree.h"

#include <QAbstractItemModelTester>
#include <QItemSelectionModel>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QtTest>

// A model whose folder is listed without a thread.
struct SShown
{
    explicit SShown(const QString &strFolder)
        : tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        model.setRootPath(strFolder, false);
        model.onNewListOfFiles(strFolder, entries());
    }

    QFileInfoList entries() const
    {
        return QDir(model.rootPath()).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }
    bool merge() { return model.mergeListing(model.rootPath(), createNodes(entries())); }
    QStringList names() const
    {
        QStringList lst;
        for (int n = 0; n < model.rowCount(); ++n)
            lst.append(model.index(n, 0).data().toString());
        return lst;
    }

    CFileSystemModel model;
    QAbstractItemModelTester tester;
};

class tst_mergelisting : public QObject
{
    Q_OBJECT

private slots:
    void unlistedFolder_takesNothing();
    void unchangedFolder_movesNoRow();
    void changes_areMadeRowByRow();
    void selection_stays();
    void fileInAFoldersPlace_isANewRow();
    void anyChanges_giveWhatAFreshListingGives();
    void rowNumbers_areRightAfterwards();
};

void tst_mergelisting::unlistedFolder_takesNothing()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    CFileSystemModel model;
    model.setRootPath(tree.path(), false);
    const QFileInfoList lst {QFileInfo(tree.path(QStringLiteral("a")))};
    QVERIFY(!model.mergeListing(tree.path(), createNodes(lst)));
    QCOMPARE(model.rowCount(), 0);
    model.onNewListOfFiles(tree.path(), {});
    QVERIFY(!model.mergeListing(QStringLiteral("/elsewhere"), createNodes(lst)));
    QVERIFY(model.mergeListing(tree.path(), createNodes(lst)));
    QCOMPARE(model.rowCount(), 1);
}

void tst_mergelisting::unchangedFolder_movesNoRow()
{
    const CTestTree tree;
    tree.addFiles(100);
    SShown shown(tree.path());
    const QSignalSpy spyIn(&shown.model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy spyOut(&shown.model, &QAbstractItemModel::rowsRemoved);
    const QSignalSpy spyReset(&shown.model, &QAbstractItemModel::modelReset);
    QVERIFY(shown.merge());
    QCOMPARE(spyIn.size() + spyOut.size() + spyReset.size(), 0);
    QCOMPARE(shown.model.rowCount(), 100);
}

void tst_mergelisting::changes_areMadeRowByRow()
{
    const CTestTree tree;
    tree.addFiles(100);
    SShown shown(tree.path());
    const QSignalSpy spyIn(&shown.model, &QAbstractItemModel::rowsInserted);
    const QSignalSpy spyOut(&shown.model, &QAbstractItemModel::rowsRemoved);
    QFile::remove(tree.path(QStringLiteral("file00010.txt")));
    QFile::remove(tree.path(QStringLiteral("file00011.txt")));
    tree.addFile(QStringLiteral("file00050a.txt"));
    tree.addFile(QStringLiteral("file00050b.txt"));
    tree.addFolder(QStringLiteral("folder"));
    shown.merge();
    QCOMPARE(spyOut.size(), 1);
    QCOMPARE(spyIn.size(), 2);
    QCOMPARE(shown.names(), SShown(tree.path()).names());
}

void tst_mergelisting::selection_stays()
{
    const CTestTree tree;
    tree.addFiles(20);
    SShown shown(tree.path());
    QItemSelectionModel selection(&shown.model);
    selection.select(shown.model.index(5, 0), QItemSelectionModel::Select);
    selection.select(shown.model.index(9, 0), QItemSelectionModel::Select);
    QFile::remove(tree.path(QStringLiteral("file00009.txt")));
    QFile::remove(tree.path(QStringLiteral("file00000.txt")));
    tree.addFile(QStringLiteral("another"));
    shown.merge();
    const QModelIndexList lst = selection.selectedIndexes();
    QCOMPARE(lst.size(), 1);
    QCOMPARE(lst.first().data().toString(), QStringLiteral("file00005.txt"));
}

void tst_mergelisting::fileInAFoldersPlace_isANewRow()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    tree.addFolder(QStringLiteral("z"));
    SShown shown(tree.path());
    QCOMPARE(shown.names(), QStringList({"z", "a"}));
    QVERIFY(QDir().rmdir(tree.path(QStringLiteral("z"))));
    tree.addFile(QStringLiteral("z"));
    shown.merge();
    QCOMPARE(shown.names(), QStringList({"a", "z"}));
}

void tst_mergelisting::anyChanges_giveWhatAFreshListingGives()
{
    QRandomGenerator random(20);
    const CTestTree tree;
    SShown shown(tree.path());
    const auto name = [&random]() -> QString {
        const QString strLetters = QStringLiteral("aAbBzé_.");
        QString strName;
        for (int n = random.bounded(1, 4); n > 0; --n)
            strName.append(strLetters.at(random.bounded(8)));
        return QLatin1Char('x') + strName;
    };
    for (int nRound = 0; nRound < 150; ++nRound) {
        for (int n = random.bounded(20); n > 0; --n) {
            const QString strPath = tree.path(name());
            if (QFileInfo(strPath).isDir())
                QDir().rmdir(strPath);
            else if (QFileInfo::exists(strPath))
                QFile::remove(strPath);
            else if (random.bounded(4) == 0)
                QDir().mkdir(strPath);
            else
                tree.addFile(QFileInfo(strPath).fileName());
        }
        QVERIFY(shown.merge());
        const QStringList lstFresh = SShown(tree.path()).names();
        QStringList lstShown = shown.names();
        // Names that differ in case only keep their places among each other.
        for (int n = 0; n < lstFresh.size(); ++n)
            QCOMPARE(lstShown.value(n).toLower(), lstFresh.at(n).toLower());
        QCOMPARE(QSet<QString>(lstShown.begin(), lstShown.end()),
                 QSet<QString>(lstFresh.begin(), lstFresh.end()));
        QCOMPARE(lstShown.size(), lstFresh.size());
    }
}

void tst_mergelisting::rowNumbers_areRightAfterwards()
{
    const CTestTree tree;
    tree.addFiles(10);
    SShown shown(tree.path());
    QFile::remove(tree.path(QStringLiteral("file00003.txt")));
    tree.addFile(QStringLiteral("a"));
    tree.addFile(QStringLiteral("z"));
    shown.merge();
    for (int n = 0; n < shown.model.rowCount(); ++n)
        QCOMPARE(shown.model.nodeOf(shown.model.index(n, 0))->m_nRow, n);
}

QTEST_MAIN(tst_mergelisting)
#include "tst_mergelisting.moc"
