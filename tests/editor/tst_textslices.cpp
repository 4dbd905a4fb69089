// Where a large text is divided.
#include "editor/ctextslices.h"
#include "editor/lineendings.h"
#include "editor/textslices.h"
#include "tests/editor/randomtext.h"

#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>

#include <algorithm>

namespace {

QStringList slices(const QString &strText, const SSliceLimits &limits)
{
    QStringList lst;
    int nFrom = 0;
    while (nFrom < strText.size()) {
        const int nEnd = sliceEnd(strText, nFrom, limits);
        lst.append(strText.mid(nFrom, nEnd - nFrom));
        if (nEnd <= nFrom)
            qFatal("an empty slice");
        nFrom = nEnd;
    }
    return lst;
}

QString randomText(QRandomGenerator *pRandom, int nLength)
{
    static const QStringList s_lstParts = {"a",
                                           "bc",
                                           "\n",
                                           "\r",
                                           "\r\n",
                                           QString::fromUtf8("é"),
                                           QString::fromUtf8("🙂"),
                                           QString(QChar(0x301))};
    return randomText(pRandom, s_lstParts, nLength);
}

bool endsALine(const QString &strSlice)
{
    return strSlice.endsWith('\n') || strSlice.endsWith('\r');
}

} // namespace

class tst_textslices : public QObject
{
    Q_OBJECT

private slots:
    void slices_areWholeLines_andTheTextTogether()
    {
        QRandomGenerator random(7);
        for (int n = 0; n < 2000; ++n) {
            const QString strText = randomText(&random, random.bounded(60));
            const SSliceLimits limits {1 + random.bounded(20), 1 + random.bounded(5)};
            const QStringList lst = slices(strText, limits);
            QCOMPARE(lst.join(QString()), strText);
            for (int nSlice = 0; nSlice + 1 < lst.size(); ++nSlice) {
                QVERIFY(endsALine(lst.at(nSlice)));
                QVERIFY(!(lst.at(nSlice).endsWith('\r') && lst.at(nSlice + 1).startsWith('\n')));
            }
        }
    }

    void slices_keepTheirLimits_butForALongLine()
    {
        QRandomGenerator random(8);
        for (int n = 0; n < 2000; ++n) {
            const SSliceLimits limits {1 + random.bounded(20), 1 + random.bounded(5)};
            const QStringList lst = slices(randomText(&random, 60), limits);
            for (const QString &strSlice : lst) {
                QString strLines = strSlice;
                strLines.replace("\r\n", "\n").replace('\r', '\n');
                const int nLines = strLines.count('\n') + int(!strLines.endsWith('\n'));
                QVERIFY(nLines <= limits.nLines);
                QVERIFY(nLines == 1 || strSlice.size() <= limits.nCharacters);
            }
        }
    }

    void slice_takesAsManyLinesAsItMay()
    {
        const QString strText = QStringLiteral("1\n2\n3\n4\n5");
        QCOMPARE(sliceEnd(strText, 0, {4, 100}), 4);
        QCOMPARE(sliceEnd(strText, 0, {5, 100}), 4);
        QCOMPARE(sliceEnd(strText, 0, {100, 3}), 6);
        QCOMPARE(sliceEnd(strText, 4, {100, 100}), 9);
    }

    void lines_areThoseOfEachLookApart()
    {
        QRandomGenerator random(10);
        for (int n = 0; n < 2000; ++n) {
            const QString strText = randomText(&random, random.bounded(60));
            const SSliceLimits limits {1 + random.bounded(20), 1 + random.bounded(5)};
            const int nFrom = random.bounded(2) ? sliceEnd(strText, 0, limits) : 0;
            std::vector<int> lstEnds;
            for (int nEnd = nFrom; nEnd < strText.size();) {
                nEnd = sliceEnd(strText, nEnd, limits);
                lstEnds.push_back(nEnd);
            }
            const STextLines lines = linesOf(strText, nFrom, limits);
            QCOMPARE(lines.lstSliceEnds, lstEnds);
            QCOMPARE(lines.nLines, lineCount(strText));
            const QStringList lst = strText.split(QRegularExpression("[\r\n]"));
            const auto isShorter = [](const QString &a, const QString &b) {
                return a.size() < b.size();
            };
            QCOMPARE(lines.heaviest.nLength,
                     std::max_element(lst.begin(), lst.end(), isShorter)->size());
        }
    }

