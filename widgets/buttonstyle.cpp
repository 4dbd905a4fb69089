#include "widgets/buttonstyle.h"

#include <QHash>
#include <QWidget>

namespace {

struct SButtonState
{
    const char *szTop;
    const char *szBottom;
    const char *szBorder;
    const char *szText;
};

QString state(const char *szPseudo, const SButtonState &colors)
{
    return QStringLiteral("QPushButton%1, QToolButton%1 {"
                          "background: qlineargradient(x1: 0, y1: 0, x2: 0, y2: 1, "
                          "stop: 0 %2, stop: 1.0 %3); border-style: outset; border-width: 1px; "
                          "border-radius: 5px; border-color: %4; padding: 1px; color: %5; }\n")
        .arg(QLatin1String(szPseudo), QLatin1String(colors.szTop), QLatin1String(colors.szBottom),
             QLatin1String(colors.szBorder), QLatin1String(colors.szText));
}

QString gradientStyle(const SButtonState &normal, const SButtonState &hover,
                      const SButtonState &pressed)
{
    return state("", normal) + state(":hover", hover) + state(":pressed", pressed)
        + state(":disabled", {"#f2f3f7", "#e4e8ec", "#dce1e6", "#8c96a0"});
}

QString flatStyle()
{
    return QStringLiteral(
        "QPushButton, QToolButton { border-width: 0px; padding: 1px; }\n"
        "QPushButton:hover, QToolButton:hover { border-style: outset; border-width: 1px; "
        "border-color: #9911505C; background-color: #4097ce77; }\n"
        "QPushButton:pressed, QToolButton:pressed { background-color: #1197ce77; "
        "border-color: #991e7db9; }\n");
}

QString stepStyle(const char *szColor, const char *szFrom, const char *szTo, const char *szRadius)
{
    const QString strState = QStringLiteral(
        "QPushButton%1, QToolButton%1 { background-color: %2; border-top: 1px solid #abbbcc; "
        "border-left: 1px solid #a7b6c7; border-bottom: 1px solid #a1afbf; "
        "border-right: 1px solid #a7b6c7; border-radius: %3; padding: 1px; "
        "background-image: -webkit-linear-gradient(top, %4, %5); color: %6; }\n");
    QString strStyle;
    for (const char *szPseudo : {"", ":hover", ":pressed", ":disabled"}) {
        const bool bDisabled = qstrcmp(szPseudo, ":disabled") == 0;
        strStyle +=
            strState.arg(QLatin1String(szPseudo), QLatin1String(szColor), QLatin1String(szRadius),
                         QLatin1String(szFrom), QLatin1String(szTo),
                         QLatin1String(bDisabled ? "#8c96a0" : "#1a3e66"));
    }
    return strStyle;
}

const QHash<QString, QString> &buttonStyles()
{
    static const QHash<QString, QString> s_styles = {
        {QStringLiteral("green"),
         gradientStyle({"#90dfa2", "#84d494", "#64c878", "#fff"},
                       {"#aaebb9", "#82d392", "#11505C", "#fff"},
                       {"#5eac6e", "#72b37e", "#4d7254", "#fff"})},
        {QStringLiteral("yellow"),
         gradientStyle({"#fece34", "#d8a605", "#fedd71", "#fff"},
                       {"#ffd859", "#e3bb38", "#11505C", "#fff"},
                       {"#d3a203", "#dba907", "#816b1f", "#fff"})},
        {QStringLiteral("blue"), flatStyle()},
        {QStringLiteral("step_blue"),
         stepStyle("#d7e5f5", "#d7e5f5", "#cbe0f5", "12px 12px 5px 5px")},
        {QStringLiteral("step_yellow"), stepStyle("#fece34", "#fece34", "#d8a605", "12px")},
    };
    return s_styles;
}

} // namespace

void setButtonStyle(QWidget *pWidget, const QString &strName)
{
    const auto it = buttonStyles().constFind(strName);
    if (it != buttonStyles().constEnd())
        pWidget->setStyleSheet(*it);
}

void showAndActivate(QWidget *pWidget, bool bShow)
{
    if (!bShow)
        return;
    pWidget->show();
    pWidget->activateWindow();
}
