#pragma once

#include <QList>
#include <QObject>
#include <QString>

class QAction;

// The recent files in the File menu; the list itself is the settings'.
class CRecentMenu : public QObject
{
    Q_OBJECT

public:
    // The menu's entries, the newest file's first.
    CRecentMenu(const QList<QAction *> &lstActions, QObject *pParent);

    // The file was used: it comes first, and the settings are saved.
    void add(const QString &strPath);

signals:
    void changed();

private:
    void update();

    QList<QAction *> m_lstActions;
};
