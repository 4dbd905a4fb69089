#include "document/ceditordocument.h"

#include "app/textcodecs.h"
#include "editor/chighlightedit.h"

#include <QPlainTextEdit>

CEditorDocument::CEditorDocument(QWidget *pViewParent) : m_pEditor(new CHighlightEdit(pViewParent))
{
    connect(m_pEditor, &QPlainTextEdit::modificationChanged, this, &CDocument::modifiedChanged);
    connect(m_pEditor, &QPlainTextEdit::textChanged, this, &CDocument::contentsChanged);
    connect(m_pEditor, &CHighlightEdit::textReplacing, this,
            [this] { dropText(SDraft::Reason::Refreshed); });
    connect(m_pEditor, &CHighlightEdit::fileRead, this, &CEditorDocument::onFileRead);
    connectArrival();
}

CEditorDocument::~CEditorDocument()
{
    m_pEditor->disconnect(this);
    delete m_pEditor;
}

QWidget *CEditorDocument::widget() const
{
    return m_pEditor;
}

CHighlightEdit *CEditorDocument::editor() const
{
    return m_pEditor;
}

QString CEditorDocument::path() const
{
    return m_pEditor->pathFileName();
}

QString CEditorDocument::title() const
{
    return isArriving() ? tr("%1 (loading)").arg(m_pEditor->getTitle()) : m_pEditor->getTitle();
}

bool CEditorDocument::isModified() const
{
    return m_pEditor->isModified();
}

QByteArray CEditorDocument::bytesToSave(const QString &) const
{
    return m_pEditor->getText().toUtf8();
}

void CEditorDocument::setPath(const QString &strPath)
{
    m_pEditor->setPathFileName(strPath);
}

void CEditorDocument::markSaved()
{
    m_pEditor->markSavedAsUtf8();
    m_pEditor->setModified(false);
}

CResult CEditorDocument::showContent(const QString &strPath, const SFileContent &content)
{
    m_pEditor->setPathFileName(strPath);
    m_pEditor->setTextData(content.bytes, false);
    return CResult::done();
}

CResult CEditorDocument::showAgain(const SFileContent &content)
{
    m_pEditor->reloadData(content.bytes);
    return CResult::done();
}

bool CEditorDocument::isCodecSure() const
{
    return m_pEditor->isCodecSure();
}

QString CEditorDocument::codecName() const
{
    return m_pEditor->codecName();
}

bool CEditorDocument::isContentWhole(const SFileContent &) const
{
    return m_pEditor->isWhole();
}

CResult CEditorDocument::setCodec(const QString &strName)
{
    if (isReadOnly())
        return CResult::refused();
    if (!codecForName(strName) || strName == m_pEditor->codecName())
        return CResult::refused();
    if (!isModified() && !path().isEmpty()) {
        if (showInCodecInBackground(strName))
            return CResult::done();
        const SFileContent content = read(path());
        // Only Refresh reads another program's version.
        if (content.isWhole() && content.state == fileState()) {
            m_pEditor->readIn(strName, content.bytes);
            setWhole(m_pEditor->isWhole());
            return CResult::done();
        }
    }
    m_pEditor->setCodecName(strName);
    setWhole(isWhole() && m_pEditor->isWhole());
    return CResult::done();
}

void CEditorDocument::fillDraft(SDraft *pDraft) const
{
    pDraft->nReturnFormat = m_pEditor->returnFormat();
    pDraft->codec = m_pEditor->codecName().toLatin1();
    pDraft->nCaret = m_pEditor->textCursor().position();
    pDraft->textLater = m_pEditor->rawTextLater();
}

void CEditorDocument::showDraft(const SDraft &draft)
{
    m_pEditor->setPathFileName(draft.strPath);
    m_pEditor->setRestoredText(draft.strText, QString::fromLatin1(draft.codec));
    m_pEditor->setReturnFormat(draft.nReturnFormat);
    m_pEditor->goToPosition(draft.nCaret);
}