    void linesOfAscii_areThoseOfTheText()
    {
        QRandomGenerator random(11);
        for (int n = 0; n < 2000; ++n) {
            QByteArray ascii = randomText(&random, random.bounded(60)).toLatin1();
            for (char &c : ascii)
                c = char(c & 0x7f);
            const SSliceLimits limits {1 + random.bounded(20), 1 + random.bounded(5)};
            const QString strText = QString::fromLatin1(ascii);
            const int nFrom = sliceEnd(strText, 0, limits);
            const STextLines lines = linesOf(ascii, nFrom, limits);
            const STextLines expected = linesOf(strText, nFrom, limits);
            QCOMPARE(lines.lstSliceEnds, expected.lstSliceEnds);
            QCOMPARE(lines.nLines, expected.nLines);
            QCOMPARE(lines.heaviest.nLength, expected.heaviest.nLength);
            QCOMPARE(lines.heaviest.nWeight, expected.heaviest.nWeight);

            CTextSlices slices(ascii, nFrom, lines.lstSliceEnds);
            QCOMPARE(slices.count(), int(lines.lstSliceEnds.size()));
            QString strTaken = strText.left(nFrom);
            while (!slices.isEmpty())
                strTaken += slices.take();
            QCOMPARE(strTaken, strText);
        }
    }

    void heaviestLine_isMeasuredWithoutItsEnd_data()
    {
        QTest::addColumn<QString>("strText");
        QTest::addColumn<int>("nLongest");
        QTest::newRow("nothing") << "" << 0;
        QTest::newRow("no line end") << "abc" << 3;
        QTest::newRow("first") << "abcd\nab\nabc" << 4;
        QTest::newRow("last") << "ab\r\nabc\rabcde" << 5;
        QTest::newRow("ends alone") << "\r\n\n\r" << 0;
    }

    void heaviestLine_isMeasuredWithoutItsEnd()
    {
        QFETCH(QString, strText);
        QFETCH(int, nLongest);
        QCOMPARE(heaviestLine(strText).nLength, nLongest);
        QCOMPARE(heaviestLine(strText).nWeight, qint64(nLongest));
    }

    void lineOfThai_weighsMore()
    {
        const QString strThai(10, QChar(0x0E01));
        const SHeaviestLine heaviest = heaviestLine(QString(50, 'x') + '\n' + strThai);
        QCOMPARE(heaviest.nLength, 10);
        QVERIFY(heaviest.nWeight > 100);
        QCOMPARE(inPieces(strThai, 5, 100), QString(strThai.left(5) + '\n' + strThai.left(5)));
    }

    void pieces_areTheTextWithLineEndsInLongLinesOnly()
    {
        const QString strShort = QStringLiteral("0123456789\r\n");
        const QString strText = strShort + QString(25, 'x') + "\n" + strShort;
        QCOMPARE(inPieces(strText, 10, 20),
                 QString(strShort + "xxxxxxxxxx\nxxxxxxxxxx\nxxxxx\n" + strShort));
        QCOMPARE(inPieces(strText, 10, 25), strText);
    }

    void pieces_holdEveryCharacterInItsOrder()
    {
        QRandomGenerator random(9);
        for (int n = 0; n < 1000; ++n) {
            const QString strText = randomText(&random, 200).remove('\n').remove('\r');
            const int nPiece = 1 + random.bounded(30);
            const QString strPieces = inPieces(strText, nPiece, nPiece);
            const QStringList lst = strPieces.split('\n');
            QCOMPARE(lst.join(QString()), strText);
            for (const QString &strPiece : lst)
                QVERIFY(strPiece.size() <= nPiece);
        }
    }

    void piece_endsBeforeNoHalfAndNoMark()
    {
        const QString strFace = QString::fromUtf8("🙂");
        QCOMPARE(inPieces("aa" + strFace + "b", 3, 3), QString("aa\n" + strFace + "b"));
        const QString strAccented = QString("e") + QChar(0x301);
        QCOMPARE(inPieces("aa" + strAccented + "b", 3, 3), QString("aa\n" + strAccented + "b"));
    }

    void marksAlone_areDividedAllTheSame()
    {
        const QString strText(100, QChar(0x301));
        const QStringList lst = inPieces(strText, 40, 40).split('\n');
        QCOMPARE(lst.join(QString()), strText);
        QVERIFY(lst.size() <= 4);
    }
};

QTEST_GUILESS_MAIN(tst_textslices)
#include "tst_textslices.moc"
