#include "document/cdocument.h"

#include "app/filewriter.h"
#include "app/plaintext.h"
#include "app/platform.h"
#include "editor/chighlightedit.h"
#include "editor/textreading.h"

#include <QScopedValueRollback>

namespace {

// A text of that size takes six gigabytes by the estimate of readForEditor().
qint64 s_nCeiling = qint64(512) << 20;

} // namespace

void CDocument::setCeiling(qint64 nBytes)
{
    s_nCeiling = nBytes;
}

bool CDocument::isAboveCeiling(const QString &strPath)
{
    const SFileState state = fileStateOf(strPath);
    return state.bExists && state.nSize > s_nCeiling && state.nSize <= g_nMaxReadable;
}

SFileContent CDocument::read(const QString &strPath)
{
    return readForEditor(strPath);
}

// While another program writes the file, the bytes read last are shown. A later comparison reports
// the change.
bool CDocument::isLoadable(const SFileContent &content)
{
    return content.isWhole() || content.fault == SFileContent::Fault::Changing;
}

CResult CDocument::load(const QString &strPath, const SFileContent &content)
{
    CResult result = showContent(strPath, content);
    if (!result.isDone())
        return result;
    noteState(content.state, isContentWhole(content));
    emit loaded();
    return CResult::done();
}

CResult CDocument::reload()
{
    if (isArriving())
        return refusedAsReadOnly();
    if (reloadInBackground())
        return CResult::done();
    const SFileContent content = read(path());
    if (!isLoadable(content))
        return CResult::refused(tr("The file cannot be read: %1").arg(visibleName(path())));
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        CResult result = showAgain(content);
        if (!result.isDone())
            return result;
    }
    onFileRead(content);
    return CResult::done();
}

void CDocument::onFileRead(const SFileContent &content)
{
    noteState(content.state, isContentWhole(content));
    emit reloaded();
}

CResult CDocument::refusedAsReadOnly() const
{
    return CResult::refused(isArriving()
                                ? tr("The file is still being loaded.")
                                : tr("The text is shown in pieces and cannot be changed."));
}

CResult CDocument::save()
{
    if (isReadOnly())
        return refusedAsReadOnly();
    SNotice question = saveQuestion();
    if (question.strText.isEmpty())
        return write(path());
    question.lstChoices.prepend({tr("Overwrite"), [this] { emit saveWanted(); }});
    setNotice(Topic::Question, question);
    return CResult::refused();
}

CResult CDocument::saveAnyway()
{
    return write(path());
}

CResult CDocument::saveAs(const QString &strPath)
{
    if (isReadOnly())
        return refusedAsReadOnly();
    if (Platform::isSamePath(strPath, path()))
        return save();
    SNotice question = lossQuestion();
    if (question.strText.isEmpty())
        return write(strPath);
    question.lstChoices = {
        {tr("Save all the same"), [this, strPath] { emit saveAsWanted(strPath); }}};
    setNotice(Topic::Question, question);
    return CResult::refused();
}

CResult CDocument::saveAsAnyway(const QString &strPath)
{
    return write(strPath);
}

CResult CDocument::write(const QString &strPath)
{
    if (isReadOnly()) // An answer in the bar may come late.
        return refusedAsReadOnly();
    if (editor())
        editor()->finishReplaceAll(); // Finish it, because nobody wants half of it saved.
    {
        const QScopedValueRollback<bool> saving(m_bSaving, true);
        QString strError;
        SFileState state;
        if (!writeFile(strPath, bytesToSave(strPath), &strError, &state))
            return CResult::refused(strError);
        if (strPath != path())
            setPath(strPath);
        if (strPath != path())
            return CResult::done(); // Only a picture refuses the path; it keeps its file.
        markSaved();
        noteState(state, true);
    }
    emit saved();
    return CResult::done();
}

// The document is based on what was just read or written, which answers older notices.
void CDocument::noteState(const SFileState &state, bool bWhole)
{
    m_state = state;
    m_bWhole = bWhole;
    m_bChangeTold = false;
    m_bSavedElsewhere = false;
    clearNotice(Topic::Question);
    clearNotice(Topic::Changed);
}

