#pragma once

#include <QPointer>
#include <QUndoCommand>

class CEditWebView;

// A step of undo that the scripts of this folder have recorded. Does nothing once the page has been
// loaded anew. Lives in the page's undo stack.
class CPageStep : public QUndoCommand
{
public:
    // The change with this number is made already.
    CPageStep(CEditWebView *pPage, int nId);

    void undo() override;
    void redo() override;

private:
    void step(const QString &strFunction);

    QPointer<CEditWebView> m_pPage;
    int m_nId;
    bool m_bMade = true; // The stack begins with a redo() of what was done.
};
