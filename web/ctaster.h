#pragma once

#include <QCache>
#include <QObject>
#include <QProcess>
#include <QSize>
#include <QTimer>

// Has a page or an SVG drawing shown by a helper program first, which may take little memory and
// time, and tells whether the helper lived through it. One file at a time; nothing here waits for
// the helper, and the helper never outlives the program. GUI thread only.
class CTaster : public QObject
{
    Q_OBJECT

public:
    enum class Result {
        Unknown, // Not tasted; the helper is missing or does not start.
        Good,
        TooSlow,
        TooLarge,
        Fails, // Whoever shows it ends.
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
    // Emits tasted(), for a file that is known in its present state before this returns. Drops the
    // file that is being tasted.
    void taste(const QString &strPath, const QSize &size);
    // No more is heard of the file that is being tasted.
    void cancel();

    // What is known of the file in its present state.
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
    QString m_strPath; // Being tasted; empty for none.
    QByteArray m_key; // Of that file, when the tasting began.
    QSize m_size;
    QTimer m_timerPatience;
    QTimer m_timerIdle;
    int m_nTasted = 0; // By this helper.
    QCache<QByteArray, Result> m_cacheResults;
};
