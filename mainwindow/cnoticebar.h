#pragma once

#include "document/notice.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QTimer>

class QBoxLayout;
class QLabel;
class QListWidget;
class QPushButton;
class QToolButton;

// The bar above a document that shows a notice: its text as it stands, a list of its items, a
// button per choice and one that closes the bar.
//
// It comes, goes and changes only while the mouse rests, so that no click meets something else than
// what it was aimed at: not while a button is down, nor for the time of a double click afterwards.
// Clicks on the bar itself are what it waits for.
class CNoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit CNoticeBar(QWidget *pParent);

    // Replaces what is shown, or what waits to be shown; an empty notice hides the bar.
    void show(const SNotice &notice);
    // As it is shown.
    QString text() const;
    // Also chooses how the buttons stand at that width.
    int heightForWidth(int nWidth) const override;

signals:
    // The user closed the bar without a choice.
    void dismissed();

protected:
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    bool mayChange() const;
    void showWanted();
    void showChoices();
    bool isFreshUnderMouse() const;
    void showItems(const QStringList &lstItems);
    QList<int> chosenItems() const;

    SNotice m_wanted;
    QTimer m_timer; // Runs while the mouse is waited for.
    QElapsedTimer m_sinceClick; // Since a button went down or up last, other than on the bar.
    QElapsedTimer m_sinceShown; // Under the mouse; a click then was aimed at something else.
    QLabel *m_pLabel;
    QListWidget *m_pList; // All of it is chosen at first.
    QToolButton *m_pClose;
    QBoxLayout *m_pLayout; // The text and the buttons.
    QList<QPushButton *> m_lstButtons; // One for each choice.
};
