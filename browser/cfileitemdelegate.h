#pragma once

#include <QStyledItemDelegate>

// Draws the rows of a folder's list and edits their names.
//
// All rows have one size, made from the longest names. Asking each row of a huge folder for its own
// size would look up each icon, which would stall the window.
class CFileItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CFileItemDelegate(QObject *pParent = nullptr);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void setEditorData(QWidget *pEditor, const QModelIndex &index) const override;
    void setModelData(QWidget *pEditor, QAbstractItemModel *pModel,
                      const QModelIndex &index) const override;

signals:
    // A new name was typed; the receiver renames the file.
    void renameAsked(const QModelIndex &index, const QString &strName) const;
};
