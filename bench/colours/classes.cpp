#include "classes.h"

#include "highlight/chighlightrules.h"
#include "highlight/highlightline.h"
#include "peerstyles.h"

#include <KSyntaxHighlighting/AbstractHighlighter>
#include <KSyntaxHighlighting/Definition>
#include <KSyntaxHighlighting/Format>
#include <KSyntaxHighlighting/Repository>
#include <KSyntaxHighlighting/State>

namespace {

using KSyntaxHighlighting::Format;
using KSyntaxHighlighting::Theme;

bool isCommentOrString(const Format &format)
{
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
    explicit CPeer(QString strLanguage) : m_strLanguage(std::move(strLanguage)) { }

    SPeersText run(const QStringList &lstLines)
    {
        KSyntaxHighlighting::State state;
        for (const QString &strLine : lstLines) {
            m_strLine = strLine;
            const std::vector<bool> lstNone(size_t(strLine.size()), false);
            m_text.asItStands.push_back(lstNone);
            m_text.byGrammar.push_back(lstNone);
            m_text.lstStyles.emplace_back();
            for (int n = 0; n < strLine.size(); ++n)
                m_text.lstStyles.back().append(QString());
            state = highlightLine(strLine, state);
        }
        return m_text;
    }

protected:
    void applyFormat(int nOffset, int nLength, const Format &format) override
    {
        const bool bText = isCommentOrString(format);
        const QString strStyle = format.name();
        for (int n = nOffset; n < nOffset + nLength && n < m_strLine.size(); ++n) {
            m_text.asItStands.back()[size_t(n)] = bText;
            m_text.byGrammar.back()[size_t(n)] =
                classByGrammar(m_strLanguage, strStyle, m_strLine.at(n)).value_or(bText);
            m_text.lstStyles.back()[n] = strStyle;
        }
    }

private:
    const QString m_strLanguage;
    QString m_strLine;
    SPeersText m_text;
};

} // namespace

CharacterClasses classesOfOurs(const QVariantMap &mapDefinition, const QStringList &lstLines)
{
    const CHighlightRules rules(mapDefinition);
    CharacterClasses lst;
    SHighlightLine line;
    int nState = -1;
    for (const QString &strLine : lstLines) {
        rules.highlight(strLine, nState, &line);
        nState = line.nState;
        std::vector<bool> lstLine(size_t(strLine.size()), false);
        for (const SHighlightRange &range : line.lstRanges) {
            const bool bText =
                range.role == HighlightRole::Comment || range.role == HighlightRole::String;
            for (int n = range.nStart; n < range.nStart + range.nLength; ++n)
                lstLine[size_t(n)] = bText;
        }
        lst.push_back(lstLine);
    }
    return lst;
}

SPeersText classesOfPeer(const QString &strLanguage, const QString &strFileName,
                         const QStringList &lstLines)
{
    static KSyntaxHighlighting::Repository s_repository;
    const auto definition = s_repository.definitionForFileName(strFileName);
    if (!definition.isValid())
        return SPeersText();
    CPeer peer(strLanguage);
    peer.setDefinition(definition);
    return peer.run(lstLines);
}
