#ifdef HAVE_QSCINTILLA
#include "lexers.h"

#include <QHash>
#include <Qsci/qscilexerbash.h>
#include <Qsci/qscilexercmake.h>
#include <Qsci/qscilexercpp.h>
#include <Qsci/qscilexercss.h>
#include <Qsci/qscilexerdiff.h>
#include <Qsci/qscilexerhtml.h>
#include <Qsci/qscilexerjava.h>
#include <Qsci/qscilexerjavascript.h>
#include <Qsci/qscilexerjson.h>
#include <Qsci/qscilexerlua.h>
#include <Qsci/qscilexermakefile.h>
#include <Qsci/qscilexermarkdown.h>
#include <Qsci/qscilexerperl.h>
#include <Qsci/qscilexerproperties.h>
#include <Qsci/qscilexerpython.h>
#include <Qsci/qscilexerruby.h>
#include <Qsci/qscilexersql.h>
#include <Qsci/qscilexerxml.h>
#include <Qsci/qscilexeryaml.h>

namespace {

using Lexer = std::unique_ptr<QsciLexer>;

template<typename T> Lexer make()
{
    return std::make_unique<T>();
}

} // namespace

Lexer lexerFor(const QString &strFileName)
{
    static const QHash<QString, Lexer (*)()> s_mapLexers {
        {QStringLiteral("a.cpp"), make<QsciLexerCPP>},
        {QStringLiteral("a.c"), make<QsciLexerCPP>},
        {QStringLiteral("a.cmake"), make<QsciLexerCMake>},
        {QStringLiteral("a.css"), make<QsciLexerCSS>},
        {QStringLiteral("a.scss"), make<QsciLexerCSS>},
        {QStringLiteral("a.diff"), make<QsciLexerDiff>},
        {QStringLiteral("a.html"), make<QsciLexerHTML>},
        {QStringLiteral("a.php"), make<QsciLexerHTML>},
        {QStringLiteral("a.java"), make<QsciLexerJava>},
        {QStringLiteral("a.js"), make<QsciLexerJavaScript>},
        {QStringLiteral("a.ts"), make<QsciLexerJavaScript>},
        {QStringLiteral("a.json"), make<QsciLexerJSON>},
        {QStringLiteral("a.lua"), make<QsciLexerLua>},
        {QStringLiteral("Makefile"), make<QsciLexerMakefile>},
        {QStringLiteral("a.md"), make<QsciLexerMarkdown>},
        {QStringLiteral("a.pl"), make<QsciLexerPerl>},
        {QStringLiteral("a.py"), make<QsciLexerPython>},
        {QStringLiteral("a.rb"), make<QsciLexerRuby>},
        {QStringLiteral("a.sh"), make<QsciLexerBash>},
        {QStringLiteral("a.sql"), make<QsciLexerSQL>},
        {QStringLiteral("Cargo.toml"), make<QsciLexerProperties>},
        {QStringLiteral("a.xml"), make<QsciLexerXML>},
        {QStringLiteral("a.yml"), make<QsciLexerYAML>}};
    const auto pMake = s_mapLexers.value(strFileName);
    return pMake ? pMake() : nullptr;
}
#endif
