#pragma once

#include <QHash>
#include <QString>

class CEditWebView;

// What holds at a page's selection, for the tool bar. A value.
struct SPageState
{
    enum class Mark { Off, Mixed, On };

    bool bEditable = false; // There is something that commands could change.
    bool bCaret = false; // Nothing is selected.
    bool bLink = false;
    bool bIndent = false; // Whether there is a way further in, and out.
    bool bOutdent = false;
    QString strStyle; // "p", "h1" … "h6", "pre", "blockquote"; empty: several.
    QString strList; // "ul", "ol"; empty: none, or several.
    QString strAlign; // "left", "center", "right", "justify"; empty: several.
    QHash<QString, Mark> marks; // "s", "sup", "sub", "code".
};

// Asks the page once.
SPageState pageState(const CEditWebView *pPage);
