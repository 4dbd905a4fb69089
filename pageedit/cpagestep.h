#pragma once

#include <QPointer>
#include <QUndoCommand>

class CEditWebView;

// A step of undo that the scripts of this folder have recorded. It is in the page's undo stack, and
// does nothing once the page was reloaded.
class CPageStep : public QUndoCommand
{
public:
    // The change with this number was made already.
    CPageStep(CEditWebView *pPage, int nId);

    void undo() override;
    void redo() override;

private:
    void step(const QString &strFunction);

    QPointer<CEditWebView> m_pPage;
    int m_nId;
    bool m_bMade = true; // The stack calls redo() at first, although the change was made.
};
