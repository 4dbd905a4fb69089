#include "mainwindow/tabnames.h"

#include <QtTest>

class tst_tabnames : public QObject
{
    Q_OBJECT

private slots:
    void folders_data()
    {
        QTest::addColumn<QStringList>("names"); // Title and path in turn.
        QTest::addColumn<QStringList>("folders");
        QTest::newRow("none") << QStringList() << QStringList();
        QTest::newRow("different names need none")
            << QStringList({"a.txt", "/x/a.txt", "b.txt", "/x/b.txt"}) << QStringList({"", ""});
        QTest::newRow("one folder tells them apart")
            << QStringList({"a.txt", "/w/x/a.txt", "a.txt", "/w/y/a.txt", "b", "/w/x/b"})
            << QStringList({"…/x", "…/y", ""});
        QTest::newRow("two folders tell them apart")
            << QStringList({"a", "/w/one/src/a", "a", "/w/two/src/a"})
            << QStringList({"…/one/src", "…/two/src"});
        QTest::newRow("each takes as few as it needs")
            << QStringList({"a", "/w/one/src/a", "a", "/w/two/src/a", "a", "/w/two/test/a"})
            << QStringList({"…/one/src", "…/two/src", "…/test"});
        QTest::newRow("a path that is the end of another")
            << QStringList({"a", "/src/a", "a", "/w/src/a"}) << QStringList({"/src", "/w/src"});
        QTest::newRow("in the root")
            << QStringList({"a", "/a", "a", "/w/a"}) << QStringList({"/", "/w"});
        QTest::newRow("modified ones are alike, too")
            << QStringList({"a*", "/v/x/a", "a", "/v/y/a"}) << QStringList({"…/x", "…/y"});
        QTest::newRow("untitled ones cannot be told apart")
            << QStringList({"Untitled", "", "Untitled*", "", "Untitled", "/w/Untitled"})
            << QStringList({"", "", "/w"});
        QTest::newRow("pages of one title in one folder")
            << QStringList({"Home", "/w/p/a.html", "Home", "/w/p/b.html"})
            << QStringList({"…/a.html", "…/b.html"});
        QTest::newRow("the same path twice")
            << QStringList({"a", "/w/x/a", "a", "/w/x/a"}) << QStringList({"/w/x", "/w/x"});
        QTest::newRow("another case is another folder")
            << QStringList({"a", "/v/w/a", "a", "/v/W/a"}) << QStringList({"…/w", "…/W"});
        QTest::newRow("relative") << QStringList({"a", "a", "a", "x/a"}) << QStringList({"", "x"});
    }

    void folders()
    {
        QFETCH(QStringList, names);
        QVector<STabName> lstNames;
        for (int n = 0; n < names.size(); n += 2)
            lstNames.append({names.at(n), names.at(n + 1)});
        QFETCH(QStringList, folders);
        for (QString &strFolder : folders)
            strFolder = QDir::toNativeSeparators(strFolder);
        QCOMPARE(foldersToTellApart(lstNames), folders);
    }

    void controlSigns_areBlanks()
    {
        QCOMPARE(onOneLine(QStringLiteral("a\tb\nc\u2028d e")), QStringLiteral("a b c d e"));
    }
};

QTEST_GUILESS_MAIN(tst_tabnames)
#include "tst_tabnames.moc"
