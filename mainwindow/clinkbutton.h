#pragma once

#include <QPushButton>

// A line of text that is clicked like a link. The text is shown literally. If there is not enough
// room, it is shortened, and the tool tip has the whole.
class CLinkButton : public QPushButton
{
    Q_OBJECT

public:
    // A path is shortened in the middle, any other text at its end.
    CLinkButton(const QString &strText, Qt::TextElideMode elide, QWidget *pParent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *pEvent) override;
    void changeEvent(QEvent *pEvent) override;

private:
    void shorten();
    int besideText() const;

    QString m_strText;
    Qt::TextElideMode m_elide;
};
