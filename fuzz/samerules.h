#pragma once

#include "fuzz/fuzzing.h"
#include "highlight/chighlightrules.h"
#include "highlight/highlightline.h"
#include "tests/highlight/cliteralrules.h"

#include <QStringList>

#include <algorithm>

// Compares a definition's rules in the program with their literal version, line by line. If the
// definition declares regions, it compares with newly made rules instead.
class CSameRules
{
public:
    explicit CSameRules(const QVariantMap &mapDefinition)
        : m_rules(mapDefinition),
          m_again(mapDefinition),
          m_literal(mapDefinition),
          m_bRegions(mapDefinition.contains(QStringLiteral("regions")))
    {
    }

    void check(const QStringList &lstLines) const
    {
        int nState = -1;
        for (const QString &strLine : lstLines)
            nState = check(strLine, nState);
    }

private:
    int check(const QString &strLine, int nState) const
    {
        SHighlightLine line;
        require(m_rules.highlight(strLine, nState, &line), "nothing abandons the line");
        for (const SHighlightRange &range : line.lstRanges) {
            require(range.nStart >= 0 && range.nLength >= 0
                        && range.nStart + range.nLength <= strLine.size(),
                    "ranges lie within the line");
        }
        require(line.nState >= 0, "a state that a block can carry");
        SHighlightLine again;
        if (m_bRegions)
            m_again.highlight(strLine, nState, &again);
        else
            again = m_literal.highlight(strLine, nState);
        require(isSame(line, again), "the rules as they read");
        return line.nState;
    }

    static bool isSame(const SHighlightLine &one, const SHighlightLine &two)
    {
        const auto isSameRange = [](const SHighlightRange &a, const SHighlightRange &b) {
            return a.nStart == b.nStart && a.nLength == b.nLength && a.role == b.role;
        };
        return one.nState == two.nState
            && std::equal(one.lstRanges.begin(), one.lstRanges.end(), two.lstRanges.begin(),
                          two.lstRanges.end(), isSameRange);
    }

    CHighlightRules m_rules;
    CHighlightRules m_again;
    CLiteralRules m_literal;
    bool m_bRegions;
};
