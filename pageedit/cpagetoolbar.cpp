#include "pageedit/cpagetoolbar.h"

#include "pageedit/cpagetyping.h"
#include "pageedit/mixedicon.h"
#include "res/icons.h"
#include "web/ceditwebview.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolBar>
#include <QToolButton>

namespace {

struct SStyle
{
    const char *szName;
    const char *szStyle;
    const char *szKey; // Empty for none.
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

// A button that runs a command with one argument, or none. It is ticked while the state contains
// it.
struct SButton
{
    const char *szAction;
    const char *szText;
    const char *szIcon;
    const char *szCommand; // Null for a separator.
    const char *szArgument;
    const char *szValue;
};

const SButton g_buttons[] = {
    {"actionList_ul", QT_TRANSLATE_NOOP("CPageToolBar", "Bulleted List"), "list_bullets", "list",
     "type", "ul"},
    {"actionList_ol", QT_TRANSLATE_NOOP("CPageToolBar", "Numbered List"), "list_numbers", "list",
     "type", "ol"},
    {"actionOutdent", QT_TRANSLATE_NOOP("CPageToolBar", "Outdent"), "outdent", "outdent", "", ""},
    {"actionIndent", QT_TRANSLATE_NOOP("CPageToolBar", "Indent"), "indent", "indent", "", ""},
    {"", "", "", nullptr, "", ""},
    {"actionAlign_left", QT_TRANSLATE_NOOP("CPageToolBar", "Align Left"), "align_left", "align",
     "align", "left"},
    {"actionAlign_center", QT_TRANSLATE_NOOP("CPageToolBar", "Center"), "align_center", "align",
     "align", "center"},
    {"actionAlign_right", QT_TRANSLATE_NOOP("CPageToolBar", "Align Right"), "align_right", "align",
     "align", "right"},
    {"actionAlign_justify", QT_TRANSLATE_NOOP("CPageToolBar", "Justify"), "align_justify", "align",
     "align", "justify"},
    {"", "", "", nullptr, "", ""},
};

struct SMark
{
    const char *szMark;
    const char *szText;
    const char *szIcon;
};

const SMark g_marks[] = {
    {"s", QT_TRANSLATE_NOOP("CPageToolBar", "Strikethrough"), "strikethrough"},
    {"sup", QT_TRANSLATE_NOOP("CPageToolBar", "Superscript"), "superscript"},
    {"sub", QT_TRANSLATE_NOOP("CPageToolBar", "Subscript"), "subscript"},
    {"code", QT_TRANSLATE_NOOP("CPageToolBar", "Code"), "code"},
};

QString named(const char *szBefore, const QString &strName)
{
    return QLatin1String(szBefore) + strName;
}

} // namespace

CPageToolBar::CPageToolBar(QToolBar *pToolBar) : QObject(pToolBar), m_pToolBar(pToolBar)
{
    m_timerState.setSingleShot(true);
    connect(&m_timerState, &QTimer::timeout, this, &CPageToolBar::showState);
    addStyleBox();
    addCommands();
    addMarks();
    addLinks();
    addWholePage();
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
            &CPageToolBar::onClipboardChanged);
    onClipboardChanged();
    show(SPageState());
}

// Asked for only here, because the clipboard is in another program.
void CPageToolBar::onClipboardChanged()
{
    const QMimeData *pData = QGuiApplication::clipboard()->mimeData();
    m_bTextToPaste = pData && pData->hasText();
    m_actions.value(QStringLiteral("actionPaste_Plain"))
        ->setEnabled(m_state.bEditable && m_bTextToPaste);
}

