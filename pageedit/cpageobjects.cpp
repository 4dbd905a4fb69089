#include "pageedit/cpageobjects.h"

#include "pageedit/cpagepictures.h"
#include "pageedit/ctablechooser.h"
#include "pageedit/pagecommands.h"
#include "pageedit/tablecommands.h"
#include "res/icons.h"
#include "web/ceditwebview.h"

#include <QAction>
#include <QMenu>
#include <QShortcut>
#include <QToolBar>
#include <QToolButton>
#include <QWidgetAction>

namespace {

struct STableCommand
{
    const char *szText; // Null for a separator.
    const char *szCommand;
};

const STableCommand g_tableCommands[] = {
    {QT_TRANSLATE_NOOP("CPageObjects", "Insert Row &Above"), "rowAbove"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Insert Row &Below"), "rowBelow"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Insert Column &Left"), "columnLeft"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Insert Column &Right"), "columnRight"},
    {nullptr, nullptr},
    {QT_TRANSLATE_NOOP("CPageObjects", "Move Row &Up"), "rowUp"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Move Row &Down"), "rowDown"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Move Column L&eft"), "moveLeft"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Move Column R&ight"), "moveRight"},
    {nullptr, nullptr},
    {QT_TRANSLATE_NOOP("CPageObjects", "&Merge Cells"), "merge"},
    {QT_TRANSLATE_NOOP("CPageObjects", "&Split Cell"), "split"},
    {nullptr, nullptr},
    {QT_TRANSLATE_NOOP("CPageObjects", "Delete R&ows"), "deleteRows"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Delete &Columns"), "deleteColumns"},
    {QT_TRANSLATE_NOOP("CPageObjects", "Delete &Table"), "deleteTable"},
};

} // namespace

CPageObjects::CPageObjects(QToolBar *pToolBar) : QObject(pToolBar), m_pToolBar(pToolBar)
{
    pToolBar->addSeparator();
    m_pPicture = addButton("actionPicture", tr("Picture..."), "picture");
    connect(m_pPicture, &QAction::triggered, this, &CPageObjects::askPicture);
    addTableMenu();
    follow(nullptr);
}

QAction *CPageObjects::addButton(const char *szName, const QString &strText, const char *szIcon)
{
    auto *pAction = new QAction(drawnIcon(QLatin1String(szIcon)), strText, m_pToolBar);
    pAction->setObjectName(QLatin1String(szName));
    m_pToolBar->addAction(pAction);
    // By default Tab skips buttons of tool bars.
    m_pToolBar->widgetForAction(pAction)->setFocusPolicy(Qt::TabFocus);
    return pAction;
}

void CPageObjects::addTableMenu()
{
    m_pTable = addButton("actionTable", tr("Table"), "table");
    m_pTableMenu = new QMenu(m_pToolBar);
    m_pTableMenu->setObjectName(QStringLiteral("menuTable"));
    connect(m_pTableMenu, &QMenu::aboutToShow, this, &CPageObjects::showTableState);
    m_pTable->setMenu(m_pTableMenu);
    auto *pButton = qobject_cast<QToolButton *>(m_pToolBar->widgetForAction(m_pTable));
    pButton->setPopupMode(QToolButton::InstantPopup);
    auto *pOpen = new QShortcut(QKeySequence(QStringLiteral("Alt+Down")), pButton);
    pOpen->setContext(Qt::WidgetShortcut);
    connect(pOpen, &QShortcut::activated, pButton, &QToolButton::showMenu);

    auto *pChooser = new CTableChooser(m_pTableMenu);
    auto *pGrid = new QWidgetAction(this);
    pGrid->setDefaultWidget(pChooser);
    m_pTableMenu->addAction(pGrid);
    connect(pChooser, &CTableChooser::chosen, this, &CPageObjects::insertTable);
    m_pTableMenu->addSeparator();
    addTableCommands();
}

void CPageObjects::addTableCommands()
{
    m_pHeader = m_pTableMenu->addAction(tr("&Header Row"), this,
                                        [this] { runTable(QStringLiteral("headerRow")); });
    m_pHeader->setCheckable(true);
    for (const STableCommand &command : g_tableCommands) {
        if (!command.szText) {
            m_pTableMenu->addSeparator();
            continue;
        }
        const QString strCommand = QLatin1String(command.szCommand);
        QAction *pAction = m_pTableMenu->addAction(tr(command.szText), this,
                                                   [this, strCommand] { runTable(strCommand); });
        pAction->setData(strCommand);
        m_tableActions.append(pAction);
    }
}

QList<QAction *> CPageObjects::actions() const
{
    return {m_pPicture, m_pTable};
}

void CPageObjects::follow(CEditWebView *pPage)
{
    m_pPage = pPage;
    m_pPicture->setEnabled(pPage && isOwnPageEdited(pPage));
    m_pTable->setEnabled(pPage && pPage->isBodyEdited());
}

void CPageObjects::showTableState()
{
    const QVariantMap table =
        m_pPage ? askPage(m_pPage, QStringLiteral("table")).toMap() : QVariantMap();
    const bool bTable = table.value(QStringLiteral("present")).toBool();
    QStringList lstNames;
    for (const QAction *pAction : qAsConst(m_tableActions))
        lstNames.append(pAction->data().toString());
    const QStringList lstPossible =
        bTable ? possibleTableCommands(m_pPage, lstNames) : QStringList();
    for (QAction *pAction : qAsConst(m_tableActions))
        pAction->setEnabled(lstPossible.contains(pAction->data().toString())
                            || (bTable && pAction->data() == QLatin1String("deleteTable")));
    m_pHeader->setEnabled(bTable);
    m_pHeader->setChecked(table.value(QStringLiteral("header")).toBool());
}

void CPageObjects::askPicture()
{
    if (CPagePictures *pPictures = CPagePictures::of(m_pPage))
        pPictures->ask();
}

void CPageObjects::insertTable(int nRows, int nColumns)
{
    m_pTableMenu->hide();
    if (!m_pPage)
        return;
    runInsteadOfSelection(m_pPage, QStringLiteral("insertTable"),
                          {{QStringLiteral("rows"), nRows}, {QStringLiteral("columns"), nColumns}});
    m_pPage->setFocus();
}

void CPageObjects::runTable(const QString &strCommand)
{
    if (!m_pPage)
        return;
    const bool bWhole =
        strCommand == QLatin1String("headerRow") || strCommand == QLatin1String("deleteTable");
    const bool bDone =
        bWhole ? runPageCommand(m_pPage, strCommand) : runTableCommand(m_pPage, strCommand);
    if (!bDone)
        emit m_pPage->statusMessage(tr("That cannot be done with these cells."));
    m_pPage->setFocus();
}
