#pragma once

#include "findinfiles/findquery.h"
#include "findinfiles/replacefile.h"
#include "findinfiles/resulttext.h"

#include <QAbstractItemModel>
#include <QBitArray>

#include <memory>
#include <vector>

// The matches of a search, below their files, which are sorted by path. While a replacement is
// shown, each match can be unchecked; a file's row does it for all its matches. GUI thread only.
class CFindResults : public QAbstractItemModel
{
    Q_OBJECT

public:
    explicit CFindResults(QObject *pParent = nullptr);
    ~CFindResults() override;

    // Drops all matches. Paths are shown relative to this folder.
    void start(const QString &strFolder);
    void add(const QVector<SFileMatches> &lstFiles);

    // Shows the replacement of each match. Without a replacement nothing can be checked.
    void setReplacement(bool bShown, const QString &strText);
    QVector<SFileReplacement> checkedReplacements() const;
    void removeFile(const QString &strPath);
    // A remark beside the file's name, for example why it was not replaced.
    void setNote(const QString &strPath, const QString &strNote);

    // Null for the row of a file.
    const SFileMatch *matchOf(const QModelIndex &index) const;
    QString pathOf(const QModelIndex &index) const;
    SResultText textOf(const SFileMatch &match) const;

    QModelIndex index(int nRow, int nColumn, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    using QObject::parent;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    QVariant data(const QModelIndex &index, int nRole = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int nRole) override;

private:
    struct SEntry
    {
        SFileMatches file;
        QBitArray checked;
        QString strNote;
    };
    using Entries = std::vector<std::unique_ptr<SEntry>>;

    int rowOf(const QString &strPath) const;
    int rowFor(const QString &strPath) const;
    SEntry *entryOf(const QModelIndex &index) const;
    Qt::CheckState checkState(const QModelIndex &index) const;
    QString fileText(const SEntry &entry) const;
    void tellOfFile(int nRow);

    QString m_strFolder;
    bool m_bReplace = false;
    QString m_strReplace;
    Entries m_entries;
};
