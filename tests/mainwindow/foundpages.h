#pragma once

#include <QTextCodec>
#include <QtTest>

// Pages as people made them, with the results of the same edits in each.

// In each page: the paragraph "alpha beta.", the item "item", the cell "cell".
const char g_szUtf16[] = "<!DOCTYPE html>\n"
                         "<html>\n"
                         "<head><meta charset=\"utf-16\"><title>Stra\u00dfe</title></head>\n"
                         "<body>\n"
                         "<p>alpha beta. \u20ac \u65e5\u672c</p>\n"
                         "<ul>\n"
                         "  <li>item\n"
                         "  <li>last &eacute;\n"
                         "</ul>\n"
                         "<table>\n"
                         "  <tr><td>cell</td><td>\u00fc</td></tr>\n"
                         "</table>\n"
                         "</body>\n"
                         "</html>\n";

const char g_szWindows[] =
    "<html>\n"
    "<head>\n"
    "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1252\">\n"
    "<title>Caf\u00e9 \u2013 menu</title>\n"
    "</head>\n"
    "<body>\n"
    "<p>alpha beta. \u201cquoted\u201d &mdash; \u20ac 5</p>\n"
    "<ol>\n"
    "<li>item</li>\n"
    "<li>\u0160koda</li>\n"
    "</ol>\n"
    "<table><tbody>\n"
    "<tr><td>cell</td><td>na\u00efve</td></tr>\n"
    "</tbody></table>\n"
    "</body>\n"
    "</html>\n";

const char g_szOld[] = "<HTML>\n"
                       "<HEAD><TITLE>Welcome</TITLE></HEAD>\n"
                       "<BODY BGCOLOR=#FFFFCC TEXT=black>\n"
                       "<CENTER><FONT SIZE=5 COLOR=red>News</FONT></CENTER>\n"
                       "<TABLE BORDER=0 WIDTH=100%>\n"
                       "<TR><TD WIDTH=20% VALIGN=top>\n"
                       "<UL>\n"
                       "<LI>item\n"
                       "<LI><A HREF=b.htm>Other</A>\n"
                       "</UL>\n"
                       "<TD>\n"
                       "<P>alpha beta.\n"
                       "<P ALIGN=justify>Second<BR>line\n"
                       "<HR NOSHADE>\n"
                       "<TABLE BORDER=1>\n"
                       "<TR><TD>cell<TD><FONT FACE=Arial>x</FONT>\n"
                       "</TABLE>\n"
                       "</TABLE>\n"
                       "</BODY>\n"
                       "</HTML>\n";

const char g_szScripts[] =
    "<!DOCTYPE html>\n"
    "<!-- made by hand -->\n"
    "<html>\n"
    "<head><title>x</title><script>var a = '</p>' < 3 && 1;</script></head>\n"
    "<body onload=\"start()\">\n"
    "<!-- begin <p> -->\n"
    "<p>alpha beta.<!-- here --></p>\n"
    "<script type=\"text/javascript\">\n"
    "  document.write(\"<p>written</p>\");\n"
    "</script><noscript><p>No   script</p></noscript>\n"
    "<ul>\n"
    "<li>item<!-- a --></li><!-- b -->\n"
    "</ul>\n"
    "<table>\n"
    "<tr><td>cell<script>var t;</script></td><!-- c --><td onclick='go(\"x\")'>y</td></tr>\n"
    "</table>\n"
    "<script src=x.js></script>\n"
    "</body>\n"
    "</html>\n"
    "<!-- end -->\n";

inline QByteArray withLineEnds(QByteArray source)
{
    return source.replace("\n", "\r\n");
}

inline QByteArray encoded(const char *szSource, const char *szCodec)
{
    return QTextCodec::codecForName(szCodec)->fromUnicode(QString::fromUtf8(szSource));
}

// The edits of tst_foundpages.
inline void addFoundPages()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("source"); // As UTF-8, with its declaration.
    QTest::addColumn<QStringList>("lstChanges"); // Before and after edit(), by turns.
    QTest::newRow("UTF-16") << encoded(g_szUtf16, "UTF-16")
                            << QByteArray(g_szUtf16).replace("utf-16", "utf-8")
                            << QStringList {
                                   "alpha beta. ", "alphabet &amp; co <b>beta</b></p>\n<p>Then. ",
                                   "item\n",       "item</li>\n  <li>next one</li>\n",
                                   "</table>",     "  <tr><td></td><td></td></tr>\n</table>"};
    QTest::newRow("windows-1252") << encoded(g_szWindows, "windows-1252")
                                  << QByteArray(g_szWindows).replace("windows-1252", "utf-8")
                                  << QStringList {"alpha beta. ",
                                                  "alphabet &amp; co <b>beta</b></p>\n<p>Then. ",
                                                  "item</li>\n",
                                                  "item</li>\n<li>next one</li>\n",
                                                  "</tbody></table>",
                                                  "<tr><td></td><td></td></tr>\n</tbody></table>"};
    const QStringList lstOld {"alpha beta.\n", "alphabet &amp; co <B>beta</B></P>\n<P>Then.</P>\n",
                              "item\n",        "item</LI>\n<LI>next one</LI>\n",
                              "x</FONT>\n",    "x</FONT></TD></TR>\n<TR><TD></TD><TD></TD></TR>\n"};
    QTest::newRow("HTML 4") << QByteArray(g_szOld) << QByteArray(g_szOld) << lstOld;
    QTest::newRow("CR LF") << withLineEnds(g_szOld) << withLineEnds(g_szOld)
                           << QStringList(lstOld).replaceInStrings("\n", "\r\n");
    QTest::newRow("scripts and comments")
        << QByteArray(g_szScripts) << QByteArray(g_szScripts)
        << QStringList {"alpha beta.", "alphabet &amp; co <b>beta</b></p>\n<p>Then.",
                        "item<!--",    "item</li>\n<li>next one<!--",
                        "</table>",    "<tr><td></td><td></td></tr>\n</table>"};
}
