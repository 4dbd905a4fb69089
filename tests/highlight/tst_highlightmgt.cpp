#include "highlight/chighlightmgt.h"

#include "tests/mainwindow/foundpages.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTextCodec>

class tst_highlightmgt : public QObject
{
    Q_OBJECT
private slots:
    void table_isKeyedByBaseNameInOrder();
    void table_holdsPathPatternsAndName();
    void firstLines_decideForANameNobodyClaims_data();
    void firstLines_decideForANameNobodyClaims();
    void claimedName_needsNoFirstLine();
    void unreadableFiles_areSkipped();
    void sameBaseName_laterFileReplacesEarlier();
    void missingFolder_programFolderIsScanned();

    void lookupByFile_firstBaseNameWins();
    void lookupByFile_patterns_data();
    void lookupByFile_patterns();
    void lookupByFile_noMatchIsEmpty();
    void lookupByName_isExact();
    void lookup_readsTheFileAgain();

    void parse_givesTheWholeTree();
    void parse_elementNamesIgnoreCase();
    void parse_laterSectionReplacesEarlier();
    void parse_laterListReplacesEarlier();
    void parse_listAndContextsCollide();
    void parse_nodesThatAreNoElementsCount();
    void parse_readsEveryEncoding_data();
    void parse_readsEveryEncoding();
    void parse_failure_isEmpty_data();
    void parse_failure_isEmpty();
};

namespace {

// A folder of definition files.
class Folder
{
public:
    QString write(const QString &strName, const QByteArray &arrContents) const
    {
        QFile file(path(strName));
        if (!file.open(QIODevice::WriteOnly) || file.write(arrContents) < 0)
            qFatal("cannot write %s", qPrintable(strName));
        return file.fileName();
    }
    QString path(const QString &strName = QString()) const { return m_dir.filePath(strName); }

private:
    QTemporaryDir m_dir;
};

QByteArray definition(const QByteArray &arrName, const QByteArray &arrPatterns)
{
    return "<language name=\"" + arrName + "\" extensions=\"" + arrPatterns + "\"/>";
}

QString nameOf(const QVariantMap &mapDefinition)
{
    return mapDefinition.value("language").toMap().value("name").toString();
}

QVariantMap parseText(const QByteArray &arrContents)
{
    const Folder folder;
    return CHighlightMgt::parse(folder.write("x.xml", arrContents));
}

} // namespace

void tst_highlightmgt::table_isKeyedByBaseNameInOrder()
{
    const Folder folder;
    folder.write("b.more.xml", definition("B", "*.b"));
    folder.write("a.xml", definition("A", "*.a"));
    folder.write("Z", definition("Z", "*.z"));
    const CHighlightMgt registry(folder.path(), nullptr);
    QCOMPARE(registry.table().keys(), QStringList({"Z", "a", "b"}));
}

void tst_highlightmgt::table_holdsPathPatternsAndName()
{
    const Folder folder;
    const QString strPath = folder.write("cpp.xml", definition("C++", ";*.cpp;;*.h;"));
    folder.write("bare.xml", "<language/>");
    const CHighlightMgt registry(folder.path(), nullptr);
    const QVariantMap mapExpected {{"path", strPath},
                                   {"extension", QStringList({"", "*.cpp", "", "*.h", ""})},
                                   {"name", "C++"},
                                   {"file_base_name", "cpp"}};
    QCOMPARE(registry.table().value("cpp").toMap(), mapExpected);
    const QVariantMap mapBare = registry.table().value("bare").toMap();
    QCOMPARE(mapBare.value("name").toString(), QString());
    QCOMPARE(mapBare.value("extension").toStringList(), QStringList(QString()));
}

void tst_highlightmgt::unreadableFiles_areSkipped()
{
    const Folder folder;
    const QString strGood = folder.write("good.txt", definition("Good", "*.good"));
    folder.write("broken.xml", "<language name='Broken'>");
    folder.write("empty.xml", "");
    QVERIFY(QFile::link(strGood, folder.path("link.xml")));
    QVERIFY(QDir(folder.path()).mkdir("folder.xml"));
    const CHighlightMgt registry(folder.path(), nullptr);
    QCOMPARE(registry.table().keys(), QStringList("good"));
}

void tst_highlightmgt::sameBaseName_laterFileReplacesEarlier()
{
    const Folder folder;
    folder.write("js.xml", definition("New", "*.js"));
    folder.write("js.bak", definition("Old", "*.js"));
    const CHighlightMgt registry(folder.path(), nullptr);
    QCOMPARE(registry.table().keys(), QStringList("js"));
    QCOMPARE(nameOf(registry.definitionForFile("a.js")), QString("New"));
}

