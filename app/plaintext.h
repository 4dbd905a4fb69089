#pragma once

#include <QString>

// Shows text from outside (file names above all) literally, so that nothing in it is interpreted.

// For menus, tabs and buttons: every "&" shows as itself.
QString withoutMnemonic(QString strText);

// For tool tips, which take what looks like markup as markup. Any other text comes back unchanged.
QString plainToolTip(const QString &strText);

// For window titles, in which Qt replaces a "[*]".
QString plainWindowTitle(QString strText);

// A file name as one line that hides nothing. Control characters, and characters that turn or hide
// the text around them (direction marks, line separators, lone surrogates), are shown as their
// numbers. For lists and titles; never open a file with the result.
QString visibleName(const QString &strName);
