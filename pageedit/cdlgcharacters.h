#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;

// A palette of characters that are on no keyboard, with a search by name. It stays open after an
// insertion.
class CDlgCharacters : public QDialog
{
    Q_OBJECT

public:
    explicit CDlgCharacters(QWidget *pParent);

signals:
    void characterChosen(const QString &strCharacter);

protected:
    // Arrows and Enter work in the list while the search field has the focus.
    bool eventFilter(QObject *pObject, QEvent *pEvent) override;

private:
    void fill();
    void insert();
    void showName();

    QLineEdit *m_pSearch;
    QListWidget *m_pList;
    QLabel *m_pName;
};
