#pragma once

#include "editor/documentreplace.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTextCursor>
#include <QTimer>

class CLineSearch;
class QPlainTextEdit;

// Replace All in pieces, between which the event loop runs and the view takes no edits. It comes to
// one step of undo, or to nothing when it is stopped. Whoever changes the text meanwhile ends it.
// GUI thread only. Deletes itself when it has ended.
class CReplaceAll : public QObject
{
    Q_OBJECT

public:
    // Becomes the view's child. The text must not hold ends of lines (see holdsBlockEnd()).
    CReplaceAll(QPlainTextEdit *pEdit, const CLineSearch &search, const QString &strReplace);

    // Works for so many milliseconds, after which most documents are done.
    void start(int nFirst = 200);
    // All the rest at once.
    void finish();
    // Takes back what was replaced.
    void stop();
    bool isRunning() const { return m_bRunning; }

signals:
    void progressed(qint64 nDone, qint64 nAll);
    // One of these comes once.
    void finished(int nCount);
    void stopped();
    // The text was changed by somebody else; so many matches had been replaced.
    void disturbed(int nCount);

private:
    void onTick();
    bool work(const QDeadlineTimer &until);
    void end();

    QPlainTextEdit *m_pEdit;
    QTextCursor m_cursor;
    CDocumentReplacer m_replacer;
    QTimer m_timer;
    int m_nRevision; // Of the text as this has left it.
    bool m_bRunning = true;
};
