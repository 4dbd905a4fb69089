#pragma once

#include "editor/arrivingtext.h"

#include <QObject>

#include <memory>

// Reads one large file for an editor on another thread. An object serves one request. GUI thread
// only.
class CTextLoader : public QObject
{
    Q_OBJECT

public:
    explicit CTextLoader(QObject *pParent = nullptr);
    // Does not wait for the other thread, which stops soon by itself.
    ~CTextLoader() override;

    void start(const STextRequest &request);

signals:
    // Both numbers are bytes.
    void progressed(qint64 nDone, qint64 nAll);
    // See SArrivalSteps.
    void firstSliceReady(const QString &strSlice);
    // The receiver may take the slices out of the text.
    void ready(const std::shared_ptr<SArrivedText> &pText);

private:
    struct SLink;

    std::shared_ptr<SLink> m_pLink;
};
