#include "mainwindow/cnoticebar.h"

#include <QLabel>
#include <QPushButton>

CNoticeBar::CNoticeBar(QWidget *pParent)
    : QToolBar(tr("Notice"), pParent), m_pLabel(new QLabel(this))
{
    setObjectName(QStringLiteral("noticeBar"));
    setMovable(false);
    toggleViewAction()->setVisible(false); // Comes and goes by itself.
    // Light with dark text in every desktop palette.
    setStyleSheet(QStringLiteral("CNoticeBar{background:#fff4ce;border:1px solid #e0c96a;}"
                                 "CNoticeBar QLabel{color:#3a2f00;}"));
    m_pLabel->setTextFormat(Qt::PlainText);
    m_pLabel->setWordWrap(true);
    m_pLabel->setMargin(4);
    m_pLabel->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    addWidget(m_pLabel);
    m_pEnd = addAction(QIcon(QStringLiteral(":/res/close.png")), tr("Close this notice"));
    widgetForAction(m_pEnd)->setFocusPolicy(Qt::TabFocus);
    connect(m_pEnd, &QAction::triggered, this, &CNoticeBar::dismissed);
    hide();
}

void CNoticeBar::show(const SNotice &notice)
{
    for (QAction *pAction : qAsConst(m_lstButtons)) {
        removeAction(pAction);
        pAction->deleteLater(); // Its button may be the one that was pressed.
    }
    m_lstButtons.clear();
    m_pLabel->setText(notice.strText);
    QWidget *pLast = nullptr;
    for (const SNotice::SChoice &choice : notice.lstChoices) {
        auto *pButton = new QPushButton(choice.strText);
        connect(pButton, &QPushButton::clicked, this, choice.chosen);
        m_lstButtons.append(insertWidget(m_pEnd, pButton));
        if (pLast)
            setTabOrder(pLast, pButton);
        pLast = pButton;
    }
    if (pLast)
        setTabOrder(pLast, widgetForAction(m_pEnd));
    setVisible(!notice.strText.isEmpty());
}

QString CNoticeBar::text() const
{
    return isHidden() ? QString() : m_pLabel->text();
}
