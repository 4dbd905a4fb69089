#pragma once

#include "editor/arrivingtext.h"

#include <QObject>

#include <memory>

// Reads a large file for an editor on another thread. One request in its life. GUI thread only.
class CTextLoader : public QObject
{
    Q_OBJECT

public:
    explicit CTextLoader(QObject *pParent = nullptr);
    // Forgets the work, which ends by itself.
    ~CTextLoader() override;

    void start(const STextRequest &request);

signals:
    // Bytes read.
    void progressed(qint64 nDone, qint64 nAll);
    // See SArrivalSteps.
    void firstSliceReady(const QString &strSlice);
    // For the receiver to take the slices from.
    void ready(const std::shared_ptr<SArrivedText> &pText);

private:
    struct SLink;

    std::shared_ptr<SLink> m_pLink;
};
