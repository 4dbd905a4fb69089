#include "highlight/highlightededitor.h"

#include "highlight/highlightline.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFormat>
#include <QTextLayout>

bool SHighlightedEditor::settle(int nMs)
{
    int nResults = 0;
    const auto count = [&nResults] { ++nResults; };
    QObject context;
    QObject::connect(pHighlighter, &CThreadHighlighter::blockFormatChanged, &context, count);
    QObject::connect(pHighlighter, &CThreadHighlighter::selectedChanged, &context, count);
    QElapsedTimer timer;
    timer.start();
    // Each quiet round has delivered every posted event and every timer that was due.
    for (int nQuiet = 0; nQuiet < 4 && timer.elapsed() < nMs;) {
        nResults = 0;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        const bool bBusy = pHighlighter->isRunning() || !document.lines()->isComplete();
        nQuiet = bBusy || nResults > 0 ? 0 : nQuiet + 1;
    }
    return timer.elapsed() < nMs;
}

QVector<QTextLayout::FormatRange> toFormats(const SHighlightLine &line)
{
    QVector<QTextLayout::FormatRange> lst;
    for (const SHighlightRange &range : line.lstRanges)
        lst.append({range.nStart, range.nLength, CHighlightRules::format(range.role)});
    return lst;
}

namespace {

using Highlight = std::function<SHighlightLine(const QString &strText, int nPreviousState)>;

QString difference(const QTextDocument &document, const Highlight &highlight)
{
    int nState = -1;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const SHighlightLine line = highlight(block.text(), nState);
        nState = line.nState;
        QVector<QTextLayout::FormatRange> lst = block.layout()->formats();
        lst.erase(std::remove_if(lst.begin(), lst.end(),
                                 [](const QTextLayout::FormatRange &range) {
                                     return range.format.intProperty(QTextFormat::UserProperty);
                                 }),
                  lst.end());
        if (block.userState() != nState || lst != toFormats(line)) {
            return QStringLiteral(
                       "block %1 \"%2\": state %3 instead of %4, %5 ranges instead of %6")
                .arg(block.blockNumber())
                .arg(block.text())
                .arg(block.userState())
                .arg(nState)
                .arg(lst.size())
                .arg(line.lstRanges.size());
        }
    }
    return QString();
}

} // namespace

QString firstDifference(const QTextDocument &document, const CLiteralRules &rules)
{
    return difference(
        document,
        [&rules](const QString &strText, int nPreviousState) {
            return rules.highlight(strText, nPreviousState);
        });
}

QString firstDifference(const QTextDocument &document, const CHighlightRules &rules)
{
    return difference(
        document,
        [&rules](const QString &strText, int nPreviousState) {
            SHighlightLine line;
            rules.highlight(strText, nPreviousState, &line);
            return line;
        });
}
