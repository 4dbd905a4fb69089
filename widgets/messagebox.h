#pragma once

#include <QMessageBox>

// QMessageBox::critical() and its kin with plain text, modal to the widget's window. Gives the
// button that was chosen; Escape gives QMessageBox::Cancel where that is offered.
QMessageBox::StandardButton
showMessage(QWidget *pParent, QMessageBox::Icon icon, const QString &strTitle,
            const QString &strText, QMessageBox::StandardButtons buttons = QMessageBox::Ok,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);
