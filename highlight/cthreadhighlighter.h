#pragma once

#include "highlight/clinestore.h"
#include "highlight/cresultqueue.h"
#include "highlight/cselectedword.h"
#include "highlight/ctextdocument.h"

#include <QPointer>
#include <QTextBlock>
#include <QTextLayout>
#include <QThread>
#include <QTimer>
#include <atomic>
#include <memory>
#include <mutex>

class CHighlightRules;

// Computes the highlighting of a CTextDocument on a thread of its own. The thread runs while there
// is work and ends when there is none; a request starts it. Each result reaches the document
// through one of the two signals, with the version of the text it belongs to. The block's user
// state is written before. Everything public is for the GUI thread.
class CThreadHighlighter : public QThread
{
    Q_OBJECT
public:
    // The document becomes the parent.
    explicit CThreadHighlighter(CTextDocument *pDocument);
    // Stops the thread and waits for it.
    ~CThreadHighlighter() override;

    // Replaces every rule and asks for a full pass as soon as the event loop runs. An empty
    // definition leaves numbers, operators and strings in double quotes.
    void setDefinition(const QVariantMap &mapDefinition);
    // Sets the word whose occurrences are marked; letter case does not count. A text of fewer than
    // three characters, not counting white space around it, marks nothing.
    void setSelectedWord(const QString &strWord);

    // While paused, each request colours only the lines that can be seen, and the rest is
    // remembered. This is for a text that arrives in many pieces, each of which makes the results
    // of the others void.
    void setPaused(bool bPaused);
    // Sets the blocks that can be seen. Their results come before all others, as soon as the state
    // that they begin with is known. This call starts no pass.
    void setVisibleLines(int nFirst, int nLast);

    // These describe the current definition and are empty without one; only the single-line comment
    // is "//" until the first definition is set.
    QString languageName() const;
    QString singleLineComment() const;
    QString multiLineCommentStart() const;
    QString multiLineCommentEnd() const;

public slots:
    // Asks for a syntax pass. Blocks that an edit did not touch keep their ranges. If there was no
    // edit since the last finished pass, every block is done again.
    void rehighlight();
    // Ends the running pass at its next check; nothing runs again before the next rehighlight().
    void stopThread();

signals:
    // The syntax ranges of a block; replaces those it has.
    void blockFormatChanged(uint nVer, QTextBlock tb, QList<QTextLayout::FormatRange> lst);
    // The marks of the selected word in a block; an empty list clears them.
    void selectedChanged(uint nVer, QTextBlock tb, QList<QTextLayout::FormatRange> lst);

protected:
    void run() override;
    void connectNotify(const QMetaMethod &signal) override;
    void disconnectNotify(const QMetaMethod &signal) override;

private:
    struct SPass;
    struct SBatchResults;

    // For the GUI thread: requests.
    bool startIfIdle();
    bool startPass();
    QList<QTextLayout::FormatRange> marksIn(const QString &strLine) const;
    void onEdited();
    void onEditAnnounced();
    void onEditSettled();

    // For the worker thread: the pass.
    void beginPass(SPass *pPass);
    void runPass(SPass *pPass);
    void takeRules(SPass *pPass) const;
    CLineStore::Which wanted(const SPass &pass) const;
    bool isCutShort(const SPass &pass) const;
    bool processVisible(const SPass &pass);
    void processVisibleMarks(const SPass &pass);
    bool processStates(const SPass &pass, const CLineStore::SBatch &batch);
    bool processBatch(const SPass &pass, const CLineStore::SBatch &batch,
                      CLineStore::Order order = CLineStore::InOrder);
    bool endPass(const SPass &pass);
    void send(const SPass &pass, std::vector<SHighlightResult> *pResults, CLineStore::Order order);

    // For the GUI thread: results.
    void noteListeners();
    void deliver();
    void deliverSome(const std::vector<SHighlightResult> &lst);
    void deliverSyntax(const SHighlightResult &result, const QTextBlock &block);
    void repeatSelection();

    QPointer<CTextDocument> m_pDocument;
    std::shared_ptr<CLineStore> m_pLines;
    CResultQueue m_queue;

    // Guards the rules, the word, what can be seen, the pause, and whether the worker may still see
    // a request. It is the standard library's mutex, because ThreadSanitizer understands that one.
    mutable std::mutex m_mutex;
    std::shared_ptr<const CHighlightRules> m_pRules;
    QString m_strWord;
    CSelectedWord m_word; // The same word, for the GUI thread only.
    int m_nFirstVisible = 0;
    int m_nLastVisible = -1; // Less than the first one if no line is known to be visible.
    bool m_bPaused = false;
    bool m_bActive = false;

    std::atomic_bool m_bStop {false};
    std::atomic_bool m_bSyntaxWanted {false};
    std::atomic_bool m_bSelectionWanted {false};
    std::atomic_bool m_bSyntaxRestart {false};
    std::atomic_bool m_bSelectionRestart {false};

    std::atomic_bool m_bOthersListen {false}; // To the signals; the document always does.
    std::atomic_bool m_bListenersChanged {true}; // Since m_bOthersListen was set.
    std::atomic_bool m_bDelivering {false};
    QTimer m_timerDeliver;
    QTimer m_timerEdit;
    int m_nRequestsToCome = 0; // Edits whose rehighlight() is still in the event queue.
    bool m_bUnannounced = false; // contentsChange() came without contentsChanged().
    bool m_bStoppedBeforeEdit = false;
};
