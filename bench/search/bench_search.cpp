// Find of a rare word and Replace All of a common one in the editor, beside the same on a bare
// QTextDocument: QTextDocument::find() in a loop, each match replaced at its cursor.
//
// Usage: bench_search [MEGABYTES]...   (1 10 50 without arguments)

#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "highlight/cthreadhighlighter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <functional>

namespace {

const QString g_strRare = QStringLiteral("unobtainium");
const QString g_strCommon = QStringLiteral("value");
const QString g_strReplacement = QStringLiteral("quantity");
const int g_nRounds = 3;

// C++ with the common word once or twice in every third line, the rare one in the last.
QString sourceText(int nMegabytes)
{
    static const char *const s_arrLines[] = {
        "    const auto it = m_entries.find(key);",
        "    if (it == m_entries.end())",
        "        return insertEntry(key, value); // a new value",
        "    it->second.setFlags(Flag::Visited | Flag::Dirty);",
        "    total += it->second.value() * scale;",
        "}",
        "",
        "double Table::sum(const std::string &key, int scale) const",
        "{",
    };
    const int nLength = nMegabytes * 1024 * 1024;
    QString strText;
    strText.reserve(nLength + 200);
    for (int i = 0; strText.length() < nLength; i = (i + 1) % int(std::size(s_arrLines))) {
        strText += QLatin1String(s_arrLines[i]);
        strText += QLatin1Char('\n');
    }
    return strText + g_strRare + QLatin1Char('\n');
}

qint64 microseconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return timer.nsecsElapsed() / 1000;
}

qint64 best(const std::function<qint64()> &round)
{
    qint64 nBest = round();
    for (int i = 1; i < g_nRounds; ++i)
        nBest = std::min(nBest, round());
    return nBest;
}

// The longest time between two ticks of a 5 ms timer while the work and what it leaves behind run.
class CGapMeter
{
public:
    CGapMeter()
    {
        QObject::connect(&m_timer, &QTimer::timeout,
                         [this] { m_nLongest = std::max(m_nLongest, m_elapsed.restart()); });
        m_elapsed.start();
        m_timer.start(5);
    }
    qint64 longest() const { return m_nLongest; }

private:
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    qint64 m_nLongest = 0;
};

void settle(const CHighlightEdit &edit)
{
    QElapsedTimer idle;
    idle.start();
    while (idle.elapsed() < 300) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        if (edit.highlighter()->isRunning())
            idle.restart();
    }
}

void fail(const char *pWhat)
{
    qCritical("%s", pWhat);
    std::exit(1);
}

int replaceAllBare(QTextDocument *pDocument, bool bOneStep)
{
    QTextCursor block(pDocument);
    if (bOneStep)
        block.beginEditBlock();
    int nCount = 0;
    QTextCursor match = pDocument->find(g_strCommon, 0);
    while (!match.isNull()) {
        match.insertText(g_strReplacement);
        ++nCount;
        match = pDocument->find(g_strCommon, match);
    }
    if (bOneStep)
        block.endEditBlock();
    return nCount;
}

struct Figures
{
    qint64 nFind = 0; // Microseconds, all but the gap.
    qint64 nReplace = 0;
    qint64 nGap = 0; // Milliseconds.
    int nCount = 0;
};

Figures measureBare(const QString &strText, bool bOneStep)
{
    Figures figures;
    QTextDocument document;
    document.setPlainText(strText);
    figures.nFind = best([&] {
        return microseconds([&] {
            if (document.find(g_strRare, 0).isNull())
                fail("the bare document does not find the word");
        });
    });
    figures.nReplace = best([&] {
        document.setPlainText(strText);
        return microseconds([&] { figures.nCount = replaceAllBare(&document, bOneStep); });
    });
    return figures;
}

Figures measureEditor(const QString &strText)
{
    Figures figures;
    CHighlightEdit edit;
    edit.resize(900, 700);
    edit.show();
    edit.setPlainText(strText);
    settle(edit);
    figures.nFind = best([&] {
        edit.moveCursor(QTextCursor::Start);
        return microseconds([&] {
            if (!edit.find(g_strRare, false, nullptr))
                fail("the editor does not find the word");
        });
    });
    QObject::connect(&edit, &CHighlightEdit::replaceNum,
                     [&](int nCount) { figures.nCount = nCount; });
    figures.nReplace = best([&] {
        edit.setPlainText(strText);
        edit.moveCursor(QTextCursor::Start);
        settle(edit);
        const CGapMeter gaps;
        const qint64 nTime = microseconds([&] { edit.replaceAll(g_strCommon, g_strReplacement); });
        settle(edit);
        figures.nGap = std::max(figures.nGap, gaps.longest());
        return nTime;
    });
    return figures;
}

void measure(QTextStream &out, int nMegabytes)
{
    const QString strText = sourceText(nMegabytes);
    const Figures bare = measureBare(strText, true);
    const Figures bareSteps = measureBare(strText, false);
    const Figures ours = measureEditor(strText);
    if (bare.nCount != ours.nCount || bareSteps.nCount != ours.nCount)
        fail("the numbers of replacements differ");
    const auto ms = [](qint64 nMicroseconds) {
        return QString::number(nMicroseconds / 1000.0, 'f', 1);
    };
    out << "| " << nMegabytes << " MB | " << ms(ours.nFind) << " | " << ms(bare.nFind) << " | "
        << ours.nCount << " | " << ms(ours.nReplace) << " | " << ms(bare.nReplace) << " | "
        << ms(bareSteps.nReplace) << " | "
        << QString::number(double(bare.nReplace) / ours.nReplace, 'f', 1) << " | "
        << QString::number(double(bareSteps.nReplace) / ours.nReplace, 'f', 1) << " | " << ours.nGap
        << " |" << Qt::endl;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    CSettings settings(QStringLiteral("Tavrel Software"), QStringLiteral("benchsearch"));
    g_pSettings = &settings;
    qRegisterMetaType<QTextBlock>("QTextBlock");
    qRegisterMetaType<QList<QTextLayout::FormatRange>>("QList<QTextLayout::FormatRange>");
    QList<int> lstMegabytes;
    for (const QString &strArgument : app.arguments().mid(1))
        lstMegabytes.append(strArgument.toInt());
    if (lstMegabytes.isEmpty())
        lstMegabytes = {1, 10, 50};
    QTextStream out(stdout);
    out << "| document | Find, ms | bare, ms | matches | Replace All, ms | bare in one step, ms | "
           "bare, ms | ratio, one step | ratio | longest gap, ms |\n"
        << "|---|---|---|---|---|---|---|---|---|---|" << Qt::endl;
    for (const int nMegabytes : lstMegabytes)
        measure(out, nMegabytes);
    return 0;
}
