#pragma once

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QVector>

// What the folder browser does to files: renaming, moving to the trash, making folders. Nothing is
// ever overwritten, and each can be taken back, the last first. GUI thread only, no widgets.
class CFileActions
{
    Q_DECLARE_TR_FUNCTIONS(CFileActions)

public:
    // One file or folder that changed its place. One side is empty for a folder that was made or
    // went.
    struct SMove
    {
        QString strFrom;
        QString strTo;
    };

    // What an action did, and how to tell the user: also when nothing happened.
    struct SResult
    {
        QVector<SMove> lstMoves;
        QString strMessage;
        bool bDone = false;
        bool bRenamed = false; // The moves are renamings, here and not to or from the trash.
    };

    // strName is the new name without a folder.
    SResult rename(const QString &strPath, const QString &strName);
    // Stops at the first file that cannot be moved.
    SResult moveToTrash(const QStringList &lstPaths);
    // Makes a folder under the first name that is free.
    SResult makeFolder(const QString &strFolder);
    // Takes back the last of all these.
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

    static bool takeBackMove(Kind kind, const SMove &move, QString *pError);

    QVector<SAction> m_lstDone;
};
