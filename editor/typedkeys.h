#pragma once

#include <QKeyEvent>

// What kinds of keys there are for one who types.

inline bool isEnter(const QKeyEvent *pEvent)
{
    return pEvent->key() == Qt::Key_Enter || pEvent->key() == Qt::Key_Return;
}

inline bool isTab(const QKeyEvent *pEvent)
{
    return pEvent->key() == Qt::Key_Tab || pEvent->key() == Qt::Key_Backtab;
}

inline bool isDeadKey(const QKeyEvent *pEvent)
{
    return pEvent->key() >= Qt::Key_Dead_Grave && pEvent->key() <= Qt::Key_Dead_Longsolidusoverlay;
}
