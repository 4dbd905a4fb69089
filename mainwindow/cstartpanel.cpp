#include "mainwindow/cstartpanel.h"

#include "app/plaintext.h"
#include "mainwindow/clinkbutton.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QVBoxLayout>

CStartPanel::CStartPanel(const QList<QAction *> &lstActions, QWidget *pParent)
    : QScrollArea(pParent), m_pContent(new QWidget)
{
    setObjectName(QStringLiteral("startPanel"));
    setAccessibleName(tr("Start"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus); // Its links have the focus.
    setWidgetResizable(true);
    // The text is dark in every desktop palette, because the empty area is light.
    setStyleSheet(QStringLiteral(
        "CStartPanel, CStartPanel > QWidget > QWidget{background:transparent;}"
        "QLabel{color:#333;} CLinkButton{border:1px solid transparent;padding:1px 3px;"
        "color:#0a4c8c;text-align:left;} CLinkButton:hover{text-decoration:underline;}"
        "CLinkButton:focus{border-color:#0a4c8c;}"));
    viewport()->setAutoFillBackground(false);

    m_pLayout = new QVBoxLayout(m_pContent);
    m_pLayout->setContentsMargins(16, 24, 8, 16);
    m_pLayout->setSpacing(2);
    for (QAction *pAction : lstActions) {
        const QString strKey = pAction->shortcut().toString(QKeySequence::NativeText);
        CLinkButton *pLink = addLink(tr("%1 (%2)").arg(pAction->text(), strKey));
        pLink->setIcon(pAction->icon());
        connect(pLink, &CLinkButton::clicked, pAction, &QAction::trigger);
    }
    auto *pDrop = new QLabel(tr("or drop files here"), m_pContent);
    pDrop->setWordWrap(true);
    pDrop->setContentsMargins(4, 4, 0, 12);
    m_pLayout->addWidget(pDrop);
    m_pLastSession = addLink(tr("Reopen what was open last time"));
    connect(m_pLastSession, &CLinkButton::clicked, this, &CStartPanel::lastSessionChosen);
    m_pRecent = new QLabel(tr("Recent files"), m_pContent);
    m_pRecent->setContentsMargins(4, 12, 0, 0);
    m_pLayout->addWidget(m_pRecent);
    m_pLayout->addStretch();
    setWidget(m_pContent);
    m_pContent->setAutoFillBackground(false);
    showLastSession({});
    showRecentFiles({});
}

CLinkButton *CStartPanel::addLink(const QString &strText)
{
    auto *pLink = new CLinkButton(strText, Qt::ElideRight, m_pContent);
    m_pLayout->addWidget(pLink);
    return pLink;
}

void CStartPanel::showRecentFiles(const QStringList &lstPaths)
{
    for (CLinkButton *pLink : qAsConst(m_lstRecent))
        pLink->deleteLater(); // One of them may be the link that was clicked.
    m_lstRecent.clear();
    m_pRecent->setVisible(!lstPaths.isEmpty());
    for (int n = 0; n < lstPaths.size(); ++n) {
        auto *pLink = new CLinkButton(visibleName(lstPaths.at(n)), Qt::ElideMiddle, m_pContent);
        m_pLayout->insertWidget(m_pLayout->count() - 1, pLink); // Above the stretch.
        pLink->show();
        connect(pLink, &CLinkButton::clicked, this, [this, n] { emit recentFileChosen(n); });
        m_lstRecent.append(pLink);
    }
}

void CStartPanel::showLastSession(const QStringList &lstPaths)
{
    m_pLastSession->setVisible(!lstPaths.isEmpty());
    QStringList lstShown;
    for (const QString &strPath : lstPaths)
        lstShown.append(QDir::toNativeSeparators(strPath));
    m_pLastSession->setAccessibleDescription(lstShown.join(QStringLiteral(", ")));
}
