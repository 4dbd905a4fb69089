#include "web/pagescript.h"

#include "web/markup.h"

namespace {

constexpr char g_szMarked[] = "'font[size=\"7\"], [style*=\"-webkit-xxx-large\"]'";

QString call(const QString &strFunction, const QString &strArguments)
{
    return QStringLiteral("Document.prototype.%1.call(document, %2)")
        .arg(strFunction, strArguments);
}

// "size" holds the CSS length.
QString resize(const QString &strElement)
{
    return QStringLiteral("%1.removeAttribute('size'); %1.style.fontSize = size;").arg(strElement);
}

QString function(const QString &strBody, const QString &strCss)
{
    return QStringLiteral("(function(size) { %1 })(%2)").arg(strBody, scriptString(strCss));
}

} // namespace

namespace PageScript {

QString execute(const QString &strCommand, const QString &strValue)
{
    return call(QStringLiteral("execCommand"),
                QStringLiteral("'%1', false, ").arg(strCommand) + scriptString(strValue));
}

QString executeStyled(const QString &strCommand, const QString &strValue)
{
    return execute(QStringLiteral("styleWithCSS"), QStringLiteral("true")) % QLatin1Char(';')
        % execute(strCommand, strValue) % QLatin1Char(';')
        % execute(QStringLiteral("styleWithCSS"), QStringLiteral("false"));
}

QString queryState(const QString &strCommand)
{
    return call(QStringLiteral("queryCommandState"), scriptString(strCommand));
}

QString queryValue(const QString &strCommand)
{
    return call(QStringLiteral("queryCommandValue"), scriptString(strCommand));
}

QString isCaret()
{
    return QStringLiteral("getSelection().isCollapsed");
}

QString fontPixels()
{
    return QStringLiteral("(function() {"
                          "  var s = getSelection();"
                          "  if (!s.rangeCount) return 0;"
                          "  var r = s.getRangeAt(0), n = r.startContainer;"
                          "  if (n.nodeType == 1 && n.childNodes[r.startOffset])"
                          "    n = n.childNodes[r.startOffset];"
                          "  if (n.nodeType != 1) n = n.parentNode;"
                          "  return n && n.nodeType == 1"
                          "    ? parseFloat(getComputedStyle(n).fontSize) : 0;"
                          "})()");
}

QString setFontSize(const QString &strCss)
{
    const QString strMarked = call(QStringLiteral("querySelectorAll"), QLatin1String(g_szMarked));
    const QString strBody =
        QStringLiteral("var before = Array.prototype.slice.call(%1), i; %2;"
                       "var all = %1, s = getSelection();"
                       "for (i = 0; i < all.length; ++i)"
                       "  if (before.indexOf(all[i]) < 0 || s.containsNode(all[i], false)) { %3 }")
            .arg(strMarked, executeStyled(QStringLiteral("fontSize"), QStringLiteral("7")),
                 resize(QStringLiteral("all[i]")));
    return function(strBody, strCss);
}

QString markTyping()
{
    return executeStyled(QStringLiteral("fontSize"), QStringLiteral("7"));
}

QString sizeTyped(const QString &strCss)
{
    const QString strBody =
        QStringLiteral("var n = getSelection().anchorNode;"
                       "while (n && !(n.nodeType == 1 && n.webkitMatchesSelector(%1)))"
                       "  n = n.parentNode;"
                       "if (n) { %2 }")
            .arg(QLatin1String(g_szMarked), resize(QStringLiteral("n")));
    return function(strBody, strCss);
}

QString ensureCaret()
{
    return QStringLiteral("if (!getSelection().rangeCount)"
                          "  getSelection().collapse(this.querySelector('body') || this, 0)");
}

namespace {

// The script of a function of a node and an offset in it.
QString placeFunction()
{
    return QStringLiteral(
        "function(n, o) {"
        "  var text = n.nodeType == 3, t = text ? n : n.childNodes[o];"
        "  for (var e = n; !t && e; e = e.parentNode) t = e.nextSibling;"
        "  var r = document.createRange(), k = 0, c = 0, m;"
        "  r.setStart(n, o);"
        "  var box = r.getClientRects()[0] || (text ? n.parentNode : n).getBoundingClientRect();"
        "  var w = document.createTreeWalker(document, 5, null, false);"
        "  while ((m = w.nextNode()) && m != t)"
        "    if (m.nodeType == 1) { ++k; c = 0; } else c += m.data.length;"
        "  return [k, text ? c + o : c, box.top / innerHeight];"
        "}");
}

} // namespace

QString caretPlace()
{
    return QStringLiteral("(function(place, s) {"
                          "  return s.rangeCount ? place(s.focusNode, s.focusOffset) : [];"
                          "})(%1, getSelection())")
        .arg(placeFunction());
}

QString topPlace()
{
    return QStringLiteral("(function(place) {"
                          "  var r = document.caretRangeFromPoint(innerWidth / 2, 8);"
                          "  return r ? place(r.startContainer, r.startOffset) : [];"
                          "})(%1)")
        .arg(placeFunction());
}

QString setCaret(int nElements, int nText)
{
    return QStringLiteral(
               "(function(k, c) {"
               "  var w = document.createTreeWalker(document, 5, null, false), s = getSelection(),"
               "      n, last;"
               "  while (n = w.nextNode()) {"
               "    if (n.nodeType == 1) {"
               "      if (k == 0) break;"
               "      --k; last = n;"
               "    } else if (k == 0) {"
               "      last = n;"
               "      if (c <= n.data.length) break;"
               "      c -= n.data.length;"
               "    }"
               "  }"
               "  if (!last || !document.body || !document.body.contains(last)) return;"
               "  if (last.nodeType == 3) s.collapse(last, Math.min(c, last.data.length));"
               "  else s.collapse(last, 0);"
               "  (last.nodeType == 3 ? last.parentNode : last).scrollIntoViewIfNeeded(true);"
               "})(%1, %2)")
        .arg(nElements)
        .arg(nText);
}

QString selectedSpot()
{
    return QStringLiteral("(function(s) {"
                          "  if (!s.rangeCount) return [];"
                          "  var r = s.getRangeAt(0).getBoundingClientRect();"
                          "  return [r.left, r.top, r.width, r.height];"
                          "})(getSelection())");
}

QString replaceWithin(const QString &strText)
{
    // The new text is put between the old characters, because text at the edge of a link would end
    // up outside of it.
    const QString strBody =
        QStringLiteral("var s = getSelection();"
                       "if (!s.rangeCount) return false;"
                       "var r = s.getRangeAt(0), n = r.startContainer;"
                       "if (n != r.endContainer || n.nodeType != 3 || r.collapsed) return false;"
                       "var a = r.startOffset, b = r.endOffset, old = n.data, size = text.length;"
                       "if (old.length == 1) return false;"
                       "var m = a + 1 < old.length ? a + 1 : a;"
                       "s.collapse(n, m); %1;"
                       "if (n.data == old) { s.setBaseAndExtent(n, a, n, b); return false; }"
                       "if (b > m) { s.setBaseAndExtent(n, m + size, n, b + size); %2; }"
                       "if (m > a) { s.setBaseAndExtent(n, a, n, m); %2; }"
                       "s.collapse(n, a + size);"
                       "return true;")
            .arg(call(QStringLiteral("execCommand"), QStringLiteral("'insertText', false, text")),
                 call(QStringLiteral("execCommand"), QStringLiteral("'delete', false, ''")));
    return QStringLiteral("(function(text) { %1 })(%2)").arg(strBody, scriptString(strText));
}

QString endTyping()
{
    // For a selection within a form field, the place before the field is given.
    return QStringLiteral("(function(s) {"
                          "  var n = s.anchorNode, e = n && n.childNodes[s.anchorOffset];"
                          "  if (n && !(e && /^(input|textarea)$/i.test(e.nodeName)))"
                          "    s.setBaseAndExtent(n, s.anchorOffset, s.focusNode, s.focusOffset);"
                          "})(getSelection())");
}

} // namespace PageScript
