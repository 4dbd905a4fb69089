#include "mainwindow/clinkbutton.h"

#include "app/plaintext.h"
#include "mainwindow/tabnames.h"

#include <QEvent>

CLinkButton::CLinkButton(const QString &strText, Qt::TextElideMode elide, QWidget *pParent)
    : QPushButton(pParent), m_strText(onOneLine(strText)), m_elide(elide)
{
    setAutoDefault(true); // Enter presses it, not only the space key.
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    setAccessibleName(m_strText);
    shorten();
}

// The width of frame, padding and icon.
int CLinkButton::besideText() const
{
    const int nIcon = icon().isNull() ? 0 : iconSize().width() + 4;
    return nIcon + 2 * fontMetrics().averageCharWidth();
}

QSize CLinkButton::sizeHint() const
{
    const int nText = fontMetrics().horizontalAdvance(m_strText) + 1; // It may be rounded down.
    const int nHeight = qMax(fontMetrics().height(), iconSize().height()) * 3 / 2;
    return {nText + besideText(), nHeight};
}

QSize CLinkButton::minimumSizeHint() const
{
    const int nLeast = 6; // Characters.
    return {qMin(sizeHint().width(), besideText() + nLeast * fontMetrics().averageCharWidth()),
            sizeHint().height()};
}

void CLinkButton::resizeEvent(QResizeEvent *pEvent)
{
    QPushButton::resizeEvent(pEvent);
    shorten();
}

void CLinkButton::changeEvent(QEvent *pEvent)
{
    QPushButton::changeEvent(pEvent);
    if (pEvent->type() == QEvent::FontChange || pEvent->type() == QEvent::StyleChange)
        shorten();
}

void CLinkButton::shorten()
{
    const QString strShown = fontMetrics().elidedText(m_strText, m_elide, width() - besideText());
    setText(withoutMnemonic(strShown));
    setToolTip(strShown == m_strText ? QString() : plainToolTip(m_strText));
}
