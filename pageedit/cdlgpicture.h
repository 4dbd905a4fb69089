#pragma once

#include <QDialog>

class QCheckBox;
class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QSpinBox;

// A picture of a page. Lengths are in pixels of the page; 0 is the picture's own.
struct SPicture
{
    QString strAddress; // As the page writes it.
    QString strAlt;
    int nWidth = 0;
    int nHeight = 0;
};

// Asks for a picture and its text, or shows those of one that is there. GUI thread only.
class CDlgPicture : public QDialog
{
    Q_OBJECT

public:
    // strPage: the path of the page's file.
    CDlgPicture(const QString &strPage, QWidget *pParent);

    void setPicture(const SPicture &picture);
    // Proposes a file, with its own size.
    void setFile(const QString &strFile);
    SPicture picture() const;
    // The path of the picture's file; empty for one of the web.
    QString file() const;
    // The file lies where the page may not show it, and is to be copied beside the page.
    bool isCopyWanted() const;

private:
    void build();
    void chooseFile();
    void onAddressChanged();
    void onWidthChanged(int nWidth);
    void onHeightChanged(int nHeight);
    QString note() const;

    QString m_strPage;
    QSize m_sizeOwn;
    QLineEdit *m_pAddress = nullptr;
    QLineEdit *m_pAlt = nullptr;
    QSpinBox *m_pWidth = nullptr;
    QSpinBox *m_pHeight = nullptr;
    QCheckBox *m_pProportions = nullptr;
    QCheckBox *m_pCopy = nullptr;
    QLabel *m_pNote = nullptr;
    QDialogButtonBox *m_pButtons = nullptr;
};
