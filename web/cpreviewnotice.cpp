#include "web/cpreviewnotice.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

CPreviewNotice::CPreviewNotice(QWidget *pParent)
    : QFrame(pParent), m_pLabel(new QLabel(this)), m_pButton(new QPushButton(this))
{
    // Light with dark text in every desktop palette, like the bar above the documents.
    setStyleSheet(QStringLiteral("CPreviewNotice{background:#fff4ce;border:1px solid #e0c96a;}"
                                 "CPreviewNotice QLabel{color:#3a2f00;}"));
    m_pLabel->setTextFormat(Qt::PlainText);
    m_pLabel->setWordWrap(true);
    m_pButton->setAutoDefault(false);
    auto *pLayout = new QVBoxLayout(this);
    pLayout->addWidget(m_pLabel);
    pLayout->addWidget(m_pButton, 0, Qt::AlignLeft);
    connect(m_pButton, &QPushButton::clicked, this, &CPreviewNotice::accepted);
    hide();
}

void CPreviewNotice::say(const QString &strText, const QString &strButton)
{
    m_pLabel->setText(strText);
    m_pButton->setText(strButton);
    m_pButton->setVisible(!strButton.isEmpty());
    setVisible(!strText.isEmpty());
}

QString CPreviewNotice::text() const
{
    return isHidden() ? QString() : m_pLabel->text();
}
