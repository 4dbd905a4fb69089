#pragma once

#include <QString>

// The outcome of a command: done, or refused with a text for the user. The text is empty when the
// user knows already: the command was cancelled, had nothing to do, or asks in the notice bar.
class [[nodiscard]] CResult
{
public:
    static CResult done() { return CResult(true, QString()); }
    static CResult refused(const QString &strText = QString()) { return CResult(false, strText); }
    // A result for commands that either work or have nothing to do.
    static CResult doneIf(bool bDone) { return CResult(bDone, QString()); }

    bool isDone() const { return m_bDone; }
    const QString &text() const { return m_strText; }

private:
    CResult(bool bDone, const QString &strText) : m_bDone(bDone), m_strText(strText) { }

    bool m_bDone;
    QString m_strText;
};
