#pragma once

#include <QElapsedTimer>
#include <QString>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QProgressBar;
class QShortcut;
class QToolButton;

// Shows long work in the status bar: what is done, how far it is, and a button that stops it, as
// Escape does in every window of the program. Work that ends within 500 ms is never shown. If there
// are several, the one begun last is shown with the number of the others; stopping it shows the
// next. GUI thread only; the work itself must keep the event loop running.
class CWorkProgress : public QWidget
{
    Q_OBJECT

public:
    using Stop = std::function<void()>;

    explicit CWorkProgress(QWidget *pParent = nullptr);

    // strText tells what is done, as plain text. stop is called at most once, from the event loop;
    // the work calls end() when it has stopped, maybe at once. A work ends with its owner, which
    // may be null. Gives a number that identifies the work in the other functions, which ignore one
    // that has ended.
    int begin(QObject *pOwner, const QString &strText, const Stop &stop);
    // nDone of nAll are done, in the caller's units. An nAll of 0 means that the whole is unknown.
    void advance(int nWork, qint64 nDone, qint64 nAll);
    void end(int nWork);

public slots:
    // Stops the work that is shown.
    void stopShown();
    // nVal is the code editors' font size in pixels, which the texts of the status bar follow.
    void onTextFontSize(int nVal);

private:
    struct SWork
    {
        int nId = 0;
        QString strText;
        Stop stop; // Empty after it was called.
        QElapsedTimer age;
        qint64 nDone = 0;
        qint64 nAll = 0;
        QMetaObject::Connection owner;
    };

    std::vector<SWork>::iterator find(int nWork);
    SWork *shownWork();
    void refresh();
    void showWork(const SWork &work);

    std::vector<SWork> m_lstWorks; // In the order in which they began.
    int m_nLastId = 0;
    QTimer m_timer; // Runs until the next work is old enough to be shown.
    QLabel *m_pText;
    QProgressBar *m_pBar;
    QToolButton *m_pStop;
    QShortcut *m_pEscape; // Enabled while something is shown.
};
