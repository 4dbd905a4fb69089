#pragma once

#include "web/ceditwebview.h"
#include "web/charset.h"
#include "web/tokenalign.h"
#include "webtest.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>

// Real pages, and the edits of an author.

struct SRealPage
{
    QString strName;
    QByteArray content;
};

// Those that scripts/setup.sh pages installs, as far as they are there.
inline QVector<SRealPage> installedPages()
{
    QVector<SRealPage> lstPages;
    const QString strList = QStringLiteral(QUILLAN_SOURCE_DIR "/tests/web/pages/installed.txt");
    for (const QByteArray &path : contentOf(strList).split('\n')) {
        const QString strPath = QString::fromUtf8(path);
        if (!path.isEmpty() && QFileInfo::exists(strPath))
            lstPages.append({strPath.mid(15), contentOf(strPath)}); // Behind "/usr/share/doc/".
    }
    return lstPages;
}

// Our own of the kinds that no package has, each with all line ends and encodings.
inline QVector<SRealPage> samplePages()
{
    QVector<SRealPage> lstPages;
    for (const char *szName : {"word", "xhtml", "drawing", "capitals", "fragment"}) {
        const QString strName = QString::fromLatin1(szName);
        const QByteArray content =
            contentOf(QStringLiteral(QUILLAN_SOURCE_DIR "/tests/web/pages/%1.html").arg(strName));
        lstPages.append({strName, content});
        lstPages.append(
            {strName + QStringLiteral(" CR LF"), QByteArray(content).replace("\n", "\r\n")});
        lstPages.append({strName + QStringLiteral(" CR"), QByteArray(content).replace('\n', '\r')});
        lstPages.append({strName + QStringLiteral(" with a mark"), "\xEF\xBB\xBF" + content});
    }
    lstPages.append({QStringLiteral("Latin-1"),
                     "<html><head><meta http-equiv=\"Content-Type\" content=\"text/html; "
                     "charset=ISO-8859-1\">\n<title>caf\xE9</title></head>\n<body>\n<p>\xDC"
                     "ber die "
                     "Stra\xDF"
                     "e\n<p>nach &Ouml;sterreich\n</body>\n</html>\n"});
    return lstPages;
}

