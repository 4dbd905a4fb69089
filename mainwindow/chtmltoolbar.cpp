#include "mainwindow/chtmltoolbar.h"

#include "app/csettings.h"
#include "pageedit/cpagetyping.h"
#include "web/ceditwebview.h"

#include <QColorDialog>
#include <QComboBox>
#include <QFontComboBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QShortcut>
#include <QSignalBlocker>
#include <QToolBar>
#include <QToolButton>

namespace {

struct SNamedColor
{
    const char *szName;
    const char *szColor;
};

const SNamedColor g_colors[] = {
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Black"), "#000000"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Gray"), "#808080"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Red"), "#ff0000"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Orange"), "#ff8000"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Yellow"), "#ffff00"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Green"), "#008000"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Blue"), "#0000ff"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "Purple"), "#800080"},
    {QT_TRANSLATE_NOOP("CHtmlToolBar", "White"), "#ffffff"},
};

QIcon swatch(const QColor &clr)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(clr);
    QPainter painter(&pixmap);
    painter.setPen(QColor(128, 128, 128));
    painter.drawRect(0, 0, 15, 15);
    return QIcon(pixmap);
}

// Draws the button's picture with two colours: a bar at the bottom for the one at the caret, a
// corner for the one that a click applies.
QIcon underlined(const QString &strIcon, const QColor &clr, const QColor &clrChosen)
{
    QIcon icon;
    for (const int nScale : {1, 2}) {
        QPixmap pixmap = QIcon(strIcon).pixmap(QSize(24, 24) * nScale);
        pixmap.setDevicePixelRatio(1);
        pixmap =
            pixmap.scaled(24 * nScale, 24 * nScale, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        QPainter painter(&pixmap);
        const QRect bar(2 * nScale, 19 * nScale, 20 * nScale, 4 * nScale);
        painter.fillRect(bar, clr.alpha() == 0 ? QColor(Qt::white) : clr);
        painter.setPen(QColor(128, 128, 128));
        painter.drawRect(bar);
        const QRect corner(17 * nScale, 0, 6 * nScale, 6 * nScale);
        painter.fillRect(corner, clrChosen.alpha() == 0 ? QColor(Qt::white) : clrChosen);
        painter.drawRect(corner);
        painter.end();
        pixmap.setDevicePixelRatio(nScale);
        icon.addPixmap(pixmap);
    }
    return icon;
}

} // namespace

CHtmlToolBar::CHtmlToolBar(QToolBar *pToolBar)
    : QObject(pToolBar),
      m_pFontBox(new QFontComboBox(pToolBar)),
      m_pSizeBox(new QComboBox(pToolBar))
{
    m_pFontBox->setObjectName(QStringLiteral("comboFont"));
    m_pFontBox->setToolTip(tr("Font"));
    m_pFontBox->setAccessibleName(tr("Font"));
    m_pFontBox->lineEdit()->setAccessibleName(tr("Font"));
    pToolBar->addWidget(m_pFontBox);

    m_pSizeBox->setObjectName(QStringLiteral("comboSize"));
    m_pSizeBox->setToolTip(tr("Font Size"));
    m_pSizeBox->setAccessibleName(tr("Font Size"));
    m_pSizeBox->setEditable(true);
    m_pSizeBox->lineEdit()->setAccessibleName(tr("Font Size"));
    m_pSizeBox->setInsertPolicy(QComboBox::NoInsert);
    const QList<int> lstSizes = QFontDatabase::standardSizes();
    for (const int nSize : lstSizes)
        m_pSizeBox->addItem(QString::number(nSize));
    pToolBar->addWidget(m_pSizeBox);

    m_text.strIcon = QStringLiteral(":/res/24/text_color.png");
    m_back.strIcon = QStringLiteral(":/res/24/back_color.png");
    addColorButton(pToolBar, &m_text, QStringLiteral("actionText_Color"), tr("Text Color"),
                   &CHtmlToolBar::textColorChosen);
    addColorButton(pToolBar, &m_back, QStringLiteral("actionBack_Color"), tr("Background Color"),
                   &CHtmlToolBar::backColorChosen);
}

