// Commands of a document that shows a code editor; without one there is nothing to do.
#include "document/cdocument.h"

#include "editor/chighlightedit.h"

namespace {

// The wait cursor on a widget for as long as the object lives.
class CWaitCursor
{
public:
    explicit CWaitCursor(QWidget *pWidget) : m_pWidget(pWidget)
    {
        m_pWidget->setCursor(Qt::WaitCursor);
    }
    ~CWaitCursor() { m_pWidget->unsetCursor(); }
    Q_DISABLE_COPY(CWaitCursor)

private:
    QWidget *m_pWidget;
};

CResult runOn(CHighlightEdit *pEditor, void (CHighlightEdit::*pCommand)())
{
    if (!pEditor)
        return CResult::refused();
    (pEditor->*pCommand)();
    return CResult::done();
}

} // namespace

QByteArray CDocument::bytesToSave(const QString &) const
{
    return QByteArray();
}

CResult CDocument::showContent(const QString &, const SFileContent &)
{
    return CResult::refused();
}

CResult CDocument::showAgain(const SFileContent &)
{
    return CResult::refused();
}

CResult CDocument::undo()
{
    return runOn(editor(), &CHighlightEdit::undo);
}

CResult CDocument::redo()
{
    return runOn(editor(), &CHighlightEdit::redo);
}

CResult CDocument::cut()
{
    return runOn(editor(), &CHighlightEdit::cut);
}

CResult CDocument::copy()
{
    return runOn(editor(), &CHighlightEdit::copy);
}

CResult CDocument::paste()
{
    return runOn(editor(), &CHighlightEdit::paste);
}

CResult CDocument::selectAll()
{
    return runOn(editor(), &CHighlightEdit::selectAll);
}

CResult CDocument::find(const QString &strText, bool bBackward)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor)
        return CResult::refused();
    if (isArriving())
        return refusedAsReadOnly();
    const CWaitCursor wait(pEditor);
    return CResult::doneIf(bBackward ? pEditor->findPrevious(strText)
                                     : pEditor->find(strText, false, nullptr));
}

CResult CDocument::replace(const QString &strFind, const QString &strReplacement)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor)
        return CResult::refused();
    if (isReadOnly())
        return refusedAsReadOnly();
    const CWaitCursor wait(pEditor);
    return CResult::doneIf(pEditor->replace(strFind, strReplacement, nullptr));
}

CResult CDocument::replaceAll(const QString &strFind, const QString &strReplacement)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor)
        return CResult::refused();
    if (isReadOnly())
        return refusedAsReadOnly();
    const CWaitCursor wait(pEditor);
    pEditor->startReplaceAll(strFind, strReplacement);
    return CResult::done();
}

QString CDocument::selectedText() const
{
    return editor() ? editor()->textCursor().selectedText() : QString();
}

CResult CDocument::format(int)
{
    return CResult::refused();
}

CResult CDocument::setCodec(const QString &)
{
    return CResult::refused();
}

CResult CDocument::setReturnFormat(int nFormat)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor || pEditor->returnFormat() == nFormat)
        return CResult::refused();
    if (isReadOnly())
        return refusedAsReadOnly();
    pEditor->setReturnFormat(nFormat);
    pEditor->setModified(true); // A save would no longer write what is on the disk.
    return CResult::done();
}

void CDocument::setLineWrap(bool bWrap)
{
    if (editor())
        editor()->setLineWrap(bWrap);
}