// The edits of an author. Each returns false if the page has no place for it.
namespace Author {

// Where in the text of the page: the text node and the place within it by two random numbers.
inline bool choosePlace(CEditWebView *pView, double dNode, double dPlace, const QString &strThen)
{
    const QString strScript =
        QStringLiteral(
            "(function(where, place) {"
            "  var w = document.createTreeWalker(document.body, 4, null, false), all = [], n;"
            "  while (n = w.nextNode()) {"
            "    var e = n.parentNode, ok = /\\S/.test(n.data);"
            "    for (; e && ok; e = e.parentNode)"
            "      if (/^(script|style|select|option|textarea|iframe|noframes|noembed|svg|math|"
            "button|title|xmp|plaintext|noscript)$/i.test(e.nodeName) || (e.nodeType == 1 && "
            "getComputedStyle(e).display == 'none')) ok = false;"
            "    if (ok) all.push(n);"
            "  }"
            "  if (!all.length) return false;"
            "  var i = Math.floor(where * all.length), t = all[i], s = getSelection();"
            "  var o = Math.floor(place * (t.data.length + 1));"
            "  %1"
            "  return true;"
            "})(%2, %3)")
            .arg(strThen)
            .arg(dNode)
            .arg(dPlace);
    return run(pView, strScript).toBool();
}

inline bool caretAt(CEditWebView *pView, double dNode, double dPlace)
{
    return choosePlace(pView, dNode, dPlace, QStringLiteral("s.collapse(t, o);"));
}

inline void execute(CEditWebView *pView, const char *szCommand, const char *szValue = "")
{
    run(pView,
        QStringLiteral("document.execCommand('%1', false, '%2')")
            .arg(QLatin1String(szCommand), QLatin1String(szValue)));
}

inline bool selectWord(CEditWebView *pView, double dNode)
{
    return choosePlace(pView, dNode, 0,
                       QStringLiteral("var m = /\\S+/.exec(t.data), r = document.createRange();"
                                      "r.setStart(t, m.index);"
                                      "r.setEnd(t, m.index + m[0].length);"
                                      "s.removeAllRanges(); s.addRange(r);"));
}

inline bool typeLetter(CEditWebView *pView, double dNode, double dPlace)
{
    if (!caretAt(pView, dNode, dPlace))
        return false;
    execute(pView, "insertText", "x");
    return true;
}

inline bool makeBold(CEditWebView *pView, double dNode, double)
{
    if (!selectWord(pView, dNode))
        return false;
    execute(pView, "bold");
    return true;
}

inline bool splitParagraph(CEditWebView *pView, double dNode, double dPlace)
{
    if (!caretAt(pView, dNode, dPlace))
        return false;
    execute(pView, "insertParagraph");
    return true;
}

// With the block before, as Backspace at its start does.
inline bool joinParagraph(CEditWebView *pView, double dNode, double)
{
    const QString strThen = QStringLiteral("s.collapse(t, 0); s.modify('move', 'backward', "
                                           "'paragraphboundary');");
    if (!choosePlace(pView, dNode, 0, strThen))
        return false;
    execute(pView, "delete");
    return true;
}

inline bool center(CEditWebView *pView, double dNode, double dPlace)
{
    if (!caretAt(pView, dNode, dPlace))
        return false;
    execute(pView, "justifyCenter");
    return true;
}

inline bool linkWord(CEditWebView *pView, double dNode, double)
{
    if (!selectWord(pView, dNode))
        return false;
    execute(pView, "createLink", "https://example.com/?a=1&b=2");
    return true;
}

// From one piece of text into one of the next three.
inline bool removeAcross(CEditWebView *pView, double dNode, double dPlace)
{
    const QString strThen = QStringLiteral("var e = all[Math.min(i + 2, all.length - 1)],"
                                           "    r = document.createRange();"
                                           "r.setStart(t, o);"
                                           "r.setEnd(e, Math.max(Math.floor(e.data.length / 2),"
                                           "                     e == t ? o : 0));"
                                           "s.removeAllRanges(); s.addRange(r);");
    if (!choosePlace(pView, dNode, dPlace, strThen))
        return false;
    execute(pView, "delete");
    return true;
}

using Action = bool (*)(CEditWebView *, double, double);
struct SAction
{
    const char *szName;
    Action act;
};
inline QVector<SAction> actions()
{
    return {{"letter", typeLetter},   {"bold", makeBold}, {"split", splitParagraph},
            {"join", joinParagraph},  {"center", center}, {"link", linkWord},
            {"removal", removeAcross}};
}

} // namespace Author

inline QVector<quint64> lineKeys(const QStringList &lstLines)
{
    QVector<quint64> lstKeys;
    for (const QString &strLine : lstLines)
        lstKeys.append((quint64(qHash(strLine, 1)) << 32) | qHash(strLine, 2));
    return lstKeys;
}

// How many lines a text lost or got, whichever is more.
inline int changedLines(const QString &strBefore, const QString &strAfter)
{
    const QStringList lstBefore = strBefore.split(QLatin1Char('\n'));
    const QStringList lstAfter = strAfter.split(QLatin1Char('\n'));
    const QVector<int> lstPartners = alignSequences(lineKeys(lstBefore), lineKeys(lstAfter));
    const int nKept =
        lstBefore.size() - int(std::count(lstPartners.cbegin(), lstPartners.cend(), -1));
    return qMax(lstBefore.size(), lstAfter.size()) - nKept;
}

// A source with its lines ended by LF, as a save declares it.
inline QString asLines(const QString &strSource)
{
    QString strLines = declareUtf8(strSource);
    return strLines.replace(QLatin1String("\r\n"), QLatin1String("\n"))
        .replace(QLatin1Char('\r'), QLatin1Char('\n'));
}
