#include "browser/cfolderfollower.h"
#include "browser/testtree.h"

#include <QSignalSpy>
#include <QtTest>

// A follower and its listings.
struct SFollowed
{
    SFollowed() : spy(&follower, &CFolderFollower::listed) { }

    QStringList names() const
    {
        QStringList lst;
        if (!spy.isEmpty()) {
            const auto lstInfos = spy.last().at(1).value<QFileInfoList>();
            for (const QFileInfo &info : lstInfos)
                lst.append(info.fileName());
        }
        lst.sort();
        return lst;
    }

    CFolderFollower follower;
    QSignalSpy spy;
};

class tst_folderfollower : public QObject
{
    Q_OBJECT

private slots:
    void newFile_isListed();
    void goneFile_isListed();
    void tenThousandChanges_costOneListing();
    void endlessChanges_areListedMeanwhile();
    void anotherFolder_isNoLongerFollowed();
    void refresh_listsAtOnce();
    void folderThatComesBack_isFollowedAgain();
    void goneFolder_isEmpty();
    void destructionDuringAListing_isClean();
    void request_doesNotCutOffTheListing();
};

void tst_folderfollower::newFile_isListed()
{
    const CTestTree tree;
    SFollowed followed;
    followed.follower.follow(tree.path());
    tree.addFile(QStringLiteral("a"));
    QTRY_COMPARE(followed.names(), QStringList(QStringLiteral("a")));
    QCOMPARE(followed.spy.last().first().toString(), tree.path());
}

void tst_folderfollower::goneFile_isListed()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    tree.addFile(QStringLiteral("b"));
    SFollowed followed;
    followed.follower.follow(tree.path());
    QFile::remove(tree.path(QStringLiteral("a")));
    QTRY_COMPARE(followed.names(), QStringList(QStringLiteral("b")));
}

void tst_folderfollower::tenThousandChanges_costOneListing()
{
    const CTestTree tree;
    SFollowed followed;
    followed.follower.follow(tree.path());
    for (int n = 0; n < 100; ++n) {
        makeFiles(tree.addFolder(QStringLiteral("f%1").arg(n)), 1);
        for (int nFile = 0; nFile < 50; ++nFile) {
            tree.addFile(QStringLiteral("temporary"));
            QFile::remove(tree.path(QStringLiteral("temporary")));
        }
    }
    QTRY_COMPARE(followed.names().size(), 100);
    QCOMPARE(followed.spy.size(), 1);
    QVERIFY(!QTest::qWaitFor([&] { return followed.spy.size() > 1; }, 500));
}

void tst_folderfollower::endlessChanges_areListedMeanwhile()
{
    const CTestTree tree;
    SFollowed followed;
    followed.follower.follow(tree.path());
    QTimer timer;
    int nFiles = 0;
    connect(&timer, &QTimer::timeout, this, [&] { tree.addFile(QString::number(++nFiles)); });
    timer.start(20); // The changes never pause.
    QTRY_VERIFY(!followed.spy.isEmpty());
}

void tst_folderfollower::anotherFolder_isNoLongerFollowed()
{
    const CTestTree first;
    const CTestTree second;
    SFollowed followed;
    followed.follower.follow(first.path());
    followed.follower.follow(second.path());
    first.addFile(QStringLiteral("a"));
    second.addFile(QStringLiteral("b"));
    QTRY_COMPARE(followed.names(), QStringList(QStringLiteral("b")));
    followed.follower.follow(QString());
    second.addFile(QStringLiteral("c"));
    QVERIFY(!QTest::qWaitFor([&] { return followed.spy.size() > 1; }, 500));
}

void tst_folderfollower::refresh_listsAtOnce()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    SFollowed followed;
    followed.follower.follow(tree.path());
    followed.follower.refresh();
    QTRY_COMPARE(followed.names(), QStringList(QStringLiteral("a")));
    const auto lstInfos = followed.spy.last().at(1).value<QFileInfoList>();
    const FileNodes nodes = followed.follower.takeNodes(lstInfos);
    QCOMPARE(int(nodes.size()), 1);
    QCOMPARE(nodes.front()->m_strPath, tree.path(QStringLiteral("a")));
}

void tst_folderfollower::folderThatComesBack_isFollowedAgain()
{
    const CTestTree tree;
    const QString strFolder = tree.addFolder(QStringLiteral("sub"));
    SFollowed followed;
    followed.follower.follow(strFolder);
    QVERIFY(QDir().rmdir(strFolder));
#ifdef Q_OS_WIN // Which tells of the files in a folder, not of the folder itself.
    followed.follower.refresh();
#endif
    QTRY_COMPARE(followed.spy.size(), 1);
    tree.addFolder(QStringLiteral("sub"));
    followed.follower.refresh();
    QTRY_COMPARE(followed.spy.size(), 2);
    tree.addFile(QStringLiteral("sub/a"));
    QTRY_COMPARE(followed.names(), QStringList(QStringLiteral("a")));
}

void tst_folderfollower::goneFolder_isEmpty()
{
    const CTestTree tree;
    const QString strFolder = tree.addFolder(QStringLiteral("sub"));
    tree.addFile(QStringLiteral("sub/a"));
    SFollowed followed;
    followed.follower.follow(strFolder);
    QVERIFY(QDir(strFolder).removeRecursively());
    QTRY_COMPARE(followed.spy.size(), 1);
    QCOMPARE(followed.names(), QStringList());
}

void tst_folderfollower::destructionDuringAListing_isClean()
{
    const CTestTree tree;
    tree.addFiles(5000);
    for (int n = 0; n < 5; ++n) {
        CFolderFollower follower;
        follower.follow(tree.path());
        follower.refresh();
    }
}

void tst_folderfollower::request_doesNotCutOffTheListing()
{
    const CTestTree tree;
    tree.addFiles(5000);
    SFollowed followed;
    followed.follower.follow(tree.path());
    for (int n = 0; n < 10; ++n)
        followed.follower.refresh();
    QTRY_COMPARE(followed.spy.size(), 2); // The running listing, and one for all other changes.
    for (const QList<QVariant> &lstCall : qAsConst(followed.spy))
        QCOMPARE(lstCall.at(1).value<QFileInfoList>().size(), 5000);
}

QTEST_MAIN(tst_folderfollower)
#include "tst_folderfollower.moc"
