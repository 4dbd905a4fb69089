#pragma once

#include <QTabBar>

// A tab bar with names that can be read at a glance. Longer names are shortened in the middle,
// where they say least. When the bar is full, tabs get narrower down to a least width, and then the
// bar scrolls.
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
