#pragma once

#include "highlight/ccommentscanner.h"
#include "highlight/ckeywordmatcher.h"
#include "highlight/clinepattern.h"
#include "highlight/highlightline.h"

#include <QString>
#include <QTextCharFormat>
#include <QVariant>

// How lines are coloured: the fixed rules for numbers and operators, the keywords and patterns of
// one definition, comments and strings. A value: the result for a line depends on the line's text
// and on the state at the end of the line before it, on nothing else. QRegExp keeps its last match
// in itself, so that a copy belongs to one thread at a time.
class CHighlightRules
{
public:
    // Numbers, operators, strings in double quotes and "//" comments: what holds before a
    // definition.
    CHighlightRules();
    // What a definition asks for; an empty one leaves numbers, operators and strings.
    explicit CHighlightRules(const QVariantMap &mapDefinition);

    const QString &languageName() const { return m_strLanguage; }
    const QString &singleLineComment() const { return m_strSingleLine; }
    const QString &multiLineCommentStart() const { return m_strMultiLineStart; }
    const QString &multiLineCommentEnd() const { return m_strMultiLineEnd; }

    // Colours one line; false when it was abandoned, *pLine is then of no use.
    bool highlight(const QString &strText, int nPreviousState, HighlightLine *pLine,
                   const AbortCheck &isAborted = AbortCheck()) const;

    static QTextCharFormat format(HighlightRole role);

private:
    void readComments(const QVariantList &lstComments);
    void readContexts(const QVariantList &lstContexts);
    void readKeywords(const QVariantMap &mapHighlighting);

    bool addKeywords(const QString &strText, int nPreviousState, HighlightLine *pLine,
                     const AbortCheck &isAborted) const;

    QString m_strLanguage;
    QString m_strSingleLine;
    QString m_strMultiLineStart;
    QString m_strMultiLineEnd;
    CKeywordMatcher m_keywords;
    CCommentScanner m_comments;
    // Keywords count only between the two; both empty: in the whole line.
    CLinePattern m_tagOpen;
    CLinePattern m_tagClose;
};
