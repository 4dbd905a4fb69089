#pragma once

#include "pageedit/cborrowedcursor.h"
#include "pageedit/pictureframe.h"

#include <QObject>
#include <QRect>
#include <QTimer>
#include <QVariantMap>

class CEditWebView;
class QMouseEvent;
class QPainter;

// The pictures of a page that is edited, under the mouse: selected by a click, resized by the
// corners of their frame, moved by dragging to another place in the text. Each change is one step
// of undo; Escape ends a drag without one. A child of the view, which it watches. GUI thread only.
class CPictureMouse : public QObject
{
    Q_OBJECT

public:
    explicit CPictureMouse(CEditWebView *pView);

signals:
    // By a double click; the picture is selected.
    void opened();

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    bool handleMouse(QMouseEvent *pEvent);
    bool press(QMouseEvent *pEvent);
    bool hover(const QMouseEvent *pEvent);
    void draw(const QMouseEvent *pEvent);
    void finishDrawing();
    bool drag(const QMouseEvent *pEvent);
    void showDropPlace(const QPoint &point);
    bool finishDrag(const QPoint &point);
    bool cancel();
    void measureSoon();
    void measure();
    QRect frame() const;
    void paint(QPainter *pPainter) const;

    CEditWebView *m_pView;
    CBorrowedCursor m_cursor;
    QVariantMap m_selected; // The page's answer about the selected picture.
    PictureCorner m_corner = PictureCorner::None; // That is drawn.
    QRect m_rectDrawn; // What the picture would be.
    bool m_bPictureClicked = false; // The button is still down.
    QPoint m_pressed; // There.
    bool m_bDragged = false;
    QRect m_rectDrop; // The caret where the picture would go, in the view; empty: nowhere.
    QTimer m_timerMeasure;
};
