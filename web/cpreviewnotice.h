#pragma once

#include <QFrame>

class QLabel;
class QPushButton;

// A message of the preview about its file: one plain text, and perhaps a button for what can be
// done about it.
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
