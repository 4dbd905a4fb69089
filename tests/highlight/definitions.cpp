#include "highlight/definitions.h"

#include "highlight/chighlightmgt.h"

namespace {

QVariantMap comment(const QString &strName, const QString &strStart, const QString &strEnd)
{
    return {{"name", strName}, {"start", strStart}, {"end", strEnd}};
}

QVariantMap context(const QString &strName, const QString &strChar)
{
    const QVariantMap mapChild {{"tag", "DetectChar"}, {"char", strChar}, {"char1", QString()}};
    return {{"name", strName}, {"children", QVariantList {mapChild}}};
}

} // namespace

QVariantMap STestDefinition::toMap() const
{
    QVariantMap mapHighlighting;
    for (auto it = mapLists.begin(); it != mapLists.end(); ++it)
        mapHighlighting.insert(it.key(), it.value());
    if (!strTagOpen.isEmpty() || !strTagClose.isEmpty()) {
        mapHighlighting.insert(
            "contexts",
            QVariantList {context("El Open", strTagOpen), context("El Close", strTagClose)});
    }
    const QVariantMap mapKeywords {{"casesensitive", bCaseSensitive ? "1" : "false"}};
    const QVariantList lstComments {comment("singleLine", strSingleLine, QString()),
                                    comment("MultiLine", strMultiLineStart, strMultiLineEnd)};
    return {{"language", QVariantMap {{"name", "Test"}, {"extensions", "*.test"}}},
            {"general", QVariantMap {{"keywords", mapKeywords}, {"comments", lstComments}}},
            {"highlighting", mapHighlighting}};
}

QMap<QString, QVariantMap> nastyDefinitions()
{
    const QStringList lstWords {"if", "IF", "int", "for", "a", "b", "xx", "if", "end", "end if"};
    const QStringList lstOdd {"a-a",     "x+y",    "c++",    "b.c",    "#if", "a*", "k",  "kk",
                              "ss",      "\u00e9", "\u03c3", "\u03c2", "x?",  "-a", "a ", "s\\",
                              "int|for", "(a|ab)", "[x",     "\u0301", "$x",  "_"};
    const QStringList lstPatterns {"[A-Z]\\w*",
                                   "\\ba\\w*(?=\\()",
                                   "#\\s*if",
                                   "->|=>|::",
                                   "x*",
                                   "^\\s*#\\w+",
                                   "(a|ab)(c|b)?",
                                   "e$",
                                   "\\d+(?!\\.)",
                                   "[\\[\\]]+",
                                   "k|s",
                                   "\"[^\"]*\"",
                                   "(b)\\1",
                                   "\\x0061+",
                                   "[^a-z]{2,}x",
                                   "a{0}b",
                                   "(?:if|IF){1,2}",
                                   "@{2}",
                                   "[",
                                   "\\b",
                                   "if(?!int)",
                                   "[a\\-z]=",
                                   "%[di]|&[^;]+;",
                                   "\\W-",
                                   "a{,2}-"};
    const QMap<QString, QStringList> mapAll {
        {"a", lstWords}, {"odd", lstOdd}, {"reg_exp", lstPatterns}, {"z", {"int", "x", "IF"}}};
    return {
        {"empty", QVariantMap()},
        {"like C", STestDefinition {"//", "/*", "*/", "", "", true, {{"k", lstWords}}}.toMap()},
        {"everything", STestDefinition {"//", "/*", "*/", "", "", true, mapAll}.toMap()},
        {"everything, any case", STestDefinition {"//", "/*", "*/", "", "", false, mapAll}.toMap()},
        {"tags", STestDefinition {"", "<!--", "-->", "<", ">", false, mapAll}.toMap()},
        {"tags, sensitive", STestDefinition {"#", "", "", "<", ">", true, mapAll}.toMap()},
        {"long tags", STestDefinition {"", "", "", "a+|<", "--?>|>>|b", false, mapAll}.toMap()},
        {"tags that match nothing", STestDefinition {"", "", "", "x*", ">", true, mapAll}.toMap()},
        {"invalid tag end", STestDefinition {"", "", "", "<", "[", true, mapAll}.toMap()},
        {"tie", STestDefinition {"--", "--\\[\\[", "\\]\\]", "", "", true, mapAll}.toMap()},
        {"invalid start", STestDefinition {"--", "--[[", "]]", "", "", true, mapAll}.toMap()},
        {"quote starts", STestDefinition {"\"\"", "'", "'", "", "", true, mapAll}.toMap()},
        {"pattern starts",
         STestDefinition {"^\\s*#|//", "/+\\s*b", "b+|$", "", "", false, mapAll}.toMap()},
        {"starts of no length", STestDefinition {"", "x?", "s?", "", "", true, mapAll}.toMap()},
        {"line start of no length",
         STestDefinition {"(?=/)", "<", ">", "", "", true, mapAll}.toMap()},
        {"same start and end",
         STestDefinition {"\\b#", "\\*", "\\*", "", "", true, mapAll}.toMap()},
    };
}

QList<QVariantMap> declaredDefinitions()
{
    const QByteArray arrNasty =
        "<language name='Nasty'><regions>"
        "<region start='/\\*' end='\\*/' nests='/\\*' lines='many' as='comment'/>"
        "<region start='\"' end='\"' skip='\\\\.' lines='many' as='string'>"
        "<region start='&lt;' end='>' nests='&lt;' inner='top'/></region>"
        "<region start='#' key='[a-z]+' end='^%1' nextline='true' as='string' inner='top'/>"
        "<region start='=' key='[^\\s]' end='%2' twice='true' lines='many' as='string'/>"
        "<region start='--' lines='indented' as='comment'/>"
        "</regions></language>";
    QList<QVariantMap> lst {CHighlightMgt::parseBytes(arrNasty)};
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    for (const char *pszName : {"C++", "HTML", "Markdown", "Perl", "PHP", "Ruby", "Shell", "YAML"})
        lst.append(registry.definitionForName(QString::fromLatin1(pszName)));
    return lst;
}
