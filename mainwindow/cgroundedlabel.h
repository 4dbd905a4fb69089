#pragma once

#include <QLabel>
#include <QPixmap>

// A label for one line of plain text that changes with every key. It paints its own background, so
// that a new text repaints nothing below it, and its frame from a picture. GUI thread only.
class CGroundedLabel : public QLabel
{
    Q_OBJECT

public:
    CGroundedLabel(const QColor &clrGround, QWidget *pParent);

protected:
    void paintEvent(QPaintEvent *pEvent) override;
    void changeEvent(QEvent *pEvent) override;

private:
    void paintFrame();

    QColor m_clrGround;
    QPixmap m_frame; // The background and the frame; null if they have to be painted again.
};
