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

// Handles the mouse on pictures of an edited page: a click selects a picture, the corners of its
// frame resize it, and dragging moves it to another place in the text. Each change is one step of
// undo; Escape ends a drag without one. A child of the view, which it watches. GUI thread only.
class CPictureMouse : public QObject
{
    Q_OBJECT

public:
    explicit CPictureMouse(CEditWebView *pView);

signals:
    // Emitted after a double click; the picture is selected.
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
    PictureCorner m_corner = PictureCorner::None; // The corner that is dragged.
    QRect m_rectDrawn; // The future rectangle of the picture.
    bool m_bPictureClicked = false; // The button is still down.
    QPoint m_pressed; // Where the button went down.
    bool m_bDragged = false;
    QRect m_rectDrop; // The caret where the picture would go, in the view; empty for nowhere.
    QTimer m_timerMeasure;
};
