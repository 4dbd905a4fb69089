#pragma once

#include "pageedit/pagestate.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVariantMap>

#include <functional>

class CDlgCharacters;
class CEditWebView;
class QAction;
class QComboBox;
class QMenu;
class QToolBar;

// The Page tool bar with the commands that shape a page. The tool bar owns this object. Its keys
// work with the tool bar hidden, too.
class CPageToolBar : public QObject
{
    Q_OBJECT

public:
    explicit CPageToolBar(QToolBar *pToolBar);

    // Sets the page in front; null for none, which disables everything. Call it after each change
    // of the page or its selection. The page is asked only once, when the events of this turn are
    // done.
    void follow(CEditWebView *pPage);
    // All actions, for the keys of the window.
    QList<QAction *> actions() const { return m_actions.values(); }

private:
    QAction *addAction(const char *szName, const char *szText, const char *szIcon,
                       const char *szKey, const std::function<void()> &command);
    void addStyleBox();
    void addCommands();
    void addMarks();
    void addLinks();
    void addWholePage();
    void addOutline();

    void run(const QString &strCommand, const QVariantMap &arguments = QVariantMap());
    void runInstead(const QString &strCommand, const QVariantMap &arguments = QVariantMap());
    void finish();
    void toggleMark(const QString &strMark);
    void clearFormat();
    void pastePlain();
    void editLink();
    void editProperties();
    void showCharacters();
    void fillOutline();

    void onClipboardChanged();
    void showState();
    void show(const SPageState &state);
    void showMarks();

    QToolBar *m_pToolBar;
    QPointer<CEditWebView> m_pPage;
    bool m_bBlank = false; // True while the bar shows that there is no page.
    QComboBox *m_pStyleBox = nullptr;
    QMenu *m_pOutline = nullptr;
    QPointer<CDlgCharacters> m_pCharacters;
    QHash<QString, QAction *> m_actions; // By object name.
    SPageState m_state; // The state that is shown.
    bool m_bTextToPaste = false;
    QTimer m_timerState;
};
