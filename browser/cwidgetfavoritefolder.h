#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

class CMenuListWidget;
class QBoxLayout;
class QModelIndex;
class QPushButton;

// The favourite folders, the last used first. They are kept in g_pSettings, which must outlive this
// object. Whether they still exist is not checked.
class CWidgetFavoriteFolder : public QWidget
{
    Q_OBJECT

public:
    explicit CWidgetFavoriteFolder(QWidget *pParent = nullptr);
    ~CWidgetFavoriteFolder() override;

    // Puts a folder at the top, whether it is new or further down, and selects it.
    void addFolder(const QString &strPath);
    bool listHasFocus() const;
    // Opens the first selected folder and moves it to the top. False when none is selected.
    bool openSelection();

signals:
    void clickAdd();
    void dbClickFolder(QString strPath);

public slots:
    // Enables Remove with the selection. Nothing connects it: Remove stays enabled, so that it can
    // say what it needs.
    void onListSelectionChanged();
    void onDbClickItem(const QModelIndex &idx);
    void onClickAction(const QString &str);
    void onRemoveSelected();

protected:
    bool eventFilter(QObject *pWatched, QEvent *pEvent) override;

private:
    QBoxLayout *createBar();
    void createList();
    void insertFolder(int nRow, const QString &strPath);
    int firstSelectedRow() const;
    QStringList folders() const;
    void store();

    QPushButton *m_pBtnAdd = nullptr;
    QPushButton *m_pBtnRemove = nullptr;
    CMenuListWidget *m_pListFolders = nullptr;
    QString m_strActExplore;
};
