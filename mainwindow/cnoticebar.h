#pragma once

#include "document/notice.h"

#include <QToolBar>

class QHBoxLayout;
class QLabel;
class QPushButton;
class QToolButton;

// The bar above the documents that shows a notice: its text as it stands, a button per choice and
// one that closes the bar.
class CNoticeBar : public QToolBar
{
    Q_OBJECT

public:
    explicit CNoticeBar(QWidget *pParent);

    // Replaces what is shown; an empty notice hides the bar.
    void show(const SNotice &notice);
    QString text() const;

signals:
    // The user closed the bar without a choice.
    void dismissed();

private:
    QLabel *m_pLabel;
    QToolButton *m_pClose;
    QHBoxLayout *m_pLayout;
    QList<QPushButton *> m_lstButtons; // One for each choice.
};
