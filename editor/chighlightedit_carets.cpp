// Handles several carets.
#include "editor/chighlightedit.h"

#include "editor/caretedits.h"
#include "editor/ctextlines.h"
#include "editor/occurrences.h"
#include "editor/words.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QTextBlock>

#include <algorithm>

CCarets CHighlightEdit::carets() const
{
    if (hasSeveralCarets())
        return m_carets;
    const QTextCursor cursor = textCursor();
    return CCarets({cursor.anchor(), cursor.position()});
}

void CHighlightEdit::setCarets(const CCarets &carets)
{
    {
        const QScopedValueRollback<bool> applying(m_bApplying, true);
        QTextCursor cursor = textCursor();
        cursor.setPosition(carets.main().nAnchor);
        cursor.setPosition(carets.main().nPosition, QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }
    m_block.reset();
    m_carets = carets;
    if (hasSeveralCarets())
        watchCarets();
    else
        leaveCarets();
    repaintCarets();
}

// Ends several carets when anything else changes the text or moves the cursor. A single caret is
// not watched.
void CHighlightEdit::watchCarets()
{
    if (!m_lstWatches.isEmpty())
        return;
    const auto leave = [this] {
        const QTextCursor cursor = textCursor();
        const SCaret now {cursor.anchor(), cursor.position()};
        if (!m_bApplying && !(now == m_carets.main()))
            leaveCarets();
    };
    m_lstWatches = {connect(this, &QPlainTextEdit::cursorPositionChanged, this, leave),
                    connect(this, &QPlainTextEdit::selectionChanged, this, leave),
                    connect(document(), &QTextDocument::contentsChange, this, [this] {
                        if (!m_bApplying)
                            leaveCarets();
                    })};
}

void CHighlightEdit::leaveCarets()
{
    for (const QMetaObject::Connection &watch : qAsConst(m_lstWatches))
        disconnect(watch);
    m_lstWatches.clear();
    m_block.reset();
    m_bTyping = false;
    const bool bWereSeveral = hasSeveralCarets();
    m_carets = CCarets();
    if (bWereSeveral)
        repaintCarets();
}

void CHighlightEdit::addCaret(bool bUp)
{
    const CCarets before = carets();
    const CCarets after = caretsWithNext(CDocumentLines(document()), before, bUp);
    if (after.count() > before.count())
        setCarets(after);
    else
        tell(bUp ? tr("There is no line above.") : tr("There is no line below."));
}

void CHighlightEdit::addCaretAbove()
{
    addCaret(true);
}

void CHighlightEdit::addCaretBelow()
{
    addCaret(false);
}

void CHighlightEdit::selectOccurrences()
{
    const SCaret caret = carets().main();
    const CDocumentLines lines(document());
    const int nLine = lines.lineAt(caret.start());
    const int nStart = lines.start(nLine);
    const QString strLine = lines.text(nLine);
    SWord word {caret.start() - nStart, caret.end() - caret.start()};
    if (!caret.hasSelection())
        word = wordAt(strLine, caret.nPosition - nStart);
    if (word.nLength == 0 || word.end() > strLine.length()) {
        tell(tr("No word is selected."));
        return;
    }
    // A selection may be part of a word. Without one the whole word at the caret is meant.
    const CCarets found =
        caretsOfOccurrences(document()->toRawText(), strLine.mid(word.nStart, word.nLength),
                            !caret.hasSelection(), nStart + word.nStart);
    setCarets(found);
    tell(tr("Selected occurrences: %1").arg(found.count()));
}

void CHighlightEdit::copy()
{
    if (!hasSeveralCarets()) {
        QPlainTextEdit::copy();
        return;
    }
    const QVector<SCaret> &lst = m_carets.list();
    if (std::any_of(lst.cbegin(), lst.cend(), [](const SCaret &c) { return c.hasSelection(); }))
        QGuiApplication::clipboard()->setMimeData(createMimeDataFromSelection());
}

void CHighlightEdit::cut()
{
    if (!hasSeveralCarets() || isReadOnly()) {
        QPlainTextEdit::cut();
        return;
    }
    copy();
    apply(textErased(m_carets, [](int nPosition) { return nPosition; }));
}

void CHighlightEdit::insertFromMimeData(const QMimeData *pSource)
{
    if (!hasSeveralCarets() || isReadOnly()) {
        QPlainTextEdit::insertFromMimeData(pSource);
        return;
    }
    if (!pSource->text().isEmpty())
        apply(textTyped(m_carets, pastedParts(pSource->text(), m_carets)));
}

// An input method composes at the main caret; what it has composed is typed at all of them.
void CHighlightEdit::inputMethodEvent(QInputMethodEvent *pEvent)
{
    if (!hasSeveralCarets() || isReadOnly() || pEvent->replacementLength() > 0) {
        QPlainTextEdit::inputMethodEvent(pEvent);
        return;
    }
    const QString strTyped = pEvent->commitString();
    const bool bComposing = !pEvent->preeditString().isEmpty();
    if (bComposing && strTyped.isEmpty()) // Composing replaces a selection, as with a single caret.
        apply(textErased(m_carets, [](int nPosition) { return nPosition; }));
    const QScopedValueRollback<bool> applying(m_bApplying, true);
    if (!strTyped.isEmpty()) {
        QInputMethodEvent none;
        QPlainTextEdit::inputMethodEvent(&none);
        applyTyped(textTyped(m_carets, {{strTyped, 0}}));
    }
    QInputMethodEvent composed(pEvent->preeditString(), pEvent->attributes());
    QPlainTextEdit::inputMethodEvent(&composed);
    pEvent->accept();
}
