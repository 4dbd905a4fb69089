// Misspelt words in comments and strings: marks if they are turned on, and suggestions.
#include "editor/chighlightedit.h"

#include "app/csettings.h"
#include "editor/spelledlines.h"
#include "highlight/cthreadhighlighter.h"
#include "spelling/cspelling.h"
#include "spelling/csuggestionmenu.h"
#include "spelling/spellwords.h"
#include "spelling/wavyline.h"

#include <QTextBlock>

namespace {

const int g_nMostLines = 100000; // Lines of one search; their comments are checked within a second.

bool isCorrectWord(const QString &strWord)
{
    return g_pSpelling->isCorrect(QString(), strWord);
}

} // namespace

// True if words can be checked. The first call waits for the dictionary.
bool CHighlightEdit::prepareSpelling()
{
    if (g_pSpelling && g_pSpelling->prepare(QString())) {
        connect(g_pSpelling, &CSpelling::changed, viewport(), QOverload<>::of(&QWidget::update),
                Qt::UniqueConnection);
        return true;
    }
    tell(tr("There is no dictionary for this language."));
    return false;
}

bool CHighlightEdit::hasLanguage() const
{
    return !m_pHighlighter->languageName().isEmpty();
}

void CHighlightEdit::markSpelling()
{
    const bool bMark = !g_pSettings->m_bTextSpelling;
    if (bMark && !prepareSpelling())
        return;
    g_pSettings->m_bTextSpelling = bMark;
    viewport()->update();
    tell(!bMark              ? tr("Misspelt words are no longer marked.")
             : hasLanguage() ? tr("Misspelt words in comments and strings are marked.")
                             : tr("Misspelt words are marked."));
}

void CHighlightEdit::suggestSpelling()
{
    if (!prepareSpelling())
        return;
    QTextCursor cursor = textCursor();
    // A word that ends at the cursor counts, too.
    const SSpellWord word = nextMisspeltWord(cursor.block(), cursor.selectionStart() - 1,
                                             hasLanguage(), isCorrectWord, g_nMostLines);
    const bool bAlready = word.nLength > 0 && cursor.hasSelection()
        && word.nStart == cursor.selectionStart() && word.end() == cursor.selectionEnd();
    const SSpellWord next = bAlready
        ? nextMisspeltWord(cursor.block(), word.end(), hasLanguage(), isCorrectWord, g_nMostLines)
        : word;
    if (next.nLength == 0) {
        tell(tr("No misspelt word follows."));
        return;
    }
    selectRange(next.nStart, next.end(), false);
    ensureCursorVisible();
    offerSuggestions();
}

void CHighlightEdit::offerSuggestions()
{
    if (!m_pSuggestions) {
        m_pSuggestions = new CSuggestionMenu(this);
        connect(m_pSuggestions, &CSuggestionMenu::chosen, this, [this](const QString &strWord) {
            recordCarets([&] { textCursor().insertText(strWord); });
        });
        connect(m_pSuggestions, &CSuggestionMenu::added, this, [this](const QString &strWord) {
            QString strError;
            if (!g_pSpelling->addWord(strWord, &strError))
                tell(tr("The word could not be kept: %1").arg(strError));
        });
    }
    const QString strWord = textCursor().selectedText();
    m_pSuggestions->offer(strWord, g_pSpelling->suggestions(QString(), strWord),
                          viewport()->mapToGlobal(cursorRect().bottomLeft()));
}

void CHighlightEdit::paintSpelling(QPainter *pPainter) const
{
    QTextBlock block = firstVisibleBlock();
    QPointF corner = blockBoundingGeometry(block).translated(contentOffset()).topLeft();
    QVector<SCaret> lst;
    for (; block.isValid() && corner.y() <= viewport()->height(); block = block.next()) {
        const QVector<SSpellWord> lstWords = misspeltWords(block, hasLanguage(), isCorrectWord);
        for (const SSpellWord &word : lstWords)
            lst.append({block.position() + word.nStart, block.position() + word.end()});
        corner.ry() += blockBoundingRect(block).height();
    }
    const QVector<QRectF> lstRects = rectsOf(lst);
    for (const QRectF &rect : lstRects)
        paintWavyLine(pPainter, rect);
}
