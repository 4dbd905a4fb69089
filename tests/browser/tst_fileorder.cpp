#include "app/commonhelpers.h"
#include "browser/fileorder.h"
#include "browser/testtree.h"

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>

class tst_fileorder : public QObject
{
    Q_OBJECT

private slots:
    void foldersComeBeforeFiles();
    void equalNames_keepTheirOrder();
    void randomListings_equalAStableSort();
};

static QStringList paths(const QFileInfoList &lstInfos)
{
    QStringList lstPaths;
    for (const QFileInfo &info : lstInfos)
        lstPaths.append(info.filePath());
    return lstPaths;
}

static QFileInfoList literalSort(QFileInfoList lstInfos)
{
    std::stable_sort(lstInfos.begin(), lstInfos.end(), lessFileInfo);
    return lstInfos;
}

void tst_fileorder::foldersComeBeforeFiles()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"));
    tree.addFolder(QStringLiteral("z"));
    const QFileInfoList lst {QFileInfo(tree.path(QStringLiteral("a"))),
                             QFileInfo(QStringLiteral("/")),
                             QFileInfo(tree.path(QStringLiteral("z")))};
    QCOMPARE(paths(sortedFileInfos(lst)),
             QStringList({QStringLiteral("/"), tree.path(QStringLiteral("z")),
                          tree.path(QStringLiteral("a"))}));
}

void tst_fileorder::equalNames_keepTheirOrder()
{
    const QFileInfoList lst {QFileInfo(QStringLiteral("/x/B")), QFileInfo(QStringLiteral("/x/b")),
                             QFileInfo(QStringLiteral("/x/a")), QFileInfo(QStringLiteral("/y/B"))};
    QCOMPARE(paths(sortedFileInfos(lst)),
             QStringList({QStringLiteral("/x/a"), QStringLiteral("/x/B"), QStringLiteral("/x/b"),
                          QStringLiteral("/y/B")}));
}

// Few letters, so that many names are equal but for case; letters whose lower case is longer, and
// pairs outside the basic plane.
void tst_fileorder::randomListings_equalAStableSort()
{
    const CTestTree tree;
    const QStringList lstLetters {QStringLiteral("a"),
                                  QStringLiteral("A"),
                                  QStringLiteral("ä"),
                                  QStringLiteral("Ä"),
                                  QStringLiteral("İ"),
                                  QStringLiteral("ß"),
                                  QStringLiteral("."),
                                  QString::fromUcs4(U"\U00010400", 1),
                                  QString::fromUcs4(U"\U00010428", 1),
                                  QStringLiteral("\n")};
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

QTEST_GUILESS_MAIN(tst_fileorder)
#include "tst_fileorder.moc"
