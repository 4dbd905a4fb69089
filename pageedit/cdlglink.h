#pragma once

#include <QDialog>

class CEditWebView;
class QComboBox;
class QLineEdit;

// What the link at a page's selection is, or would be. A value.
struct SPageLink
{
    bool bPresent = false; // There is a link.
    bool bTextFixed = false; // The text is more than letters and stays as it is.
    QString strAddress;
    QString strText;
    QString strTitle;
    QStringList lstNames; // Of places in the page, without "#".
};

SPageLink pageLink(const CEditWebView *pPage);

// Asks for a link's address, text and title.
class CDlgLink : public QDialog
{
    Q_OBJECT

public:
    // strPage is the page's file, empty for none: addresses of files lead from there.
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
