#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

// The folder browser's actions on files: renaming, moving to the trash, making folders. They never
// overwrite anything, and each can be undone, the last first. GUI thread only, no widgets.
class CFileActions
{
    Q_DECLARE_TR_FUNCTIONS(CFileActions)

public:
    // A file or folder that was moved. One side is empty for a folder that was made or removed.
    struct SMove
    {
        QString strFrom;
        QString strTo;
    };

    // The outcome of an action, with a text for the user even when nothing happened.
    struct SResult
    {
        QVector<SMove> lstMoves;
        QString strMessage;
        bool bDone = false;
        bool bRenamed = false; // The moves are renamings, and not moves to or from the trash.
    };

    // strName is the new name without a folder.
    SResult rename(const QString &strPath, const QString &strName);
    // Stops at the first file that cannot be moved.
    SResult moveToTrash(const QStringList &lstPaths);
    // Makes a folder under the first name that is free.
    SResult makeFolder(const QString &strFolder);
    // Undoes the last of these actions.
    SResult takeBack();

private:
    enum class Kind {
        Rename,
        Trash,
        Folder,
    };
    struct SAction
    {
        Kind kind;
        QVector<SMove> lstMoves;
    };

    static QString trashedText(const QVector<SMove> &lstMoves);
    static bool takeBackMove(Kind kind, const SMove &move, QString *pError);

    QVector<SAction> m_lstDone;
};
