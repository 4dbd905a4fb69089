#include "document/crecovery.h"

#include "app/cinplacejournal.h"
#include "app/plaintext.h"
#include "document/cdocument.h"
#include "document/cdraftkeeper.h"

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

QString namesOf(const QVector<SDraft> &lstDrafts)
{
    const int nMostNames = 10; // More would fill the window.
    QStringList lstNames;
    for (const SDraft &draft : lstDrafts.mid(0, nMostNames))
        lstNames.append(nameOf(draft));
    const QString strNames = lstNames.join(QStringLiteral(", "));
    const int nMore = lstDrafts.size() - lstNames.size();
    return nMore == 0 ? strNames : CRecovery::tr("%1 and %2 more").arg(strNames).arg(nMore);
}

} // namespace

CRecovery::CRecovery(CDraftKeeper *pKeeper, QObject *pParent) : QObject(pParent), m_pKeeper(pKeeper)
{
}

void CRecovery::offer(const SNotice &notice)
{
    m_lstNotices.append(notice);
    emit noticeChanged();
}

void CRecovery::dismiss()
{
    if (m_lstNotices.isEmpty())
        return;
    m_lstNotices.removeFirst();
    emit noticeChanged();
}

void CRecovery::offerAbandoned()
{
    const QVector<SDraft> lstDrafts = m_pKeeper->takeAbandoned();
    if (lstDrafts.isEmpty())
        return;
    SNotice notice;
    notice.strText = tr("Left unsaved when the program last ended: %1").arg(namesOf(lstDrafts));
    const auto recover = [this, lstDrafts] {
        dismiss();
        m_lstToRecover += lstDrafts;
        recoverNext();
    };
    const auto discard = [this, lstDrafts] {
        dismiss();
        for (const SDraft &draft : lstDrafts)
            m_pKeeper->discard(draft);
    };
    notice.lstChoices = {{tr("Recover"), recover}, {tr("Discard"), discard}};
    offer(notice);
}

// As many as leave the window alive; the rest in later turns of the event loop.
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
        if (pWhere->isModified()) // Typed since: that is kept in its turn.
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
