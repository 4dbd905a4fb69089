#include "mainwindow/tabnames.h"

#include "app/plaintext.h"

#include <QDir>
#include <QHash>
#include <QStringList>

namespace {

QString withoutStar(const QString &strTitle)
{
    return strTitle.endsWith(QLatin1Char('*')) ? strTitle.chopped(1) : strTitle;
}

// Gives the folders of the path, the outermost first.
QStringList partsOf(const STabName &name)
{
    QStringList lstParts = QDir::fromNativeSeparators(name.strPath).split(QLatin1Char('/'));
    if (visibleName(lstParts.constLast()) == withoutStar(name.strTitle))
        lstParts.removeLast();
    return lstParts;
}

QStringList tail(const QStringList &lstParts, int nParts)
{
    return lstParts.mid(qMax(0, lstParts.size() - nParts));
}

bool isAlone(const QStringList &lstParts, const QVector<QStringList> &lstAll, int nParts)
{
    int nAlike = 0;
    for (const QStringList &lstOther : lstAll)
        nAlike += int(tail(lstOther, nParts) == tail(lstParts, nParts));
    return nAlike == 1;
}

QString shortest(const QStringList &lstParts, const QVector<QStringList> &lstAll)
{
    if (lstParts.isEmpty())
        return QString(); // The bare name of a file.
    int nParts = 1;
    while (nParts < lstParts.size() && !isAlone(lstParts, lstAll, nParts))
        ++nParts;
    // The first part of an absolute path is the empty text before its root.
    const int nLeftOut = lstParts.size() - nParts - int(lstParts.constFirst().isEmpty());
    if (nLeftOut > 0)
        return QStringLiteral("…/") + tail(lstParts, nParts).join(QLatin1Char('/'));
    const QString strAll = lstParts.join(QLatin1Char('/'));
    return strAll.isEmpty() ? QStringLiteral("/") : strAll;
}

} // namespace

QStringList foldersToTellApart(const QVector<STabName> &lstNames)
{
    // The parts of the paths of all documents with that title.
    QHash<QString, QVector<QStringList>> mapAlike;
    for (const STabName &name : lstNames)
        mapAlike[withoutStar(name.strTitle)].append(partsOf(name));
    QStringList lstFolders;
    for (const STabName &name : lstNames) {
        const QVector<QStringList> lstAlike = mapAlike.value(withoutStar(name.strTitle));
        const bool bNeeded = lstAlike.size() > 1 && !name.strPath.isEmpty();
        const QString strFolder = bNeeded ? shortest(partsOf(name), lstAlike) : QString();
        lstFolders.append(QDir::toNativeSeparators(strFolder));
    }
    return lstFolders;
}

QString onOneLine(QString strText)
{
    for (QChar &c : strText)
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator
            || c == QChar::ParagraphSeparator)
            c = QLatin1Char(' ');
    return strText;
}
