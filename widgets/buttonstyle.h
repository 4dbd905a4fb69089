#pragma once

class QString;
class QWidget;

// Sets one of these style sheets on a push or tool button: "green", "blue", "yellow", "step_blue",
// "step_yellow". Any other name changes nothing.
void setButtonStyle(QWidget *pWidget, const QString &strName);

// Shows the widget and gives it the focus of the desktop; does nothing without bShow.
void showAndActivate(QWidget *pWidget, bool bShow);
