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

// Tells in the status bar of work that takes long: what is done, how far it is, and a button that
// stops it, as Escape does in every window of the program. Work that ends within 500 ms is never
// shown. Of several works the one begun last is shown, with the number of the others; stopping it
// brings up the next. GUI thread only; the work itself must leave the event loop alive.
class CWorkProgress : public QWidget
{
    Q_OBJECT

public:
    using Stop = std::function<void()>;

    explicit CWorkProgress(QWidget *pParent = nullptr);

    // strText says what is done, as plain text. stop is called once at most, from the event loop,
    // and the work calls end() when it has stopped; it may do so at once. A work ends with its
    // owner, which may be null. Returns the number by which the other functions know the work; one
    // that has ended is ignored there.
    int begin(QObject *pOwner, const QString &strText, const Stop &stop);
    // nDone of nAll, in units of the caller's; nAll of 0 says that nobody knows how much there is.
    void advance(int nWork, qint64 nDone, qint64 nAll);
    void end(int nWork);

public slots:
    // Stops the work that is shown.
    void stopShown();
    // nVal: the code editors' font size in pixels, as for the other texts of the status bar.
    void onTextFontSize(int nVal);

private:
    struct SWork
    {
        int nId = 0;
        QString strText;
        Stop stop; // Empty once called.
        QElapsedTimer age;
        qint64 nDone = 0;
        qint64 nAll = 0;
        QMetaObject::Connection owner;
    };

    std::vector<SWork>::iterator find(int nWork);
    SWork *shownWork();
    void refresh();
    void showWork(const SWork &work);

    std::vector<SWork> m_lstWorks; // In the order of their beginning.
    int m_nLastId = 0;
    QTimer m_timer; // Runs until the next work is old enough to be shown.
    QLabel *m_pText;
    QProgressBar *m_pBar;
    QToolButton *m_pStop;
    QShortcut *m_pEscape; // Enabled while something is shown.
};
