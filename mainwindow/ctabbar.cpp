#include "mainwindow/ctabbar.h"

namespace {

// Of the name, in characters of average width.
const int g_nWidestName = 32;
const int g_nNarrowestName = 18;

} // namespace

CTabBar::CTabBar(QWidget *pParent) : QTabBar(pParent)
{
    setElideMode(Qt::ElideMiddle);
    setUsesScrollButtons(true);
}

// With the name cut to so many characters; icon and button stay as they are.
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
