#pragma once

#include "highlight/highlightline.h"

#include <QString>
#include <QVariant>

#include <QRegExp>

// The highlighting rules literally: one QRegExp for each rule, searched one after the other, in the
// order of the ranges. Slow and plain; the program's own rules have to give the same.
class CLiteralRules
{
public:
    CLiteralRules();
    explicit CLiteralRules(const QVariantMap &mapDefinition);

    SHighlightLine highlight(const QString &strText, int nPreviousState) const;

private:
    void readComments(const QVariantList &lstComments);
    void readContexts(const QVariantList &lstContexts);
    void readKeywords(const QVariantMap &mapHighlighting, Qt::CaseSensitivity sensitivity);
    void addKeywords(const QString &strText, int nPreviousState, SHighlightLine *pLine) const;
    void addComments(const QString &strText, int nPreviousState, SHighlightLine *pLine) const;

    QRegExp m_rxSingleLine;
    QRegExp m_rxMultiLineStart;
    QRegExp m_rxMultiLineEnd;
    QRegExp m_rxTagOpen;
    QRegExp m_rxTagClose;
    std::vector<QRegExp> m_lstKeywords;
};
