#include "pageedit/cdlgpicture.h"

#include "pageedit/fileaddress.h"
#include "pageedit/picturefiles.h"
#include "web/localresources.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>

namespace {

const int g_nLongest = 20000; // Pixels.

QSpinBox *makeLength(QWidget *pParent)
{
    auto *pBox = new QSpinBox(pParent);
    pBox->setRange(0, g_nLongest);
    pBox->setSpecialValueText(CDlgPicture::tr("as in the file"));
    return pBox;
}

} // namespace

CDlgPicture::CDlgPicture(const QString &strPage, QWidget *pParent)
    : QDialog(pParent), m_strPage(strPage)
{
    setObjectName(QStringLiteral("dlgPicture"));
    setWindowTitle(tr("Picture"));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    build();
    connect(m_pAddress, &QLineEdit::textChanged, this, &CDlgPicture::onAddressChanged);
    connect(m_pWidth, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &CDlgPicture::onWidthChanged);
    connect(m_pHeight, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &CDlgPicture::onHeightChanged);
    onAddressChanged();
}

void CDlgPicture::build()
{
    m_pAddress = new QLineEdit(this);
    m_pAddress->setObjectName(QStringLiteral("editAddress"));
    auto *pBrowse = new QPushButton(tr("Browse..."), this);
    pBrowse->setAutoDefault(false);
    connect(pBrowse, &QPushButton::clicked, this, &CDlgPicture::chooseFile);
    auto *pFileRow = new QHBoxLayout;
    pFileRow->addWidget(m_pAddress, 1);
    pFileRow->addWidget(pBrowse);
    m_pAlt = new QLineEdit(this);
    m_pAlt->setObjectName(QStringLiteral("editAlt"));
    m_pAlt->setPlaceholderText(tr("What the picture shows; leave empty for decoration"));
    m_pWidth = makeLength(this);
    m_pHeight = makeLength(this);
    m_pWidth->setObjectName(QStringLiteral("boxWidth"));
    m_pHeight->setObjectName(QStringLiteral("boxHeight"));
    m_pProportions = new QCheckBox(tr("Keep &proportions"), this);
    m_pProportions->setChecked(true);
    m_pCopy = new QCheckBox(tr("&Copy the file beside the page"), this);
    m_pCopy->setObjectName(QStringLiteral("checkCopy"));
    m_pNote = new QLabel(this);
    m_pNote->setTextFormat(Qt::PlainText);
    m_pNote->setWordWrap(true);
    m_pButtons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(m_pButtons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(m_pButtons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *pForm = new QFormLayout(this);
    pForm->addRow(tr("&File:"), pFileRow);
    qobject_cast<QLabel *>(pForm->labelForField(pFileRow))->setBuddy(m_pAddress);
    pForm->addRow(tr("&Text instead:"), m_pAlt);
    pForm->addRow(tr("&Width:"), m_pWidth);
    pForm->addRow(tr("&Height:"), m_pHeight);
    pForm->addRow(m_pProportions);
    pForm->addRow(m_pCopy);
    pForm->addRow(m_pNote);
    pForm->addRow(m_pButtons);
    setMinimumWidth(fontMetrics().averageCharWidth() * 60);
}

void CDlgPicture::setPicture(const SPicture &picture)
{
    const QSignalBlocker width(m_pWidth);
    const QSignalBlocker height(m_pHeight);
    m_pAddress->setText(picture.strAddress);
    m_pAlt->setText(picture.strAlt);
    m_pWidth->setValue(picture.nWidth);
    m_pHeight->setValue(picture.nHeight);
}

void CDlgPicture::setFile(const QString &strFile)
{
    m_pAddress->setText(fileAddress(strFile, m_strPage));
    const QSignalBlocker width(m_pWidth);
    const QSignalBlocker height(m_pHeight);
    m_pWidth->setValue(qMax(0, m_sizeOwn.width()));
    m_pHeight->setValue(qMax(0, m_sizeOwn.height()));
    m_pAlt->setFocus();
}

SPicture CDlgPicture::picture() const
{
    return {m_pAddress->text().trimmed(), m_pAlt->text(), m_pWidth->value(), m_pHeight->value()};
}

QString CDlgPicture::file() const
{
    return pictureFile(m_strPage, m_pAddress->text().trimmed());
}

bool CDlgPicture::isCopyWanted() const
{
    return !m_pCopy->isHidden() && m_pCopy->isChecked();
}

void CDlgPicture::chooseFile()
{
    const QString strOld = file();
    const QString strFile = QFileDialog::getOpenFileName(
        this, tr("Picture"), strOld.isEmpty() ? m_strPage : strOld,
        tr("Pictures (*.png *.jpg *.jpeg *.gif *.svg *.webp *.bmp *.ico);;All files (*)"));
    if (!strFile.isEmpty())
        setFile(strFile);
}

// Shows what a reader of the page would see, or why nothing.
QString CDlgPicture::note() const
{
    const QString strFile = file();
    if (m_pAddress->text().trimmed().isEmpty() || strFile.isEmpty())
        return QString();
    if (!m_sizeOwn.isValid())
        return tr("There is no picture of this name.");
    if (!m_pCopy->isHidden())
        return tr("The file lies outside the page's folders, where this page may not show it.");
    return tr("Original size: %1 × %2 pixels").arg(m_sizeOwn.width()).arg(m_sizeOwn.height());
}

void CDlgPicture::onAddressChanged()
{
    const QString strFile = file();
    m_sizeOwn = strFile.isEmpty() || m_pAddress->text().trimmed().isEmpty() ? QSize()
                                                                            : pictureSize(strFile);
    m_pCopy->setVisible(m_sizeOwn.isValid() && !mayReadLocal(m_strPage, strFile));
    m_pCopy->setChecked(true);
    m_pNote->setText(note());
    m_pButtons->button(QDialogButtonBox::Ok)->setEnabled(!m_pAddress->text().trimmed().isEmpty());
}

void CDlgPicture::onWidthChanged(int nWidth)
{
    if (!m_pProportions->isChecked() || !m_sizeOwn.isValid())
        return;
    const QSignalBlocker block(m_pHeight);
    m_pHeight->setValue(qRound(double(nWidth) * m_sizeOwn.height() / m_sizeOwn.width()));
}

void CDlgPicture::onHeightChanged(int nHeight)
{
    if (!m_pProportions->isChecked() || !m_sizeOwn.isValid())
        return;
    const QSignalBlocker block(m_pWidth);
    m_pWidth->setValue(qRound(double(nHeight) * m_sizeOwn.width() / m_sizeOwn.height()));
}
