#include "document/cimagedocument.h"

#include "app/plaintext.h"
#include "web/cimagewidget.h"

CImageDocument::CImageDocument(QWidget *pViewParent) : m_pImage(new CImageWidget(pViewParent)) { }

CImageDocument::~CImageDocument()
{
    delete m_pImage;
}

QWidget *CImageDocument::widget() const
{
    return m_pImage;
}

QString CImageDocument::path() const
{
    return m_pImage->filePath();
}

QString CImageDocument::title() const
{
    return m_pImage->getTitle();
}

void CImageDocument::loadPicture(const QString &strPath)
{
    // Taken before reading, so that a later change is noticed.
    noteState(fileStateOf(strPath), true);
    m_pImage->setImageFile(strPath);
    emit loaded();
}

CResult CImageDocument::showAgain(const SFileContent &)
{
    return m_pImage->reload()
        ? CResult::done()
        : CResult::refused(tr("The file cannot be read: %1").arg(visibleName(path())));
}
