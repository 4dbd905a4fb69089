#include "highlight/highlightformats.h"

#include "highlight/chighlightrules.h"

QVector<QTextLayout::FormatRange> formatsOf(const std::vector<SHighlightRange> &lst)
{
    static const QTextCharFormat arrFormats[] = {
        CHighlightRules::format(HighlightRole::Keyword),
        CHighlightRules::format(HighlightRole::Comment),
        CHighlightRules::format(HighlightRole::String),
        CHighlightRules::format(HighlightRole::Number),
        CHighlightRules::format(HighlightRole::Operator),
    };
    QVector<QTextLayout::FormatRange> lstResult;
    lstResult.reserve(int(lst.size()));
    for (const SHighlightRange &range : lst)
        lstResult.append({range.nStart, range.nLength, arrFormats[int(range.role)]});
    return lstResult;
}

bool isMark(const QTextLayout::FormatRange &range)
{
    return range.format.intProperty(QTextFormat::UserProperty) & 1;
}
