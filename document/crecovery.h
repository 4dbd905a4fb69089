#pragma once

#include "app/cdraftstore.h"
#include "document/notice.h"

#include <QList>
#include <QObject>

class CDocument;
class CDraftKeeper;

// Offers what would be lost otherwise: drafts that an earlier run left, and text that a step of
// this run dropped. Each offer is a notice; unanswered, it comes again at the next start.
class CRecovery : public QObject
{
    Q_OBJECT

public:
    // pKeeper is not owned.
    CRecovery(CDraftKeeper *pKeeper, QObject *pParent);

    // Something else that belongs to no open document. dismiss() ends it.
    void offer(const SNotice &notice);
    // What an earlier run left, if anything.
    void offerAbandoned();
    // Files that a save in place left half written when the program was ended.
    void offerCutOff();
    // What a document held that is being closed.
    void offerClosed(const SDraft &draft);
    // What an open document held before its text was replaced. The offer is the document's notice.
    void offerReplaced(CDocument *pDocument, const SDraft &draft);

    // The offer that belongs to no open document; empty for none.
    SNotice notice() const;
    // The user closed the bar: the next offer is shown.
    void dismiss();

signals:
    void noticeChanged();
    // Open a document for the draft: it lies on the disk until that is saved.
    void recoverWanted(SDraft draft);
    // An answer could not be carried out: one line for the status bar.
    void failed(QString strText);

private:
    SNotice::SChoice choiceFor(const QString &strText, const QVector<SDraft> &lstDrafts,
                               const std::function<void(const QVector<SDraft> &)> &act);
    void offerDrafts(const QVector<SDraft> &lstDrafts);
    void tellDraftsFail();
    void recoverNext();

    CDraftKeeper *m_pKeeper;
    SNotice m_noticeDrafts; // While no draft can be written.
    QList<SNotice> m_lstNotices;
    QVector<SDraft> m_lstToRecover; // The user has said so.
};
