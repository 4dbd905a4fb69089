#pragma once

#include <QCursor>
#include <QWidget>

#include <optional>

// Sets the mouse cursor of a view while it is over something that is drawn over the page. The web
// view sets its cursor only when it changes, so afterwards the view gets its old cursor back. GUI
// thread only.
class CBorrowedCursor
{
public:
    explicit CBorrowedCursor(QWidget *pView) : m_pView(pView) { }

    void show(Qt::CursorShape shape)
    {
        if (!m_before)
            m_before = m_pView->cursor();
        m_pView->setCursor(shape);
    }
    void giveBack()
    {
        if (m_before)
            m_pView->setCursor(*m_before);
        m_before.reset();
    }

private:
    QWidget *m_pView;
    std::optional<QCursor> m_before;
};
