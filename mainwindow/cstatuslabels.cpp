#include "mainwindow/cstatuslabels.h"

#include "mainwindow/cgroundedlabel.h"

#include <QLabel>
#include <QStatusBar>

namespace {

// The labels are dark in every desktop palette, so the ground under them is light.
const char g_szGround[] = "#f0f0f0";

QString withWidestDigits(const QString &strText, const QFontMetrics &metrics)
{
    QChar cWidest = QLatin1Char('0');
    for (char c = '1'; c <= '9'; ++c)
        if (metrics.horizontalAdvance(QLatin1Char(c)) > metrics.horizontalAdvance(cWidest))
            cWidest = QLatin1Char(c);
    QString strResult = strText;
    for (QChar &c : strResult)
        if (c.isDigit())
            c = cWidest;
    return strResult;
}

} // namespace

CStatusLabels::CStatusLabels(QStatusBar *pStatusBar) : QObject(pStatusBar), m_pStatusBar(pStatusBar)
{
    pStatusBar->setStyleSheet(
        QStringLiteral("QStatusBar{background:%1;}").arg(QLatin1String(g_szGround)));

    m_pMessage = new QLabel(pStatusBar);
    m_pMessage->setObjectName(QStringLiteral("labelMessage"));
    m_pMessage->setTextFormat(Qt::PlainText);
    m_pMessage->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // Long ones are cut.
    pStatusBar->addWidget(m_pMessage, 1);

    m_pCursor = new CGroundedLabel(QColor(QLatin1String(g_szGround)), pStatusBar);
    add(m_pCursor, QStringLiteral("labelCursor"), tr("Col, Row and Selected"));
    m_pLanguage = new QLabel(pStatusBar);
    add(m_pLanguage, QStringLiteral("labelLanguage"), tr("Program Language"));
    m_pReturnFormat = new QLabel(pStatusBar);
    add(m_pReturnFormat, QStringLiteral("labelReturnFormat"), tr("Return Format"));
    m_pTextCodec = new QLabel(pStatusBar);
    add(m_pTextCodec, QStringLiteral("labelTextCodec"), tr("Text Codec"));
}

void CStatusLabels::add(QLabel *pLabel, const QString &strName, const QString &strToolTip)
{
    pLabel->setObjectName(strName);
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setToolTip(strToolTip);
    pLabel->setAccessibleName(strToolTip);
    pLabel->setMargin(2);
    pLabel->setFrameShape(QFrame::StyledPanel);
    pLabel->setFrameShadow(QFrame::Sunken);
    pLabel->setMinimumWidth(50);
    m_pStatusBar->addWidget(pLabel, 0);
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
    if (m_pCursor->text() == strText)
        return;
    m_pCursor->setText(strText);
    if (strText.size() > m_nFitted)
        fitCursorLabel();
}

// Qt lays out the status bar again for a label whose size may change. This label has a fixed size
// that only grows, so that its neighbours do not move with the cursor. It has room for any text of
// the same length, because only digits change.
void CStatusLabels::fitCursorLabel()
{
    const QString strText = m_pCursor->text();
    m_nFitted = strText.size();
    const QSize now = m_pCursor->sizeHint();
    const QFontMetrics metrics = m_pCursor->fontMetrics();
    const int nMore = metrics.horizontalAdvance(withWidestDigits(strText, metrics))
        - metrics.horizontalAdvance(strText);
    const QSize needed = now + QSize(qMax(0, nMore), 0);
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
