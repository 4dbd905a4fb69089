#include "pageedit/cdlgpageproperties.h"

#include "pageedit/fileaddress.h"
#include "web/markup.h"

#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

const char *const g_languages[] = {"ar", "cs", "de", "en", "es", "fr",    "he",
                                   "hi", "it", "ja", "ko", "nl", "pl",    "pt",
                                   "ru", "sv", "tr", "uk", "vi", "zh-CN", "zh-TW"};

// A few lines high; Tab moves to the next field.
QPlainTextEdit *smallText(const QString &strText, QWidget *pParent)
{
    auto *pEdit = new QPlainTextEdit(strText, pParent);
    pEdit->setTabChangesFocus(true);
    pEdit->setFixedHeight(pEdit->fontMetrics().lineSpacing() * 4);
    return pEdit;
}

QString value(const QVariantMap &properties, const char *szName)
{
    return properties.value(QLatin1String(szName)).toString();
}

QStringList linesOf(const QPlainTextEdit *pEdit)
{
    QStringList lstLines;
    for (const QString &strLine : pEdit->toPlainText().split(QLatin1Char('\n')))
        if (!strLine.trimmed().isEmpty())
            lstLines.append(strLine.trimmed());
    return lstLines;
}

bool isColor(const QLineEdit *pEdit)
{
    const QString strColor = pEdit->text().trimmed();
    return strColor.isEmpty() || colorFromCss(strColor).isValid();
}

} // namespace

CDlgPageProperties::CDlgPageProperties(const QVariantMap &properties, const QString &strPage,
                                       QWidget *pParent)
    : QDialog(pParent),
      m_strPage(strPage),
      m_pTitle(new QLineEdit(value(properties, "title"), this)),
      m_pLanguage(new QComboBox(this)),
      m_pDescription(smallText(value(properties, "description"), this)),
      m_pColor(new QLineEdit(value(properties, "color"), this)),
      m_pBackground(new QLineEdit(value(properties, "background"), this)),
      m_pSheets(
          smallText(properties.value(QStringLiteral("sheets")).toStringList().join('\n'), this))
{
    setObjectName(QStringLiteral("dlgPageProperties"));
    setWindowTitle(tr("Page Properties"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pLanguage->setEditable(true);
    for (const char *szLanguage : g_languages)
        m_pLanguage->addItem(QLatin1String(szLanguage));
    m_pLanguage->setEditText(value(properties, "language"));
    m_pTitle->setMinimumWidth(fontMetrics().averageCharWidth() * 50);

    auto *pForm = new QFormLayout(this);
    const auto addRow = [pForm](const QString &strLabel, QWidget *pField, QWidget *pEdit) {
        pForm->addRow(strLabel, pField);
        // Chinese has a wide colon.
        pEdit->setAccessibleName(QString(strLabel).remove(QLatin1Char(':')).remove(QChar(0xFF1A)));
    };
    addRow(tr("Title:"), m_pTitle, m_pTitle);
    addRow(tr("Language:"), m_pLanguage, m_pLanguage);
    addRow(tr("Description:"), m_pDescription, m_pDescription);
    addRow(tr("Text color:"), colorRow(m_pColor, tr("Choose the text color")), m_pColor);
    addRow(tr("Background color:"), colorRow(m_pBackground, tr("Choose the background color")),
           m_pBackground);
    addRow(tr("Style sheets:"), sheetRow(), m_pSheets);
    m_pSheets->setToolTip(tr("One address in each line"));

    auto *pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    pForm->addRow(pButtons);
    m_pOk = pButtons->button(QDialogButtonBox::Ok);
    connect(pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    checkColors();
}

QWidget *CDlgPageProperties::colorRow(QLineEdit *pEdit, const QString &strName)
{
    auto *pRow = new QWidget(this);
    auto *pLayout = new QHBoxLayout(pRow);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(pEdit);
    auto *pChoose = new QPushButton(tr("Choose..."), pRow);
    pChoose->setAutoDefault(false);
    pChoose->setAccessibleName(strName);
    pLayout->addWidget(pChoose);
    pEdit->setPlaceholderText(tr("Automatic"));
    connect(pEdit, &QLineEdit::textChanged, this, &CDlgPageProperties::checkColors);
    connect(pChoose, &QPushButton::clicked, this, [this, pEdit, strName] {
        const QColor clr = QColorDialog::getColor(colorFromCss(pEdit->text()), this, strName);
        if (clr.isValid())
            pEdit->setText(clr.name());
    });
    return pRow;
}

QWidget *CDlgPageProperties::sheetRow()
{
    auto *pRow = new QWidget(this);
    auto *pLayout = new QHBoxLayout(pRow);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->addWidget(m_pSheets);
    auto *pAdd = new QPushButton(tr("File..."), pRow);
    pAdd->setAutoDefault(false);
    pLayout->addWidget(pAdd, 0, Qt::AlignTop);
    connect(pAdd, &QPushButton::clicked, this, &CDlgPageProperties::chooseSheet);
    return pRow;
}

void CDlgPageProperties::checkColors()
{
    if (m_pOk)
        m_pOk->setEnabled(isColor(m_pColor) && isColor(m_pBackground));
}

void CDlgPageProperties::chooseSheet()
{
    const QString strFile = QFileDialog::getOpenFileName(
        this, tr("Style Sheet"), m_strPage.isEmpty() ? QString() : QFileInfo(m_strPage).path(),
        tr("Style sheets (*.css)"));
    if (!strFile.isEmpty())
        m_pSheets->appendPlainText(fileAddress(strFile, m_strPage));
}

QVariantMap CDlgPageProperties::properties() const
{
    return {{QStringLiteral("title"), m_pTitle->text()},
            {QStringLiteral("language"), m_pLanguage->currentText().trimmed()},
            {QStringLiteral("description"), m_pDescription->toPlainText().simplified()},
            {QStringLiteral("color"), m_pColor->text().trimmed()},
            {QStringLiteral("background"), m_pBackground->text().trimmed()},
            {QStringLiteral("sheets"), linesOf(m_pSheets)}};
}
