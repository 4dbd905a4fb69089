#pragma once

class CDocument;

namespace Ui {
class MainWindow;
}

// Enables exactly the actions that do something for the document (docs/actions.md), ticks what
// holds at its caret and shows the HTML tool bar for pages. Paste follows the clipboard instead.
void showActionStates(Ui::MainWindow *pUi, const CDocument &document);
