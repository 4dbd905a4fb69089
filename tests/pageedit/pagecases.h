#pragma once

#include "web/ceditwebview.h"
#include "web/webtest.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>

// Golden cases of page commands, read from tests/pageedit/cases/*.txt:
//
//   == what the case shows
//   command {"argument": "value"}
//   -- before
//   <p>a[b]c</p>
//   -- after
//   <p>a<s>[b]</s>c</p>
//
// "[" and "]" are the ends of the selection, "|" is a caret; behind "after" they may be left out.
// What begins with "<html" is a whole page, anything else the body of one.
struct SPageCase
{
    QString strFile;
    QString strName;
    QString strCommand;
    QVariantMap arguments;
    QString strBefore;
    QString strAfter;
};

inline QVector<SPageCase> readPageCases(const QString &strPath)
{
    QVector<SPageCase> lstCases;
    const QStringList lstLines = QString::fromUtf8(contentOf(strPath)).split(QLatin1Char('\n'));
    QString *pText = nullptr;
    for (const QString &strLine : lstLines) {
        if (strLine.startsWith(QLatin1String("== "))) {
            lstCases.append(SPageCase());
            lstCases.last().strFile = QFileInfo(strPath).completeBaseName();
            lstCases.last().strName = strLine.mid(3);
            pText = nullptr;
        } else if (lstCases.isEmpty()) {
            continue;
        } else if (strLine == QLatin1String("-- before")) {
            pText = &lstCases.last().strBefore;
        } else if (strLine == QLatin1String("-- after")) {
            pText = &lstCases.last().strAfter;
        } else if (pText) {
            *pText += strLine + QLatin1Char('\n');
        } else if (!strLine.isEmpty()) {
            lstCases.last().strCommand = strLine.section(QLatin1Char(' '), 0, 0);
            lstCases.last().arguments =
                QJsonDocument::fromJson(strLine.section(QLatin1Char(' '), 1).toUtf8())
                    .object()
                    .toVariantMap();
        }
    }
    for (SPageCase &pageCase : lstCases)
        for (QString *pWritten : {&pageCase.strBefore, &pageCase.strAfter})
            *pWritten = pWritten->trimmed();
    return lstCases;
}

inline QVector<SPageCase> allPageCases()
{
    QVector<SPageCase> lstCases;
    const QDir folder(QStringLiteral(QUILLAN_SOURCE_DIR "/tests/pageedit/cases"));
    for (const QString &strName : folder.entryList({QStringLiteral("*.txt")}, QDir::Files))
        lstCases += readPageCases(folder.filePath(strName));
    return lstCases;
}

inline QString withoutMarks(QString strHtml)
{
    return strHtml.remove(QLatin1Char('[')).remove(QLatin1Char(']')).remove(QLatin1Char('|'));
}

// Finds the marks in the page, as script text, and removes them.
inline QString takeMarks(CEditWebView *pPage)
{
    return run(pPage,
               QStringLiteral(
                   "(function() {"
                   "  function path(n) {"
                   "    for (var p = []; n != document.body; n = n.parentNode)"
                   "      p.unshift([].indexOf.call(n.parentNode.childNodes, n));"
                   "    return p;"
                   "  }"
                   "  function find(mark) {"
                   "    var w = document.createTreeWalker(document.body, 4, null, false), n, i, k;"
                   "    while (n = w.nextNode()) {"
                   "      i = n.data.indexOf(mark);"
                   "      if (i < 0) continue;"
                   "      n.deleteData(i, 1);"
                   "      if (n.data) return [n, i];"
                   "      k = [].indexOf.call(n.parentNode.childNodes, n);"
                   "      w = n.parentNode;"
                   "      w.removeChild(n);"
                   "      return [w, k];"
                   "    }"
                   "    return null;"
                   "  }"
                   "  var a = find('['), b = find(a ? ']' : '|');"
                   "  a = a || b;"
                   "  return JSON.stringify(a ? [path(a[0]), a[1], path(b[0]), b[1]] : null);"
                   "})()"))
        .toString();
}

inline void selectPlaces(CEditWebView *pPage, const QString &strPlaces)
{
    run(pPage,
        QStringLiteral("(function(p) {"
                       "  function at(path) {"
                       "    return path.reduce(function(n, i) { return n.childNodes[i]; }, "
                       "                       document.body);"
                       "  }"
                       "  if (p) getSelection().setBaseAndExtent(at(p[0]), p[1], at(p[2]), p[3]);"
                       "})(%1)")
            .arg(strPlaces));
}

// Puts the marks of the selection into the page.
inline void markSelected(CEditWebView *pPage)
{
    run(pPage,
        QStringLiteral("(function() {"
                       "  var s = getSelection();"
                       "  if (!s.rangeCount) return;"
                       "  var r = s.getRangeAt(0), e = r.cloneRange(), caret = r.collapsed;"
                       "  e.collapse(false);"
                       "  e.insertNode(document.createTextNode(caret ? '|' : ']'));"
                       "  if (caret) return;"
                       "  r.collapse(true);"
                       "  r.insertNode(document.createTextNode('['));"
                       "})()"));
}
