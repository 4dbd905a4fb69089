#pragma once

#include <QWidget>

// A grid of squares to choose the size of a new table from: by the mouse, or by the arrow keys and
// Enter. GUI thread only.
class CTableChooser : public QWidget
{
    Q_OBJECT

public:
    explicit CTableChooser(QWidget *pParent = nullptr);

    QSize sizeHint() const override;
    // The number of marked columns and rows.
    QSize marked() const { return m_marked; }
    void mark(const QSize &size);

signals:
    void chosen(int nRows, int nColumns);

protected:
    void paintEvent(QPaintEvent *pEvent) override;
    void mouseMoveEvent(QMouseEvent *pEvent) override;
    void mouseReleaseEvent(QMouseEvent *pEvent) override;
    void keyPressEvent(QKeyEvent *pEvent) override;

private:
    QSize at(const QPoint &point) const;

    QSize m_marked {1, 1};
};
