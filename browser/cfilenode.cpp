#include "browser/cfilenode.h"

#include <QDir>

CFileNode::~CFileNode()
{
    setPartner(nullptr);
    qDeleteAll(m_lstChildren);
}

void CFileNode::setPath(const QString &strPath)
{
    if (strPath.isEmpty()) {
        m_fileInfo = QFileInfo();
        m_strPath.clear();
    } else {
        setFileInfo(QFileInfo(strPath));
    }
}

void CFileNode::setFileInfo(const QFileInfo &info)
{
    m_fileInfo = info;
    m_strPath = QDir::toNativeSeparators(info.absoluteFilePath());
}

void CFileNode::setPartner(CFileNode *pPartner)
{
    if (m_pPartner == pPartner)
        return;
    if (m_pPartner)
        m_pPartner->m_pPartner = nullptr;
    m_pPartner = pPartner;
    if (!pPartner)
        return;
    if (pPartner->m_pPartner)
        pPartner->m_pPartner->m_pPartner = nullptr;
    pPartner->m_pPartner = this;
}
