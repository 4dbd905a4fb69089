// Commands of a page. While the source is shown, they go to its editor.
#include "document/cpagedocument.h"

#include "app/textcodecs.h"
#include "editor/chighlightedit.h"
#include "web/ceditwebview.h"

#include <QWebPage>

CResult CPageDocument::run(int nWebAction)
{
    m_pPage->triggerEdit(static_cast<QWebPage::WebAction>(nWebAction));
    return CResult::done();
}

CResult CPageDocument::undo()
{
    return m_bSource ? CDocument::undo() : run(QWebPage::Undo);
}

CResult CPageDocument::redo()
{
    return m_bSource ? CDocument::redo() : run(QWebPage::Redo);
}

CResult CPageDocument::cut()
{
    return m_bSource ? CDocument::cut() : run(QWebPage::Cut);
}

CResult CPageDocument::copy()
{
    return m_bSource ? CDocument::copy() : run(QWebPage::Copy);
}

CResult CPageDocument::paste()
{
    return m_bSource ? CDocument::paste() : run(QWebPage::Paste);
}

CResult CPageDocument::selectAll()
{
    return m_bSource ? CDocument::selectAll() : run(QWebPage::SelectAll);
}

CResult CPageDocument::find(const QString &strText, bool bBackward)
{
    if (m_bSource)
        return CDocument::find(strText, bBackward);
    const bool bFound = bBackward ? m_pPage->findPageTextReverse(strText, false)
                                  : m_pPage->findPageText(strText, false);
    return CResult::doneIf(bFound);
}

CResult CPageDocument::replace(const QString &strFind, const QString &strReplacement)
{
    if (m_bSource)
        return CDocument::replace(strFind, strReplacement);
    return CResult::doneIf(m_pPage->replacePageText(strFind, strReplacement));
}

CResult CPageDocument::replaceAll(const QString &strFind, const QString &strReplacement)
{
    if (m_bSource)
        return CDocument::replaceAll(strFind, strReplacement);
    return CResult::doneIf(m_pPage->replaceAllPageText(strFind, strReplacement));
}

CResult CPageDocument::format(int nWebAction)
{
    return m_bSource ? CResult::refused() : run(nWebAction);
}

QString CPageDocument::selectedText() const
{
    return m_bSource ? CDocument::selectedText() : m_pPage->selectedText();
}

CResult CPageDocument::setCodec(const QString &strName)
{
    if (!m_bSource || !codecForName(strName) || strName == codecName())
        return CResult::refused();
    if (!isModified() && !path().isEmpty() && canSave()) {
        const SFileContent content = read(path());
        // Only Refresh reads another program's version.
        if (content.isWhole() && content.state == fileState()) {
            m_pPage->reloadSource(content, strName);
            setWhole(isContentWhole(content));
            return CResult::done();
        }
    }
    const QString strText = m_pPage->sourceEdit()->rawText();
    const QByteArray bytes = encodeText(codecForName(codecName()), strText);
    if (decodeText(codecForName(codecName()), bytes) != strText)
        dropText(SDraft::Reason::Codec);
    m_pPage->readSourceIn(strName);
    setWhole(isWhole() && isWholeText(codecForName(strName), bytes));
    return CResult::done();
}

void CPageDocument::setLineWrap(bool bWrap)
{
    m_pPage->sourceEdit()->setLineWrap(bWrap);
}
