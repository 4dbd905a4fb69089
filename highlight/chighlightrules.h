#pragma once

#include <QRegExp>
#include <QString>
#include <QTextCharFormat>
#include <QVariant>
#include <functional>
#include <vector>

// How lines are coloured: the fixed rules for numbers and operators, the keywords and patterns of
// one definition, comments and strings. A value: the result for a line depends on the line's text
// and on the state at the end of the line before it, on nothing else. QRegExp keeps its last match
// in itself, so that a copy belongs to one thread at a time.
class CHighlightRules
{
public:
    // Bits of a line's state. Before the first line it is -1.
    enum State {
        SingleLineComment = 1,
        MultiLineComment = 2,
        DoubleQuoted = 4,
        SingleQuoted = 8,
        InsideTag = 16,
        Continued = 32,
    };
    enum class Role : quint8 { Keyword, Comment, String, Number, Operator };

    struct Range
    {
        int nStart; // in UTF-16 code units from the start of the line
        int nLength;
        Role role;
    };
    struct Line
    {
        std::vector<Range> lstRanges; // in drawing order: a later range covers an earlier one
        int nState = 0;
    };
    // Asked before each rule; true abandons the line.
    using AbortCheck = std::function<bool()>;

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
    bool highlight(const QString &strText, int nPreviousState, Line *pLine,
                   const AbortCheck &isAborted = AbortCheck()) const;

    static QTextCharFormat format(Role role);

private:
    void readComments(const QVariantList &lstComments);
    void readContexts(const QVariantList &lstContexts);
    void readKeywords(const QVariantMap &mapHighlighting);

    bool addKeywords(const QString &strText, int nPreviousState, Line *pLine,
                     const AbortCheck &isAborted) const;
    void addComments(const QString &strText, int nPreviousState, Line *pLine) const;

    QString m_strLanguage;
    QString m_strSingleLine;
    QString m_strMultiLineStart;
    QString m_strMultiLineEnd;
    Qt::CaseSensitivity m_caseSensitivity = Qt::CaseInsensitive;
    QRegExp m_rxSingleLine;
    QRegExp m_rxMultiLineStart;
    QRegExp m_rxMultiLineEnd;
    QRegExp m_rxTagOpen;
    QRegExp m_rxTagClose;
    std::vector<QRegExp> m_lstKeywords;
};
