#include "browser/flatbutton.h"

#include "widgets/buttonstyle.h"

#include <QIcon>
#include <QPushButton>

QPushButton *createFlatButton(const QString &strIcon, const QString &strText, QWidget *pParent)
{
    auto *pButton = new QPushButton(QIcon(strIcon), QString(), pParent);
    pButton->setFlat(true);
    pButton->setToolTip(strText);
    pButton->setAccessibleName(strText);
    setButtonStyle(pButton, QStringLiteral("blue"));
    return pButton;
}
