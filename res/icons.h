// The program's pictures by name, with every size that we drew for them.
#pragma once

#include <QIcon>
#include <QString>

// The icon drawn as res/icons/NAME.svg: 16 pixels for menus, tabs and buttons, 24 for toolbars,
// each also at double density. A file added to a QIcon brings its "@2x" neighbour by itself.
// Without any size when there is no such drawing.
inline QIcon drawnIcon(const QString &strName)
{
    QIcon icon(QStringLiteral(":/res/%1.png").arg(strName));
    icon.addFile(QStringLiteral(":/res/24/%1.png").arg(strName));
    return icon;
}

// The program's own icon, for windows and the task bar.
inline QIcon applicationIcon()
{
    QIcon icon;
    for (int nSize : {16, 24, 32, 48, 64, 128, 256})
        icon.addFile(QStringLiteral(":/share/quillan-%1.png").arg(nSize));
    return icon;
}
