#include "mainwindow/framestate.h"

#include <QByteArray>
#include <QDataStream>
#include <QSize>
#include <QString>

// The layout of the bytes, a count before each list:
//   window     0xff, version, then sections: docks, tool bars
//   docks      count of sides; each: side, size, group; then size of the middle, four corners
//   group      kind (with the current tab of tabs), orientation, count of items
//   item       a panel (name, flags, four numbers) or four numbers and a group inside
//   tool bars  count of lines; each: side, count; each bar: name, shown, four numbers
// Numbers have 32 bits; kinds, flags and orientations 8.
namespace {

enum : uchar {
    MarkTabs = 0xfa,
    MarkWidget = 0xfb,
    MarkSequence = 0xfc, // Before a group as well as before an item that holds one.
    MarkDocks = 0xfd,
    MarkToolBars = 0xfc
};

const int g_nSides = 4;
// The deepest nesting of groups, each of which takes room on the stack.
const int g_nMostLevels = 32;

class CFrameStateReader
{
public:
    explicit CFrameStateReader(const QByteArray &arrState) : m_stream(arrState)
    {
        m_stream.setVersion(QDataStream::Qt_5_0);
    }

    bool readWindow()
    {
        if (read<int>() != 0xff)
            return false;
        skip<int>(1); // The version, which restoreState() checks.
        while (isGood() && !m_stream.atEnd())
            if (!readSection())
                return false;
        return isGood();
    }

private:
    bool isGood() const { return m_stream.status() == QDataStream::Ok; }

    template<typename T> T read()
    {
        T val {};
        m_stream >> val;
        return val;
    }

    template<typename T> bool skip(int nCount)
    {
        for (int n = 0; n < nCount && isGood(); ++n)
            read<T>();
        return isGood();
    }

    // Reads a list of items with the function. It ends where the bytes end, however large the count
    // is.
    template<typename F> bool readList(F fnReadItem)
    {
        for (int nLeft = read<int>(); nLeft > 0; --nLeft)
            if (!isGood() || !fnReadItem())
                return false;
        return isGood();
    }

    bool readSide()
    {
        const int nSide = read<int>();
        return isGood() && nSide >= 0 && nSide < g_nSides;
    }

    bool readSection()
    {
        switch (read<uchar>()) {
        case MarkDocks:
            return readList([this] { return readSide() && skip<QSize>(1) && readGroup(0); })
                && skip<QSize>(1) && skip<int>(g_nSides);
        case MarkToolBars:
            return readList(
                [this] { return readSide() && readList([this] { return readBar(); }); });
        default:
            return false;
        }
    }

    bool readGroup(int nLevel)
    {
        const auto cKind = read<uchar>();
        if (cKind == MarkTabs)
            skip<int>(1);
        else if (cKind != MarkSequence)
            return false;
        skip<uchar>(1);
        return nLevel < g_nMostLevels && readList([this, nLevel] { return readItem(nLevel); });
    }

    bool readItem(int nLevel)
    {
        switch (read<uchar>()) {
        case MarkWidget:
            return readBar();
        case MarkSequence:
            return skip<int>(4) && readGroup(nLevel + 1);
        default:
            return false;
        }
    }

    // Panels and tool bars are written alike.
    bool readBar() { return skip<QString>(1) && skip<uchar>(1) && skip<int>(4); }

    QDataStream m_stream;
};

} // namespace

bool isFrameStateWhole(const QByteArray &arrState)
{
    return CFrameStateReader(arrState).readWindow();
}
