#include "pageedit/cdlglink.h"

#include "pageedit/fileaddress.h"
#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

SPageLink pageLink(const CEditWebView *pPage)
{
    const QVariantMap answer = askPage(pPage, QStringLiteral("link")).toMap();
    SPageLink link;
    link.bPresent = answer.value(QStringLiteral("present")).toBool();
    link.bTextFixed = answer.value(QStringLiteral("textFixed")).toBool();
    link.strAddress = answer.value(QStringLiteral("href")).toString();
    link.strText = answer.value(QStringLiteral("text")).toString();
    link.strTitle = answer.value(QStringLiteral("title")).toString();
    link.lstNames = answer.value(QStringLiteral("names")).toStringList();
    return link;
}

CDlgLink::CDlgLink(const SPageLink &link, const QString &strPage, QWidget *pParent)
    : QDialog(pParent),
      m_strPage(strPage),
      m_pAddress(new QComboBox(this)),
      m_pText(new QLineEdit(link.strText, this)),
      m_pTitle(new QLineEdit(link.strTitle, this))
{
    setObjectName(QStringLiteral("dlgLink"));
    setWindowTitle(tr("Link"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pAddress->setEditable(true);
    m_pAddress->setInsertPolicy(QComboBox::NoInsert);
    m_pAddress->setMinimumContentsLength(40);
    m_pAddress->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const QString &strName : link.lstNames)
        m_pAddress->addItem(QLatin1Char('#') + strName);
    m_pAddress->setEditText(link.strAddress);
    m_pAddress->lineEdit()->selectAll();
    m_pText->setEnabled(!link.bTextFixed);

    auto *pForm = new QFormLayout(this);
    m_pAddress->setAccessibleName(tr("Address"));
    auto *pFile = new QPushButton(tr("File..."), this);
    pFile->setAutoDefault(false);
    connect(pFile, &QPushButton::clicked, this, &CDlgLink::chooseFile);
    auto *pAddressRow = new QHBoxLayout;
    pAddressRow->addWidget(m_pAddress, 1);
    pAddressRow->addWidget(pFile);
    pForm->addRow(tr("Address:"), pAddressRow);
    setTabOrder(m_pAddress, pFile);
    setTabOrder(pFile, m_pText);
    setTabOrder(m_pText, m_pTitle);
    pForm->addRow(tr("Text:"), m_pText);
    m_pText->setAccessibleName(tr("Text"));
    pForm->addRow(tr("Title:"), m_pTitle);
    m_pTitle->setAccessibleName(tr("Title"));

    auto *pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    pForm->addRow(pButtons);
    connect(pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    QPushButton *pRemove =
        pButtons->addButton(tr("Remove Link"), QDialogButtonBox::DestructiveRole);
    pRemove->setEnabled(link.bPresent);
    connect(pRemove, &QPushButton::clicked, this, &CDlgLink::removeWanted);
    connect(pRemove, &QPushButton::clicked, this, &QDialog::reject);
    const auto showOk = [this, pButtons] {
        pButtons->button(QDialogButtonBox::Ok)->setEnabled(!address().isEmpty());
    };
    connect(m_pAddress, &QComboBox::editTextChanged, this, showOk);
    showOk();
}

QString CDlgLink::address() const
{
    return m_pAddress->currentText().trimmed();
}

QString CDlgLink::text() const
{
    return m_pText->isEnabled() ? m_pText->text() : QString();
}

QString CDlgLink::title() const
{
    return m_pTitle->text();
}

void CDlgLink::chooseFile()
{
    const QString strFile = QFileDialog::getOpenFileName(
        this, tr("Link"), m_strPage.isEmpty() ? QString() : QFileInfo(m_strPage).path());
    if (!strFile.isEmpty())
        m_pAddress->setEditText(fileAddress(strFile, m_strPage));
}
