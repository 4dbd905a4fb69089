#pragma once

#include <QColor>
#include <QObject>
#include <QString>

class CEditWebView;
class QComboBox;
class QFont;
class QFontComboBox;
class QToolBar;
class QToolButton;

// Font box, size box and the two colour buttons of the HTML toolbar, which owns them.
//
// A colour button applies the colour in its corner, and shows the colour at the caret in its bar.
// Its menu offers common colours and a dialog. Showing the formats at the caret emits no signal.
class CHtmlToolBar : public QObject
{
    Q_OBJECT

public:
    explicit CHtmlToolBar(QToolBar *pToolBar);

    QFontComboBox *fontBox() const { return m_pFontBox; }
    QComboBox *sizeBox() const { return m_pSizeBox; }

    // Shows the formats at the page's caret.
    void showFormat(const CEditWebView &page);
    void showColors(const QColor &clrText, const QColor &clrBack);
    // The colours that the buttons apply.
    void setChosenColors(const QColor &clrText, const QColor &clrBack);

    // Colours the page's selection and remembers the colour. An invalid colour takes the colour
    // off. Does nothing without a page.
    void applyColor(CEditWebView *pPage, const QColor &clr, bool bBackground);

signals:
    void textColorChosen(QColor clr);
    void backColorChosen(QColor clr);

private:
    void showFont(const QString &strName, const QString &strSize);
    struct SColorButton
    {
        QToolButton *pButton = nullptr;
        QString strIcon;
        QColor clrChosen;
        QColor clrShown; // Invalid as long as none was chosen.
    };

    void addColorButton(QToolBar *pToolBar, SColorButton *pColor, const QString &strName,
                        const QString &strToolTip, void (CHtmlToolBar::*pSignal)(QColor));
    static void showColor(SColorButton *pColor, const QColor &clr);
    static void drawColor(const SColorButton *pColor);

    QFontComboBox *m_pFontBox;
    QComboBox *m_pSizeBox;
    SColorButton m_text;
    SColorButton m_back;
};
