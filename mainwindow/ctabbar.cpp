#include "mainwindow/ctabbar.h"

namespace {

// The width of a tab's name, in characters of average width.
const int g_nWidestName = 32;
const int g_nNarrowestName = 18;

} // namespace

CTabBar::CTabBar(QWidget *pParent) : QTabBar(pParent)
{
    setElideMode(Qt::ElideMiddle);
    setUsesScrollButtons(true);
}

// The width of a tab whose name is cut to that many characters.
QSize CTabBar::sizeWithName(int nIndex, int nCharacters) const
{
    QSize size = QTabBar::tabSizeHint(nIndex);
    const int nName = fontMetrics().size(Qt::TextShowMnemonic, tabText(nIndex)).width();
    const int nWidest = nCharacters * fontMetrics().averageCharWidth();
    if (nName > nWidest)
        size.rwidth() -= nName - nWidest;
    return size;
}

QSize CTabBar::tabSizeHint(int nIndex) const
{
    return sizeWithName(nIndex, g_nWidestName);
}

QSize CTabBar::minimumTabSizeHint(int nIndex) const
{
    return sizeWithName(nIndex, g_nNarrowestName);
}
