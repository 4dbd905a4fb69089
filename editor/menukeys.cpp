#include "editor/menukeys.h"

#include <QMenu>
#include <QMenuBar>

namespace {

// Menus are named in the form as "menuFile", "menuEdit".
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

} // namespace

bool openMenuOfLetter(QMenuBar *pBar, QChar cLetter)
{
    const QList<QAction *> lstActions = pBar->actions();
    const auto openFirst = [&](auto isWanted) {
        for (QAction *pAction : lstActions) {
            if (pAction->menu() && pAction->isEnabled() && isWanted(pAction->menu())) {
                pBar->setActiveAction(pAction);
                return true;
            }
        }
        return false;
    };
    return openFirst([&](const QMenu *pMenu) { return beginsWith(pMenu->title(), cLetter); })
        || openFirst([&](const QMenu *pMenu) { return hasName(pMenu, cLetter); });
}
