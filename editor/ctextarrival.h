#pragma once

#include "app/filereader.h"
#include "editor/arrivingtext.h"
#include "editor/ctextloader.h"

#include <QObject>
#include <QTimer>

// A large text on its way into an editor: read on another thread, then given slice by slice, as
// many at a time as leave the event loop alive. GUI thread only.
//
// Ends with one of failed(), longLineFound() and finished(); nothing comes after that.
class CTextArrival : public QObject
{
    Q_OBJECT

public:
    explicit CTextArrival(const STextRequest &request, QObject *pParent = nullptr);

    const STextRequest &request() const { return m_request; }
    void start();
    // Forgets the rest and what it takes of memory.
    void stop();
    // Has begun() been signalled?
    bool hasBegun() const { return m_bBegun; }

signals:
    // The old text may go: the first slice follows at once. A second time when the text begins
    // otherwise than the first slice had it.
    void begun();
    // How many lines there will be.
    void linesKnown(int nLines);
    void sliceArrived(const QString &strSlice);
    // Counts in thousandths of all the work.
    void progressed(qint64 nDone, qint64 nAll);
    // All slices were given.
    void finished(const SArrivedText &text);
    // A line of so many units was found, and the request says that the user is to be asked.
    void longLineFound(int nLength);
    void failed(const SFileContent &content);

private:
    void begin();
    void onFirstSlice(const QString &strSlice);
    void onReady(const std::shared_ptr<SArrivedText> &pText);
    void giveSlices();

    STextRequest m_request;
    std::unique_ptr<CTextLoader> m_pLoader;
    std::shared_ptr<SArrivedText> m_pText; // Once it is read.
    int m_nSlices = 0; // Of it, altogether.
    bool m_bBegun = false;
    bool m_bStopped = false;
    QTimer m_timer;
};
