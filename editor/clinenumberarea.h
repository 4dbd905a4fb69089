#pragma once

#include <QWidget>

class CHighlightEdit;

// Pixels: a number stands a little lower than its line and may reach that far below it.
constexpr int g_nNumberBelowLine = 6;

// The gutter on the left of an editor. The editor decides its contents and its width.
class CLineNumberArea : public QWidget
{
    Q_OBJECT

public:
    // A child of the editor.
    explicit CLineNumberArea(CHighlightEdit *pEditor);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *pEvent) override;
    // The wheel scrolls and zooms the text, as it does over the text itself.
    void wheelEvent(QWheelEvent *pEvent) override;

private:
    CHighlightEdit *m_pEditor;
};
