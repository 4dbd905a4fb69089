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

enum class ZoomKey { None, Larger, Smaller, Usual };

// Control with plus, minus and 0, also without the Shift that plus takes, and on the keypad.
inline ZoomKey zoomKey(const QKeyEvent *pEvent)
{
    const Qt::KeyboardModifiers modifiers =
        pEvent->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier);
    if (modifiers != Qt::ControlModifier)
        return ZoomKey::None;
    switch (pEvent->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return ZoomKey::Larger;
    case Qt::Key_Minus:
        return ZoomKey::Smaller;
    case Qt::Key_0:
        return ZoomKey::Usual;
    default:
        return ZoomKey::None;
    }
}
