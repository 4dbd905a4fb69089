#pragma once

#include <QString>
#include <QVariant>

class CEditWebView;

// The scripts of this folder, as one object in each edited page. They stay in the page until it is
// reloaded, like its steps of undo.

// The library's name in the page's window, as a JavaScript literal. No element of a page can take
// that name.
const QString &pageLibraryKey();

// Calls a function of main.js; strArguments is script text. Invalid when that failed.
QVariant callPageLibrary(const CEditWebView *pPage, const QString &strFunction,
                         const QString &strArguments);
