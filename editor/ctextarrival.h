#pragma once

#include "app/filereader.h"
#include "editor/arrivingtext.h"
#include "editor/ctextloader.h"

#include <QObject>
#include <QTimer>

// Loads a large text for an editor. Another thread reads it; then the slices are given one by one,
// as many per turn of the event loop as leave the window responsive. GUI thread only.
//
// Ends with failed(), longLineFound() or finished(), and emits nothing after that.
class CTextArrival : public QObject
{
    Q_OBJECT

public:
    explicit CTextArrival(const STextRequest &request, QObject *pParent = nullptr);

    const STextRequest &request() const { return m_request; }
    void start();
    // Stops the work and frees its memory.
    void stop();
    // Whether begun() was emitted.
    bool hasBegun() const { return m_bBegun; }

signals:
    // The old text can be removed: the first slice follows at once. Comes a second time if the text
    // turns out to begin differently.
    void begun();
    // Tells the number of lines of the whole text.
    void linesKnown(int nLines);
    void sliceArrived(const QString &strSlice);
    // Both numbers are thousandths of the whole work.
    void progressed(qint64 nDone, qint64 nAll);
    // All slices have been given.
    void finished(const SArrivedText &text);
    // There is a very long line, and the request wants the user to be asked. nLength counts UTF-16
    // units.
    void longLineFound(int nLength);
    void failed(const SFileContent &content);

private:
    void begin();
    void onFirstSlice(const QString &strSlice);
    void onReady(const std::shared_ptr<SArrivedText> &pText);
    void giveSlices();

    STextRequest m_request;
    std::unique_ptr<CTextLoader> m_pLoader;
    std::shared_ptr<SArrivedText> m_pText; // Null until the file is read.
    int m_nSlices = 0; // The number of all slices, with those given.
    bool m_bBegun = false;
    bool m_bStopped = false;
    QTimer m_timer;
};