void CDocument::fileRenamed(const QString &strPath)
{
    setPath(strPath);
    emit renamed();
    emit contentsChanged(); // A draft holds the file's name, too.
}

void CDocument::checkFile()
{
    if (path().isEmpty() || isLoading() || m_bSaving || m_bChangeTold
        || isFileUnchanged(path(), &m_state))
        return;
    m_bChangeTold = true;
    setNotice(Topic::Changed, changedNotice());
}

void CDocument::checkFileAfterSaveElsewhere()
{
    if (path().isEmpty() || isLoading() || isFileUnchanged(path(), &m_state))
        return;
    m_bSavedElsewhere = true;
    m_bChangeTold = false;
    checkFile();
}

SNotice CDocument::changedNotice()
{
    SNotice notice;
    if (!fileStateOf(path()).bExists) {
        notice.strText =
            tr("%1 is no longer there. Saving writes it again.").arg(visibleName(path()));
        return notice;
    }
    notice.strText = m_bSavedElsewhere
        ? tr("Another tab has saved %1.").arg(visibleName(path()))
        : tr("Another program has changed %1.").arg(visibleName(path()));
    notice.lstChoices.append({tr("Refresh"), [this] { emit refreshWanted(); }});
    return notice;
}

// Empty when saving loses nothing.
SNotice CDocument::saveQuestion()
{
    if (!fileStateOf(path()).bExists || isFileUnchanged(path(), &m_state))
        return lossQuestion();
    SNotice question = changedNotice();
    question.strText = m_bSavedElsewhere
        ? tr("Not saved: another tab has saved %1.").arg(visibleName(path()))
        : tr("Not saved: another program has changed %1.").arg(visibleName(path()));
    return question;
}

// Empty when the text is all of the file and surely reads as it was meant.
SNotice CDocument::lossQuestion() const
{
    SNotice question;
    if (!m_bWhole) {
        question.strText =
            tr("Not saved: not all of %1 can be shown as text, and saving loses the rest.")
                .arg(visibleName(path()));
    } else if (!isCodecSure()) {
        question.strText =
            tr("Not saved: the encoding of %1 is a guess (%2). Saving writes what the "
               "window shows, as UTF-8; if that is wrong, choose another Text Codec.")
                .arg(visibleName(path()), codecName());
    }
    return question;
}

SPlace CDocument::place() const
{
    SPlace place;
    place.strPath = path();
    return place;
}

SDraft CDocument::draft() const
{
    SDraft draft = draftWithTextLater();
    if (draft.textLater)
        draft.strText = draft.textLater();
    draft.textLater = nullptr;
    return draft;
}

SDraft CDocument::draftWithTextLater() const
{
    SDraft draft;
    draft.strPath = path();
    draft.began = m_state;
    draft.bNotWhole = !m_bWhole;
    fillDraft(&draft);
    return draft;
}

void CDocument::restore(const SDraft &draft)
{
    {
        const QScopedValueRollback<bool> loading(m_bLoading, true);
        showDraft(draft);
        noteState(draft.began, !draft.bNotWhole);
    }
    emit contentsChanged();
    emit modifiedChanged(true);
    checkFile(); // It may have changed since the draft was begun.
}

void CDocument::dropText(SDraft::Reason reason)
{
    if (!isLoading())
        emit textDropping(reason);
}

SNotice CDocument::notice() const
{
    return m_mapNotices.isEmpty() ? SNotice() : m_mapNotices.first();
}

void CDocument::setNotice(Topic topic, const SNotice &notice)
{
    if (notice.strText.isEmpty()) {
        if (m_mapNotices.remove(topic) == 0)
            return;
    } else {
        m_mapNotices.insert(topic, notice);
    }
    emit noticeChanged();
}

void CDocument::dismissNotice()
{
    if (!m_mapNotices.isEmpty())
        clearNotice(m_mapNotices.firstKey());
}
