// Offers words for the one that is being typed.
#include "editor/chighlightedit.h"

#include "editor/caretedits.h"
#include "editor/ccompletionlist.h"
#include "editor/words.h"
#include "highlight/ctextdocument.h"
#include "widgets/typedkeys.h"

#include <QTextBlock>

STypedWord CHighlightEdit::typedWord() const
{
    const QTextCursor cursor = textCursor();
    const QString strBefore = cursor.block().text().left(cursor.positionInBlock());
    const SWord word = wordAt(strBefore, strBefore.length());
    return {strBefore.mid(word.nStart), cursor.blockNumber(), word.nStart};
}

void CHighlightEdit::offerWords()
{
    if (!m_pCompletion) {
        m_pCompletion = new CCompletionList(this);
        connect(m_pCompletion, &CCompletionList::chosen, this, &CHighlightEdit::completeWord);
        connect(m_pCompletion, &CCompletionList::nothingFound, this,
                [this] { tell(tr("No other word begins like this.")); });
    }
    m_pCompletion->offer(m_pDocument->lines(), m_definition.value_or(QVariantMap()), typedWord());
}

// Completes at each caret that has the same beginning before it.
void CHighlightEdit::completeWord(const QString &strBeginning, const QString &strWord)
{
    QVector<SCaret> lst;
    const CCarets before = carets();
    for (const SCaret &caret : before.list()) {
        QTextCursor cursor(document());
        cursor.setPosition(qMax(0, caret.nPosition - strBeginning.length()));
        cursor.setPosition(caret.nPosition, QTextCursor::KeepAnchor);
        const bool bHere = cursor.selectedText() == strBeginning;
        lst.append({bHere ? cursor.anchor() : caret.nPosition, caret.nPosition});
    }
    const CCarets beginnings(lst, before.mainIndex());
    QVector<SInsertion> lstInsertions;
    for (const SCaret &caret : beginnings.list()) {
        const bool bHere = caret.end() - caret.start() == strBeginning.length();
        lstInsertions.append({bHere ? strWord : QString(), 0});
    }
    apply(textTyped(beginnings, lstInsertions));
}

// The list gets these keys while it is shown.
bool CHighlightEdit::isForCompletion(const QKeyEvent *pEvent) const
{
    return m_pCompletion->isShown()
        && (isEnter(pEvent) || isTab(pEvent) || pEvent->key() == Qt::Key_Escape);
}

void CHighlightEdit::followCompletion()
{
    if (m_pCompletion->isShown())
        m_pCompletion->follow(typedWord());
}
