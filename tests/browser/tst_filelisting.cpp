#include "app/commonhelpers.h"
#include "browser/filelisting.h"
#include "browser/testtree.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>

class tst_filelisting : public QObject
{
    Q_OBJECT

private slots:
    void foldersComeBeforeFiles();
    void equalNames_keepTheirOrder();
    void randomListings_equalAStableSort();
    void preparedNodes_belongToTheirListing();
};

static QStringList paths(const QFileInfoList &lstInfos)
{
    QStringList lstPaths;
    for (const QFileInfo &info : lstInfos)
        lstPaths.append(native(info.filePath()));
    return lstPaths;
}

static QFileInfoList literalSort(QFileInfoList lstInfos)
{
    std::stable_sort(lstInfos.begin(), lstInfos.end(), lessFileInfo);
    return lstInfos;
}

void tst_filelisting::foldersComeBeforeFiles()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    tree.addFolder(QStringLiteral("z"));
    const QFileInfoList lst {QFileInfo(tree.path(QStringLiteral("a"))),
                             QFileInfo(QStringLiteral("/")),
                             QFileInfo(tree.path(QStringLiteral("z")))};
    QCOMPARE(paths(sortedFileInfos(lst)),
             QStringList({native(QStringLiteral("/")), tree.path(QStringLiteral("z")),
                          tree.path(QStringLiteral("a"))}));
}

void tst_filelisting::equalNames_keepTheirOrder()
{
    const QFileInfoList lst {QFileInfo(QStringLiteral("/x/B")), QFileInfo(QStringLiteral("/x/b")),
                             QFileInfo(QStringLiteral("/x/a")), QFileInfo(QStringLiteral("/y/B"))};
    QCOMPARE(paths(sortedFileInfos(lst)),
             QStringList({native(QStringLiteral("/x/a")), native(QStringLiteral("/x/B")),
                          native(QStringLiteral("/x/b")), native(QStringLiteral("/y/B"))}));
}

// Few letters, so that many names are equal but for case; letters whose lower case is longer, and
// pairs outside the basic plane.
void tst_filelisting::randomListings_equalAStableSort()
{
    const CTestTree tree;
    QStringList lstLetters {QStringLiteral("a"),
                            QStringLiteral("A"),
                            QStringLiteral("ä"),
                            QStringLiteral("Ä"),
                            QStringLiteral("İ"),
                            QStringLiteral("ß"),
                            QString::fromUcs4(U"\U00010400", 1),
                            QString::fromUcs4(U"\U00010428", 1)};
#ifndef Q_OS_WIN // Takes no such names.
    lstLetters += {QStringLiteral("."), QStringLiteral("\n")};
#endif
    QRandomGenerator random(7);
    for (int nRound = 0; nRound < 200; ++nRound) {
        QFileInfoList lst;
        for (int n = random.bounded(60); n > 0; --n) {
            QString strName = QStringLiteral("x");
            for (int nLetter = random.bounded(3); nLetter >= 0; --nLetter)
                strName += lstLetters.at(random.bounded(lstLetters.size()));
            if (random.bounded(3) == 0)
                tree.addFolder(strName);
            lst.append(QFileInfo(tree.path(strName)));
        }
        if (random.bounded(4) == 0)
            lst.append(QFileInfo(QStringLiteral("/")));
        QCOMPARE(paths(sortedFileInfos(lst)), paths(literalSort(lst)));
    }
}

void tst_filelisting::preparedNodes_belongToTheirListing()
{
    const QFileInfoList lstFirst {QFileInfo(QStringLiteral("/x/b")),
                                  QFileInfo(QStringLiteral("/x/a"))};
    const QFileInfoList lstEqual {QFileInfo(QStringLiteral("/x/b")),
                                  QFileInfo(QStringLiteral("/x/a"))};
    CPreparedListings prepared;
    prepared.prepare(lstEqual);
    prepared.prepare(lstFirst);
    for (int n = 0; n < 2; ++n) { // Prepared the first time, made on the spot the second.
        const FileNodes nodes = prepared.take(lstFirst);
        QCOMPARE(nodes.size(), size_t(2));
        QCOMPARE(nodes.at(0)->m_strPath, fromRoot("/x/a"));
        QCOMPARE(nodes.at(1)->m_strPath, fromRoot("/x/b"));
        QVERIFY(!nodes.at(0)->m_pParent);
    }
    prepared.clear();
    QVERIFY(prepared.take({}).empty());
}

QTEST_GUILESS_MAIN(tst_filelisting)
#include "tst_filelisting.moc"
