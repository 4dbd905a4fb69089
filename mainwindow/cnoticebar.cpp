#include "mainwindow/cnoticebar.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

const int g_nPoll = 50; // Milliseconds.
const int g_nLeastText = 200; // Pixels.

bool isClick(const QEvent *pEvent)
{
    return pEvent->type() == QEvent::MouseButtonPress
        || pEvent->type() == QEvent::MouseButtonRelease
        || pEvent->type() == QEvent::MouseButtonDblClick;
}

} // namespace

CNoticeBar::CNoticeBar(QWidget *pParent)
    : QFrame(pParent),
      m_pLabel(new QLabel(this)),
      m_pList(new QListWidget(this)),
      m_pClose(new QToolButton(this))
{
    setObjectName(QStringLiteral("noticeBar"));
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
    m_pList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_pList->setUniformItemSizes(true);
    m_pList->setAccessibleName(tr("Unsaved documents"));
    m_pList->hide();
    auto *pTexts = new QVBoxLayout;
    pTexts->setSpacing(0);
    pTexts->addWidget(m_pLabel);
    pTexts->addWidget(m_pList);
    auto *pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(1, 1, 1, 1);
    m_pLayout = new QBoxLayout(QBoxLayout::LeftToRight);
    m_pLayout->addLayout(pTexts, 1);
    pLayout->addLayout(m_pLayout, 1);
    pLayout->addWidget(m_pClose, 0, Qt::AlignTop);
    hide();
    m_timer.setInterval(g_nPoll);
    connect(&m_timer, &QTimer::timeout, this, &CNoticeBar::showWanted);
    qApp->installEventFilter(this);
}

void CNoticeBar::show(const SNotice &notice)
{
    m_wanted = notice;
    showWanted();
}

bool CNoticeBar::mayChange() const
{
    return QGuiApplication::mouseButtons() == Qt::NoButton
        && (!m_sinceClick.isValid()
            || m_sinceClick.hasExpired(QApplication::doubleClickInterval()));
}

void CNoticeBar::showWanted()
{
    if (!mayChange()) {
        m_timer.start();
        return;
    }
    m_timer.stop();
    showChoices();
    m_pLabel->setText(m_wanted.strText);
    showItems(m_wanted.lstItems);
    setVisible(!m_wanted.strText.isEmpty());
    if (isVisible() && rect().contains(mapFromGlobal(QCursor::pos())))
        m_sinceShown.start();
    else
        m_sinceShown.invalidate();
}

void CNoticeBar::showChoices()
{
    for (QPushButton *pButton : qAsConst(m_lstButtons)) {
        pButton->hide();
        pButton->deleteLater(); // One of them may be the button that was pressed.
    }
    m_lstButtons.clear();
    QWidget *pLast = m_pList;
    for (const SNotice::SChoice &choice : m_wanted.lstChoices) {
        auto *pButton = new QPushButton(choice.strText);
        connect(pButton, &QPushButton::clicked, this, [this, choice] {
            if (m_pList->count() > 0)
                choice.chosenOf(chosenItems());
            else
                choice.chosen();
        });
        m_pLayout->addWidget(pButton, 0, Qt::AlignLeft | Qt::AlignVCenter);
        pButton->show(); // The layout would do this only later.
        m_lstButtons.append(pButton);
        setTabOrder(pLast, pButton);
        pLast = pButton;
    }
    setTabOrder(pLast, m_pClose);
}

// The buttons stand below the text if it has no room beside them.
int CNoticeBar::heightForWidth(int nWidth) const
{
    int nRoom = nWidth - m_pClose->sizeHint().width();
    for (const QPushButton *pButton : m_lstButtons)
        nRoom -= pButton->sizeHint().width() + m_pLayout->spacing();
    m_pLayout->setDirection(nRoom >= g_nLeastText ? QBoxLayout::LeftToRight
                                                  : QBoxLayout::TopToBottom);
    return layout()->totalHeightForWidth(nWidth);
}

bool CNoticeBar::isFreshUnderMouse() const
{
    return m_sinceShown.isValid() && !m_sinceShown.hasExpired(QApplication::doubleClickInterval());
}

// Filters the events of the whole program, to know when the mouse was used last.
bool CNoticeBar::eventFilter(QObject *pObject, QEvent *pEvent)
{
    if (!isClick(pEvent) || !pObject->isWidgetType())
        return false;
    if (!isAncestorOf(static_cast<QWidget *>(pObject))) {
        m_sinceClick.start();
        return false;
    }
    m_sinceClick.invalidate();
    return pEvent->type() == QEvent::MouseButtonPress && isFreshUnderMouse();
}

void CNoticeBar::showItems(const QStringList &lstItems)
{
    const int nMostRows = 6; // The others are reached by scrolling.
    m_pList->clear();
    m_pList->addItems(lstItems);
    m_pList->selectAll();
    m_pList->setVisible(!lstItems.isEmpty());
    const int nRows = qMin(nMostRows, lstItems.size());
    m_pList->setFixedHeight(nRows * m_pList->sizeHintForRow(0) + 2 * m_pList->frameWidth());
}

QList<int> CNoticeBar::chosenItems() const
{
    QList<int> lstRows;
    const QModelIndexList lstIndexes = m_pList->selectionModel()->selectedRows();
    for (const QModelIndex &index : lstIndexes)
        lstRows.append(index.row());
    return lstRows;
}

QString CNoticeBar::text() const
{
    return isHidden() ? QString() : m_pLabel->text();
}
