#include "app/platform.h"
#include "browser/cfileactions.h"
#include "browser/testtree.h"

#include <QtTest>

class tst_fileactions : public QObject
{
    Q_OBJECT

private slots:
    void renamedFile_hasItsNewName();
    void renameToATakenName_changesNothing_data();
    void renameToATakenName_changesNothing();
    void renameToNoName_changesNothing_data();
    void renameToNoName_changesNothing();
    void renameToItself_isNoAction();
    void renamedFolder_keepsItsContent();
    void renamedLink_staysALink();
    void trashedFiles_areTakenBack();
    void trashOfAGoneFile_saysSo();
    void newFolders_takeFreeNames();
    void newFolderWhereNoneCanBe_saysSo();
    void newFolder_isTakenBackWhileEmpty();
    void actions_areTakenBackLastFirst();
    void takenBackRename_overwritesNothing();
    void nothingToTakeBack_isSaid();
};

static QByteArray content(const QString &strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

void tst_fileactions::renamedFile_hasItsNewName()
{
    const CTestTree tree;
    const QString strOld = tree.addFile(QStringLiteral("a"), "text");
    CFileActions actions;
    const CFileActions::SResult result = actions.rename(strOld, nameWithSign());
    QVERIFY(result.bDone);
    QVERIFY(result.bRenamed);
    QCOMPARE(result.lstMoves.size(), 1);
    QCOMPARE(result.lstMoves.first().strFrom, strOld);
    QCOMPARE(result.lstMoves.first().strTo, tree.path(nameWithSign()));
    QCOMPARE(content(tree.path(nameWithSign())), QByteArray("text"));
    QVERIFY(!QFile::exists(strOld));
    QVERIFY(!result.strMessage.contains(nameWithSign())); // But with the sign's number.
}

void tst_fileactions::renameToATakenName_changesNothing_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("file to file") << "file"
                                  << "other";
    QTest::newRow("file to folder") << "file"
                                    << "folder";
    QTest::newRow("file to link") << "file" << linkName("dangling");
    QTest::newRow("folder to empty folder") << "folder"
                                            << "empty";
    QTest::newRow("folder to file") << "folder"
                                    << "other";
    QTest::newRow("link to file") << linkName("dangling") << "other";
}

void tst_fileactions::renameToATakenName_changesNothing()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const CTestTree tree;
    tree.addFile(QStringLiteral("file"), "1");
    tree.addFile(QStringLiteral("other"), "2");
    tree.addFolder(QStringLiteral("folder"));
    tree.addFile(QStringLiteral("folder/inner"), "3");
    tree.addFolder(QStringLiteral("empty"));
    tree.addLink(linkName("dangling"), QStringLiteral("/nowhere/at/all"));
    CFileActions actions;
    const CFileActions::SResult result = actions.rename(tree.path(from), to);
    QVERIFY(!result.bDone);
    QVERIFY(result.lstMoves.isEmpty());
    QVERIFY(!result.strMessage.isEmpty());
    QCOMPARE(content(tree.path(QStringLiteral("file"))), QByteArray("1"));
    QCOMPARE(content(tree.path(QStringLiteral("other"))), QByteArray("2"));
    QCOMPARE(content(tree.path(QStringLiteral("folder/inner"))), QByteArray("3"));
    QVERIFY(QFileInfo(tree.path(QStringLiteral("empty"))).isDir());
    QVERIFY(QFileInfo(tree.path(linkName("dangling"))).isSymLink());
}

void tst_fileactions::renameToNoName_changesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("empty") << "";
    QTest::newRow("dot") << ".";
    QTest::newRow("dots") << "..";
    QTest::newRow("path") << "sub/b";
    QTest::newRow("upwards") << "../b";
    QTest::newRow("zero") << QString("b") + QChar(0);
    QTest::newRow("too long") << QString(300, 'b');
}

void tst_fileactions::renameToNoName_changesNothing()
{
    QFETCH(QString, name);
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub"));
    const QString strPath = tree.addFile(QStringLiteral("a"), "text");
    CFileActions actions;
    const CFileActions::SResult result = actions.rename(strPath, name);
    QVERIFY(!result.bDone);
    QVERIFY(!result.strMessage.isEmpty());
    QCOMPARE(content(strPath), QByteArray("text"));
}

void tst_fileactions::renameToItself_isNoAction()
{
    const CTestTree tree;
    const QString strPath = tree.addFile(QStringLiteral("a"), "text");
    CFileActions actions;
    const CFileActions::SResult result = actions.rename(strPath, QStringLiteral("a"));
    QVERIFY(!result.bDone);
    QVERIFY(result.strMessage.isEmpty());
    QVERIFY(!actions.takeBack().bDone);
}

void tst_fileactions::renamedFolder_keepsItsContent()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("old"));
    tree.addFile(QStringLiteral("old/inner"), "text");
    CFileActions actions;
    QVERIFY(actions.rename(tree.path(QStringLiteral("old")), QStringLiteral("new")).bDone);
    QCOMPARE(content(tree.path(QStringLiteral("new/inner"))), QByteArray("text"));
}

void tst_fileactions::renamedLink_staysALink()
{
    const CTestTree tree;
    const QString strTarget = tree.addFile(QStringLiteral("target"), "text");
    const QString strLink = tree.addLink(linkName("link"), strTarget);
    CFileActions actions;
    QVERIFY(actions.rename(strLink, linkName("renamed")).bDone);
    QCOMPARE(native(QFileInfo(tree.path(linkName("renamed"))).symLinkTarget()), strTarget);
    QVERIFY(QFile::exists(strTarget));
}

