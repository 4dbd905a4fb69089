#include "browser/cfileactions.h"

#include "app/plaintext.h"
#include "app/platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

QString shownName(const QString &strPath)
{
    return visibleName(QFileInfo(strPath).fileName());
}

} // namespace

CFileActions::SResult CFileActions::rename(const QString &strPath, const QString &strName)
{
    SResult result;
    if (!Platform::isFileName(strName)) {
        result.strMessage = tr("This cannot be a name: %1").arg(visibleName(strName));
        return result;
    }
    const QDir folder = QFileInfo(strPath).dir();
    const SMove move {strPath, QDir::toNativeSeparators(folder.absoluteFilePath(strName))};
    if (move.strFrom == move.strTo)
        return result;
    QString strError;
    result.bDone = Platform::renameWithoutReplacing(move.strFrom, move.strTo, &strError);
    if (!result.bDone) {
        result.strMessage = tr("%1 was not renamed: %2").arg(shownName(strPath), strError);
        return result;
    }
    result.bRenamed = true;
    result.lstMoves = {move};
    result.strMessage =
        tr("%1 is now %2. Ctrl+Z takes it back.").arg(shownName(strPath), visibleName(strName));
    m_lstDone.append({Kind::Rename, result.lstMoves});
    return result;
}

CFileActions::SResult CFileActions::moveToTrash(const QStringList &lstPaths)
{
    SResult result;
    // For a new user the folder of the trash may not exist yet.
    QDir().mkpath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
    for (const QString &strPath : lstPaths) {
        QString strInTrash;
        if (!QFile::moveToTrash(strPath, &strInTrash)) {
            result.strMessage = tr("%1 cannot be moved to the trash.").arg(shownName(strPath));
            break;
        }
        result.lstMoves.append({strPath, strInTrash});
    }
    result.bDone = !result.lstMoves.isEmpty();
    if (!result.bDone)
        return result;
    m_lstDone.append({Kind::Trash, result.lstMoves});
    if (result.strMessage.isEmpty())
        result.strMessage = trashedText(result.lstMoves);
    return result;
}

QString CFileActions::trashedText(const QVector<SMove> &lstMoves)
{
    const int nMoves = lstMoves.size();
    const QString strName = shownName(lstMoves.constFirst().strFrom);
    // The trash of Windows 7 does not tell where a file is in it.
    const bool bKnown = std::none_of(lstMoves.cbegin(), lstMoves.cend(),
                                     [](const SMove &move) { return move.strTo.isEmpty(); });
    if (!bKnown)
        return nMoves == 1 ? tr("%1 is in the trash.").arg(strName)
                           : tr("%1 entries are in the trash.").arg(nMoves);
    return nMoves == 1 ? tr("%1 is in the trash. Ctrl+Z takes it back.").arg(strName)
                       : tr("%1 entries are in the trash. Ctrl+Z takes them back.").arg(nMoves);
}

CFileActions::SResult CFileActions::makeFolder(const QString &strFolder)
{
    SResult result;
    const QDir dir(strFolder);
    const QString strFirst = tr("New folder");
    const int nTries = 1000;
    for (int n = 1; n < nTries && !strFolder.isEmpty(); ++n) {
        const QString strName = n == 1 ? strFirst : QStringLiteral("%1 %2").arg(strFirst).arg(n);
        if (!dir.mkdir(strName)) { // It may exist already.
            if (QFileInfo::exists(dir.filePath(strName)))
                continue;
            break;
        }
        result.bDone = true;
        result.lstMoves = {{QString(), QDir::toNativeSeparators(dir.absoluteFilePath(strName))}};
        m_lstDone.append({Kind::Folder, result.lstMoves});
        return result;
    }
    result.strMessage = tr("A folder cannot be made here.");
    return result;
}

CFileActions::SResult CFileActions::takeBack()
{
    SResult result;
    if (m_lstDone.isEmpty()) {
        result.strMessage = tr("There is nothing to take back.");
        return result;
    }
    SAction &action = m_lstDone.last();
    result.bRenamed = action.kind == Kind::Rename;
    while (!action.lstMoves.isEmpty()) {
        const SMove move = action.lstMoves.constLast();
        QString strError;
        if (!takeBackMove(action.kind, move, &strError)) {
            const QString strPath = action.kind == Kind::Trash ? move.strFrom : move.strTo;
            result.strMessage = tr("%1 cannot be taken back: %2").arg(shownName(strPath), strError);
            break;
        }
        action.lstMoves.removeLast();
        result.lstMoves.append({move.strTo, move.strFrom});
    }
    result.bDone = !result.lstMoves.isEmpty();
    if (result.strMessage.isEmpty())
        result.strMessage = tr("Taken back.");
    // An action that cannot be taken back would fail again and hide the earlier ones.
    m_lstDone.removeLast();
    return result;
}

bool CFileActions::takeBackMove(Kind kind, const SMove &move, QString *pError)
{
    if (kind == Kind::Folder) {
        if (QDir().rmdir(move.strTo)) // Removes only an empty folder.
            return true;
        *pError = tr("The folder is not empty.");
        return false;
    }
    if (move.strTo.isEmpty()) {
        *pError = tr("The trash does not tell where the file is.");
        return false;
    }
    if (!Platform::renameWithoutReplacing(move.strTo, move.strFrom, pError))
        return false;
    if (kind == Kind::Trash)
        Platform::forgetTrashed(move.strTo);
    return true;
}
