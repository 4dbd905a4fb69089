#pragma once

#include "pageedit/pagestate.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QTimer>

class CEditWebView;
class QAction;
class QComboBox;
class QToolBar;

// The Page tool bar, which owns this: what writes a page rather than its letters. Its keys work
// with the tool bar hidden, too.
class CPageToolBar : public QObject
{
    Q_OBJECT

public:
    explicit CPageToolBar(QToolBar *pToolBar);

    // The page that stands in front; null: none, and nothing can be used. Called with each change
    // of the page or its selection: the page is asked once, when the events of this turn are done.
    void follow(CEditWebView *pPage);
    // All actions, for the keys of the window.
    QList<QAction *> actions() const { return m_actions.values(); }

private:
    void addStyleBox(QToolBar *pToolBar);
    void run(const QString &strCommand, const QVariantMap &arguments);
    void showState();
    void show(const SPageState &state);

    QPointer<CEditWebView> m_pPage;
    QComboBox *m_pStyleBox = nullptr;
    QHash<QString, QAction *> m_actions; // By object name.
    QTimer m_timerState;
};
