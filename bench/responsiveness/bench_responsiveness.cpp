// Measures how responsive the editor is with a very long document, in comparison with a bare
// QPlainTextEdit. One case per run: million-ours, million-bare   1,000,000 lines of C++; the bare
// one gets the same formats at once
//
//   line-ours, line-bare         one line of JSON of 5 MB
//
// Prints "name<TAB>figure" lines.
#include "app/csettings.h"
#include "bench/highlight/corpus.h"
#include "corpus.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "highlight/chighlightrules.h"
#include "highlight/clinestore.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"
#include "highlight/highlightline.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextStream>
#include <QTimer>
#include <algorithm>
#include <ctime>

namespace {

constexpr int g_nLines = 1000 * 1000;
constexpr int g_nJsonBytes = 5 * 1000 * 1000;
constexpr int g_nKeys = 51;

void report(const char *pszName, double fValue)
{
    QTextStream(stdout) << pszName << '\t' << QString::number(fValue, 'f', 1) << '\n';
}

double milliseconds(const QElapsedTimer &timer)
{
    return double(timer.nsecsElapsed()) / 1e6;
}

// The processor time of all threads of this process, which other programs do not change.
double processorMs()
{
    return double(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

// The memory of this process in MiB, or -1 without /proc.
double residentMemory()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / 1024 / 1024;
}

// The longest time between two ticks of a 5 ms timer.
class CGapMeter
{
public:
    CGapMeter()
    {
        m_elapsed.start();
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            m_fLongest = std::max(m_fLongest, milliseconds(m_elapsed));
            m_elapsed.restart();
        });
        m_timer.start(5);
    }
    double longest() const { return m_fLongest; }

private:
    QTimer m_timer;
    QElapsedTimer m_elapsed;
    double m_fLongest = 0;
};

void runUntilIdle(const std::function<bool()> &isDone)
{
    // Nothing is pending once a due timer has fired a few times.
    for (int nQuiet = 0; nQuiet < 5;) {
        bool bCame = false;
        QTimer::singleShot(0, [&bCame] { bCame = true; });
        while (!bCame)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        nQuiet = isDone() ? nQuiet + 1 : 0;
    }
}

void type(QPlainTextEdit *pEditor, QChar ch)
{
    QKeyEvent press(QEvent::KeyPress, ch.toUpper().unicode(), Qt::NoModifier, ch);
    QCoreApplication::sendEvent(pEditor, &press);
}

// In the editor's font: how long Qt takes to lay out a line depends much on it.
void makeBare(QPlainTextEdit *pEditor)
{
    pEditor->setLineWrapMode(QPlainTextEdit::NoWrap);
    pEditor->setFont(CHighlightEdit().font());
}

void showEditor(QPlainTextEdit *pEditor)
{
    pEditor->resize(1000, 700);
    pEditor->show();
    runUntilIdle([] { return true; });
}

QString millionLines()
{
    const SCorpus corpus =
        collect("C++", "a.cpp", {"/usr/include/c++", "/usr/include/x86_64-linux-gnu/qt5"},
                {"*.h", "*.hpp", "*.tcc"}, 40 * 1000 * 1000);
    QStringList lst = corpus.lstLines;
    while (!lst.isEmpty() && lst.size() < g_nLines)
        lst += corpus.lstLines;
    return lst.mid(0, g_nLines).join(QLatin1Char('\n'));
}

QString jsonLine()
{
    const SCorpus corpus =
        collect("JSON", "a.json", {"/usr/share", "/usr/lib"}, {"*.json"}, g_nJsonBytes);
    return corpus.lstLines.join(QLatin1Char(' ')).left(g_nJsonBytes);
}

QVariantMap definitionFor(const QString &strFileName)
{
    return CHighlightMgt(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr)
        .definitionForFile(strFileName);
}

// From a key at the end of the document until its line has its colours, in ms, the middle of many.
double medianKeystroke(CHighlightEdit *pEditor)
{
    std::vector<double> lstTimes;
    for (int n = 0; n < g_nKeys; ++n) {
        bool bColoured = false;
        QObject context;
        QObject::connect(pEditor->highlighter(), &CThreadHighlighter::blockFormatChanged, &context,
                         [&](uint, const QTextBlock &block) {
                             bColoured = bColoured || block == pEditor->document()->lastBlock();
                         });
        QElapsedTimer timer;
        timer.start();
        type(pEditor, QLatin1Char("if 1 "[n % 5]));
        while (!bColoured)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        lstTimes.push_back(milliseconds(timer));
        runUntilIdle([] { return true; });
    }
    std::sort(lstTimes.begin(), lstTimes.end());
    report("slowest keystroke, ms", lstTimes.back());
    return lstTimes[lstTimes.size() / 2];
}

