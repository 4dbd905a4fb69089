#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

// What the preview has to say about the file that it shows or does not show: one text, as it
// stands, and perhaps one thing to do about it.
class CPreviewNotice : public QFrame
{
    Q_OBJECT

public:
    explicit CPreviewNotice(QWidget *pParent);

    // An empty text for the button means no button.
    void say(const QString &strText, const QString &strButton = QString());
    QString text() const;

signals:
    void accepted();

private:
    QLabel *m_pLabel;
    QPushButton *m_pButton;
};
