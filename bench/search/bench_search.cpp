// Measures Find for a rare word and Replace All for a common one in the editor, in comparison with
// a bare QTextDocument: QTextDocument::find() in a loop, each match replaced at its cursor.
//
// Times are processor time of the GUI thread.
//
// Usage: bench_search [MEGABYTES]...   (1 10 50 without arguments)

#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "highlight/cthreadhighlighter.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <functional>

namespace {

const QString g_strRare = QStringLiteral("unobtainium");
const int g_nRounds = 3;
const int g_nMaxLetterMegabytes = 10; // The bare document takes minutes for more.

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

// Processor time of this thread: other work on the machine does not count, waiting neither.
qint64 threadMicroseconds()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return time.tv_sec * qint64(1000000) + time.tv_nsec / 1000;
}

qint64 microseconds(const std::function<void()> &work)
{
    const qint64 nStart = threadMicroseconds();
    work();
    return threadMicroseconds() - nStart;
}

qint64 best(const std::function<qint64()> &round)
{
    qint64 nBest = round();
    for (int i = 1; i < g_nRounds; ++i)
        nBest = std::min(nBest, round());
    return nBest;
}

// The longest stretch of this thread's work between two ticks of a 5 ms timer.
class CGapMeter
{
public:
    CGapMeter()
    {
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            const qint64 nNow = threadMicroseconds();
            m_nLongest = std::max(m_nLongest, nNow - m_nLast);
            m_nLast = nNow;
        });
        m_timer.start(5);
    }
    qint64 longest() const { return m_nLongest; }

private:
    QTimer m_timer;
    qint64 m_nLast = threadMicroseconds();
    qint64 m_nLongest = 0;
};

struct SReplacement
{
    QString strFind;
    QString strReplace;
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

int replaceAllBare(QTextDocument *pDocument, const SReplacement &replacement, bool bOneStep)
{
    QTextCursor block(pDocument);
    if (bOneStep)
        block.beginEditBlock();
    int nCount = 0;
    QTextCursor match = pDocument->find(replacement.strFind, 0);
    while (!match.isNull()) {
        match.insertText(replacement.strReplace);
        ++nCount;
        match = pDocument->find(replacement.strFind, match);
    }
    if (bOneStep)
        block.endEditBlock();
    return nCount;
}

struct SFigures
{
    qint64 nFind = 0; // Microseconds.
    qint64 nReplace = 0;
    qint64 nGap = 0;
    int nCount = 0;
};

SFigures measureBare(const QString &strText, const SReplacement &replacement, bool bOneStep)
{
    SFigures figures;
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
        return microseconds(
            [&] { figures.nCount = replaceAllBare(&document, replacement, bOneStep); });
    });
    return figures;
}

SFigures measureEditor(const QString &strText, const SReplacement &replacement)
{
    SFigures figures;
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
    QObject::connect(
        &edit, &CHighlightEdit::replaceNum, [&](int nCount) { figures.nCount = nCount; });
    figures.nReplace = best([&] {
        edit.setPlainText(strText);
        edit.moveCursor(QTextCursor::Start);
        settle(edit);
        const CGapMeter gaps;
        const qint64 nTime =
            microseconds([&] { edit.replaceAll(replacement.strFind, replacement.strReplace); });
        settle(edit);
        figures.nGap = gaps.longest();
        return nTime;
    });
    return figures;
}

void measure(QTextStream &out, int nMegabytes, const SReplacement &replacement)
{
    const QString strText = sourceText(nMegabytes);
    const SFigures bare = measureBare(strText, replacement, true);
    const SFigures bareSteps = measureBare(strText, replacement, false);
    const SFigures ours = measureEditor(strText, replacement);
    if (bare.nCount != ours.nCount || bareSteps.nCount != ours.nCount)
        fail("the numbers of replacements differ");
    const auto ms = [](qint64 nMicroseconds) {
        return QString::number(nMicroseconds / 1000.0, 'f', 1);
    };
    out << "| " << nMegabytes << " MB | " << ms(ours.nFind) << " | " << ms(bare.nFind) << " | "
        << replacement.strFind << " | " << ours.nCount << " | " << ms(ours.nReplace) << " | "
        << ms(bare.nReplace) << " | " << ms(bareSteps.nReplace) << " | " << ms(ours.nGap) << " |"
        << Qt::endl;
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
    out << "| document | Find, ms | bare | replaced | matches | Replace All, ms | bare, one step | "
           "bare, a step each | longest gap, ms |\n"
        << "|---|---|---|---|---|---|---|---|---|" << Qt::endl;
    for (const int nMegabytes : lstMegabytes) {
        measure(out, nMegabytes, {QStringLiteral("value"), QStringLiteral("quantity")});
        if (nMegabytes <= g_nMaxLetterMegabytes)
            measure(out, nMegabytes, {QStringLiteral("e"), QStringLiteral("ee")});
    }
    return 0;
}
