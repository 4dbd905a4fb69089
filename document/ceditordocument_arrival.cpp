// Shows a large file, which arrives while the event loop runs.
#include "document/ceditordocument.h"

#include "app/plaintext.h"
#include "editor/chighlightedit.h"
#include "editor/longlines.h"
#include "editor/textreading.h"

#include <QLocale>

#include <utility>

void CEditorDocument::connectArrival()
{
    connect(m_pEditor, &CHighlightEdit::loadingChanged, this, &CDocument::arrivingChanged);
    connect(m_pEditor, &CHighlightEdit::loadProgressed, this, &CDocument::arrivalProgressed);
    connect(m_pEditor, &CHighlightEdit::firstTextShown, this, &CDocument::firstTextShown);
    connect(m_pEditor, &CHighlightEdit::loadFinished, this, &CEditorDocument::onArrived);
    connect(m_pEditor, &CHighlightEdit::loadFailed, this, &CEditorDocument::onArrivalFailed);
    connect(m_pEditor, &CHighlightEdit::longLineFound, this, &CEditorDocument::askAboutLongLine);
}

bool CEditorDocument::isArriving() const
{
    return m_pEditor->isLoading();
}

bool CEditorDocument::isReadOnly() const
{
    // True also for the partial text of a stopped arrival. False during a Replace All, because
    // saving finishes it first.
    return m_pEditor->isReadOnly() && !m_pEditor->replaceAllJob();
}

void CEditorDocument::loadInBackground(const QString &strPath)
{
    m_pEditor->setPathFileName(strPath);
    m_bFirstTime = true;
    m_bKeepsPlace = false;
    m_strArriving = strPath;
    m_pEditor->loadInSlices(LongLines::Ask, false);
}

bool CEditorDocument::reloadInBackground()
{
    if (!isShownInSlices(path()))
        return false;
    m_bKeepsPlace = true;
    m_strArriving = path();
    m_pEditor->loadInSlices(LongLines::Ask, true);
    return true;
}

bool CEditorDocument::showInCodecInBackground(const QString &strCodec)
{
    if (!isShownInSlices(path()) || fileStateOf(path()) != fileState())
        return false;
    m_bKeepsPlace = true;
    m_strArriving = path();
    m_pEditor->loadInSlicesIn(strCodec);
    return true;
}

bool CEditorDocument::stopArriving()
{
    const bool bWhole = !m_bFirstTime && !m_pEditor->isTextPartial();
    m_bAsking = false;
    m_goal.reset();
    clearNotice(Topic::Loading);
    m_pEditor->stopLoading();
    if (bWhole)
        emit modifiedChanged(isModified()); // What was typed before is still there and unsaved.
    return bWhole;
}

void CEditorDocument::onArrived(const SFileContent &content)
{
    m_goal.reset();
    noteState(content.state, m_pEditor->isWhole() && !m_pEditor->isInPieces());
    if (m_pEditor->isInPieces())
        tellOfPieces();
    else
        clearNotice(Topic::Loading);
    if (std::exchange(m_bFirstTime, false))
        emit loaded();
    else
        emit reloaded();
    checkFile(); // The file may have changed meanwhile.
}

void CEditorDocument::onArrivalFailed(const SFileContent &content, bool bPartial)
{
    if (m_strArriving != path()) { // This program has renamed the file meanwhile.
        m_strArriving = path();
        m_pEditor->loadInSlices(LongLines::Ask, m_bKeepsPlace);
        return;
    }
    m_goal.reset();
    const bool bClose = bPartial || m_bFirstTime;
    if (!bClose)
        emit modifiedChanged(isModified());
    emit arrivalFailed(content.strError, bClose);
}

void CEditorDocument::askAboutLongLine(int nLength)
{
    m_bAsking = true;
    SNotice notice;
    notice.strText =
        tr("%1 has a line of %2 characters. Shown whole, it stops the window for some time "
           "whenever "
           "it is drawn anew; in pieces, the text can be read, but not changed or saved.")
            .arg(visibleName(path()), QLocale().toString(nLength));
    notice.lstChoices = {{tr("Show it in pieces"), [this] { answerAboutLongLine(false); }},
                         {tr("Show it whole"), [this] { answerAboutLongLine(true); }}};
    setNotice(Topic::Loading, notice);
}

void CEditorDocument::answerAboutLongLine(bool bWhole)
{
    m_bAsking = false;
    const std::optional<SPlace> goal = m_goal;
    m_pEditor->loadInSlices(bWhole ? LongLines::Whole : LongLines::InPieces, m_bKeepsPlace);
    if (goal)
        goToPlace(*goal);
    clearNotice(Topic::Loading);
}

void CEditorDocument::tellOfPieces()
{
    SNotice notice;
    notice.strText =
        tr("Long lines of %1 are shown in pieces: it can be read, but not changed or saved.")
            .arg(visibleName(path()));
    notice.lstChoices = {{tr("Show it whole"), [this] {
                              m_bKeepsPlace = false;
                              answerAboutLongLine(true);
                          }}};
    setNotice(Topic::Loading, notice);
}

// A dismissed question counts as an answer, because the text waits for one.
void CEditorDocument::dismissNotice()
{
    const bool bAsking = m_bAsking;
    CDocument::dismissNotice();
    if (bAsking && notice().strText.isEmpty())
        answerAboutLongLine(false);
}

SPlace CEditorDocument::place() const
{
    if (m_goal)
        return *m_goal;
    SPlace place = CDocument::place();
    notePlace(*m_pEditor, &place);
    return place;
}

void CEditorDocument::goToPlace(const SPlace &place)
{
    if (isArriving())
        m_goal = place;
    const auto go = [this, place] {
        m_goal.reset();
        ::goToPlace(m_pEditor, place);
    };
    m_pEditor->whenArrived(place.nCaret, place.scroll.y() + 1, go);
}
