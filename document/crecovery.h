#pragma once

#include "app/cdraftstore.h"
#include "document/notice.h"

#include <QList>
#include <QObject>

class CDocument;
class CDraftKeeper;

// Offers text that would be lost otherwise: drafts that an earlier run left, and text that a step
// of this run dropped. Each offer is a notice; unanswered, it comes again at the next start.
class CRecovery : public QObject
{
    Q_OBJECT

public:
    // pKeeper is not owned.
    CRecovery(CDraftKeeper *pKeeper, QObject *pParent);

    // Adds another notice that belongs to no open document. dismiss() ends it.
    void offer(const SNotice &notice);
    // Offers what an earlier run left, if anything.
    void offerAbandoned();
    // Offers files that a save in place left half written when the program was ended.
    void offerCutOff();
    // Offers the text of a document that is being closed.
    void offerClosed(const SDraft &draft);
    // Offers the text that an open document had before it was replaced. The offer is the document's
    // notice.
    void offerReplaced(CDocument *pDocument, const SDraft &draft);

    // The offer that belongs to no open document; empty for none.
    SNotice notice() const;
    // The user closed the bar, so the next offer is shown.
    void dismiss();

signals:
    void noticeChanged();
    // Asks to open a document for the draft, which stays on the disk until the document is saved.
    void recoverWanted(SDraft draft);
    // An answer could not be carried out; one line for the status bar.
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
    QVector<SDraft> m_lstToRecover; // The user has asked for it.
};
