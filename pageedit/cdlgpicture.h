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
    QString strAddress; // The address as the page spells it.
    QString strAlt;
    int nWidth = 0;
    int nHeight = 0;
};

// Asks for a picture and its text, or shows those of an existing picture. GUI thread only.
class CDlgPicture : public QDialog
{
    Q_OBJECT

public:
    // strPage is the path of the page's file.
    CDlgPicture(const QString &strPage, QWidget *pParent);

    void setPicture(const SPicture &picture);
    // Fills in a file and its size.
    void setFile(const QString &strFile);
    SPicture picture() const;
    // The path of the picture's file; empty for a picture on the web.
    QString file() const;
    // The page may not show the file from its folder, so it has to be copied beside the page.
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
