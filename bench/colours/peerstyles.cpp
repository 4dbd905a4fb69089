#include "peerstyles.h"

namespace {

struct SStyleFault
{
    const char *pszLanguage;
    const char *pszStyle;
    const char *pszCharacters; // The characters that it is about. Null for all.
    bool bText; // A comment or a string.
    const char *pszReason;
};

constexpr SStyleFault g_arrFaults[] = {
    {"AsciiDoc", "Delimiter", "-.+/", true, "the lines around a listing belong to it"},
    {"AsciiDoc", "Section Title", nullptr, false, "a heading is no string"},
    {"Diff", "Removed line", nullptr, false, "a removed line is no string"},
    {"JSON", "Style_String_Key", nullptr, true, "a name is a string"},
    {"JavaScript", "Substitution", nullptr, false, "a field holds code"},
    {"Kotlin", "String Interpolation", nullptr, false, "a field holds code"},
    {"Makefile", "Operator", nullptr, false, "an operator is no string"},
    {"Markdown", "List", nullptr, false, "a list's sign is no string"},
    {"Markdown", "Metadata", nullptr, false, "front matter is no comment"},
    {"Markdown", "Metadata Title", nullptr, false, "front matter is no comment"},
    {"Markdown", "Number List", nullptr, false, "a list's sign is no string"},
    {"Markdown", "Style_String_Key", nullptr, true, "a name is a string, as in JSON"},
    {"Perl", "Data", nullptr, true, "what follows __END__ is not run"},
    {"Perl", "Operator", "\"'`", true, "the quotes of a string belong to it"},
    {"Perl", "Pattern", nullptr, true, "a pattern is quoted text"},
    {"Perl", "Pattern Character Class", nullptr, true, "a pattern is quoted text"},
    {"Perl", "Pattern Internal Operator", nullptr, true, "a pattern is quoted text"},
    {"Ruby", "Substitution", nullptr, false, "a field holds code"},
    {"TypeScript", "Substitution", nullptr, false, "a field holds code"},
};

} // namespace

std::optional<bool> classByGrammar(const QString &strLanguage, const QString &strStyle, QChar ch)
{
    for (const SStyleFault &fault : g_arrFaults)
        if (strLanguage == QLatin1String(fault.pszLanguage)
            && strStyle == QLatin1String(fault.pszStyle)
            && (!fault.pszCharacters || QLatin1String(fault.pszCharacters).contains(ch)))
            return fault.bText;
    return std::nullopt;
}
