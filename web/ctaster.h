#pragma once

#include <QCache>
#include <QObject>
#include <QProcess>
#include <QSize>
#include <QTimer>

// Lets a helper program with little memory and time show a page or an SVG drawing first, and tells
// whether the helper survived. One file at a time; nothing here waits for the helper, and the
// helper never outlives the program. GUI thread only.
class CTaster : public QObject
{
    Q_OBJECT

public:
    enum class Result {
        Unknown, // Not tasted; the helper is missing or does not start.
        Good,
        TooSlow,
        TooLarge,
        Fails, // It crashes the program that shows it.
    };
    Q_ENUM(Result)

    explicit CTaster(QObject *pParent = nullptr);
    ~CTaster() override;

    // The helper program, beside this one unless it is set.
    void setProgram(const QString &strProgram);
    bool isAvailable() const;
    // Milliseconds that the helper may take for one file, on the clock.
    void setPatience(int nMilliseconds) { m_timerPatience.setInterval(nMilliseconds); }

    // Starts the helper, so that it is ready when a file comes.
    void warmUp();
    // Emits tasted(); if the file is known in its present state, before this call returns. Gives up
    // the file that is being tested.
    void taste(const QString &strPath, const QSize &size);
    // Gives up the file that is being tested, without a signal.
    void cancel();

    // The remembered result for the file in its present state.
    Result known(const QString &strPath) const;
    // Remembers the result for this file.
    void setKnown(const QString &strPath, Result result);

signals:
    void tasted(const QString &strPath, CTaster::Result result);

private:
    void start();
    void drop();
    void send();
    void onAnswer();
    void onEnded();
    void onPatienceLost();
    void finish(Result result);

    QString m_strProgram;
    QProcess *m_pHelper = nullptr; // Null when none runs.
    QString m_strPath; // The file that is being tried. Empty if there is none.
    QByteArray m_key; // The state of that file when the trial began.
    QSize m_size;
    QTimer m_timerPatience;
    QTimer m_timerIdle;
    int m_nTasted = 0; // How many files this helper has tested.
    QCache<QByteArray, Result> m_cacheResults;
};
