#pragma once

class QPushButton;
class QString;
class QWidget;

// A flat button that shows only an icon; its text serves as tool tip and as accessible name.
QPushButton *createFlatButton(const QString &strIcon, const QString &strText, QWidget *pParent);
