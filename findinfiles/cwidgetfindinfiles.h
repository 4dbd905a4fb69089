#pragma once

#include "findinfiles/cfindinfiles.h"
#include "findinfiles/creplaceinfiles.h"
#include "findinfiles/findquery.h"

#include <QWidget>

#include <functional>

class CFindResults;
class QBoxLayout;
class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QModelIndex;
class QProgressBar;
class QPushButton;
class QTreeView;

// The content of the dock "Find in Files": what to search for and where, the matches below their
// files, and the replacement of those that are checked. Needs g_pSettings, for the options that
// the find dialog has and the folder last chosen.
class CWidgetFindInFiles : public QWidget
{
    Q_OBJECT

public:
    // Gives the reason, for the user, why a file must not be written now; empty if it may be.
    // Called on the GUI thread just before a replacement.
    using Guard = std::function<QString(const QString &strPath)>;

    explicit CWidgetFindInFiles(QWidget *pParent = nullptr);

    void setGuard(Guard guard) { m_guard = std::move(guard); }
    // The folder to search; one that the user has typed stays.
    void setFolder(const QString &strFolder);
    // Takes over the options of the find dialog and a text, unless it is empty, and moves the focus
    // to the text.
    void prepare(const QString &strText);

signals:
    // A match was chosen: its line from 1 on, column and length in UTF-16 units of the line.
    void matchActivated(QString strPath, int nLine, int nColumn, int nLength);
    // The file on the disk has been written.
    void fileReplaced(QString strPath);
    // A search or a replacement begins or ends; strWhat names it.
    void busyChanged(bool bBusy, QString strWhat);
    // The outcome of a search or a replacement.
    void statusMessage(QString strText);

public slots:
    void onFind();
    void onCancel();
    void onReplace();

protected:
    void keyPressEvent(QKeyEvent *pEvent) override;

private:
    void createFields();
    QWidget *createForm();
    QWidget *createResults();
    QLineEdit *createField(const QString &strName, const QString &strObject);
    QBoxLayout *createOptions();
    QGridLayout *createGrid();
    void createTree();
    void orderTabs();
    void connectAll();
    void onFolderBrowse();
    void onFound(const QVector<SFileMatches> &lstFound);
    void onFinished(const SFindCounts &counts);
    void onReplacementChanged();
    void onFileDone(const QString &strPath, const QString &strReason);
    void onReplaced();
    void onPressed(const QModelIndex &index);
    void onClicked(const QModelIndex &index);
    void onActivated(const QModelIndex &index);
    SFindQuery query() const;
    bool isBusy() const;
    void updateButtons();
    void showState(const QString &strText);
    static QString textOf(const SFindCounts &counts);

    QLineEdit *m_pEditText = nullptr;
    QCheckBox *m_pCheckReplace = nullptr;
    QLineEdit *m_pEditReplace = nullptr;
    QLineEdit *m_pEditFolder = nullptr;
    QLineEdit *m_pEditNames = nullptr;
    QCheckBox *m_pCheckCase = nullptr;
    QCheckBox *m_pCheckWord = nullptr;
    QCheckBox *m_pCheckRegExp = nullptr;
    QPushButton *m_pBtnFind = nullptr;
    QPushButton *m_pBtnCancel = nullptr;
    QPushButton *m_pBtnReplace = nullptr;
    QPushButton *m_pBtnBrowse = nullptr;
    QProgressBar *m_pProgress = nullptr;
    QLabel *m_pState = nullptr;
    QTreeView *m_pTree = nullptr;
    CFindResults *m_pResults = nullptr;
    CFindInFiles m_search;
    CReplaceInFiles m_replace;
    Guard m_guard;
    bool m_bFolderTyped = false;
    bool m_bBusy = false; // The last state that was signalled.
    int m_nPressedState = -1; // The state of the check box where the mouse button went down.
    int m_nReplaced = 0; // The files of the running replacement.
    int m_nRefused = 0;
};
