#pragma once

#include "pageedit/cborrowedcursor.h"

#include <QObject>
#include <QVariantMap>

class CEditWebView;
class QMouseEvent;
class QPainter;

// Handles keys and the mouse in tables of an edited page: Tab and Shift+Tab go from cell to cell,
// and the edge between two columns can be dragged. A child of the view. GUI thread only.
class CPageTables : public QObject
{
    Q_OBJECT

public:
    explicit CPageTables(CEditWebView *pView);

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    bool handleMouse(const QMouseEvent *pEvent);
    QVariantMap edgeAt(const QPoint &point) const;
    void finishDrawing();
    void paint(QPainter *pPainter) const;

    CEditWebView *m_pView;
    CBorrowedCursor m_cursor;
    QVariantMap m_edge; // The page's answer about the edge that is dragged; empty for none.
    int m_nPressed = 0; // The place of the edge, and that of the mouse, in the view.
    int m_nNow = 0;
};
