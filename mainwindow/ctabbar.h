#pragma once

#include <QTabBar>

// Tabs with names as long as can be read at a glance; longer ones are shortened in the middle,
// where a name says least. Where the bar is full, they get shorter down to a width, and then it
// scrolls.
class CTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit CTabBar(QWidget *pParent);

protected:
    QSize tabSizeHint(int nIndex) const override;
    QSize minimumTabSizeHint(int nIndex) const override;

private:
    QSize sizeWithName(int nIndex, int nCharacters) const;
};
