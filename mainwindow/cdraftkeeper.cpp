#include "mainwindow/cdraftkeeper.h"

#include "editor/chighlightedit.h"
#include "mainwindow/cdocument.h"
#include "web/ceditwebview.h"

#include <QRunnable>

#include <functional>

namespace {

const int g_nDelay = 3000; // Milliseconds after the last change.
const int g_nLongestDelay = 20000; // And while the typing never pauses.

// The document as it stands behind a key; a page that is shown as source gives the source.
CDocument documentOf(QObject *pKey)
{
    auto *pPage = qobject_cast<CEditWebView *>(pKey);
    if (pPage && pPage->sourceEdit() && pPage->isSourceShown())
        return CDocument(pPage->sourceEdit());
    return CDocument(qobject_cast<QWidget *>(pKey));
}

class CStoreTask : public QRunnable
{
public:
    explicit CStoreTask(std::function<void()> task) : m_task(std::move(task)) { }
    void run() override { m_task(); }

private:
    std::function<void()> m_task;
};

} // namespace

CDraftKeeper::CDraftKeeper(const QString &strFolder, QObject *pParent)
    : QObject(pParent), m_store(strFolder)
{
    m_pool.setMaxThreadCount(1);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CDraftKeeper::writeDue);
}

CDraftKeeper::~CDraftKeeper()
{
    m_pool.waitForDone();
}

void CDraftKeeper::documentChanged(const CDocument &document)
{
    QObject *pKey = document.key();
    if (!pKey || document.image() || !m_store.isValid())
        return;
    if (!document.isModified()) {
        documentClosed(document);
        return;
    }
    if (!m_entries.contains(pKey))
        connect(pKey, &QObject::destroyed, this, [this, pKey] { m_entries.remove(pKey); });
    m_entries[pKey].bDue = true;
    if (!m_sinceFirstChange.isValid())
        m_sinceFirstChange.start();
    const qint64 nLeft = g_nLongestDelay - m_sinceFirstChange.elapsed();
    m_timer.start(int(qBound(qint64(0), nLeft, qint64(g_nDelay))));
}

void CDraftKeeper::documentClosed(const CDocument &document)
{
    const auto it = m_entries.find(document.key());
    if (it != m_entries.end())
        removeDraft(&it.value());
}

void CDraftKeeper::flush()
{
    m_timer.stop();
    writeDue();
    m_pool.waitForDone();
}

void CDraftKeeper::writeDue()
{
    m_sinceFirstChange.invalidate();
    for (auto it = m_entries.begin(); it != m_entries.end(); ++it) {
        if (it->bDue)
            writeDraft(it.key(), &it.value());
    }
}

void CDraftKeeper::writeDraft(QObject *pKey, SEntry *pEntry)
{
    pEntry->bDue = false;
    const CDocument document = documentOf(pKey);
    if (!document.isModified()) {
        removeDraft(pEntry);
        return;
    }
    if (pEntry->strId.isEmpty())
        pEntry->strId = CDraftStore::newId();
    SDraft draft;
    draft.strId = pEntry->strId;
    draft.strPath = document.path();
    draft.bPage = document.page();
    draft.nReturnFormat = document.editor() ? document.editor()->returnFormat() : 1;
    draft.strText = document.editor() ? document.editor()->getText() : document.page()->toHtml();
    m_pool.start(new CStoreTask([this, draft] { m_store.write(draft); }));
}

void CDraftKeeper::removeDraft(SEntry *pEntry)
{
    pEntry->bDue = false;
    if (pEntry->strId.isEmpty())
        return;
    m_pool.start(new CStoreTask([this, strId = pEntry->strId] { m_store.remove(strId); }));
    pEntry->strId.clear();
}
