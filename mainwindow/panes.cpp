#include "mainwindow/panes.h"

#include <QWidget>

#include <algorithm>

namespace {

bool takesKeyboard(const QWidget *pWidget)
{
    return pWidget && (pWidget->focusPolicy() & Qt::TabFocus) && pWidget->isVisible()
        && pWidget->isEnabled();
}

bool isWithin(const QWidget *pPane, const QWidget *pWidget)
{
    return pWidget && (pWidget == pPane || pPane->isAncestorOf(pWidget));
}

QWidget *target(const QWidget *pPane)
{
    QWidget *pLast = pPane->focusWidget();
    if (isWithin(pPane, pLast) && takesKeyboard(pLast))
        return pLast;
    if (takesKeyboard(pPane->focusProxy()))
        return pPane->focusProxy();
    for (auto *pWidget = const_cast<QWidget *>(pPane);;) {
        if (isWithin(pPane, pWidget) && takesKeyboard(pWidget))
            return pWidget;
        pWidget = pWidget->nextInFocusChain();
        if (pWidget == pPane)
            return nullptr;
    }
}

} // namespace

QWidget *nextPane(const QList<QWidget *> &lstPanes, const QWidget *pFocus, int nBy)
{
    const int nCount = lstPanes.size();
    const auto itNow = std::find_if(lstPanes.begin(), lstPanes.end(),
                                    [pFocus](QWidget *pPane) { return isWithin(pPane, pFocus); });
    // Without a current part, forward leads to the first and back to the last.
    int nAt = itNow != lstPanes.end() ? int(itNow - lstPanes.begin()) : (nBy > 0 ? -1 : nCount);
    for (int n = 0; n < nCount; ++n) {
        nAt = (nAt + nBy + nCount) % nCount;
        QWidget *pPane = lstPanes.at(nAt);
        if (!isWithin(pPane, pFocus) && pPane->isVisible() && target(pPane))
            return pPane;
    }
    return nullptr;
}

void focusPane(QWidget *pPane)
{
    if (QWidget *pTarget = target(pPane))
        pTarget->setFocus(Qt::ShortcutFocusReason);
}
