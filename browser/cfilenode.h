#pragma once

#include <QFileInfo>
#include <QIcon>
#include <QList>
#include <QString>

// One entry of the folder tree. Owns its children. Only CFileSystemModel changes a node that is in
// a model.
class CFileNode
{
public:
    CFileNode() = default;
    ~CFileNode();
    CFileNode(const CFileNode &) = delete;
    CFileNode &operator=(const CFileNode &) = delete;

    // An empty path gives an empty entry.
    void setPath(const QString &strPath);
    void setFileInfo(const QFileInfo &info);

    // Links both nodes to each other; null unlinks.
    void setPartner(CFileNode *pPartner);

    QString m_strPath; // Absolute, native separators.
    QFileInfo m_fileInfo;
    QIcon m_icon; // Looked up when first shown: see CFileSystemModel::iconOf().
    QList<CFileNode *> m_lstChildren;
    CFileNode *m_pPartner = nullptr;
    CFileNode *m_pParent = nullptr;
    int m_nRow = 0; // Position among the parent's children.
    int m_nState = 1; // Colour mark of the name: 2 blue, 3 dark red, 4 red.
    bool m_bFlag = false;
};
