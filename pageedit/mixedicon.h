#pragma once

#include <QIcon>

// The drawing of a button whose format holds for a part of the selection: in a dashed frame.
QIcon mixedIcon(const QIcon &icon);
