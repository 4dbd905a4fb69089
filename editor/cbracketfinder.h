#pragma once

#include "editor/bracketmatch.h"
#include "editor/cbackgroundjob.h"

#include <QTimer>
#include <QVariantMap>
#include <memory>
#include <optional>

class CLineStore;

// Finds partners of brackets that are far away, on a thread, and remembers the last one. GUI thread
// only.
class CBracketFinder : public QObject
{
    Q_OBJECT

public:
    struct SQuestion
    {
        uint nVersion = 0; // The version of the text.
        int nLine = -1;
        int nInLine = -1;
        bool operator==(const SQuestion &other) const
        {
            return nVersion == other.nVersion && nLine == other.nLine && nInLine == other.nInLine;
        }
    };

    explicit CBracketFinder(std::shared_ptr<CLineStore> pLines, QObject *pParent = nullptr);

    // Sets the language. Without one the rules are those before the first definition.
    void setDefinition(const QVariantMap &mapDefinition);

    // Gives the answer if it is known. Otherwise the search begins after a moment without other
    // questions, and found() tells its end.
    std::optional<SBracketMatch> ask(const SQuestion &question);

signals:
    void found();

private:
    void search();

    std::shared_ptr<CLineStore> m_pLines;
    std::optional<QVariantMap> m_definition;
    std::optional<SQuestion> m_asked; // Not answered yet.
    SQuestion m_answered;
    SBracketMatch m_answer;
    QTimer m_timer;
    CBackgroundJob m_job;
};
