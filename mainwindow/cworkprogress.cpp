#include "mainwindow/cworkprogress.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>
#include <utility>

namespace {

const int g_nDelay = 500; // Milliseconds; shorter work is not shown.
const int g_nSteps = 1000; // The range of the bar, which takes only small numbers.
const int g_nTextWidth = 220; // In pixels; longer texts are shortened in the middle.

} // namespace

CWorkProgress::CWorkProgress(QWidget *pParent)
    : QWidget(pParent),
      m_pText(new QLabel(this)),
      m_pBar(new QProgressBar(this)),
      m_pStop(new QToolButton(this)),
      m_pEscape(new QShortcut(QKeySequence(Qt::Key_Escape), this))
{
    setObjectName(QStringLiteral("workProgress"));
    m_pText->setObjectName(QStringLiteral("labelWork"));
    m_pText->setTextFormat(Qt::PlainText);
    m_pBar->setTextVisible(false);
    m_pBar->setFixedSize(90, 12);
    m_pStop->setText(tr("Cancel"));
    m_pStop->setToolTip(tr("Stop this (Esc)"));
    m_pStop->setAutoRaise(true);
    m_pStop->setFocusPolicy(Qt::TabFocus);
    auto *pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pText);
    pLayout->addWidget(m_pBar);
    pLayout->addWidget(m_pStop);
    m_pEscape->setContext(Qt::ApplicationShortcut);
    m_pEscape->setEnabled(false);
    m_timer.setSingleShot(true);
    connect(m_pStop, &QToolButton::clicked, this, &CWorkProgress::stopShown);
    connect(m_pEscape, &QShortcut::activated, this, &CWorkProgress::stopShown);
    connect(&m_timer, &QTimer::timeout, this, &CWorkProgress::refresh);
    hide();
}

int CWorkProgress::begin(QObject *pOwner, const QString &strText, const Stop &stop)
{
    SWork work;
    work.nId = ++m_nLastId;
    work.strText = strText;
    work.stop = stop;
    work.age.start();
    if (pOwner) {
        const auto endWork = [this, nId = work.nId] { end(nId); };
        work.owner = connect(pOwner, &QObject::destroyed, this, endWork);
    }
    m_lstWorks.push_back(work);
    refresh();
    return work.nId;
}

void CWorkProgress::advance(int nWork, qint64 nDone, qint64 nAll)
{
    const auto itFound = find(nWork);
    if (itFound == m_lstWorks.end())
        return;
    itFound->nDone = nDone;
    itFound->nAll = nAll;
    if (&*itFound == shownWork())
        showWork(*itFound);
}

void CWorkProgress::end(int nWork)
{
    const auto itFound = find(nWork);
    if (itFound == m_lstWorks.end())
        return;
    disconnect(itFound->owner);
    m_lstWorks.erase(itFound);
    refresh();
}

void CWorkProgress::stopShown()
{
    SWork *pWork = shownWork();
    if (pWork && pWork->stop)
        std::exchange(pWork->stop, nullptr)(); // This may end the work.
    refresh();
}

void CWorkProgress::onTextFontSize(int nVal)
{
    setStyleSheet(
        QStringLiteral("QLabel,QToolButton{color:#444;font-size:%1px}").arg(qRound(nVal * 0.8)));
}

std::vector<CWorkProgress::SWork>::iterator CWorkProgress::find(int nWork)
{
    return std::find_if(
        m_lstWorks.begin(), m_lstWorks.end(),
        [nWork](const SWork &work) { return work.nId == nWork; });
}

// Gives the work begun last among those that are old enough.
CWorkProgress::SWork *CWorkProgress::shownWork()
{
    const auto itFound =
        std::find_if(m_lstWorks.rbegin(), m_lstWorks.rend(),
                     [](const SWork &work) { return work.age.hasExpired(g_nDelay); });
    return itFound == m_lstWorks.rend() ? nullptr : &*itFound;
}

void CWorkProgress::refresh()
{
    m_timer.stop();
    for (const SWork &work : m_lstWorks) {
        if (!work.age.hasExpired(g_nDelay)) {
            m_timer.start(int(g_nDelay - work.age.elapsed()) + 1);
            break;
        }
    }
    const SWork *pWork = shownWork();
    if (pWork)
        showWork(*pWork);
    m_pEscape->setEnabled(pWork && pWork->stop);
    setVisible(pWork);
}

void CWorkProgress::showWork(const SWork &work)
{
    const QString strText = m_lstWorks.size() > 1
        ? tr("%1 (and %n more)", nullptr, int(m_lstWorks.size()) - 1).arg(work.strText)
        : work.strText;
    m_pText->setText(m_pText->fontMetrics().elidedText(strText, Qt::ElideMiddle, g_nTextWidth));
    m_pBar->setAccessibleName(work.strText);
    m_pBar->setRange(0, work.nAll > 0 ? g_nSteps : 0);
    if (work.nAll > 0)
        m_pBar->setValue(
            int(double(g_nSteps) * qBound(qint64(0), work.nDone, work.nAll) / work.nAll));
    m_pStop->setEnabled(bool(work.stop));
}