void CHtmlToolBar::addColorButton(QToolBar *pToolBar, SColorButton *pColor, const QString &strName,
                                  const QString &strToolTip, void (CHtmlToolBar::*pSignal)(QColor))
{
    auto *pMenu = new QMenu(pToolBar);
    for (const SNamedColor &color : g_colors) {
        const QColor clr(QLatin1String(color.szColor));
        connect(pMenu->addAction(swatch(clr), tr(color.szName)), &QAction::triggered, this,
                [this, pSignal, clr] { emit(this->*pSignal)(clr); });
    }
    pMenu->addSeparator();
    connect(pMenu->addAction(tr("Automatic")), &QAction::triggered, this,
            [this, pSignal] { emit(this->*pSignal)(QColor()); });
    connect(pMenu->addAction(tr("More Colors...")), &QAction::triggered, this,
            [this, pSignal, pColor, pToolBar, strToolTip] {
                const QColor clr =
                    QColorDialog::getColor(pColor->clrChosen, pToolBar->window(), strToolTip);
                if (clr.isValid())
                    emit(this->*pSignal)(clr);
            });

    QAction *pAction = pToolBar->addAction(QIcon(pColor->strIcon), strToolTip);
    pAction->setObjectName(strName);
    pAction->setMenu(pMenu);
    connect(pAction, &QAction::triggered, this,
            [this, pSignal, pColor] { emit(this->*pSignal)(pColor->clrChosen); });
    pColor->pButton = qobject_cast<QToolButton *>(pToolBar->widgetForAction(pAction));
    pColor->pButton->setPopupMode(QToolButton::MenuButtonPopup);
    // Qt gives tool bar buttons no place in the Tab order and no key for their menus.
    pColor->pButton->setFocusPolicy(Qt::TabFocus);
    auto *pOpenMenu = new QShortcut(QKeySequence(QStringLiteral("Alt+Down")), pColor->pButton);
    pOpenMenu->setContext(Qt::WidgetShortcut);
    connect(pOpenMenu, &QShortcut::activated, pColor->pButton, &QToolButton::showMenu);
}

void CHtmlToolBar::applyColor(CEditWebView *pPage, const QColor &clr, bool bBackground)
{
    if (!pPage)
        return;
    if (!clr.isValid()) {
        CPageTyping::takeColorOff(pPage, bBackground);
    } else if (bBackground) {
        pPage->setBackColor(clr.alpha() == 0 ? QStringLiteral("transparent") : clr.name());
        g_pSettings->setBackColor(clr);
    } else {
        pPage->setForeColor(clr.name());
        g_pSettings->setTextColor(clr);
    }
    g_pSettings->save();
    setChosenColors(g_pSettings->getTextColor(), g_pSettings->getBackColor());
    pPage->setFocus();
    showFormat(*pPage);
}

void CHtmlToolBar::showFormat(const CEditWebView &page)
{
    showFont(page.fontName(), page.fontSize());
    showColors(page.foreColor(), page.backColor());
}

void CHtmlToolBar::showFont(const QString &strName, const QString &strSize)
{
    const QSignalBlocker blockFont(m_pFontBox);
    const QSignalBlocker blockSize(m_pSizeBox);
    m_pFontBox->setEditText(strName);
    m_pSizeBox->setCurrentIndex(m_pSizeBox->findText(strSize));
    m_pSizeBox->setEditText(strSize);
}

void CHtmlToolBar::showColors(const QColor &clrText, const QColor &clrBack)
{
    showColor(&m_text, clrText);
    showColor(&m_back, clrBack);
}

void CHtmlToolBar::setChosenColors(const QColor &clrText, const QColor &clrBack)
{
    m_text.clrChosen = clrText;
    m_back.clrChosen = clrBack;
    for (SColorButton *pColor : {&m_text, &m_back})
        drawColor(pColor);
}

void CHtmlToolBar::showColor(SColorButton *pColor, const QColor &clr)
{
    // Compares first: this is called for each move of the caret, and drawing takes longer.
    if (pColor->clrShown == clr)
        return;
    pColor->clrShown = clr;
    drawColor(pColor);
}

void CHtmlToolBar::drawColor(const SColorButton *pColor)
{
    pColor->pButton->defaultAction()->setIcon(
        underlined(pColor->strIcon, pColor->clrShown, pColor->clrChosen));
}
