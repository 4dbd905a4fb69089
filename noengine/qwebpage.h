#pragma once

#include "noengine/qwebframe.h"

#include <QHash>
#include <QNetworkRequest>
#include <QObject>

#include <memory>

class QAction;
class QNetworkAccessManager;
class QUndoStack;
class QWebHistory;
class QWebSettings;

// A page that holds its text and shows nothing. No action of it is ever enabled, and nothing in it
// is found or edited.
class QWebPage : public QObject
{
    Q_OBJECT

public:
    // The actions that the program uses.
    enum WebAction {
        NoWebAction = -1,
        Back,
        Forward,
        Stop,
        Reload,
        Cut,
        Copy,
        Paste,
        Undo,
        Redo,
        SelectAll,
        ToggleBold,
        ToggleItalic,
        ToggleUnderline,
        InsertLineSeparator,
        InsertParagraphSeparator,
        MoveToStartOfDocument,
        MoveToEndOfDocument,
        SetTextDirectionLeftToRight,
        SetTextDirectionRightToLeft,
    };
    enum NavigationType { NavigationTypeLinkClicked, NavigationTypeOther };
    enum Extension { ChooseMultipleFilesExtension, ErrorPageExtension };
    enum FindFlag {
        FindBackward = 1,
        FindCaseSensitively = 2,
        FindWrapsAroundDocument = 4,
        FindAtWordBeginningsOnly = 8,
    };
    Q_DECLARE_FLAGS(FindFlags, FindFlag)

    explicit QWebPage(QObject *pParent = nullptr);
    ~QWebPage() override;

    QWebFrame *mainFrame() const { return m_pFrame; }
    QWebFrame *currentFrame() const { return m_pFrame; }
    QWebFrame *frameAt(const QPoint &) const { return m_pFrame; }
    QWebSettings *settings() const { return m_pSettings.get(); }
    QWebHistory *history() const { return m_pHistory.get(); }
    QUndoStack *undoStack() const { return m_pUndoStack; }

    // Not owned unless it is a child.
    void setNetworkAccessManager(QNetworkAccessManager *pManager) { m_pNetwork = pManager; }
    QNetworkAccessManager *networkAccessManager() const { return m_pNetwork; }

    QAction *action(WebAction action) const;
    virtual void triggerAction(WebAction action, bool bChecked = false);
    virtual bool supportsExtension(Extension) const { return false; }
    bool isContentEditable() const { return false; }
    void setContentEditable(bool) { }
    bool isModified() const { return false; }
    bool findText(const QString &, FindFlags = FindFlags()) { return false; }
    bool hasSelection() const { return false; }
    QString selectedText() const { return QString(); }
    QString selectedHtml() const { return QString(); }

signals:
    void contentsChanged();
    void linkHovered(const QString &strUrl, const QString &strTitle, const QString &strText);
    void loadFinished(bool bOk);
    void loadStarted();
    void scrollRequested(int nX, int nY, const QRect &rect);
    void selectionChanged();

protected:
    friend class QWebFrame;
    virtual bool acceptNavigationRequest(QWebFrame *, const QNetworkRequest &, NavigationType)
    {
        return true;
    }

private:
    QWebFrame *m_pFrame;
    std::unique_ptr<QWebSettings> m_pSettings;
    std::unique_ptr<QWebHistory> m_pHistory;
    QUndoStack *m_pUndoStack;
    QNetworkAccessManager *m_pNetwork;
    mutable QHash<int, QAction *> m_hashActions;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(QWebPage::FindFlags)
