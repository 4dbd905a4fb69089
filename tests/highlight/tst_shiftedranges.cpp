#include "highlight/shiftedranges.h"

#include <QTest>

// Ranges are written as letters under their characters, blanks where there is none.
class tst_shiftedranges : public QObject
{
    Q_OBJECT

private slots:
    void edit_takesRangesAlong_data();
    void edit_takesRangesAlong();
    void formats_stayTheSame();
};

static QVector<QTextLayout::FormatRange> rangesOf(const QString &strMarks)
{
    QVector<QTextLayout::FormatRange> lst;
    for (int n = 0; n < strMarks.size(); ++n) {
        if (strMarks.at(n) == QLatin1Char(' '))
            continue;
        if (n > 0 && strMarks.at(n) == strMarks.at(n - 1)) {
            ++lst.last().length;
            continue;
        }
        QTextCharFormat format;
        format.setProperty(QTextFormat::UserProperty + 1, QString(strMarks.at(n)));
        lst.append({n, 1, format});
    }
    return lst;
}

static QString marksOf(const QVector<QTextLayout::FormatRange> &lst, int nLength)
{
    QString strMarks(nLength, QLatin1Char(' '));
    for (const QTextLayout::FormatRange &range : lst)
        for (int n = range.start; n < range.start + range.length; ++n)
            strMarks[n] = range.format.stringProperty(QTextFormat::UserProperty + 1).at(0);
    return strMarks;
}

void tst_shiftedranges::edit_takesRangesAlong_data()
{
    QTest::addColumn<QString>("strBefore");
    QTest::addColumn<int>("nAt");
    QTest::addColumn<int>("nRemoved");
    QTest::addColumn<int>("nAdded");
    QTest::addColumn<QString>("strAfter");
    QTest::addRow("typed in front") << " aa b " << 0 << 0 << 1 << "  aa b ";
    QTest::addRow("typed at a beginning") << " aa b " << 1 << 0 << 1 << "  aa b ";
    QTest::addRow("typed inside") << " aa b " << 2 << 0 << 3 << " aaaaa b ";
    QTest::addRow("typed behind") << " aa b " << 3 << 0 << 1 << " aa  b ";
    QTest::addRow("typed between two") << "aabb " << 2 << 0 << 1 << "aa bb ";
    QTest::addRow("typed at the line's end") << " b aa" << 5 << 0 << 2 << " b aaaa";
    QTest::addRow("behind one character at the line's end") << " aa b" << 5 << 0 << 1 << " aa b ";
    QTest::addRow("behind the last range") << " aa " << 4 << 0 << 1 << " aa  ";
    QTest::addRow("removed in front") << "  aa b " << 0 << 1 << 0 << " aa b ";
    QTest::addRow("removed inside") << " aaaa b " << 2 << 2 << 0 << " aa b ";
    QTest::addRow("removed a beginning") << " aaa b " << 0 << 2 << 0 << "aa b ";
    QTest::addRow("removed an end") << " aaa b " << 3 << 2 << 0 << " aab ";
    QTest::addRow("removed one whole") << " aaa b " << 1 << 3 << 0 << "  b ";
    QTest::addRow("removed over several") << "aa b cc " << 1 << 5 << 0 << "ac ";
    QTest::addRow("replaced inside") << "aaaa b" << 1 << 2 << 1 << "aaa b";
    QTest::addRow("replaced all") << "aa b" << 0 << 4 << 2 << "  ";
}

void tst_shiftedranges::edit_takesRangesAlong()
{
    QFETCH(QString, strBefore);
    QFETCH(int, nAt);
    QFETCH(int, nRemoved);
    QFETCH(int, nAdded);
    QFETCH(QString, strAfter);
    const int nLength = strBefore.size() - nRemoved + nAdded;
    const QVector<QTextLayout::FormatRange> lst =
        shiftedRanges(rangesOf(strBefore), nAt, nRemoved, nAdded, nLength);
    QCOMPARE(marksOf(lst, nLength), strAfter);
    for (const QTextLayout::FormatRange &range : lst)
        QVERIFY(range.length > 0);
}

void tst_shiftedranges::formats_stayTheSame()
{
    const QVector<QTextLayout::FormatRange> lst = rangesOf(QStringLiteral("aa bbb"));
    QCOMPARE(shiftedRanges(lst, 2, 0, 0, 6), lst);
}

QTEST_APPLESS_MAIN(tst_shiftedranges)
#include "tst_shiftedranges.moc"
