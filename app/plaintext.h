#pragma once

#include <QString>

// Text that comes from outside (file names above all) shown as it stands, never interpreted.

// For menus, tabs and buttons: every "&" shows as itself.
QString withoutMnemonic(QString strText);

// For tool tips, which take what looks like markup as markup. Any other text comes back unchanged.
QString plainToolTip(const QString &strText);

// For window titles, in which Qt replaces a "[*]".
QString plainWindowTitle(QString strText);

// A file name as one line in which nothing hides: control characters, and what turns or hides the
// text around it (direction marks, line separators, halves of a pair), as their numbers. For lists
// and titles, never for a path that a file is opened with.
QString visibleName(const QString &strName);
