#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QAction;

// Shows the recent files in the File menu. The list itself is in the settings.
class CRecentMenu : public QObject
{
    Q_OBJECT

public:
    // The menu's entries, the newest file's first.
    CRecentMenu(const QList<QAction *> &lstActions, QObject *pParent);

    // The file was used: it comes first, and the settings are saved.
    void add(const QString &strPath);

    // Asks to open the file of an entry, which then comes first.
    void open(int nIndex);

signals:
    void changed();
    void openWanted(QString strPath);

private:
    void update();

    QList<QAction *> m_lstActions;
};
