#pragma once

#include "highlight/ccommentscanner.h"
#include "highlight/clanguage.h"
#include "highlight/cregionscanner.h"
#include "highlight/csymbolline.h"
#include "highlight/highlightline.h"
#include "highlight/regionstate.h"

#include <QString>
#include <QTextCharFormat>
#include <QVariant>

// How lines are coloured: the fixed rules for numbers and operators, the keywords and patterns of
// one definition, comments and strings. A value: the result for a line depends on the line's text
// and on the state at the end of the line before it, on nothing else. A definition may declare
// regions; they then take the place of the fixed rules for comments and strings, and a state is a
// number of these rules' own beside the fixed bits. Searching changes what is kept for the next
// search, so a copy belongs to one thread at a time.
class CHighlightRules
{
public:
    // The rules before the first definition: numbers, operators, strings in double quotes and "//"
    // comments.
    CHighlightRules();
    // The rules of a definition; an empty definition leaves numbers, operators and strings.
    explicit CHighlightRules(const QVariantMap &mapDefinition);

    const QString &languageName() const { return m_strLanguage; }
    const QString &singleLineComment() const { return m_strSingleLine; }
    const QString &multiLineCommentStart() const { return m_strMultiLineStart; }
    const QString &multiLineCommentEnd() const { return m_strMultiLineEnd; }

    // Colours one line. False when it was aborted; *pLine is then incomplete.
    bool highlight(const QString &strText, int nPreviousState, SHighlightLine *pLine,
                   const AbortCheck &isAborted = AbortCheck()) const;

    // Whether these rules have met the regions that are open in this state. Of others they do not
    // know the ends: a state of the same definition becomes known when the line is coloured that
    // begins the regions.
    bool knows(int nState) const;

    static QTextCharFormat format(HighlightRole role);

private:
    void readComments(const QVariantList &lstComments);
    void readRegions(const QVariantMap &mapDefinition);
    const CLanguage &embedded(int nLanguage) const;
    const CLanguage &language(int nLanguage) const
    {
        return nLanguage == 0 ? m_own : embedded(nLanguage);
    }

    bool highlightRegions(const QString &strText, int nPreviousState, SHighlightLine *pLine,
                          const AbortCheck &isAborted) const;
    using Spans = std::vector<SRegionSpan>::const_iterator;
    bool addCode(Spans first, Spans end, bool *pInsideTag, SHighlightLine *pLine,
                 const AbortCheck &isAborted) const;

    QString m_strLanguage;
    QString m_strSingleLine;
    QString m_strMultiLineStart;
    QString m_strMultiLineEnd;
    CLanguage m_own;
    CCommentScanner m_comments;

    bool m_bRegions = false;
    // The definitions that this one embeds. Most documents use few of them, so each is made when a
    // line first leads into it. Both lists have the same numbers; number 0 is this definition, and
    // its place is empty.
    QStringList m_lstLanguages;
    QVariantMap m_mapEmbedded;
    mutable std::vector<std::optional<CLanguage>> m_lstEmbedded;
    mutable CRegionStates m_states;
    // What the last line left open, and its number; the next line usually begins with it.
    mutable RegionStack m_stack;
    mutable int m_nStack = 0;
    mutable CSymbolLine m_line;
    mutable std::vector<SRegionSpan> m_lstSpans; // Of the present line. Reused for its memory.
    // The number of the current line, and for each language the last line whose code it looked
    // through.
    mutable quint64 m_nLine = 0;
    mutable std::vector<quint64> m_lstDone;
};
