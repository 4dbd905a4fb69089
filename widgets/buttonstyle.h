#pragma once

class QString;
class QWidget;

// Gives a push or tool button one of the style sheets "green", "blue", "yellow", "step_blue",
// "step_yellow". Another name changes nothing.
void setButtonStyle(QWidget *pWidget, const QString &strName);

// Shows the widget and gives it the focus of the desktop; does nothing without bShow.
void showAndActivate(QWidget *pWidget, bool bShow);
