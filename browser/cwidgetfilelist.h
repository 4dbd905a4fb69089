#pragma once

#include "browser/cfileactions.h"

#include <QFileInfo>
#include <QString>
#include <QTimer>
#include <QWidget>

class CFileSystemModel;
class CFolderFollower;
class CMenuListView;
class QBoxLayout;
class QComboBox;
class QKeyEvent;
class QModelIndex;
class QPushButton;

// The folder browser: a bar with Refresh, Upper, a folder box with history and Browse..., above a
// list of the current folder's entries. The owner sets the first folder.
class CWidgetFileList : public QWidget
{
    Q_OBJECT

public:
    explicit CWidgetFileList(QWidget *pParent = nullptr);
    ~CWidgetFileList() override;

    // Absolute, native separators; empty before the first setRootPath() and for the drives.
    QString rootPath() const;
    bool listHasFocus() const;
    // Opens the selected files, and enters the first of the selected folders. False when nothing is
    // selected.
    bool openSelection();

signals:
    void dbClickFile(QString strPath);
    void rootPathChanged(QString strPath);
    // The first selected entry, once the selection has rested for 200 ms.
    void fileSelectionChanged(QString strPath);
    // A key of this list has renamed or moved a file or folder. Documents from there, or from below
    // the folder, should follow.
    void fileRenamed(QString strOld, QString strNew);
    // The listing of a folder begins or ends.
    void listing(bool bRuns);
    // Tells what a key of this list did, or why it did nothing.
    void statusMessage(QString strText);

public slots:
    void onRefresh();
    void onFolderBrowse();
    void onDbClickListItem(const QModelIndex &idx);
    void onFileSelectionChanged();
    void onComboFolderIdxChanged(const QString &str);
    void onComboFolderReturn();
    void onUpper();
    // Shows a folder and is the one place that feeds the box's history.
    void setRootPath(const QString &strPath);
    void exploreFile();
    void openFileByDefault();
    void onClickAction(const QString &str);
    void onTimeOutFileSelectionChanged();
    // Begins to edit the current entry's name in the list.
    void onRename();
    void onMoveToTrash();
    void onNewFolder();
    // Undoes the last renaming, move to the trash or new folder.
    void onTakeBack();
    // Ends the running listing; the entries found so far are shown.
    void stopListing();

protected:
    bool eventFilter(QObject *pWatched, QEvent *pEvent) override;

private:
    QBoxLayout *createBar();
    void createFolderBox();
    void createList();
    void onBoxEntry(int nIndex);
    bool isInHistory(const QString &strPath) const;
    void enterFolder(const QString &strPath);
    void listFolder(const QString &strPath);
    bool claimListKey(QKeyEvent *pKey);
    bool handleListKey(const QKeyEvent &key);
    QString firstSelectedPath() const;
    void onListed(const QString &strFolder, const QFileInfoList &lstFileInfos);
    void onDirectoryLoaded(const QString &strFolder);
    void onRenameAsked(const QModelIndex &index, const QString &strName);
    void report(const CFileActions::SResult &result);

    bool m_bSettingPath = false;
    CMenuListView *m_pListView = nullptr;
    QPushButton *m_pBtnUpper = nullptr;
    QComboBox *m_pComboFolder = nullptr;
    CFileSystemModel *m_pModel = nullptr;
    QTimer m_timerSelection;
    QString m_strActExplore;
    QString m_strActOpenDefault;
    QString m_strChosen; // The folder that was last chosen in any way.
    CFolderFollower *m_pFollower = nullptr;
    CFileActions m_actions;
    QString m_strToSelect; // An entry to select once it is listed.
    bool m_bEditSelected = false; // And whose name is then edited.
};
