#include "highlight/packedranges.h"

#include <QRandomGenerator>
#include <QTest>

class tst_packedranges : public QObject
{
    Q_OBJECT
private slots:
    void noRanges_takeNoByte();
    void rangesOfCode_takeTwoBytesEach();
    void randomRanges_comeBackAsTheyWere();
};

namespace {

bool operator==(const SHighlightRange &a, const SHighlightRange &b)
{
    return a.nStart == b.nStart && a.nLength == b.nLength && a.role == b.role;
}

} // namespace

void tst_packedranges::noRanges_takeNoByte()
{
    std::vector<uchar> bytes;
    packRanges({}, &bytes);
    QVERIFY(bytes.empty());
    QVERIFY(unpackRanges(bytes.data(), bytes.size()).empty());
}

void tst_packedranges::rangesOfCode_takeTwoBytesEach()
{
    std::vector<uchar> bytes;
    packRanges({{0, 3, HighlightRole::Keyword},
                {10, 15, HighlightRole::Number},
                {5, 1, HighlightRole::Operator},
                {50, 2, HighlightRole::Comment}},
               &bytes);
    QCOMPARE(bytes.size(), size_t(8));
}

// In any order, of any length, at any place that a line can have.
void tst_packedranges::randomRanges_comeBackAsTheyWere()
{
    QRandomGenerator random(7);
    for (int nRound = 0; nRound < 2000; ++nRound) {
        std::vector<SHighlightRange> lst(size_t(random.bounded(20)));
        const int nBound = 1 << random.bounded(1, 27);
        for (SHighlightRange &range : lst)
            range = {random.bounded(nBound), random.bounded(nBound),
                     HighlightRole(random.bounded(5))};
        std::vector<uchar> bytes {1, 2, 3};
        packRanges(lst, &bytes);
        const std::vector<SHighlightRange> lstBack =
            unpackRanges(bytes.data() + 3, bytes.size() - 3);
        QCOMPARE(lstBack.size(), lst.size());
        for (size_t n = 0; n < lst.size(); ++n)
            QVERIFY(lstBack[n] == lst[n]);
    }
}

QTEST_APPLESS_MAIN(tst_packedranges)
#include "tst_packedranges.moc"
