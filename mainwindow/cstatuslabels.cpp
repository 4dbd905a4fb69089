#include "mainwindow/cstatuslabels.h"

#include <QLabel>
#include <QStatusBar>

CStatusLabels::CStatusLabels(QStatusBar *pStatusBar) : QObject(pStatusBar), m_pStatusBar(pStatusBar)
{
    // The labels are dark in every desktop palette, so the ground under them is light.
    pStatusBar->setStyleSheet(QStringLiteral("QStatusBar{background:#f0f0f0;}"));

    m_pMessage = new QLabel(pStatusBar);
    m_pMessage->setObjectName(QStringLiteral("labelMessage"));
    m_pMessage->setTextFormat(Qt::PlainText);
    m_pMessage->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // Long ones are cut.
    pStatusBar->addWidget(m_pMessage, 1);

    m_pCursor = addLabel(QStringLiteral("labelCursor"), tr("Col, Row and Selected"));
    m_pLanguage = addLabel(QStringLiteral("labelLanguage"), tr("Program Language"));
    m_pReturnFormat = addLabel(QStringLiteral("labelReturnFormat"), tr("Return Format"));
    m_pTextCodec = addLabel(QStringLiteral("labelTextCodec"), tr("Text Codec"));
}

QLabel *CStatusLabels::addLabel(const QString &strName, const QString &strToolTip)
{
    auto *pLabel = new QLabel(m_pStatusBar);
    pLabel->setObjectName(strName);
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setToolTip(strToolTip);
    pLabel->setAccessibleName(strToolTip);
    pLabel->setMargin(2);
    pLabel->setFrameShape(QFrame::StyledPanel);
    pLabel->setFrameShadow(QFrame::Sunken);
    pLabel->setMinimumWidth(50);
    m_pStatusBar->addWidget(pLabel, 0);
    return pLabel;
}

void CStatusLabels::setMessage(const QString &strText)
{
    m_pMessage->setText(strText);
}

QString CStatusLabels::message() const
{
    return m_pMessage->text();
}

void CStatusLabels::setCursorText(const QString &strText)
{
    m_pCursor->setText(strText);
    fitCursorLabel();
}

// Qt lays the status bar out anew for a label whose size may change. This one has a fixed size,
// which only grows, so that its neighbours stand still while the cursor moves.
void CStatusLabels::fitCursorLabel()
{
    const QSize needed = m_pCursor->sizeHint();
    if (m_pCursor->minimumWidth() < needed.width() || m_pCursor->minimumHeight() != needed.height())
        m_pCursor->setFixedSize(needed.expandedTo(QSize(m_pCursor->minimumWidth(), 0)));
}

void CStatusLabels::setLanguage(const QString &strText)
{
    m_pLanguage->setText(strText);
}

void CStatusLabels::setReturnFormat(const QString &strText)
{
    m_pReturnFormat->setText(strText);
}

void CStatusLabels::setTextCodec(const QString &strText)
{
    m_pTextCodec->setText(strText);
}

void CStatusLabels::onTextFontSize(int nVal)
{
    const QString strStyle =
        QStringLiteral("QLabel{color:#444;font-size:%1px}").arg(qRound(nVal * 0.8));
    for (QLabel *pLabel : {m_pMessage, m_pCursor, m_pLanguage, m_pReturnFormat, m_pTextCodec})
        pLabel->setStyleSheet(strStyle);
    fitCursorLabel();
}
