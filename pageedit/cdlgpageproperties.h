#pragma once

#include <QDialog>
#include <QVariantMap>

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

// Asks for the properties of a page: title, language, description, colours, style sheets.
class CDlgPageProperties : public QDialog
{
    Q_OBJECT

public:
    // The map is the answer of queries.properties. strPage is the page's file; empty for none.
    CDlgPageProperties(const QVariantMap &properties, const QString &strPage, QWidget *pParent);

    // The arguments for commands.properties.
    QVariantMap properties() const;

private:
    QWidget *colorRow(QLineEdit *pEdit, const QString &strName);
    QWidget *sheetRow();
    void checkColors();
    void chooseSheet();

    QString m_strPage;
    QLineEdit *m_pTitle;
    QComboBox *m_pLanguage;
    QPlainTextEdit *m_pDescription;
    QLineEdit *m_pColor;
    QLineEdit *m_pBackground;
    QPlainTextEdit *m_pSheets;
    QPushButton *m_pOk = nullptr;
};
