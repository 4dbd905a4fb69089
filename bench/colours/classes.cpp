#include "classes.h"

#include "highlight/chighlightrules.h"

#include <KSyntaxHighlighting/AbstractHighlighter>
#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Format>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/State>
#include <QHash>
#include <optional>

namespace {

using KSyntaxHighlighting::Format;
using KSyntaxHighlighting::Theme;

// Where the peer uses a style for its colour alone: the names of JSON are strings by its grammar,
// and neither Make's operators nor a patch's removed lines are literals.
std::optional<bool> classByName(const Format &format)
{
    static const QHash<QString, bool> s_mapClasses {{QStringLiteral("Style_String_Key"), true},
                                                    {QStringLiteral("Operator"), false},
                                                    {QStringLiteral("Removed line"), false}};
    const auto it = s_mapClasses.constFind(format.name());
    return it == s_mapClasses.constEnd() ? std::nullopt : std::make_optional(*it);
}

bool isCommentOrString(const Format &format)
{
    if (const std::optional<bool> bClass = classByName(format)) {
        return *bClass;
    }
    switch (format.textStyle()) {
    case Theme::Comment:
    case Theme::CommentVar:
    case Theme::Documentation:
    case Theme::Annotation:
    case Theme::RegionMarker:
    case Theme::Alert:
    case Theme::String:
    case Theme::Char:
    case Theme::SpecialChar:
    case Theme::SpecialString:
    case Theme::VerbatimString:
        return true;
    default:
        return false;
    }
}

class CPeer : public KSyntaxHighlighting::AbstractHighlighter
{
public:
    CharacterClasses run(const QStringList &lstLines)
    {
        CharacterClasses lst;
        KSyntaxHighlighting::State state;
        for (const QString &strLine : lstLines) {
            m_lstLine.assign(size_t(strLine.size()), false);
            state = highlightLine(strLine, state);
            lst.push_back(m_lstLine);
        }
        return lst;
    }

protected:
    void applyFormat(int nOffset, int nLength, const Format &format) override
    {
        const bool bText = isCommentOrString(format);
        for (int n = nOffset; n < nOffset + nLength && n < int(m_lstLine.size()); ++n) {
            m_lstLine[size_t(n)] = bText;
        }
    }

private:
    std::vector<bool> m_lstLine;
};

} // namespace

CharacterClasses classesOfOurs(const QVariantMap &mapDefinition, const QStringList &lstLines)
{
    const CHighlightRules rules(mapDefinition);
    CharacterClasses lst;
    HighlightLine line;
    int nState = -1;
    for (const QString &strLine : lstLines) {
        rules.highlight(strLine, nState, &line);
        nState = line.nState;
        std::vector<bool> lstLine(size_t(strLine.size()), false);
        for (const HighlightRange &range : line.lstRanges) {
            const bool bText =
                range.role == HighlightRole::Comment || range.role == HighlightRole::String;
            for (int n = range.nStart; n < range.nStart + range.nLength; ++n) {
                lstLine[size_t(n)] = bText;
            }
        }
        lst.push_back(lstLine);
    }
    return lst;
}

CharacterClasses classesOfPeer(const QString &strFileName, const QStringList &lstLines)
{
    static KSyntaxHighlighting::Repository s_repository;
    const auto definition = s_repository.definitionForFileName(strFileName);
    if (!definition.isValid()) {
        return CharacterClasses();
    }
    CPeer peer;
    peer.setDefinition(definition);
    return peer.run(lstLines);
}
