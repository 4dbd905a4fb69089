#include "findinfiles/cfindresults.h"

#include "app/plaintext.h"

#include <QDir>

#include <algorithm>

CFindResults::CFindResults(QObject *pParent) : QAbstractItemModel(pParent) { }

CFindResults::~CFindResults() = default;

void CFindResults::start(const QString &strFolder)
{
    beginResetModel();
    m_entries.clear();
    m_strFolder = strFolder;
    endResetModel();
}

// Gives the row where the file is or would be.
int CFindResults::rowFor(const QString &strPath) const
{
    const auto it = std::lower_bound(m_entries.begin(), m_entries.end(), strPath,
                                     [](const std::unique_ptr<SEntry> &pEntry, const QString &str) {
                                         return pEntry->file.strPath < str;
                                     });
    return int(it - m_entries.begin());
}

int CFindResults::rowOf(const QString &strPath) const
{
    const int nRow = rowFor(strPath);
    const bool bThere =
        nRow < int(m_entries.size()) && m_entries.at(size_t(nRow))->file.strPath == strPath;
    return bThere ? nRow : -1;
}

void CFindResults::add(const QVector<SFileMatches> &lstFiles)
{
    for (const SFileMatches &file : lstFiles) {
        auto pEntry = std::make_unique<SEntry>();
        pEntry->file = file;
        pEntry->checked.fill(true, file.lstMatches.size());
        const int nRow = rowFor(file.strPath);
        beginInsertRows(QModelIndex(), nRow, nRow);
        m_entries.insert(m_entries.begin() + nRow, std::move(pEntry));
        endInsertRows();
    }
}

void CFindResults::setReplacement(bool bShown, const QString &strText)
{
    m_bReplace = bShown;
    m_strReplace = strText;
    for (int nRow = 0; nRow < rowCount(); ++nRow)
        tellOfFile(nRow);
}

void CFindResults::tellOfFile(int nRow)
{
    const QModelIndex file = index(nRow, 0);
    emit dataChanged(file, file);
    emit dataChanged(index(0, 0, file), index(rowCount(file) - 1, 0, file));
}

QVector<SFileReplacement> CFindResults::checkedReplacements() const
{
    QVector<SFileReplacement> lst;
    for (const std::unique_ptr<SEntry> &pEntry : m_entries) {
        SFileReplacement replacement {pEntry->file.strPath, pEntry->file.fingerprint, {}};
        for (int n = 0; n < pEntry->checked.size(); ++n)
            if (pEntry->checked.testBit(n))
                replacement.lstMatches.append(pEntry->file.lstMatches.at(n));
        if (!replacement.lstMatches.isEmpty())
            lst.append(replacement);
    }
    return lst;
}

void CFindResults::removeFile(const QString &strPath)
{
    const int nRow = rowOf(strPath);
    if (nRow < 0)
        return;
    beginRemoveRows(QModelIndex(), nRow, nRow);
    m_entries.erase(m_entries.begin() + nRow);
    endRemoveRows();
}

void CFindResults::setNote(const QString &strPath, const QString &strNote)
{
    const int nRow = rowOf(strPath);
    if (nRow < 0)
        return;
    m_entries.at(size_t(nRow))->strNote = strNote;
    tellOfFile(nRow);
}

// The index of a match holds the entry of its file; the index of a file holds null.
CFindResults::SEntry *CFindResults::entryOf(const QModelIndex &index) const
{
    if (!index.isValid())
        return nullptr;
    if (index.internalPointer())
        return static_cast<SEntry *>(index.internalPointer());
    return m_entries.at(size_t(index.row())).get();
}

const SFileMatch *CFindResults::matchOf(const QModelIndex &index) const
{
    if (!index.isValid() || !index.internalPointer())
        return nullptr;
    return &entryOf(index)->file.lstMatches.at(index.row());
}

QString CFindResults::pathOf(const QModelIndex &index) const
{
    const SEntry *pEntry = entryOf(index);
    return pEntry ? pEntry->file.strPath : QString();
}

SResultText CFindResults::textOf(const SFileMatch &match) const
{
    return resultText(match, m_bReplace ? &m_strReplace : nullptr);
}

QModelIndex CFindResults::index(int nRow, int nColumn, const QModelIndex &parent) const
{
    if (nRow < 0 || nRow >= rowCount(parent) || nColumn != 0)
        return {};
    return createIndex(nRow, nColumn, parent.isValid() ? entryOf(parent) : nullptr);
}

QModelIndex CFindResults::parent(const QModelIndex &index) const
{
    return matchOf(index) ? createIndex(rowOf(pathOf(index)), 0, nullptr) : QModelIndex();
}

int CFindResults::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(m_entries.size());
    return matchOf(parent) ? 0 : entryOf(parent)->file.lstMatches.size();
}

int CFindResults::columnCount(const QModelIndex &) const
{
    return 1;
}

Qt::ItemFlags CFindResults::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags base = QAbstractItemModel::flags(index);
    return index.isValid() && m_bReplace ? base | Qt::ItemIsUserCheckable : base;
}

Qt::CheckState CFindResults::checkState(const QModelIndex &index) const
{
    const QBitArray &checked = entryOf(index)->checked;
    if (matchOf(index))
        return checked.testBit(index.row()) ? Qt::Checked : Qt::Unchecked;
    const int nChecked = checked.count(true);
    return nChecked == 0             ? Qt::Unchecked
        : nChecked == checked.size() ? Qt::Checked
                                     : Qt::PartiallyChecked;
}

QString CFindResults::fileText(const SEntry &entry) const
{
    const QString strName = QDir(m_strFolder).relativeFilePath(entry.file.strPath);
    const QString strText =
        QStringLiteral("%1 (%2)").arg(visibleName(strName)).arg(entry.file.lstMatches.size());
    return entry.strNote.isEmpty() ? strText : QStringLiteral("%1: %2").arg(strText, entry.strNote);
}

QVariant CFindResults::data(const QModelIndex &index, int nRole) const
{
    const SEntry *pEntry = entryOf(index);
    if (!pEntry)
        return {};
    const SFileMatch *pMatch = matchOf(index);
    switch (nRole) {
    case Qt::DisplayRole:
        return pMatch ? textOf(*pMatch).strText : fileText(*pEntry);
    case Qt::ToolTipRole:
        return pMatch ? QVariant() : plainToolTip(visibleName(pEntry->file.strPath));
    case Qt::CheckStateRole:
        return m_bReplace ? QVariant(checkState(index)) : QVariant();
    default:
        return {};
    }
}

bool CFindResults::setData(const QModelIndex &index, const QVariant &value, int nRole)
{
    SEntry *pEntry = entryOf(index);
    if (!pEntry || nRole != Qt::CheckStateRole || !m_bReplace)
        return false;
    const bool bChecked = value.toInt() != Qt::Unchecked;
    if (matchOf(index))
        pEntry->checked.setBit(index.row(), bChecked);
    else
        pEntry->checked.fill(bChecked);
    tellOfFile(matchOf(index) ? parent(index).row() : index.row());
    return true;
}
