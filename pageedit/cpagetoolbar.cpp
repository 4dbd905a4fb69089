#include "pageedit/cpagetoolbar.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

#include <QAction>
#include <QComboBox>
#include <QSignalBlocker>
#include <QToolBar>

namespace {

struct SStyle
{
    const char *szName;
    const char *szStyle;
    const char *szKey; // Empty: none.
};

const SStyle g_styles[] = {
    {QT_TRANSLATE_NOOP("CPageToolBar", "Paragraph"), "p", "Ctrl+Alt+0"},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Heading 1"), "h1", "Ctrl+Alt+1"},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Heading 2"), "h2", "Ctrl+Alt+2"},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Heading 3"), "h3", "Ctrl+Alt+3"},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Heading 4"), "h4", "Ctrl+Alt+4"},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Heading 5"), "h5", "Ctrl+Alt+5"},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Heading 6"), "h6", "Ctrl+Alt+6"},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Preformatted"), "pre", ""},
    {QT_TRANSLATE_NOOP("CPageToolBar", "Quotation"), "blockquote", ""},
};

} // namespace

CPageToolBar::CPageToolBar(QToolBar *pToolBar) : QObject(pToolBar)
{
    m_timerState.setSingleShot(true);
    connect(&m_timerState, &QTimer::timeout, this, &CPageToolBar::showState);
    addStyleBox(pToolBar);
    show(SPageState());
}

void CPageToolBar::addStyleBox(QToolBar *pToolBar)
{
    m_pStyleBox = new QComboBox(pToolBar);
    m_pStyleBox->setObjectName(QStringLiteral("comboStyle"));
    m_pStyleBox->setToolTip(tr("Paragraph Style"));
    m_pStyleBox->setAccessibleName(tr("Paragraph Style"));
    pToolBar->addWidget(m_pStyleBox);
    for (const SStyle &style : g_styles) {
        const QString strStyle = QLatin1String(style.szStyle);
        const auto apply = [this, strStyle] {
            run(QStringLiteral("style"), {{QStringLiteral("style"), strStyle}});
        };
        m_pStyleBox->addItem(tr(style.szName), strStyle);
        auto *pAction = new QAction(tr(style.szName), this);
        pAction->setShortcut(QKeySequence(QLatin1String(style.szKey)));
        connect(pAction, &QAction::triggered, this, apply);
        m_actions.insert(QStringLiteral("actionStyle_") + strStyle, pAction);
    }
    connect(m_pStyleBox, QOverload<int>::of(&QComboBox::activated), this, [this](int nIndex) {
        run(QStringLiteral("style"),
            {{QStringLiteral("style"), m_pStyleBox->itemData(nIndex).toString()}});
    });
}

void CPageToolBar::run(const QString &strCommand, const QVariantMap &arguments)
{
    if (!m_pPage)
        return;
    runPageCommand(m_pPage, strCommand, arguments);
    m_pPage->setFocus();
    follow(m_pPage);
}

void CPageToolBar::follow(CEditWebView *pPage)
{
    m_pPage = pPage;
    if (!pPage)
        show(SPageState());
    else if (!m_timerState.isActive())
        m_timerState.start(0);
}

void CPageToolBar::showState()
{
    if (m_pPage)
        show(pageState(m_pPage));
}

void CPageToolBar::show(const SPageState &state)
{
    const QSignalBlocker block(m_pStyleBox);
    m_pStyleBox->setEnabled(state.bEditable);
    m_pStyleBox->setCurrentIndex(m_pStyleBox->findData(state.strStyle));
    for (QAction *pAction : qAsConst(m_actions))
        pAction->setEnabled(state.bEditable);
}
