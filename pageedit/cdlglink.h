#pragma once

#include <QDialog>

class CEditWebView;
class QComboBox;
class QLineEdit;

// A link at a page's selection, present or new. A value.
struct SPageLink
{
    bool bPresent = false; // The link exists already.
    bool bTextFixed = false; // The content is not only text, and cannot be changed here.
    QString strAddress;
    QString strText;
    QString strTitle;
    QStringList lstNames; // The names of places in the page, without "#".
};

SPageLink pageLink(const CEditWebView *pPage);

// Asks for a link's address, text and title.
class CDlgLink : public QDialog
{
    Q_OBJECT

public:
    // strPage is the page's file, from which addresses of files lead; empty for none.
    CDlgLink(const SPageLink &link, const QString &strPage, QWidget *pParent);

    // The texts of the fields.
    QString address() const;
    QString text() const;
    QString title() const;

signals:
    void removeWanted();

private:
    void chooseFile();

    QString m_strPage;
    QComboBox *m_pAddress;
    QLineEdit *m_pText;
    QLineEdit *m_pTitle;
};
