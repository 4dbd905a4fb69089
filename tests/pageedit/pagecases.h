#pragma once

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

// Takes the marks out of the page and selects what they mark.
inline void selectMarked(CEditWebView *pPage)
{
    run(pPage,
        QStringLiteral("(function() {"
                       "  function find(mark) {"
                       "    var w = document.createTreeWalker(document.body, 4, null, false), n;"
                       "    while (n = w.nextNode()) {"
                       "      var i = n.data.indexOf(mark);"
                       "      if (i < 0) continue;"
                       "      n.deleteData(i, 1);"
                       "      if (n.data) return [n, i];"
                       "      var p = n.parentNode, k = [].indexOf.call(p.childNodes, n);"
                       "      p.removeChild(n);"
                       "      return [p, k];"
                       "    }"
                       "  }"
                       "  var a = find('['), b = find(']') || find('|'), s = getSelection();"
                       "  if (a) s.setBaseAndExtent(a[0], a[1], b[0], b[1]); else if (b) "
                       "s.collapse(b[0], b[1]);"
                       "})()"));
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
