#pragma once

#include <QString>
#include <QWidget>

class CWidgetFavoriteFolder;
class CWidgetFileList;

// The content of the folder browser dock: the browser above the favourite folders. The owner sets
// the first folder.
class CWidgetFavorFileList : public QWidget
{
    Q_OBJECT

public:
    explicit CWidgetFavorFileList(QWidget *pParent = nullptr);

    // The folder shown, with native separators; empty for the drives.
    QString rootPath() const;
    // True when one of the two lists has the keyboard focus.
    bool hasFocusList() const;
    // Opens what is selected in the list with the keyboard focus. False if nothing is selected.
    bool openSelection();

signals:
    void dbClickFile(QString strPath);
    void rootPathChanged(QString strPath);
    void fileSelectionChanged(QString strPath);
    void fileRenamed(QString strOld, QString strNew);
    void listing(bool bRuns);
    void statusMessage(QString strText);

public slots:
    void setRootPath(const QString &strPath);
    void onAddFavorFolder();
    void stopListing();

private:
    CWidgetFileList *m_pFileList = nullptr;
    CWidgetFavoriteFolder *m_pFavorite = nullptr;
};