// The test program has no folder "highlighter" beside it.
void tst_highlightmgt::missingFolder_programFolderIsScanned()
{
    const QDir dir(QCoreApplication::applicationDirPath());
    QVERIFY(!dir.exists("highlighter"));
    QFile file(dir.filePath("tst_highlightmgt_fallback.xml"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(definition("Fallback", "*.fallback"));
    file.close();
    const CHighlightMgt registry(nullptr);
    const bool bFound = registry.table().contains("tst_highlightmgt_fallback");
    QVERIFY(file.remove());
    QVERIFY(bFound);
}

void tst_highlightmgt::lookupByFile_firstBaseNameWins()
{
    const Folder folder;
    folder.write("b.xml", definition("B", "*.h;*.hpp"));
    folder.write("a.xml", definition("A", "*.h"));
    const CHighlightMgt registry(folder.path(), nullptr);
    QCOMPARE(nameOf(registry.definitionForFile("x.h")), QString("A"));
    QCOMPARE(nameOf(registry.definitionForFile("x.hpp")), QString("B"));
}

void tst_highlightmgt::lookupByFile_patterns_data()
{
    QTest::addColumn<QByteArray>("patterns");
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<bool>("isFound");
    QTest::newRow("case") << QByteArray("*.cpp") << "Main.CPP" << true;
    QTest::newRow("exact name") << QByteArray("Makefile") << "makefile" << true;
    QTest::newRow("exact name, longer") << QByteArray("Makefile") << "Makefile.in" << false;
    QTest::newRow("exact name with path") << QByteArray("Makefile") << "/a/Makefile" << false;
    QTest::newRow("star runs across slashes") << QByteArray("*.cpp") << "/a/b.cpp" << true;
    QTest::newRow("question mark") << QByteArray("*.?xx") << "a.cxx" << true;
    QTest::newRow("set") << QByteArray("*.[ch]") << "a.h" << true;
    QTest::newRow("escaped star") << QByteArray("\\*.c") << "a.c" << false;
    QTest::newRow("escaped star itself") << QByteArray("\\*.c") << "*.c" << true;
    QTest::newRow("empty pattern, other name") << QByteArray(";*.txt") << "a.c" << false;
    QTest::newRow("behind an empty pattern") << QByteArray(";*.txt") << "a.txt" << true;
    QTest::newRow("empty pattern, empty name") << QByteArray(";*.txt") << "" << true;
    QTest::newRow("blank is part of a pattern") << QByteArray("*.a; *.b") << "x.b" << false;
}

void tst_highlightmgt::lookupByFile_patterns()
{
    QFETCH(QByteArray, patterns);
    QFETCH(QString, fileName);
    QFETCH(bool, isFound);
    const Folder folder;
    folder.write("a.xml", definition("A", patterns));
    const CHighlightMgt registry(folder.path(), nullptr);
    QCOMPARE(!registry.definitionForFile(fileName).isEmpty(), isFound);
}

void tst_highlightmgt::lookupByFile_noMatchIsEmpty()
{
    const Folder folder;
    folder.write("a.xml", definition("A", "*.a"));
    const CHighlightMgt registry(folder.path(), nullptr);
    QVERIFY(registry.definitionForFile("x.b").isEmpty());
    QVERIFY(registry.definitionForFile(QString()).isEmpty());
}

void tst_highlightmgt::lookupByName_isExact()
{
    const Folder folder;
    folder.write("b.xml", definition("Shell", "*.b"));
    folder.write("a.xml", definition("Shell", "*.a"));
    const CHighlightMgt registry(folder.path(), nullptr);
    QVERIFY(registry.definitionForName("shell").isEmpty());
    QVERIFY(registry.definitionForName("Shel").isEmpty());
    const QVariantMap mapLanguage = registry.definitionForName("Shell").value("language").toMap();
    QCOMPARE(mapLanguage.value("extensions").toString(), QString("*.a"));
}

void tst_highlightmgt::lookup_readsTheFileAgain()
{
    const Folder folder;
    const QString strPath = folder.write("a.xml", definition("A", "*.a"));
    const CHighlightMgt registry(folder.path(), nullptr);
    folder.write("a.xml", definition("Changed", "*.a"));
    QCOMPARE(nameOf(registry.definitionForFile("x.a")), QString("Changed"));
    QVERIFY(QFile::remove(strPath));
    QVERIFY(registry.definitionForFile("x.a").isEmpty());
    QVERIFY(registry.definitionForName("A").isEmpty());
    QCOMPARE(registry.table().value("a").toMap().value("name").toString(), QString("A"));
}

void tst_highlightmgt::parse_givesTheWholeTree()
{
    const QVariantMap map = parseText(R"(<?xml version="1.0"?>
<language name="T" extensions="*.t;*.u">
 <general>
  <keywords casesensitive="1"/>
  <comments><comment name="singleLine" start="//"/><x name="multiLine" start="/*" end="*/"/></comments>
  <other/>
 </general>
 <highlighting>
  <list name="k"><item>if</item><any> else </any></list>
  <list name="reg_exp"><item>[A-Z]&lt;</item></list>
  <contexts>
   <context name="El Open" attribute="x"><DetectChar char="&lt;" char1="!"/><Other/></context>
  </contexts>
  <unknown/>
 </highlighting>
 <footer/>
</language>)");
    const QVariantList lstComments {
        QVariantMap {{"name", "singleLine"}, {"start", "//"}, {"end", ""}},
        QVariantMap {{"name", "multiLine"}, {"start", "/*"}, {"end", "*/"}}};
    const QVariantList lstChildren {
        QVariantMap {{"tag", "DetectChar"}, {"char", "<"}, {"char1", "!"}},
        QVariantMap {{"tag", "Other"}, {"char", ""}, {"char1", ""}}};
    const QVariantList lstContexts {QVariantMap {{"name", "El Open"}, {"children", lstChildren}}};
    const QVariantMap mapExpected {
        {"language", QVariantMap {{"name", "T"}, {"extensions", "*.t;*.u"}}},
        {"general",
         QVariantMap {{"keywords", QVariantMap {{"casesensitive", "1"}}},
                      {"comments", lstComments}}},
        {"highlighting",
         QVariantMap {{"k", QStringList({"if", " else "})},
                      {"reg_exp", QStringList("[A-Z]<")},
                      {"contexts", lstContexts}}}};
    QCOMPARE(map, mapExpected);
}

void tst_highlightmgt::parse_elementNamesIgnoreCase()
{
    const QVariantMap map = parseText(R"(<LANGUAGE name="T" Extensions="*.t">
<General><KEYWORDS CaseSensitive="1"/></General>
<HIGHLIGHTING><List name="k"><item>if</item></List></HIGHLIGHTING></LANGUAGE>)");
    QCOMPARE(nameOf(map), QString("T"));
    QCOMPARE(map.value("language").toMap().value("extensions").toString(), QString());
    const QVariantMap mapGeneral = map.value("general").toMap();
    QVERIFY(mapGeneral.value("keywords").toMap().contains("casesensitive"));
    QCOMPARE(mapGeneral.value("keywords").toMap().value("casesensitive").toString(), QString());
    QCOMPARE(map.value("highlighting").toMap().value("k").toStringList(), QStringList("if"));
}

void tst_highlightmgt::parse_laterSectionReplacesEarlier()
{
    const QVariantMap map = parseText(R"(<l>
<general><keywords casesensitive="1"/></general>
<highlighting><list name="a"><i>x</i></list></highlighting>
<general><comments/></general>
<highlighting><list name="b"><i>y</i></list></highlighting></l>)");
    QCOMPARE(map.value("general").toMap(), QVariantMap({{"comments", QVariantList()}}));
    QCOMPARE(map.value("highlighting").toMap(), QVariantMap({{"b", QStringList("y")}}));
}

void tst_highlightmgt::parse_laterListReplacesEarlier()
{
    const QVariantMap map = parseText(R"(<l><highlighting>
<list name="a"><i>x</i></list><list name="a"><i>y</i></list></highlighting></l>)");
    QCOMPARE(map.value("highlighting").toMap(), QVariantMap({{"a", QStringList("y")}}));
}

void tst_highlightmgt::parse_listAndContextsCollide()
{
    const QVariantMap mapListLast = parseText(R"(<l><highlighting>
<contexts><context name="El Open"/></contexts>
<list name="contexts"><i>x</i></list></highlighting></l>)");
    QCOMPARE(mapListLast.value("highlighting").toMap().value("contexts"),
             QVariant(QStringList("x")));
    const QVariantMap mapContextsLast = parseText(R"(<l><highlighting>
<list name="contexts"><i>x</i></list><contexts/></highlighting></l>)");
    QCOMPARE(mapContextsLast.value("highlighting").toMap().value("contexts"),
             QVariant(QVariantList()));
}

void tst_highlightmgt::parse_nodesThatAreNoElementsCount()
{
    const QVariantMap map = parseText(R"(<l>
<general><comments><!-- c --></comments></general>
<highlighting><list name="a"><i>x</i><!-- c --><i>y</i></list>
<contexts><!-- c --><context name="n"><!-- c --></context></contexts></highlighting></l>)");
    const QVariantMap mapEmptyComment {{"name", ""}, {"start", ""}, {"end", ""}};
    QCOMPARE(map.value("general").toMap().value("comments").toList(),
             QVariantList {mapEmptyComment});
    const QVariantMap mapHighlighting = map.value("highlighting").toMap();
    QCOMPARE(mapHighlighting.value("a").toStringList(), QStringList({"x", "", "y"}));
    const QVariantList lstContexts = mapHighlighting.value("contexts").toList();
    QCOMPARE(lstContexts.size(), 2);
    QCOMPARE(lstContexts.at(0).toMap(), QVariantMap({{"name", ""}, {"children", QVariantList()}}));
    const QVariantMap mapEmptyChild {{"tag", ""}, {"char", ""}, {"char1", ""}};
    QCOMPARE(lstContexts.at(1).toMap().value("children").toList(), QVariantList {mapEmptyChild});
}

void tst_highlightmgt::parse_readsEveryEncoding_data()
{
    QTest::addColumn<QByteArray>("contents");
    const QString strText = QString::fromUtf8("<language name='\u8a00\u8a9e'/>");
    const QByteArray declaration = "<?xml version='1.0' encoding='Shift_JIS'?>";
    const auto encoded = [&](const char *szCodec, QTextCodec::ConversionFlags flags) {
        QTextCodec::ConverterState state(flags);
        return QTextCodec::codecForName(szCodec)->fromUnicode(strText.constData(), strText.size(),
                                                              &state);
    };
    QTest::newRow("UTF-8") << strText.toUtf8();
    QTest::newRow("UTF-8 with a mark") << QByteArray("\xef\xbb\xbf") + strText.toUtf8();
    QTest::newRow("behind blanks") << QByteArray("\r\n\t ") + strText.toUtf8();
    QTest::newRow("UTF-16 with a mark") << encoded("UTF-16", QTextCodec::DefaultConversion);
    QTest::newRow("declared") << declaration + encoded("Shift_JIS", QTextCodec::IgnoreHeader);
}

void tst_highlightmgt::parse_readsEveryEncoding()
{
    QFETCH(QByteArray, contents);
    QCOMPARE(nameOf(parseText(contents)), QString::fromUtf8("\u8a00\u8a9e"));
}

void tst_highlightmgt::parse_failure_isEmpty_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("not well-formed") << QByteArray("<language><general></language>");
    QTest::newRow("a program") << QByteArray("\x7f"
                                             "ELF<language/>");
    QTest::newRow("no element") << QByteArray("<?xml version='1.0'?><!-- nothing -->");
}

void tst_highlightmgt::parse_failure_isEmpty()
{
    QFETCH(QByteArray, contents);
    QVERIFY(parseText(contents).isEmpty());
    QVERIFY(CHighlightMgt::parse(QString()).isEmpty());
    QVERIFY(CHighlightMgt::parse(Folder().path("missing.xml")).isEmpty());
}

void tst_highlightmgt::firstLines_decideForANameNobodyClaims_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("language");
    const auto add = [](const char *pszName, const char *pszText, const char *pszLanguage) {
        QTest::newRow(pszText) << pszName << pszText << pszLanguage;
    };
    add("walk", "#!/bin/sh", "Shell");
    add("walk", "#!/usr/bin/env python3", "Python");
    add("walk", "#! /usr/bin/env -S python3.11 -u", "Python");
    add("walk", "#!/usr/bin/env A=b node --x", "JavaScript");
    add("walk", "#!/usr/bin/perl -w", "Perl");
    add("walk", "<?php echo 1;", "PHP");
    add("walk", "<?xml version='1.0'?>", "XML");
    add("walk", "<!DOCTYPE html>", "HTML");
    add("walk", "# -*- mode: ruby; tab-width: 2 -*-", "Ruby");
    add("walk", "#!/bin/sh\n# -*- python -*-", "Python");
    add("walk", "// vim: set ts=4 ft=cpp :", "C++");
    add("walk", "x\n/* vi:syntax=css */", "CSS");
    add("walk", "diff --git a/x b/x", "Diff");
    add("walk", "It is a text.", "");
    add("walk", "#!/usr/bin/unknown", "");
    add("walk", "#!", "");
    add("walk", "", "");
    add("walk.txt", "#!/bin/sh", "");
    add("walk.unknown", "<?xml version='1.1'?>", "");
}

void tst_highlightmgt::firstLines_decideForANameNobodyClaims()
{
    QFETCH(QString, name);
    QFETCH(QString, text);
    QFETCH(QString, language);
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    const QVariantMap mapDefinition = registry.definitionForContent(name, text.split('\n'));
    QCOMPARE(mapDefinition.value("language").toMap().value("name").toString(), language);
}

void tst_highlightmgt::claimedName_needsNoFirstLine()
{
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    QCOMPARE(registry.definitionForContent("Makefile", {"#!/bin/sh"}),
             registry.definitionForFile("Makefile"));
    QVERIFY(registry.definitionForContent("a.html", {}).value("embedded").toMap().contains("CSS"));
}

QTEST_GUILESS_MAIN(tst_highlightmgt)
#include "tst_highlightmgt.moc"
