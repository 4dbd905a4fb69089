#pragma once

#include "editor/chighlightedit.h"

#include "withsettings.h"

#include <QPair>
#include <QTextCursor>

#include <memory>

// The base of tests of the editor: a new editor and new settings for each case.
class CEditorCase
{
protected:
    using Ends = QPair<int, int>; // A selection: its anchor and the cursor's position.

    void makeEditor()
    {
        m_pSettings = std::make_unique<WithSettings>();
        m_pEdit = std::make_unique<CHighlightEdit>();
    }
    void removeEditor()
    {
        m_pEdit.reset();
        m_pSettings.reset();
    }

    void place(int nAnchor, int nPosition)
    {
        QTextCursor cursor = m_pEdit->textCursor();
        cursor.setPosition(nAnchor);
        cursor.setPosition(nPosition, QTextCursor::KeepAnchor);
        m_pEdit->setTextCursor(cursor);
    }
    Ends selection() const
    {
        return {m_pEdit->textCursor().anchor(), m_pEdit->textCursor().position()};
    }

    std::unique_ptr<WithSettings> m_pSettings;
    std::unique_ptr<CHighlightEdit> m_pEdit;
};
