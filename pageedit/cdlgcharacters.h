#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

// A palette of characters that no keyboard has, with a search by name. Stays open while several are
// inserted.
class CDlgCharacters : public QDialog
{
    Q_OBJECT

public:
    explicit CDlgCharacters(QWidget *pParent);

signals:
    void characterChosen(const QString &strCharacter);

protected:
    // Arrows and Enter work in the list while the search has the keyboard.
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    void fill();
    void insert();
    void showName();

    QLineEdit *m_pSearch;
    QListWidget *m_pList;
    QLabel *m_pName;
};
