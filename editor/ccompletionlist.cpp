#include "editor/ccompletionlist.h"

#include "highlight/clinestore.h"

#include <QAbstractItemView>
#include <QScrollBar>

CCompletionList::CCompletionList(QPlainTextEdit *pEditor) : QObject(pEditor), m_pEditor(pEditor)
{
    m_completer.setModel(&m_words);
    m_completer.setCaseSensitivity(Qt::CaseInsensitive);
    m_completer.setCompletionMode(QCompleter::PopupCompletion);
    m_completer.setWidget(pEditor);
    connect(&m_completer, QOverload<const QString &>::of(&QCompleter::activated), this,
            [this](const QString &strWord) { emit chosen(m_typed.strBeginning, strWord); });
}

void CCompletionList::offer(const std::shared_ptr<CLineStore> &pLines,
                            const QVariantMap &mapDefinition, const STypedWord &typed)
{
    m_typed = typed;
    m_nCursor = m_pEditor->textCursor().position();
    const uint nVersion = pLines->version();
    m_job.start([this, pLines, nVersion, mapDefinition,
                 typed](const CBackgroundJob::Cancelled &isCancelled) {
        const QStringList lstWords =
            wordsToOffer(*pLines, nVersion, mapDefinition, typed, isCancelled);
        CBackgroundJob::Finish finish = [this, pLines, nVersion, lstWords] {
            if (pLines->version() == nVersion && m_pEditor->textCursor().position() == m_nCursor)
                show(lstWords);
        };
        return finish;
    });
}

bool CCompletionList::isShown() const
{
    return m_completer.popup()->isVisible();
}

void CCompletionList::show(const QStringList &lstWords)
{
    m_words.setStringList(lstWords);
    if (lstWords.isEmpty())
        emit nothingFound();
    else
        showMatching();
}

void CCompletionList::follow(const STypedWord &typed)
{
    const bool bSameWord = typed.nLine == m_typed.nLine && typed.nStart == m_typed.nStart;
    m_typed = typed;
    if (bSameWord && !typed.strBeginning.isEmpty())
        showMatching();
    else
        m_completer.popup()->hide();
}

void CCompletionList::showMatching()
{
    m_completer.setCompletionPrefix(m_typed.strBeginning);
    QAbstractItemView *pPopup = m_completer.popup();
    if (m_completer.completionCount() == 0) {
        pPopup->hide();
        return;
    }
    pPopup->setFont(m_pEditor->font());
    QRect spot = m_pEditor->cursorRect().translated(m_pEditor->viewport()->pos());
    spot.setWidth(pPopup->sizeHintForColumn(0) + pPopup->verticalScrollBar()->sizeHint().width()
                  + 2 * pPopup->frameWidth());
    m_completer.complete(spot);
    // The first word is selected, so that Enter takes it without an arrow key.
    pPopup->setCurrentIndex(m_completer.completionModel()->index(0, 0));
}
