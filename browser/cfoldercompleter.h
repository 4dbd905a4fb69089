#pragma once

#include "browser/cfolderreader.h"

#include <QCompleter>
#include <QFileInfoList>
#include <QStringListModel>

class QLineEdit;

// Offers, in a list below a box of paths, the folders that the path typed so far may become. What
// is typed stays as it is until one of them is chosen. GUI thread only; folders are read on a
// thread of their own.
class CFolderCompleter : public QCompleter
{
    Q_OBJECT

public:
    explicit CFolderCompleter(QLineEdit *pEdit);

private:
    void onTextEdited(const QString &strText);
    void onListed(const QString &strFolder, const QFileInfoList &lstFileInfos);

    QLineEdit *m_pEdit;
    QStringListModel m_paths;
    CFolderReader m_reader;
    QString m_strFolder; // Whose folders are, or will be, in the list.
};
