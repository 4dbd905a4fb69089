#include "browser/cfileitemdelegate.h"

#include <QApplication>
#include <QFileInfo>
#include <QLineEdit>
#include <QTimer>

#include <algorithm>
#include <vector>

namespace {

// As many as are needed to include most likely the one that is widest in pixels.
const size_t g_nLongestNames = 64;

int widestName(const QAbstractItemModel &model, const QFontMetrics &metrics)
{
    std::vector<QString> names;
    names.reserve(size_t(model.rowCount()));
    for (int nRow = 0; nRow < model.rowCount(); ++nRow)
        names.push_back(model.index(nRow, 0).data().toString());
    const auto itEnd = names.begin() + std::ptrdiff_t(std::min(names.size(), g_nLongestNames));
    std::partial_sort(names.begin(), itEnd, names.end(),
                      [](const QString &a, const QString &b) { return a.length() > b.length(); });
    int nWidest = 0;
    for (auto it = names.begin(); it != itEnd; ++it)
        nWidest = std::max(nWidest, metrics.horizontalAdvance(*it));
    return nWidest;
}

} // namespace

CFileItemDelegate::CFileItemDelegate(QObject *pParent) : QStyledItemDelegate(pParent) { }

QSize CFileItemDelegate::sizeHint(const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const
{
    QStyleOptionViewItem sized = option;
    sized.features |= QStyleOptionViewItem::HasDisplay | QStyleOptionViewItem::HasDecoration;
    sized.text = QStringLiteral("x");
    const QStyle *pStyle = option.widget ? option.widget->style() : QApplication::style();
    QSize size = pStyle->sizeFromContents(QStyle::CT_ItemViewItem, &sized, QSize(), option.widget);
    if (index.isValid()) {
        size.rwidth() += widestName(*index.model(), option.fontMetrics)
            - option.fontMetrics.horizontalAdvance(sized.text);
    }
    return size;
}

void CFileItemDelegate::setEditorData(QWidget *pEditor, const QModelIndex &index) const
{
    auto *pEdit = qobject_cast<QLineEdit *>(pEditor);
    const QString strName = index.data(Qt::EditRole).toString();
    // The folder may be listed again before or while a name is typed; the selection stays.
    if (!pEdit || pEdit->isModified() || pEdit->text() == strName)
        return;
    pEdit->setText(strName);
    // The view selects all after this.
    const int nBase = QFileInfo(strName).completeBaseName().length();
    if (nBase > 0 && nBase < strName.length())
        QTimer::singleShot(0, pEdit, [pEdit, nBase] { pEdit->setSelection(0, nBase); });
}

void CFileItemDelegate::setModelData(QWidget *pEditor, QAbstractItemModel *,
                                     const QModelIndex &index) const
{
    const auto *pEdit = qobject_cast<QLineEdit *>(pEditor);
    if (pEdit && pEdit->text() != index.data(Qt::EditRole).toString())
        emit renameAsked(index, pEdit->text());
}
