#include "document/crecovery.h"

#include "document/cdocument.h"
#include "document/cdraftkeeper.h"

#include <QFileInfo>
#include <QPointer>

namespace {

QString nameOf(const SDraft &draft)
{
    return draft.strPath.isEmpty() ? CRecovery::tr("Untitled")
                                   : QFileInfo(draft.strPath).fileName();
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
    QStringList lstNames;
    for (const SDraft &draft : lstDrafts)
        lstNames.append(nameOf(draft));
    SNotice notice;
    notice.strText =
        tr("Left unsaved when the program last ended: %1").arg(lstNames.join(QStringLiteral(", ")));
    const auto recover = [this, lstDrafts] {
        dismiss();
        for (const SDraft &draft : lstDrafts)
            emit recoverWanted(draft);
    };
    const auto discard = [this, lstDrafts] {
        dismiss();
        for (const SDraft &draft : lstDrafts)
            m_pKeeper->discard(draft);
    };
    notice.lstChoices = {{tr("Recover"), recover}, {tr("Discard"), discard}};
    offer(notice);
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
