#pragma once

#include <QHash>
#include <QString>

class CEditWebView;

// The state of a page's selection, for the tool bar. A value.
struct SPageState
{
    enum class Mark { Off, Mixed, On };

    bool bEditable = false; // There is something that a command could change.
    bool bCaret = false; // Nothing is selected.
    bool bLink = false;
    bool bIndent = false; // Whether the selection can be indented, and outdented.
    bool bOutdent = false;
    QString strStyle; // "p", "h1" … "h6", "pre", "blockquote"; empty for several.
    QString strList; // "ul", "ol"; empty for none or several.
    QString strAlign; // "left", "center", "right", "justify"; empty for several.
    QHash<QString, Mark> marks; // "s", "sup", "sub", "code".
};

// Asks the page once.
SPageState pageState(const CEditWebView *pPage);
