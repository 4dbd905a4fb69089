#pragma once

#include <QString>

class CEditWebView;

// What holds at a page's selection, for the tool bar. A value.
struct SPageState
{
    bool bEditable = false; // There is something that commands could change.
    QString strStyle; // "p", "h1" … "h6", "pre", "blockquote"; empty: several.
};

// Asks the page once.
SPageState pageState(const CEditWebView *pPage);
