#include "findinfiles/cnamepatterns.h"

#include <QtTest>

class tst_namepatterns : public QObject
{
    Q_OBJECT

private slots:
    void name_isWantedOrNot_data();
    void name_isWantedOrNot();
};

void tst_namepatterns::name_isWantedOrNot_data()
{
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("wanted");
    QTest::newRow("none") << ""
                          << "a.cpp" << true;
    QTest::newRow("blanks") << " ; ,"
                            << "a.cpp" << true;
    QTest::newRow("suffix") << "*.cpp"
                            << "a.cpp" << true;
    QTest::newRow("other suffix") << "*.cpp"
                                  << "a.cpp.orig" << false;
    QTest::newRow("case") << "*.CPP"
                          << "a.cpp" << true;
    QTest::newRow("second") << "*.cpp; *.h"
                            << "a.h" << true;
    QTest::newRow("comma") << "*.cpp,*.h"
                           << "a.h" << true;
    QTest::newRow("neither") << "*.cpp; *.h"
                             << "a.hpp" << false;
    QTest::newRow("whole name") << "Makefile"
                                << "makefile" << true;
    QTest::newRow("part of a name") << "file"
                                    << "makefile" << false;
    QTest::newRow("question mark") << "a?.txt"
                                   << "ab.txt" << true;
    QTest::newRow("question mark, none") << "a?.txt"
                                         << "a.txt" << false;
    QTest::newRow("class") << "a[0-9].txt"
                           << "a5.txt" << true;
    QTest::newRow("class, none") << "a[0-9].txt"
                                 << "ax.txt" << false;
    QTest::newRow("star in between") << "a*z"
                                     << "abcz" << true;
    QTest::newRow("everything") << "*"
                                << "x" << true;
    QTest::newRow("unwanted") << "!*.o"
                              << "a.o" << false;
    QTest::newRow("not unwanted") << "!*.o"
                                  << "a.c" << true;
    QTest::newRow("wanted and unwanted") << "*.c; !test*"
                                         << "test.c" << false;
    QTest::newRow("line end in the name") << "*a*"
                                          << "b\nab" << true;
}

void tst_namepatterns::name_isWantedOrNot()
{
    QFETCH(QString, patterns);
    QFETCH(QString, name);
    QFETCH(bool, wanted);
    QCOMPARE(CNamePatterns(patterns).matches(name), wanted);
}

QTEST_GUILESS_MAIN(tst_namepatterns)
#include "tst_namepatterns.moc"
