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

Result runOn(CHighlightEdit *pEditor, void (CHighlightEdit::*pCommand)())
{
    if (!pEditor)
        return Result::refused();
    (pEditor->*pCommand)();
    return Result::done();
}

} // namespace

QByteArray CDocument::bytesToSave(const QString &) const
{
    return QByteArray();
}

Result CDocument::showContent(const QString &, const SFileContent &)
{
    return Result::refused();
}

Result CDocument::showAgain(const SFileContent &)
{
    return Result::refused();
}

Result CDocument::undo()
{
    return runOn(editor(), &CHighlightEdit::undo);
}

Result CDocument::redo()
{
    return runOn(editor(), &CHighlightEdit::redo);
}

Result CDocument::cut()
{
    return runOn(editor(), &CHighlightEdit::cut);
}

Result CDocument::copy()
{
    return runOn(editor(), &CHighlightEdit::copy);
}

Result CDocument::paste()
{
    return runOn(editor(), &CHighlightEdit::paste);
}

Result CDocument::selectAll()
{
    return runOn(editor(), &CHighlightEdit::selectAll);
}

Result CDocument::find(const QString &strText, bool bBackward)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor)
        return Result::refused();
    if (isArriving())
        return refusedAsReadOnly();
    const CWaitCursor wait(pEditor);
    return Result::doneIf(bBackward ? pEditor->findPrevious(strText)
                                    : pEditor->find(strText, false, nullptr));
}

Result CDocument::replace(const QString &strFind, const QString &strReplacement)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor)
        return Result::refused();
    if (isReadOnly())
        return refusedAsReadOnly();
    const CWaitCursor wait(pEditor);
    return Result::doneIf(pEditor->replace(strFind, strReplacement, nullptr));
}

Result CDocument::replaceAll(const QString &strFind, const QString &strReplacement)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor)
        return Result::refused();
    if (isReadOnly())
        return refusedAsReadOnly();
    const CWaitCursor wait(pEditor);
    pEditor->startReplaceAll(strFind, strReplacement);
    return Result::done();
}

QString CDocument::selectedText() const
{
    return editor() ? editor()->textCursor().selectedText() : QString();
}

Result CDocument::format(int)
{
    return Result::refused();
}

Result CDocument::setCodec(const QString &)
{
    return Result::refused();
}

Result CDocument::setReturnFormat(int nFormat)
{
    CHighlightEdit *pEditor = editor();
    if (!pEditor || pEditor->returnFormat() == nFormat)
        return Result::refused();
    if (isReadOnly())
        return refusedAsReadOnly();
    pEditor->setReturnFormat(nFormat);
    pEditor->setModified(true); // What would be saved is no longer what lies on the disk.
    return Result::done();
}

void CDocument::setLineWrap(bool bWrap)
{
    if (editor())
        editor()->setLineWrap(bWrap);
}
