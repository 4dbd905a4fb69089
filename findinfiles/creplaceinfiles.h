#pragma once

#include "findinfiles/replacefile.h"

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QVector>

#include <atomic>
#include <memory>

// Replaces in many files on a thread of its own, one file after another. GUI thread only; no
// widgets. The destructor waits for the file that is being written.
class CReplaceInFiles : public QObject
{
    Q_OBJECT

public:
    explicit CReplaceInFiles(QObject *pParent = nullptr);
    ~CReplaceInFiles() override;

    // Call it only while no replacement runs.
    void start(const QVector<SFileReplacement> &lstFiles, const QString &strText);
    // Begins no further file.
    void cancel();
    bool isRunning() const { return m_bRunning; }

signals:
    // strReason is empty when the file was replaced, and tells why it was not otherwise.
    void fileDone(const QString &strPath, const QString &strReason);
    void finished();

private:
    std::shared_ptr<std::atomic<bool>> m_pCancel;
    QPointer<QThread> m_pThread;
    bool m_bRunning = false;
};