QAction *CPageToolBar::addAction(const char *szName, const char *szText, const char *szIcon,
                                 const char *szKey, const std::function<void()> &command)
{
    auto *pAction = new QAction(tr(szText), m_pToolBar);
    pAction->setObjectName(QLatin1String(szName));
    pAction->setShortcut(QKeySequence(QLatin1String(szKey)));
    connect(pAction, &QAction::triggered, this, command);
    m_actions.insert(pAction->objectName(), pAction);
    if (!*szIcon)
        return pAction;
    pAction->setIcon(drawnIcon(QLatin1String(szIcon)));
    m_pToolBar->addAction(pAction);
    // By default Tab skips buttons of tool bars.
    m_pToolBar->widgetForAction(pAction)->setFocusPolicy(Qt::TabFocus);
    return pAction;
}

void CPageToolBar::addStyleBox()
{
    m_pStyleBox = new QComboBox(m_pToolBar);
    m_pStyleBox->setObjectName(QStringLiteral("comboStyle"));
    m_pStyleBox->setToolTip(tr("Paragraph Style"));
    m_pStyleBox->setAccessibleName(tr("Paragraph Style"));
    m_pToolBar->addWidget(m_pStyleBox);
    m_pToolBar->addSeparator();
    for (const SStyle &style : g_styles) {
        const QString strStyle = QLatin1String(style.szStyle);
        m_pStyleBox->addItem(tr(style.szName), strStyle);
        if (*style.szKey)
            addAction(qPrintable(named("actionStyle_", strStyle)), style.szName, "", style.szKey,
                      [this, strStyle] {
                          run(QStringLiteral("style"), {{QStringLiteral("style"), strStyle}});
                      });
    }
    connect(m_pStyleBox, QOverload<int>::of(&QComboBox::activated), this, [this](int nIndex) {
        run(QStringLiteral("style"),
            {{QStringLiteral("style"), m_pStyleBox->itemData(nIndex).toString()}});
    });
}

void CPageToolBar::addCommands()
{
    for (const SButton &button : g_buttons) {
        if (!button.szCommand) {
            m_pToolBar->addSeparator();
            continue;
        }
        QVariantMap arguments;
        if (*button.szArgument)
            arguments.insert(QLatin1String(button.szArgument), QLatin1String(button.szValue));
        const QString strCommand = QLatin1String(button.szCommand);
        QAction *pAction = addAction(button.szAction, button.szText, button.szIcon, "",
                                     [this, strCommand, arguments] { run(strCommand, arguments); });
        pAction->setCheckable(!arguments.isEmpty());
    }
}

void CPageToolBar::addMarks()
{
    for (const SMark &mark : g_marks) {
        const QString strMark = QLatin1String(mark.szMark);
        addAction(qPrintable(named("actionMark_", strMark)), mark.szText, mark.szIcon, "",
                  [this, strMark] { toggleMark(strMark); })
            ->setCheckable(true);
    }
    addAction(
        "actionClear_Formatting", QT_TR_NOOP("Clear Formatting"), "clear_formatting", "Ctrl+Space",
        [this] { clearFormat(); });
    addAction("actionPaste_Plain", QT_TR_NOOP("Paste as Plain Text"), "paste_plain", "Ctrl+Shift+V",
              [this] { pastePlain(); });
    m_pToolBar->addSeparator();
}

void CPageToolBar::addLinks()
{
    addAction(
        "actionLink", QT_TR_NOOP("Link..."), "link", "Ctrl+K", [this] { editLink(); });
    addAction(
        "actionRemove_Link", QT_TR_NOOP("Remove Link"), "link_un", "",
        [this] { run(QStringLiteral("unlink")); });
    addAction(
        "actionHorizontal_Line", QT_TR_NOOP("Horizontal Line"), "horizontal_line", "",
        [this] { runInstead(QStringLiteral("rule")); });
    addAction("actionSpecial_Characters", QT_TR_NOOP("Special Characters..."), "characters", "",
              [this] { showCharacters(); });
    m_pToolBar->addSeparator();
}

void CPageToolBar::addWholePage()
{
    addOutline();
    addAction("actionPage_Properties", QT_TR_NOOP("Page Properties..."), "page_properties", "",
              [this] { editProperties(); });
}

