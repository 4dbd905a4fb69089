#pragma once

#include "browser/cfolderreader.h"

#include <QCompleter>
#include <QFileInfoList>
#include <QStringListModel>

class QLineEdit;

// Offers folders that complete a typed path, in a list below the box. The typed text stays until
// one of them is chosen. GUI thread only; folders are read on a thread of their own.
class CFolderCompleter : public QCompleter
{
    Q_OBJECT

public:
    explicit CFolderCompleter(QLineEdit *pEdit);

    // What is compared: the whole path, with the separators of the list.
    QStringList splitPath(const QString &strPath) const override;

private:
    void onTextEdited(const QString &strText);
    void onListed(const QString &strFolder, const QFileInfoList &lstFileInfos);

    QLineEdit *m_pEdit;
    QStringListModel m_paths;
    CFolderReader m_reader;
    QString m_strFolder; // The folder whose sub-folders are, or will be, in the list.
};
