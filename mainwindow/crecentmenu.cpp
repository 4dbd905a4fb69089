#include "mainwindow/crecentmenu.h"

#include "app/csettings.h"
#include "app/plaintext.h"
#include "mainwindow/recentfiles.h"

#include <QAction>

CRecentMenu::CRecentMenu(const QList<QAction *> &lstActions, QObject *pParent)
    : QObject(pParent), m_lstActions(lstActions)
{
    update();
}

void CRecentMenu::add(const QString &strPath)
{
    g_pSettings->setRecentFileList(withRecentFile(g_pSettings->getRecentFileList(), strPath));
    g_pSettings->save();
    update();
    emit changed();
}

void CRecentMenu::open(int nIndex)
{
    const QString strPath = g_pSettings->getRecentFileList().value(nIndex);
    if (strPath.isEmpty())
        return;
    emit openWanted(strPath);
    add(strPath);
}

void CRecentMenu::update()
{
    const QStringList lstFiles = g_pSettings->getRecentFileList();
    for (int n = 0; n < m_lstActions.size(); ++n) {
        QAction *pAction = m_lstActions.at(n);
        const bool bFile = n < lstFiles.size();
        pAction->setText(bFile ? withoutMnemonic(visibleName(lstFiles.at(n))) : tr("(empty)"));
        pAction->setEnabled(bFile);
        pAction->setVisible(bFile || n == 0);
    }
}
