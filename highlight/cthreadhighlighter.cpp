#include "highlight/cthreadhighlighter.h"

#include "highlight/chighlightrules.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace {

// How long typed text may wait for its colours before it is painted. Painting twice would cost more
// and flicker.
constexpr int g_nPatienceMs = 3;

} // namespace

CThreadHighlighter::CThreadHighlighter(CTextDocument *pDocument)
    : QThread(pDocument),
      m_pDocument(pDocument),
      m_pLines(pDocument ? pDocument->lines() : std::make_shared<CLineStore>()),
      m_pRules(std::make_shared<CHighlightRules>())
{
    // Needed for signals between threads and for signal spies. Registering twice is harmless.
    qRegisterMetaType<QTextBlock>("QTextBlock");
    qRegisterMetaType<QList<QTextLayout::FormatRange>>("QList<QTextLayout::FormatRange>");

    m_timerDeliver.setSingleShot(true);
    m_timerEdit.setSingleShot(true);
    connect(&m_timerDeliver, &QTimer::timeout, this, &CThreadHighlighter::deliver);
    // Queued, as on Windows a timer without a delay may come before what was posted after its
    // start.
    connect(&m_timerEdit, &QTimer::timeout, this, &CThreadHighlighter::onEditSettled,
            Qt::QueuedConnection);
    if (!pDocument)
        return;
    pDocument->setMarker([this](const QString &strLine) { return marksIn(strLine); });
    connect(this, &CThreadHighlighter::blockFormatChanged, pDocument,
            &CTextDocument::onHighlightBlock);
    connect(this, &CThreadHighlighter::selectedChanged, pDocument,
            &CTextDocument::onHighlightSelected);
    connect(pDocument, &QTextDocument::contentsChange, this, &CThreadHighlighter::onEdited);
    connect(pDocument, &QTextDocument::contentsChanged, this, &CThreadHighlighter::onEditAnnounced);
}

CThreadHighlighter::~CThreadHighlighter()
{
    stopThread();
    wait();
    if (m_pDocument)
        m_pDocument->setMarker(nullptr);
}

QList<QTextLayout::FormatRange> CThreadHighlighter::marksIn(const QString &strLine) const
{
    QList<QTextLayout::FormatRange> lst;
    m_word.findMarks(strLine, &lst, [] { return false; });
    return lst;
}

void CThreadHighlighter::setDefinition(const QVariantMap &mapDefinition)
{
    auto pRules = std::make_shared<const CHighlightRules>(mapDefinition);
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        m_pRules.swap(pRules);
    }
    m_pLines->markAllStale();
    QTimer::singleShot(0, this, &CThreadHighlighter::rehighlight);
}

void CThreadHighlighter::setSelectedWord(const QString &strWord)
{
    const QString strNew = strWord.trimmed().size() < 3 ? QString() : strWord;
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        if (strNew == m_strWord)
            return;
        m_strWord = strNew;
        m_bSelectionWanted = true;
        m_bSelectionRestart = true;
    }
    m_word = CSelectedWord(strNew);
    noteListeners();
    startIfIdle();
}

void CThreadHighlighter::setVisibleLines(int nFirst, int nLast)
{
    const std::lock_guard<std::mutex> locker(m_mutex);
    m_nFirstVisible = nFirst;
    m_nLastVisible = nLast;
}

QString CThreadHighlighter::languageName() const
{
    return m_pRules->languageName();
}

QString CThreadHighlighter::singleLineComment() const
{
    return m_pRules->singleLineComment();
}

QString CThreadHighlighter::multiLineCommentStart() const
{
    return m_pRules->multiLineCommentStart();
}

QString CThreadHighlighter::multiLineCommentEnd() const
{
    return m_pRules->multiLineCommentEnd();
}

void CThreadHighlighter::rehighlight()
{
    const bool bByEdit = m_nRequestsToCome > 0;
    m_nRequestsToCome -= bByEdit;
    if (!bByEdit && !m_pLines->isEdited())
        m_pLines->markAllStale();
    if (m_bPaused) {
        startPass();
        return;
    }
    m_queue.beginFirst();
    // After a pass that has ended, a key's line is done in a moment.
    const bool bSoon = startPass() && bByEdit;
    if (bSoon) {
        m_queue.waitForFirst(g_nPatienceMs);
        deliver();
    }
}

void CThreadHighlighter::setPaused(bool bPaused)
{
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        if (bPaused == m_bPaused)
            return;
        m_bPaused = bPaused;
    }
    startPass();
}

// True when no other pass was running.
bool CThreadHighlighter::startPass()
{
    noteListeners();
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        m_bSyntaxRestart = true;
        m_bSyntaxWanted = true;
        m_bStop = false;
    }
    return startIfIdle();
}

void CThreadHighlighter::stopThread()
{
    m_bStop = true;
    m_queue.wake();
}

// A worker that has read the requests for the last time is no longer active. Its thread may still
// need a moment to end, and can be started again only then.
bool CThreadHighlighter::startIfIdle()
{
    {
        const std::lock_guard<std::mutex> locker(m_mutex);
        if (m_bActive)
            return false;
        m_bActive = true;
    }
    wait();
    start(QThread::InheritPriority);
    return true;
}

void CThreadHighlighter::onEdited()
{
    m_bUnannounced = true;
    m_bStoppedBeforeEdit = m_bStop;
    m_timerEdit.start(0);
}

void CThreadHighlighter::onEditAnnounced()
{
    m_bUnannounced = false;
    ++m_nRequestsToCome;
    m_timerEdit.start(0);
}

// All requests that the edit posted have arrived by now. QPlainTextEdit::clear() posts a stop and
// no request; the document must not stay uncoloured for that.
void CThreadHighlighter::onEditSettled()
{
    if (m_timerEdit.isActive())
        return; // For an older edit than the last.
    m_nRequestsToCome = 0;
    if (m_bUnannounced && m_bStop && !m_bStoppedBeforeEdit)
        rehighlight();
    m_bUnannounced = false;
}
