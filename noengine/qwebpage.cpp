#include "noengine/qwebpage.h"

#include "noengine/qwebhistory.h"
#include "noengine/qwebsettings.h"

#include <QAction>
#include <QNetworkAccessManager>
#include <QUndoStack>

QWebPage::QWebPage(QObject *pParent)
    : QObject(pParent),
      m_pFrame(new QWebFrame(this)),
      m_pSettings(std::make_unique<QWebSettings>()),
      m_pHistory(std::make_unique<QWebHistory>()),
      m_pUndoStack(new QUndoStack(this)),
      m_pNetwork(new QNetworkAccessManager(this))
{
}

QWebPage::~QWebPage() = default;

QAction *QWebPage::action(WebAction action) const
{
    QAction *&pAction = m_hashActions[action];
    if (!pAction) {
        pAction = new QAction(const_cast<QWebPage *>(this));
        pAction->setEnabled(false);
    }
    return pAction;
}

void QWebPage::triggerAction(WebAction action, bool)
{
    if (action == Reload)
        m_pFrame->reload();
    else if (action == Stop)
        m_pFrame->stop();
}
