#include "editor/ctextarrival.h"

#include "editor/ctextslices.h"

#include <QElapsedTimer>

namespace {

// Milliseconds per turn of the event loop. Painting and scrolling come on top.
const int g_nTurn = 20;
// In thousandths of the whole work. Reading and decoding take about a tenth of the time.
const qint64 g_nAll = 1000;
const qint64 g_nReading = 100;

} // namespace

CTextArrival::CTextArrival(const STextRequest &request, QObject *pParent)
    : QObject(pParent), m_request(request), m_pLoader(new CTextLoader)
{
    connect(m_pLoader.get(), &CTextLoader::progressed, this, [this](qint64 nDone, qint64 nAll) {
        emit progressed(nAll > 0 ? g_nReading * nDone / nAll : 0, g_nAll);
    });
    connect(m_pLoader.get(), &CTextLoader::firstSliceReady, this, &CTextArrival::onFirstSlice);
    connect(m_pLoader.get(), &CTextLoader::ready, this, &CTextArrival::onReady);
    connect(&m_timer, &QTimer::timeout, this, &CTextArrival::giveSlices);
}

void CTextArrival::start()
{
    m_pLoader->start(m_request);
}

void CTextArrival::stop()
{
    m_bStopped = true;
    m_timer.stop();
    m_pLoader->disconnect(this);
    m_pLoader.release()->deleteLater(); // It may be the sender of this call.
}

void CTextArrival::begin()
{
    m_bBegun = true;
    emit begun();
}

void CTextArrival::onFirstSlice(const QString &strSlice)
{
    begin();
    emit sliceArrived(strSlice);
}

void CTextArrival::onReady(const std::shared_ptr<SArrivedText> &pText)
{
    const SFileContent::Fault fault = pText->content.fault;
    if (fault != SFileContent::Fault::None && fault != SFileContent::Fault::Changing) {
        emit failed(pText->content);
        return;
    }
    if (pText->bAsk) {
        emit longLineFound(pText->nHeaviestLine);
        return;
    }
    m_pText = pText;
    m_nSlices = pText->slices.count();
    if (!m_bBegun || pText->bBeginsOtherwise)
        begin();
    emit linesKnown(pText->nLines);
    m_timer.start(0);
}

void CTextArrival::giveSlices()
{
    QElapsedTimer elapsed;
    elapsed.start();
    CTextSlices &slices = m_pText->slices;
    while (!m_bStopped && !slices.isEmpty() && elapsed.elapsed() < g_nTurn)
        emit sliceArrived(slices.take());
    if (m_bStopped)
        return;
    if (!slices.isEmpty()) {
        const qint64 nGiven = m_nSlices - slices.count();
        emit progressed(g_nReading + (g_nAll - g_nReading) * nGiven / m_nSlices, g_nAll);
        return;
    }
    m_timer.stop();
    emit finished(*m_pText);
}
