// Shows a large file that arrives in slices.
#include "editor/chighlightedit.h"

#include "editor/creplaceall.h"
#include "editor/ctextarrival.h"
#include "editor/textreading.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"

#include <QScrollBar>
#include <QTextBlock>

#include <utility>

STextRequest CHighlightEdit::textRequest() const
{
    STextRequest request;
    request.strPath = m_strPathFileName;
    request.strCodec = m_strCodecName;
    request.bCodecSure = m_bCodecSure;
    request.nReturnFormat = m_nReturnFormat;
    request.nHeaviestLine = heaviestLineUnasked();
    return request;
}

// The context menu's Refresh.
void CHighlightEdit::refreshInSlices()
{
    warnOfReplacing();
    STextRequest request = textRequest();
    request.reading = STextRequest::Reading::AsUtf8;
    startArrival(request);
}

void CHighlightEdit::loadInSlices(LongLines longLines, bool bKeepPlace)
{
    STextRequest request = textRequest();
    request.longLines = longLines;
    request.bFirstLinesEarly = document()->isEmpty(); // A failure must not cost a text.
    if (m_pArrival) { // This is the answer to longLineFound().
        request.reading = m_pArrival->request().reading;
        request.strCodec = m_pArrival->request().strCodec;
        request.bCodecSure = m_pArrival->request().bCodecSure;
    }
    startArrival(request);
    if (bKeepPlace)
        keepPlace();
}

void CHighlightEdit::loadInSlicesIn(const QString &strCodec)
{
    STextRequest request = textRequest();
    request.reading = STextRequest::Reading::InCodec;
    request.strCodec = strCodec;
    request.bCodecSure = true;
    startArrival(request);
    keepPlace();
}

void CHighlightEdit::keepPlace()
{
    const int nLine = textCursor().blockNumber();
    const int nScroll = verticalScrollBar()->value();
    m_goal.nLine = qMax(nLine, nScroll) + 1;
    m_goal.go = [this, nLine, nScroll] { goBackTo(nLine, nScroll); };
}

void CHighlightEdit::startArrival(const STextRequest &request)
{
    const bool bRestarts = isLoading();
    if (m_pReplaceAll)
        m_pReplaceAll->stop(); // Its end would make the text editable.
    forgetArrival();
    m_pArrival = new CTextArrival(request, this);
    CTextArrival *pArrival = m_pArrival;
    connect(pArrival, &CTextArrival::begun, this, &CHighlightEdit::beginSlices);
    connect(pArrival, &CTextArrival::linesKnown, this, &CHighlightEdit::onLinesKnown);
    connect(pArrival, &CTextArrival::sliceArrived, this, &CHighlightEdit::appendSlice);
    connect(pArrival, &CTextArrival::progressed, this, &CHighlightEdit::loadProgressed);
    connect(pArrival, &CTextArrival::finished, this, &CHighlightEdit::onArrived);
    connect(pArrival, &CTextArrival::longLineFound, this, &CHighlightEdit::longLineFound);
    connect(pArrival, &CTextArrival::failed, this, [this](const SFileContent &content) {
        const bool bPartial = m_bPartial;
        endArrival(); // The sender lives until the event loop runs.
        setFixed(bPartial || m_bInPieces);
        emit loadFailed(content, bPartial);
        emit loadingChanged();
    });
    setFixed(true);
    pArrival->start();
    if (!bRestarts)
        emit loadingChanged();
}

void CHighlightEdit::stopLoading()
{
    if (!isLoading())
        return;
    const bool bPartial = m_bPartial;
    endArrival();
    setFixed(bPartial || m_bInPieces);
    emit loadingChanged();
}

// Keeps the cursor for selecting and copying by key, unlike setReadOnly().
void CHighlightEdit::setFixed(bool bFixed)
{
    m_bFixed = bFixed;
    setTextInteractionFlags(bFixed ? Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard
                                   : Qt::TextEditorInteraction);
}

// Removes the old text. Undo is off until the end, because each slice would be a step.
void CHighlightEdit::beginSlices()
{
    leaveCarets();
    m_history.clear();
    m_bInPieces = false;
    m_bPartial = true;
    document()->setUndoRedoEnabled(false);
    setPlainText(QString());
    m_goal.from = QPoint();
}

// Sets the gutter's width before the text arrives, because a view that changes its width lays out
// every block. The highlighter pauses, because each slice would void its results.
void CHighlightEdit::onLinesKnown(int nLines)
{
    m_nLinesToCome = nLines;
    updateLineNumberAreaWidth();
    m_pHighlighter->setPaused(true);
}

// Qt would move a cursor at the end along with the text. It is put back.
void CHighlightEdit::appendSlice(const QString &strSlice)
{
    const int nEnd = document()->characterCount() - 1;
    const QTextCursor before = textCursor();
    const int nAnchor = before.anchor();
    const int nPosition = before.position();
    QTextCursor cursor(document());
    cursor.beginEditBlock(); // Qt lays out no line within an edit block.
    cursor.setPosition(nEnd);
    cursor.insertText(strSlice);
    cursor.endEditBlock();
    if (nAnchor == nEnd || nPosition == nEnd)
        selectRange(qMin(nAnchor, nPosition), qMax(nAnchor, nPosition), nPosition < nAnchor);
    if (nEnd == 0)
        emit firstTextShown();
    goWhereArrived(false);
}

void CHighlightEdit::onArrived(const SArrivedText &text)
{
    m_strCodecName = text.strCodec;
    m_bCodecSure = text.bCodecSure;
    m_bWhole = text.bWhole;
    m_nReturnFormat = text.nReturnFormat;
    m_standIns = text.standIns;
    m_bInPieces = text.bInPieces;
    goWhereArrived(true);
    endArrival();
    setFixed(m_bInPieces);
    emit loadFinished(text.content);
    emit loadingChanged();
}

void CHighlightEdit::forgetArrival()
{
    m_goal = SGoal();
    if (!m_pArrival)
        return;
    m_pArrival->disconnect();
    m_pArrival->stop();
    m_pArrival->deleteLater(); // It may be the sender of this call.
    m_pArrival = nullptr;
}

void CHighlightEdit::endArrival()
{
    const bool bPartial = std::exchange(m_bPartial, false);
    forgetArrival();
    m_pHighlighter->setPaused(false);
    m_nLinesToCome = 0;
    updateLineNumberAreaWidth();
    if (!bPartial)
        return;
    document()->setUndoRedoEnabled(true);
    setModified(false);
}

void CHighlightEdit::whenArrived(int nPosition, int nLine, const std::function<void()> &go)
{
    if (!isLoading()) {
        go();
        return;
    }
    const QPoint here(textCursor().position(), verticalScrollBar()->value());
    m_goal = {nPosition, nLine, go, m_pArrival->hasBegun() ? here : QPoint()};
    goWhereArrived(false);
}

void CHighlightEdit::goWhereArrived(bool bAll)
{
    if (!m_goal.go || !m_pArrival->hasBegun())
        return;
    const QPoint here(textCursor().position(), verticalScrollBar()->value());
    if (here != m_goal.from) {
        m_goal = SGoal();
        return;
    }
    const int nPage =
        verticalScrollBar()->pageStep() + 1; // Scrolling to a line needs a page after it.
    const bool bThere = document()->characterCount() > m_goal.nPosition
        && qint64(blockCount()) > qint64(m_goal.nLine) + nPage;
    if (bAll || bThere)
        std::exchange(m_goal, SGoal()).go();
}
