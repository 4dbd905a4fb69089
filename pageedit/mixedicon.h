#pragma once

#include <QIcon>

// The icon in a dashed frame, for a button whose format holds for a part of the selection.
QIcon mixedIcon(const QIcon &icon);
