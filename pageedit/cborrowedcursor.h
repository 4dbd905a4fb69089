#pragma once

#include <QCursor>
#include <QWidget>

#include <optional>

// The mouse cursor of a view while something drawn over the page is under it. The web view sets its
// own only when that changes, so it gets back what it had. GUI thread only.
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
