#include "mainwindow/actionicons.h"
#include "res/icons.h"

#include <QAction>
#include <QMainWindow>

namespace {

struct SActionIcon
{
    const char *szAction;
    const char *szIcon;
};

const SActionIcon g_icons[] = {
    {"actionAbout", "about"},
    {"actionBack", "back"},
    {"actionBold", "bold"},
    {"actionColor_Dialog", "color_dialog"},
    {"actionCopy", "copy"},
    {"actionCut", "cut"},
    {"actionExit", "exit"},
    {"actionFind", "find"},
    {"actionFind_Next", "find_next"},
    {"actionFind_Previous", "find_previous"},
    {"actionFormatting", "formatting"},
    {"actionForward", "forward"},
    {"actionGo_to_Line", "go_to_line"},
    {"actionItalic", "italic"},
    {"actionLeft_to_Right", "left_to_right"},
    {"actionLine_Wrap", "line_wrap"},
    {"actionNewHtml", "new"},
    {"actionNewText", "new_text"},
    {"actionOpen", "open"},
    {"actionPaste", "paste"},
    {"actionRedo", "redo"},
    {"actionRefresh", "refresh"},
    {"actionReplace", "replace"},
    {"actionRight_to_Left", "right_to_left"},
    {"actionSave", "save"},
    {"actionSave_All", "save_all"},
    {"actionSave_As", "save_as"},
    {"actionSelect_All", "select_all"},
    {"actionSwapHtml", "switch_back"},
    {"actionToggle_Comment", "toggle_comment"},
    {"actionUnderline", "underline"},
    {"actionUndo", "undo"},
    {"actionVerify_Valid", "verify_valid"},
};

} // namespace

void setActionIcons(QMainWindow *pWindow)
{
    for (const SActionIcon &entry : g_icons) {
        auto *pAction = pWindow->findChild<QAction *>(QLatin1String(entry.szAction));
        pAction->setIcon(drawnIcon(QLatin1String(entry.szIcon)));
    }
}
