#pragma once

#include <QKeyEvent>

// Sorts keys by what they mean for somebody who types.

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

// True for Control with plus, minus or 0: with or without the Shift that plus needs, and on the
// keypad.
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
