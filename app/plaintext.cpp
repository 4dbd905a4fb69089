#include "app/plaintext.h"

#include <QTextDocument>

QString withoutMnemonic(QString strText)
{
    return strText.replace(QLatin1Char('&'), QLatin1String("&&"));
}

QString plainToolTip(const QString &strText)
{
    if (!Qt::mightBeRichText(strText))
        return strText;
    return QStringLiteral("<span style='white-space:pre'>%1</span>").arg(strText.toHtmlEscaped());
}

QString plainWindowTitle(QString strText)
{
    return strText.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

QMessageBox::StandardButton showMessage(QWidget *pParent, QMessageBox::Icon icon,
                                        const QString &strTitle, const QString &strText,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, strTitle, strText, buttons, pParent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}
