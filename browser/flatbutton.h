#pragma once

class QPushButton;
class QString;
class QWidget;

// A flat button that shows only an icon; its text is the tool tip and the accessible name.
QPushButton *createFlatButton(const QString &strIcon, const QString &strText, QWidget *pParent);
