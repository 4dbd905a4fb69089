#pragma once

#include <QStyledItemDelegate>

// Draws the rows of a search's results: the match stands out, with its replacement beside it. The
// model must be CFindResults.
class CFindResultDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CFindResultDelegate(QObject *pParent = nullptr);

    void paint(QPainter *pPainter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};