void tst_fileactions::trashedFiles_areTakenBack()
{
    const CTestTree tree;
    const QString strFile = tree.addFile(QStringLiteral("a"), "text");
    const QString strFolder = tree.addFolder(QStringLiteral("folder"));
    tree.addFile(QStringLiteral("folder/inner"), "inner");
    CFileActions actions;
    const CFileActions::SResult trashed = actions.moveToTrash({strFile, strFolder});
    QVERIFY2(trashed.bDone, qPrintable(trashed.strMessage));
    QVERIFY(!trashed.bRenamed);
    QVERIFY(!QFile::exists(strFile));
    QVERIFY(!QFile::exists(strFolder));
#ifdef Q_OS_WIN
    if (QOperatingSystemVersion::current() <= QOperatingSystemVersion::Windows7) {
        QVERIFY(!trashed.strMessage.contains(QLatin1String("Ctrl+Z")));
        const CFileActions::SResult takenBack = actions.takeBack();
        QVERIFY(!takenBack.bDone);
        QVERIFY(!takenBack.strMessage.isEmpty());
        QSKIP("This system's trash does not tell where a file is in it.");
    }
#endif
    QCOMPARE(content(trashed.lstMoves.first().strTo), QByteArray("text"));

    QVERIFY(actions.takeBack().bDone);
    QCOMPARE(content(strFile), QByteArray("text"));
    QCOMPARE(content(strFolder + QStringLiteral("/inner")), QByteArray("inner"));
    const QDir trash = QFileInfo(trashed.lstMoves.first().strTo).dir();
    QCOMPARE(QDir(trash.filePath(QStringLiteral("../info"))).entryList(QDir::Files),
             QStringList()); // Nor does the trash remember them.
}

void tst_fileactions::trashOfAGoneFile_saysSo()
{
    const CTestTree tree;
    CFileActions actions;
    const CFileActions::SResult result =
        actions.moveToTrash({tree.path(QStringLiteral("nothing"))});
    QVERIFY(!result.bDone);
    QVERIFY(!result.strMessage.isEmpty());
    QVERIFY(!actions.takeBack().bDone);
}

void tst_fileactions::newFolders_takeFreeNames()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("New folder 2"), "text");
    CFileActions actions;
    for (const char *szName : {"New folder", "New folder 3", "New folder 4"}) {
        const CFileActions::SResult result = actions.makeFolder(tree.path());
        QVERIFY(result.bDone);
        QCOMPARE(result.lstMoves.first().strTo, tree.path(QLatin1String(szName)));
        QVERIFY(QFileInfo(result.lstMoves.first().strTo).isDir());
    }
    QCOMPARE(content(tree.path(QStringLiteral("New folder 2"))), QByteArray("text"));
}

void tst_fileactions::newFolderWhereNoneCanBe_saysSo()
{
    const CTestTree tree;
    CFileActions actions;
    for (const QString &strFolder : {tree.path(QStringLiteral("nothing")), QString()}) {
        const CFileActions::SResult result = actions.makeFolder(strFolder);
        QVERIFY(!result.bDone);
        QVERIFY(!result.strMessage.isEmpty());
    }
}

void tst_fileactions::newFolder_isTakenBackWhileEmpty()
{
    const CTestTree tree;
    CFileActions actions;
    actions.makeFolder(tree.path());
    QVERIFY(actions.takeBack().bDone);
    QVERIFY(!QFile::exists(tree.path(QStringLiteral("New folder"))));

    actions.makeFolder(tree.path());
    tree.addFile(QStringLiteral("New folder/a"), "text");
    const CFileActions::SResult result = actions.takeBack();
    QVERIFY(!result.bDone);
    QVERIFY(!result.strMessage.isEmpty());
    QCOMPARE(content(tree.path(QStringLiteral("New folder/a"))), QByteArray("text"));
}

void tst_fileactions::actions_areTakenBackLastFirst()
{
    const CTestTree tree;
    const QString strA = tree.addFile(QStringLiteral("a"), "text");
    CFileActions actions;
    actions.rename(strA, QStringLiteral("b"));
    actions.rename(tree.path(QStringLiteral("b")), QStringLiteral("c"));
    const CFileActions::SResult first = actions.takeBack();
    QVERIFY(first.bRenamed);
    QCOMPARE(first.lstMoves.first().strFrom, tree.path(QStringLiteral("c")));
    QCOMPARE(first.lstMoves.first().strTo, tree.path(QStringLiteral("b")));
    QVERIFY(actions.takeBack().bDone);
    QCOMPARE(content(strA), QByteArray("text"));
    QVERIFY(!actions.takeBack().bDone);
}

void tst_fileactions::takenBackRename_overwritesNothing()
{
    const CTestTree tree;
    const QString strA = tree.addFile(QStringLiteral("a"), "old");
    CFileActions actions;
    actions.rename(strA, QStringLiteral("b"));
    tree.addFile(QStringLiteral("a"), "new");
    const CFileActions::SResult result = actions.takeBack();
    QVERIFY(!result.bDone);
    QVERIFY(!result.strMessage.isEmpty());
    QCOMPARE(content(strA), QByteArray("new"));
    QCOMPARE(content(tree.path(QStringLiteral("b"))), QByteArray("old"));
}

void tst_fileactions::nothingToTakeBack_isSaid()
{
    CFileActions actions;
    const CFileActions::SResult result = actions.takeBack();
    QVERIFY(!result.bDone);
    QVERIFY(!result.strMessage.isEmpty());
}

QTEST_GUILESS_MAIN(tst_fileactions)
#include "tst_fileactions.moc"
