#include "peers.h"

#include "highlight/chighlightrules.h"
#include "highlight/cliteralrules.h"
#include "highlight/highlightline.h"
#include "tests/highlight/cliteralrules.h"

#ifdef HAVE_KSYNTAXHIGHLIGHTING
#include <KSyntaxHighlighting/AbstractHighlighter>
#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Format>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/State>
#endif
#ifdef HAVE_QSCINTILLA
#include "lexers.h"

#include <Qsci/qsciscintilla.h>
#endif

#include <ctime>
#include <memory>

namespace {

// Processor time of this program: other programs on a busy machine do not count.
class CStopwatch
{
public:
    double seconds() const { return double(std::clock() - m_start) / CLOCKS_PER_SEC; }

private:
    std::clock_t m_start = std::clock();
};

} // namespace

double secondsOfOurs(const QVariantMap &mapDefinition, const SCorpus &corpus)
{
    const CHighlightRules rules(mapDefinition);
    SHighlightLine line;
    int nState = -1;
    const CStopwatch stopwatch;
    for (const QString &strLine : corpus.lstLines) {
        rules.highlight(strLine, nState, &line);
        nState = line.nState;
    }
    return stopwatch.seconds();
}

double secondsOfLiteral(const QVariantMap &mapDefinition, const SCorpus &corpus)
{
    const CLiteralRules rules(mapDefinition);
    int nState = -1;
    const CStopwatch stopwatch;
    for (const QString &strLine : corpus.lstLines)
        nState = rules.highlight(strLine, nState).nState;
    return stopwatch.seconds();
}

#ifdef HAVE_KSYNTAXHIGHLIGHTING
namespace {

class CCounter : public KSyntaxHighlighting::AbstractHighlighter
{
public:
    void run(const QStringList &lstLines)
    {
        KSyntaxHighlighting::State state;
        for (const QString &strLine : lstLines)
            state = highlightLine(strLine, state);
    }

protected:
    void applyFormat(int, int, const KSyntaxHighlighting::Format &) override { ++m_nRanges; }

private:
    qint64 m_nRanges = 0;
};

} // namespace

double secondsOfKSyntaxHighlighting(const SCorpus &corpus)
{
    static KSyntaxHighlighting::Repository repository;
    const auto definition = repository.definitionForFileName(corpus.strFileName);
    if (!definition.isValid())
        return -1;
    CCounter counter;
    counter.setDefinition(definition);
    counter.run(corpus.lstLines.mid(0, 100)); // Loads what is loaded on demand.
    const CStopwatch stopwatch;
    counter.run(corpus.lstLines);
    return stopwatch.seconds();
}
#else
double secondsOfKSyntaxHighlighting(const SCorpus &)
{
    return -1;
}
#endif

#ifdef HAVE_QSCINTILLA
double secondsOfScintilla(const SCorpus &corpus)
{
    const std::unique_ptr<QsciLexer> pLexer = lexerFor(corpus.strFileName);
    if (!pLexer)
        return -1;
    pLexer->setProperty("fold", "0");
    QsciScintilla widget;
    widget.setUtf8(true);
    widget.setLexer(pLexer.get());
    widget.SendScintilla(QsciScintilla::SCI_SETPROPERTY, "fold", "0");
    widget.setText(corpus.text());
    const CStopwatch stopwatch;
    widget.SendScintilla(QsciScintilla::SCI_COLOURISE, 0UL, -1L);
    return stopwatch.seconds();
}
#else
double secondsOfScintilla(const SCorpus &)
{
    return -1;
}
#endif
