#include "document/crecovery.h"

#include "app/cinplacejournal.h"
#include "app/plaintext.h"
#include "document/cdocument.h"
#include "document/cdraftkeeper.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QPointer>
#include <QTimer>

namespace {

QString nameOf(const SDraft &draft)
{
    return draft.strPath.isEmpty() ? CRecovery::tr("Untitled")
                                   : visibleName(QFileInfo(draft.strPath).fileName());
}

// The folder is named as well, because many files have the same name.
QString itemOf(const SDraft &draft)
{
    const QString strFolder = QDir::toNativeSeparators(QFileInfo(draft.strPath).path());
    return draft.strPath.isEmpty() ? nameOf(draft)
                                   : QStringLiteral("%1 (%2)").arg(nameOf(draft), strFolder);
}

} // namespace

CRecovery::CRecovery(CDraftKeeper *pKeeper, QObject *pParent) : QObject(pParent), m_pKeeper(pKeeper)
{
    connect(pKeeper, &CDraftKeeper::workingChanged, this, &CRecovery::tellDraftsFail);
}

SNotice CRecovery::notice() const
{
    return m_noticeDrafts.strText.isEmpty() ? m_lstNotices.value(0) : m_noticeDrafts;
}

void CRecovery::tellDraftsFail()
{
    m_noticeDrafts = SNotice();
    if (!m_pKeeper->isWorking())
        m_noticeDrafts.strText =
            tr("Unsaved text cannot be kept as drafts: %1").arg(m_pKeeper->why());
    emit noticeChanged();
}

void CRecovery::offer(const SNotice &notice)
{
    m_lstNotices.append(notice);
    emit noticeChanged();
}

void CRecovery::dismiss()
{
    const bool bDrafts = !m_noticeDrafts.strText.isEmpty();
    if (!bDrafts && m_lstNotices.isEmpty())
        return;
    if (bDrafts)
        m_noticeDrafts = SNotice();
    else
        m_lstNotices.removeFirst();
    emit noticeChanged();
}

void CRecovery::offerAbandoned()
{
    const QVector<SDraft> lstDrafts = m_pKeeper->takeAbandoned();
    if (!lstDrafts.isEmpty())
        offerDrafts(lstDrafts);
}

// The user may choose some of several drafts; the others are offered again.
void CRecovery::offerDrafts(const QVector<SDraft> &lstDrafts)
{
    const auto recover = [this](const QVector<SDraft> &lstChosen) {
        m_lstToRecover += lstChosen;
        recoverNext();
    };
    const auto discard = [this](const QVector<SDraft> &lstChosen) {
        for (const SDraft &draft : lstChosen)
            m_pKeeper->discard(draft);
    };
    SNotice notice;
    if (lstDrafts.size() == 1) {
        notice.strText =
            tr("Left unsaved when the program last ended: %1").arg(nameOf(lstDrafts.constFirst()));
    } else {
        notice.strText =
            tr("%1 documents were left unsaved when the program last ended:").arg(lstDrafts.size());
        for (const SDraft &draft : lstDrafts)
            notice.lstItems.append(itemOf(draft));
    }
    notice.lstChoices = {choiceFor(tr("Recover"), lstDrafts, recover),
                         choiceFor(tr("Discard"), lstDrafts, discard)};
    m_lstNotices.prepend(notice);
    emit noticeChanged();
}

SNotice::SChoice CRecovery::choiceFor(const QString &strText, const QVector<SDraft> &lstDrafts,
                                      const std::function<void(const QVector<SDraft> &)> &act)
{
    const auto all = [this, lstDrafts, act] {
        dismiss();
        act(lstDrafts);
    };
    const auto some = [this, lstDrafts, act](const QList<int> &lstNumbers) {
        QVector<SDraft> lstChosen;
        QVector<SDraft> lstOthers;
        for (int n = 0; n < lstDrafts.size(); ++n)
            (lstNumbers.contains(n) ? lstChosen : lstOthers).append(lstDrafts.at(n));
        if (lstChosen.isEmpty())
            return;
        dismiss();
        if (!lstOthers.isEmpty())
            offerDrafts(lstOthers);
        act(lstChosen);
    };
    return {strText, all, some};
}

// Recovers for as long as the window can wait; the rest follows in later turns of the event loop.
void CRecovery::recoverNext()
{
    const int nBearable = 50; // Milliseconds.
    QElapsedTimer elapsed;
    elapsed.start();
    while (!m_lstToRecover.isEmpty() && elapsed.elapsed() < nBearable) {
        SDraft draft = m_lstToRecover.takeFirst();
        if (m_pKeeper->read(&draft))
            emit recoverWanted(draft);
        else // It stays on the disk for the next start.
            emit failed(tr("The draft of %1 could not be read.").arg(nameOf(draft)));
    }
    if (!m_lstToRecover.isEmpty())
        QTimer::singleShot(0, this, &CRecovery::recoverNext);
}

void CRecovery::offerCutOff()
{
    const QVector<SCutOffWriting> lstWritings = CInPlaceJournal::cutOff();
    for (const SCutOffWriting &writing : lstWritings) {
        SNotice notice;
        notice.strText =
            tr("A save of %1 was cut off when the program last ended: the file may hold "
               "parts of both versions.")
                .arg(visibleName(writing.strPath));
        const auto restore = [this, writing] {
            QString strError;
            if (CInPlaceJournal::restore(writing, &strError))
                dismiss();
            else
                emit failed(strError); // The offer stays.
        };
        const auto leave = [this, writing] {
            CInPlaceJournal::forget(writing);
            dismiss();
        };
        notice.lstChoices = {{tr("Put the old version back"), restore},
                             {tr("Leave the file as it is"), leave}};
        offer(notice);
    }
}

void CRecovery::offerClosed(const SDraft &draft)
{
    SNotice notice;
    notice.strText = draft.reason == SDraft::Reason::Deleted
        ? tr("%1 was closed, and its file is no longer there.").arg(nameOf(draft))
        : tr("%1 was closed with unsaved changes.").arg(nameOf(draft));
    const auto restore = [this, draft] {
        dismiss();
        emit recoverWanted(draft);
    };
    const auto discard = [this, draft] {
        dismiss();
        m_pKeeper->discard(draft);
    };
    notice.lstChoices = {{tr("Restore"), restore}, {tr("Discard"), discard}};
    offer(notice);
}

void CRecovery::offerReplaced(CDocument *pDocument, const SDraft &draft)
{
    SNotice notice;
    notice.strText = tr("Unsaved changes of %1 were replaced.").arg(nameOf(draft));
    const QPointer<CDocument> pWhere(pDocument);
    const auto restore = [this, pWhere, draft] {
        if (!pWhere)
            return;
        pWhere->clearNotice(CDocument::Topic::Dropped);
        if (pWhere->isModified()) // Text typed since then is kept as well.
            emit pWhere->textDropping(SDraft::Reason::Refreshed);
        pWhere->restore(draft);
        m_pKeeper->adopt(pWhere, draft);
    };
    const auto discard = [this, pWhere, draft] {
        m_pKeeper->discard(draft);
        if (pWhere)
            pWhere->clearNotice(CDocument::Topic::Dropped);
    };
    notice.lstChoices = {{tr("Restore"), restore}, {tr("Discard"), discard}};
    pDocument->setNotice(CDocument::Topic::Dropped, notice);
}
