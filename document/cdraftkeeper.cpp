#include "document/cdraftkeeper.h"

#include "document/cdocument.h"

#include <QCoreApplication>

#include <utility>

CDraftKeeper::CDraftKeeper(const QString &strFolder, QObject *pParent)
    : QObject(pParent), m_store(strFolder)
{
    m_pool.setMaxThreadCount(1);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CDraftKeeper::writeDue);
}

void CDraftKeeper::setDelays(int nPause, int nLongest)
{
    m_nPause = nPause;
    m_nLongestDelay = nLongest;
}

CDraftKeeper::~CDraftKeeper()
{
    m_pool.waitForDone();
}

void CDraftKeeper::add(CDocument *pDocument)
{
    const auto changed = [this, pDocument] { onChanged(pDocument); };
    connect(pDocument, &CDocument::contentsChanged, this, changed);
    connect(pDocument, &CDocument::modifiedChanged, this, changed);
    connect(pDocument, &CDocument::reloaded, this, changed);
    const auto settled = [this, pDocument] { onSettled(pDocument); };
    connect(pDocument, &CDocument::saved, this, settled);
    connect(pDocument, &CDocument::closed, this, settled);
    connect(pDocument, &QObject::destroyed, this,
            [this, pDocument] { m_entries.remove(pDocument); });
}

void CDraftKeeper::adopt(CDocument *pDocument, const SDraft &draft)
{
    onSettled(pDocument);
    const bool bUnwritten = m_unwritten.remove(draft.strId) > 0;
    m_entries.insert(pDocument, {draft.strId, bUnwritten});
    if (bUnwritten)
        m_timer.start(m_nPause);
}

void CDraftKeeper::onChanged(CDocument *pDocument)
{
    // The draft of a document that seems clean is not removed yet: a step that replaces the text
    // takes the flag away and gives it back.
    if (pDocument->isLoading() || (!pDocument->isModified() && !m_entries.contains(pDocument)))
        return;
    m_entries[pDocument].bDue = true;
    if (!m_sinceFirstChange.isValid())
        m_sinceFirstChange.start();
    const qint64 nLeft = m_nLongestDelay - m_sinceFirstChange.elapsed();
    m_timer.start(int(qBound(qint64(0), nLeft, qint64(m_nPause))));
}

// Saved, or closed on the user's word: nothing is left to keep.
void CDraftKeeper::onSettled(const CDocument *pDocument)
{
    const auto it = m_entries.find(pDocument);
    if (it == m_entries.end())
        return;
    const QString strId = it->strId;
    m_entries.erase(it);
    if (!strId.isEmpty())
        m_pool.start([this, strId] { m_store.remove(strId); });
}

SDraft CDraftKeeper::keep(const CDocument &document, SDraft::Reason reason)
{
    SDraft draft = document.draft();
    draft.strId = CDraftStore::newId();
    draft.reason = reason;
    m_unwritten.insert(draft.strId, draft);
    write(draft);
    return draft;
}

void CDraftKeeper::discard(const SDraft &draft)
{
    m_unwritten.remove(draft.strId);
    m_pool.start([this, strId = draft.strId] { m_store.remove(strId); });
}

void CDraftKeeper::flush()
{
    m_timer.stop();
    writeDue();
    finish();
}

void CDraftKeeper::finish()
{
    m_pool.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall); // The outcome of each write.
}

void CDraftKeeper::writeDue()
{
    m_sinceFirstChange.invalidate();
    for (const SDraft &draft : qAsConst(m_unwritten))
        write(draft);
    const QList<const CDocument *> lstDocuments = m_entries.keys();
    for (const CDocument *pDocument : lstDocuments) {
        if (!m_entries[pDocument].bDue)
            continue;
        if (pDocument->isModified())
            writeEntry(*pDocument, &m_entries[pDocument]);
        else
            onSettled(pDocument); // The change was undone.
    }
}

void CDraftKeeper::writeEntry(const CDocument &document, SEntry *pEntry)
{
    pEntry->bDue = false;
    SDraft draft = document.draftWithTextLater();
    if (pEntry->strId.isEmpty())
        pEntry->strId = CDraftStore::newId();
    draft.strId = pEntry->strId;
    write(draft);
}

void CDraftKeeper::write(const SDraft &wanted)
{
    m_pool.start([this, draft = wanted]() mutable {
        if (draft.textLater)
            draft.strText = draft.textLater();
        draft.textLater = nullptr; // It keeps a state of the text in memory.
        QString strFailure;
        if (!m_store.write(draft, &strFailure) && strFailure.isEmpty())
            strFailure = tr("The draft could not be written.");
        QMetaObject::invokeMethod(
            this, [this, strId = draft.strId, strFailure] { onWritten(strId, strFailure); },
            Qt::QueuedConnection);
    });
}

// A failed write is repeated in the next round. If somebody removed the folder, all drafts are
// written again.
void CDraftKeeper::onWritten(const QString &strId, const QString &strFailure)
{
    const int nGeneration = std::exchange(m_nGeneration, m_store.generation());
    if (nGeneration > 0 && nGeneration != m_nGeneration) {
        for (SEntry &entry : m_entries)
            entry.bDue = true;
        m_timer.start(0);
    }
    if (!strFailure.isEmpty()) {
        for (SEntry &entry : m_entries)
            entry.bDue = entry.bDue || entry.strId == strId;
        if (!m_timer.isActive())
            m_timer.start(m_nLongestDelay);
    } else {
        m_unwritten.remove(strId);
    }
    const bool bWorked = isWorking();
    m_strFailure = strFailure;
    if (bWorked != isWorking())
        emit workingChanged();
}
