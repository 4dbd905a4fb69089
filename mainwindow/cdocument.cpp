#include "mainwindow/cdocument.h"

#include "editor/chighlightedit.h"
#include "web/ceditwebview.h"
#include "web/charset.h"
#include "web/cimagewidget.h"

CDocument::CDocument(QWidget *pWidget)
    : m_pWidget(pWidget),
      m_pEditor(qobject_cast<CHighlightEdit *>(pWidget)),
      m_pPage(m_pEditor ? m_pEditor->pageEditor() : qobject_cast<CEditWebView *>(pWidget)),
      m_pImage(qobject_cast<CImageWidget *>(pWidget))
{
    if (m_pEditor)
        m_kind = m_pPage ? Kind::Source : Kind::Text;
    else if (m_pPage)
        m_kind = Kind::Page;
    else if (m_pImage)
        m_kind = Kind::Image;
}

QObject *CDocument::key() const
{
    return m_pPage ? static_cast<QObject *>(m_pPage) : m_pWidget;
}

QString CDocument::path() const
{
    if (m_pPage)
        return m_pPage->filePath();
    if (m_pEditor)
        return m_pEditor->pathFileName();
    return m_pImage ? m_pImage->filePath() : QString();
}

QString CDocument::title() const
{
    if (m_pEditor)
        return m_pEditor->getTitle();
    if (m_pPage)
        return m_pPage->getTitle();
    return m_pImage ? m_pImage->getTitle() : QString();
}

bool CDocument::isModified() const
{
    return (m_pEditor && m_pEditor->isModified()) || (m_pPage && m_pPage->isModified());
}

bool CDocument::canSave() const
{
    return m_pPage ? m_pPage->showsOwnFile() : m_pEditor != nullptr;
}

QByteArray CDocument::bytesToSave() const
{
    switch (m_kind) {
    case Kind::Text:
        return m_pEditor->getText().toUtf8();
    case Kind::Source:
        return declareUtf8(m_pEditor->getText()).toUtf8();
    case Kind::Page:
        return m_pPage->htmlForSaving();
    case Kind::Image:
    case Kind::None:
        break;
    }
    return QByteArray();
}

void CDocument::setPath(const QString &strPath) const
{
    if (m_pPage)
        m_pPage->setFilePath(strPath); // Passes it on to its source editor.
    else if (m_pEditor)
        m_pEditor->setPathFileName(strPath);
}

void CDocument::markSaved() const
{
    if (m_pPage)
        m_pPage->setModified(false); // And that of its source editor.
    else if (m_pEditor)
        m_pEditor->markSavedAsUtf8();
    if (m_pEditor)
        m_pEditor->setModified(false);
}

bool CDocument::reload() const
{
    if (m_pPage)
        return m_pPage->reload();
    if (m_pEditor)
        m_pEditor->reload(); // Shows its own box when it fails.
    else if (m_pImage)
        return m_pImage->reload();
    return true;
}

void CDocument::destroy() const
{
    // A page owns its source editor, whichever of the two stands in the tab.
    if (m_pPage)
        delete m_pPage;
    else
        delete m_pWidget;
}
