#include "mainwindow/cnoticebar.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

CNoticeBar::CNoticeBar(QWidget *pParent)
    : QToolBar(tr("Notice"), pParent), m_pLabel(new QLabel(this)), m_pClose(new QToolButton(this))
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
    m_pClose->setIcon(QIcon(QStringLiteral(":/res/close.png")));
    m_pClose->setToolTip(tr("Close this notice"));
    m_pClose->setAccessibleName(tr("Close this notice"));
    m_pClose->setAutoRaise(true);
    m_pClose->setFocusPolicy(Qt::TabFocus);
    connect(m_pClose, &QToolButton::clicked, this, &CNoticeBar::dismissed);

    // One widget for the tool bar, which would put single buttons behind an arrow where a long text
    // leaves them no room. Here the text wraps.
    auto *pContent = new QWidget(this);
    m_pLayout = new QHBoxLayout(pContent);
    m_pLayout->setContentsMargins(0, 0, 0, 0);
    m_pLayout->addWidget(m_pLabel, 1);
    m_pLayout->addWidget(m_pClose);
    addWidget(pContent);
    hide();
}

void CNoticeBar::show(const SNotice &notice)
{
    for (QPushButton *pButton : qAsConst(m_lstButtons)) {
        pButton->hide();
        pButton->deleteLater(); // It may be the one that was pressed.
    }
    m_lstButtons.clear();
    m_pLabel->setText(notice.strText);
    QWidget *pLast = m_pLabel;
    for (const SNotice::SChoice &choice : notice.lstChoices) {
        auto *pButton = new QPushButton(choice.strText);
        connect(pButton, &QPushButton::clicked, this, choice.chosen);
        m_pLayout->insertWidget(m_pLayout->count() - 1, pButton);
        pButton->show(); // The layout would do so later.
        m_lstButtons.append(pButton);
        setTabOrder(pLast, pButton);
        pLast = pButton;
    }
    setTabOrder(pLast, m_pClose);
    setVisible(!notice.strText.isEmpty());
}

QString CNoticeBar::text() const
{
    return isHidden() ? QString() : m_pLabel->text();
}
