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

// The bar above a document that shows a notice: its text literally, a list of its items, a button
// for each choice, and one that closes the bar.
//
// It appears, changes and disappears only while the mouse rests, so that no click hits something
// else than it was aimed at. The mouse rests when no button is down and the time of a double click
// has passed. Clicks on the bar itself do not count.
class CNoticeBar : public QFrame
{
    Q_OBJECT

public:
    explicit CNoticeBar(QWidget *pParent);

    // Replaces what is shown, or what waits to be shown; an empty notice hides the bar.
    void show(const SNotice &notice);
    // The shown text.
    QString text() const;
    // Also chooses the arrangement of the buttons for that width.
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
    QTimer m_timer; // Runs while the bar waits for the mouse.
    // The time since a mouse button last went down or up outside of the bar.
    QElapsedTimer m_sinceClick;
    // The time since the bar appeared under the mouse; a click soon afterwards was aimed at
    // something else.
    QElapsedTimer m_sinceShown;
    QLabel *m_pLabel;
    QListWidget *m_pList; // All of its items are chosen at first.
    QToolButton *m_pClose;
    QBoxLayout *m_pLayout; // Holds the text and the buttons.
    QList<QPushButton *> m_lstButtons; // One for each choice.
};
