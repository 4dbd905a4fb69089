#include "editor/menukeys.h"

#include <QMenu>
#include <QMenuBar>

namespace {

// The names of the form's menus are "menuFile", "menuEdit" and so on.
const QLatin1String g_strNamePrefix("menu");

bool beginsWith(QString strTitle, QChar cLetter)
{
    strTitle.remove(QLatin1Char('&'));
    return strTitle.startsWith(cLetter, Qt::CaseInsensitive);
}

bool hasName(const QMenu *pMenu, QChar cLetter)
{
    const QString strName = pMenu->objectName();
    return strName.startsWith(g_strNamePrefix)
        && beginsWith(strName.mid(g_strNamePrefix.size()), cLetter);
}

QList<QAction *> menusOfLetter(const QMenuBar &bar, QChar cLetter)
{
    const QList<QAction *> lstActions = bar.actions();
    QList<QAction *> lstByTitle;
    QList<QAction *> lstByName;
    for (QAction *pAction : lstActions) {
        if (!pAction->menu() || !pAction->isEnabled())
            continue;
        if (beginsWith(pAction->menu()->title(), cLetter))
            lstByTitle.append(pAction);
        else if (hasName(pAction->menu(), cLetter))
            lstByName.append(pAction);
    }
    return lstByTitle.isEmpty() ? lstByName : lstByTitle;
}

} // namespace

bool openMenuOfLetter(QMenuBar *pBar, QChar cLetter)
{
    const QList<QAction *> lstMenus = menusOfLetter(*pBar, cLetter);
    if (lstMenus.isEmpty())
        return false;
    QAction *pOpen = pBar->activeAction();
    const bool bOpen = pOpen && pOpen->menu() && pOpen->menu()->isVisible();
    const int nNext = bOpen ? lstMenus.indexOf(pOpen) + 1 : 0;
    pBar->setActiveAction(lstMenus.at(nNext % lstMenus.size()));
    return true;
}
