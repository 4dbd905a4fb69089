#pragma once

#include <QAction>
#include <QMenu>
#include <QString>
#include <QStringList>

// Fills a menu from a list of texts; "separator" makes a separator. Each other entry calls the
// receiver's slot when it is chosen.
template<class Receiver>
void fillActionMenu(QMenu *pMenu, const QStringList &lstActions, const Receiver *pReceiver,
                    void (Receiver::*pSlot)())
{
    pMenu->clear();
    for (const QString &strText : lstActions)
        if (strText == QLatin1String("separator"))
            pMenu->addSeparator();
        else
            QObject::connect(pMenu->addAction(strText), &QAction::triggered, pReceiver, pSlot);
}
