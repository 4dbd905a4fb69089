#include "widgets/messagebox.h"

#include <QGridLayout>
#include <QSpacerItem>

namespace {

// A desktop cuts a title that its window is too narrow for.
void makeRoomForTitle(QMessageBox *pBox)
{
    const int nFrame = 120; // An icon, the buttons, a larger and bold type.
    auto *pLayout = qobject_cast<QGridLayout *>(pBox->layout());
    const int nTitle = pBox->fontMetrics().horizontalAdvance(pBox->windowTitle());
    if (pLayout) {
        pLayout->addItem(new QSpacerItem(nTitle + nFrame, 0), pLayout->rowCount(), 0, 1,
                         pLayout->columnCount());
    }
}

} // namespace

QMessageBox::StandardButton showMessage(QWidget *pParent, QMessageBox::Icon icon,
                                        const QString &strTitle, const QString &strText,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultButton)
{
    QMessageBox box(icon, strTitle, strText, buttons, pParent);
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(defaultButton);
    makeRoomForTitle(&box);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}