void millionOurs()
{
    CHighlightEdit editor;
    showEditor(&editor);
    editor.setDefinition(definitionFor("a.cpp"));
    runUntilIdle([] { return true; });
    const QString strText = millionLines();
    const double fBefore = residentMemory();
    QElapsedTimer timer;
    timer.start();
    editor.setPlainText(strText);
    report("setPlainText, ms", milliseconds(timer));
    timer.restart();
    CGapMeter meter;
    runUntilIdle([&] { return editor.textDocument()->lines()->isComplete(); });
    report("until every block has its formats, ms", milliseconds(timer));
    report("longest gap of a 5 ms timer, ms", meter.longest());
    report("memory, MiB", residentMemory() - fBefore);
    editor.moveCursor(QTextCursor::End);
    runUntilIdle([] { return true; });
    report("keystroke at the end until coloured, median, ms", medianKeystroke(&editor));
    CGapMeter meterAll;
    timer.restart();
    editor.highlighter()->rehighlight();
    runUntilIdle([&] { return editor.textDocument()->lines()->isComplete(); });
    report("colouring everything again, ms", milliseconds(timer));
    report("longest gap meanwhile, ms", meterAll.longest());
    timer.restart();
    CGapMeter meterWord;
    editor.highlighter()->setSelectedWord("const");
    runUntilIdle([&] { return !editor.highlighter()->isRunning(); });
    report("marking a word, ms", milliseconds(timer));
    report("longest gap while marking, ms", meterWord.longest());
}

void millionBare()
{
    QPlainTextEdit editor;
    makeBare(&editor);
    showEditor(&editor);
    const CHighlightRules rules(definitionFor("a.cpp"));
    const QString strText = millionLines();
    const double fBefore = residentMemory();
    QElapsedTimer timer;
    timer.start();
    editor.setPlainText(strText);
    report("setPlainText, ms", milliseconds(timer));
    SHighlightLine line;
    int nState = -1;
    for (QTextBlock block = editor.document()->begin(); block.isValid(); block = block.next()) {
        rules.highlight(block.text(), nState, &line);
        nState = line.nState;
        QVector<QTextLayout::FormatRange> lst;
        for (const SHighlightRange &range : line.lstRanges)
            lst.append({range.nStart, range.nLength, CHighlightRules::format(range.role)});
        if (!lst.isEmpty())
            block.layout()->setFormats(lst);
    }
    report("memory, MiB", residentMemory() - fBefore);
}

void oneLine(QPlainTextEdit *pEditor, const std::function<bool()> &isDone)
{
    const QString strText = jsonLine();
    QElapsedTimer timer;
    timer.start();
    double fProcessor = processorMs();
    pEditor->setPlainText(strText);
    runUntilIdle(isDone);
    report("until idle, ms", milliseconds(timer));
    report("until idle, processor ms", processorMs() - fProcessor);
    timer.restart();
    fProcessor = processorMs();
    for (int n = 0; n < 3; ++n) {
        type(pEditor, QLatin1Char('1'));
        runUntilIdle(isDone);
    }
    report("three keys until idle, ms", milliseconds(timer));
    report("three keys until idle, processor ms", processorMs() - fProcessor);
}

void lineOurs()
{
    CHighlightEdit editor;
    showEditor(&editor);
    editor.setDefinition(definitionFor("a.json"));
    runUntilIdle([] { return true; });
    oneLine(&editor, [&] { return editor.textDocument()->lines()->isComplete(); });
}

void lineBare()
{
    QPlainTextEdit editor;
    makeBare(&editor);
    showEditor(&editor);
    oneLine(&editor, [] { return true; });
}

} // namespace

int main(int nArguments, char *arrArguments[])
{
    const QApplication application(nArguments, arrArguments);
    // A blinking cursor would lay out the line again and again, independently of the measured work.
    QApplication::setCursorFlashTime(0);
    CSettings settings(QStringLiteral("Quillan"), QStringLiteral("bench"));
    g_pSettings = &settings;
    const QString strCase = application.arguments().value(1);
    const QMap<QString, void (*)()> mapCases {{"million-ours", millionOurs},
                                              {"million-bare", millionBare},
                                              {"line-ours", lineOurs},
                                              {"line-bare", lineBare}};
    if (!mapCases.contains(strCase)) {
        QTextStream(stderr) << "give one of: " << QStringList(mapCases.keys()).join(' ') << '\n';
        return 2;
    }
    mapCases.value(strCase)();
    return 0;
}
