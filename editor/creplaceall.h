#pragma once

#include "editor/documentreplace.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QTextCursor>
#include <QTimer>

class CLineSearch;
class QPlainTextEdit;

// Replace All in pieces. Between them the event loop runs, and the view takes no edits. All pieces
// are one step of undo, or none when it is stopped. Any other change of the text ends it. GUI
// thread only. Deletes itself when it has ended.
class CReplaceAll : public QObject
{
    Q_OBJECT

public:
    // Becomes the view's child. The text must not hold ends of lines (see holdsBlockEnd()).
    CReplaceAll(QPlainTextEdit *pEdit, const CLineSearch &search, const QString &strReplace);

    // Works for so many milliseconds, which is enough for most documents.
    void start(int nFirst = 200);
    // Replaces all the rest at once.
    void finish();
    // Takes back what was replaced.
    void stop();
    bool isRunning() const { return m_bRunning; }

signals:
    void progressed(qint64 nDone, qint64 nAll);
    // Exactly one of these signals comes, once.
    void finished(int nCount);
    void stopped();
    // Something else changed the text; nReplaced matches had been replaced by then.
    void disturbed(int nCount);

private:
    void onTick();
    bool work(const QDeadlineTimer &until);
    void end();

    QPlainTextEdit *m_pEdit;
    QTextCursor m_cursor;
    CDocumentReplacer m_replacer;
    QTimer m_timer;
    int m_nRevision; // The revision of the text after the last replacement here.
    bool m_bRunning = true;
};