void CPageToolBar::addOutline()
{
    m_pOutline = new QMenu(m_pToolBar);
    m_pOutline->setObjectName(QStringLiteral("menuOutline"));
    connect(m_pOutline, &QMenu::aboutToShow, this, &CPageToolBar::fillOutline);
    QAction *pAction =
        addAction("actionOutline", QT_TR_NOOP("Headings and Anchors"), "outline", "", [] {});
    pAction->setMenu(m_pOutline);
    auto *pButton = qobject_cast<QToolButton *>(m_pToolBar->widgetForAction(pAction));
    pButton->setPopupMode(QToolButton::InstantPopup);
    auto *pOpen = new QShortcut(QKeySequence(QStringLiteral("Alt+Down")), pButton);
    pOpen->setContext(Qt::WidgetShortcut);
    connect(pOpen, &QShortcut::activated, pButton, &QToolButton::showMenu);
}

void CPageToolBar::follow(CEditWebView *pPage)
{
    if (pPage && pPage != m_pPage)
        connect(CPageTyping::of(pPage), &CPageTyping::chosenChanged, &m_timerState,
                QOverload<>::of(&QTimer::start), Qt::UniqueConnection);
    m_pPage = pPage;
    if (!pPage && m_bBlank)
        return; // Every key in a text editor gets here.
    m_bBlank = !pPage;
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
    m_state = state;
    const QSignalBlocker block(m_pStyleBox);
    m_pStyleBox->setEnabled(state.bEditable);
    m_pStyleBox->setCurrentIndex(m_pStyleBox->findData(state.strStyle));
    for (QAction *pAction : qAsConst(m_actions))
        pAction->setEnabled(state.bEditable);
    // These buttons also work in a page without any text.
    for (const char *szAction : {"actionOutline", "actionPage_Properties"})
        m_actions.value(QLatin1String(szAction))->setEnabled(m_pPage);
    m_actions.value(QStringLiteral("actionPaste_Plain"))
        ->setEnabled(state.bEditable && m_bTextToPaste);
    m_actions.value(QStringLiteral("actionRemove_Link"))->setEnabled(state.bLink);
    m_actions.value(QStringLiteral("actionIndent"))->setEnabled(state.bIndent);
    m_actions.value(QStringLiteral("actionOutdent"))->setEnabled(state.bOutdent);
    for (const char *szList : {"ul", "ol"})
        m_actions.value(named("actionList_", szList))->setChecked(state.strList == szList);
    for (const char *szAlign : {"left", "center", "right", "justify"})
        m_actions.value(named("actionAlign_", szAlign))->setChecked(state.strAlign == szAlign);
    showMarks();
}

// A format chosen for the next typing counts before the format at the caret.
void CPageToolBar::showMarks()
{
    const QHash<QString, bool> chosen =
        m_pPage ? CPageTyping::of(m_pPage)->chosen() : QHash<QString, bool>();
    const bool bPlain = chosen.contains(QStringLiteral("*"));
    for (const SMark &mark : g_marks) {
        const QString strMark = QLatin1String(mark.szMark);
        const SPageState::Mark state = m_state.marks.value(strMark);
        QAction *pAction = m_actions.value(named("actionMark_", strMark));
        pAction->setChecked(chosen.value(strMark, !bPlain && state == SPageState::Mark::On));
        const bool bMixed = state == SPageState::Mark::Mixed;
        if (bMixed == pAction->property("mixed").toBool())
            continue;
        const QIcon icon = drawnIcon(QLatin1String(mark.szIcon));
        pAction->setProperty("mixed", bMixed);
        pAction->setIcon(bMixed ? mixedIcon(icon) : icon);
        pAction->setToolTip(bMixed ? tr("%1 (of a part)").arg(tr(mark.szText)) : tr(mark.szText));
    }
}
