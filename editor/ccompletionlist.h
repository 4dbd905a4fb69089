#pragma once

#include "editor/cbackgroundjob.h"
#include "editor/completionwords.h"

#include <QCompleter>
#include <QPlainTextEdit>
#include <QStringListModel>

#include <memory>

class CLineStore;

// The list of words beside the cursor of an editor. GUI thread only; the words are collected on a
// thread.
class CCompletionList : public QObject
{
    Q_OBJECT

public:
    // A child of the editor.
    explicit CCompletionList(QPlainTextEdit *pEditor);

    // Collects words and shows them, unless the cursor has moved or the text changed meanwhile.
    void offer(const std::shared_ptr<CLineStore> &pLines, const QVariantMap &mapDefinition,
               const STypedWord &typed);
    bool isShown() const;
    // The word was continued or shortened: updates the list or hides it.
    void follow(const STypedWord &typed);

signals:
    void chosen(const QString &strBeginning, const QString &strWord);
    void nothingFound();

private:
    void show(const QStringList &lstWords);
    void showMatching();

    QPlainTextEdit *m_pEditor;
    STypedWord m_typed;
    int m_nCursor = -1; // The place of the word when the list was asked for.
    QStringListModel m_words;
    QCompleter m_completer;
    CBackgroundJob m_job;
};
