#pragma once

#include <QLabel>
#include <QPixmap>

// A label for one line of plain text that changes with every key. It paints the ground below its
// text itself, so that nothing that lies under it is painted for a new text, and its frame from a
// picture. GUI thread only.
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
    QPixmap m_frame; // Ground and frame; null when to be painted anew.
};
