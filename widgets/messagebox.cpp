#include "widgets/messagebox.h"

#include <QGridLayout>
#include <QSpacerItem>

namespace {

// A desktop cuts a title that does not fit the width of its window.
void makeRoomForTitle(QMessageBox *pBox)
{
    // Room for an icon and the buttons of the title bar, and for a larger, bold font.
    const int nFrame = 120;
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
