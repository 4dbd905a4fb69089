#include "webtest.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

// Commands on the selection, queries of its format.
class tst_pageediting : public CPageTest
{
    Q_OBJECT

private slots:
    void boldItalicUnderline_areSetAndShown_data();
    void boldItalicUnderline_areSetAndShown();
    void fontName_isSetAndShown_data();
    void fontName_isSetAndShown();
    void fontSize_isSetAndShown_data();
    void fontSize_isSetAndShown();
    void fontSize_ofPartOfAText_isChangedAgain();
    void fontSize_atTheCaret_isThatOfTheTypedText();
    void fontSize_isUndone();
    void fontSize_ofNonsense_changesNothing_data();
    void fontSize_ofNonsense_changesNothing();
    void colours_areSetAndShown_data();
    void colours_areSetAndShown();
    void colours_ofNonsense_changeNothing();
    void queriesOfANewPage_haveAnAnswer();
    void clobberedDocument_isStillEdited();
    void insertHtml_replacesTheSelection_data();
    void insertHtml_replacesTheSelection();
    void textDirection_isSet();
    void undoAndRedo_followThePage();
    void cutCopyPaste_workWhileControlIsHeld();
};

void tst_pageediting::boldItalicUnderline_areSetAndShown_data()
{
    QTest::addColumn<int>("action");
    QTest::addColumn<QString>("html");
    QTest::addColumn<int>("state");
    QTest::newRow("bold") << int(QWebPage::ToggleBold) << "<p><b>abc</b></p>" << 1;
    QTest::newRow("italic") << int(QWebPage::ToggleItalic) << "<p><i>abc</i></p>" << 2;
    QTest::newRow("underline") << int(QWebPage::ToggleUnderline) << "<p><u>abc</u></p>" << 4;
}

void tst_pageediting::boldItalicUnderline_areSetAndShown()
{
    QFETCH(int, action);
    QFETCH(QString, html);
    QFETCH(int, state);
    const auto shown = [this] {
        return int(m_pView->isBold()) + 2 * int(m_pView->isItalic())
            + 4 * int(m_pView->isUnderline());
    };
    set(QStringLiteral("<p>abc</p>"));
    selectElement(m_pView, QStringLiteral("p"));
    QCOMPARE(shown(), 0);
    m_pView->triggerEdit(QWebPage::WebAction(action));
    QCOMPARE(body(), html);
    QCOMPARE(shown(), state);
    m_pView->triggerEdit(QWebPage::WebAction(action));
    QCOMPARE(body(), QStringLiteral("<p>abc</p>"));
    QCOMPARE(shown(), 0);
}

void tst_pageediting::fontName_isSetAndShown_data()
{
    QTest::addColumn<QString>("family");
    QTest::newRow("plain") << "Arial";
    QTest::newRow("with blanks") << "DejaVu Sans Mono";
    QTest::newRow("with a digit first") << "3270 Nerd";
    QTest::newRow("with a comma") << "One, Two";
    QTest::newRow("with an apostrophe") << "O'Font";
    QTest::newRow("not ASCII") << QStringLiteral("微软雅黑");
}

void tst_pageediting::fontName_isSetAndShown()
{
    QFETCH(QString, family);
    set(QStringLiteral("<p>abc</p>"));
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->setFontName(family);
    QCOMPARE(m_pView->fontName(), family);
    QVERIFY(body().contains(QLatin1String("font-family")));
    QCOMPARE(textOf(m_pView), QStringLiteral("abc"));
    m_pView->setFontName(QStringLiteral("x\"; color: red"));
    QVERIFY(!body().contains(QLatin1String("color: red;")));
    QCOMPARE(m_pView->foreColor(), QColor(Qt::black));
}

void tst_pageediting::fontSize_isSetAndShown_data()
{
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("css");
    QTest::addColumn<QString>("shown");
    QTest::newRow("points") << "12"
                            << "12pt"
                            << "12";
    QTest::newRow("points with unit") << "9pt"
                                      << "9pt"
                                      << "9";
    QTest::newRow("pixels") << "16px"
                            << "16px"
                            << "12";
    QTest::newRow("half a point") << " 10.5 "
                                  << "10.5pt"
                                  << "10.5";
    QTest::newRow("the size of the mark") << "36"
                                          << "36pt"
                                          << "36";
    QTest::newRow("large") << "72"
                           << "72pt"
                           << "72";
}

void tst_pageediting::fontSize_isSetAndShown()
{
    QFETCH(QString, size);
    QFETCH(QString, css);
    QFETCH(QString, shown);
    set(QStringLiteral("<p>abc <b>def</b></p><p>ghi</p>"));
    m_pView->triggerEdit(QWebPage::SelectAll);
    m_pView->setFontSize(size);
    QCOMPARE(m_pView->fontSize(), shown);
    QVERIFY2(!body().contains(QLatin1String("xxx-large")), qPrintable(body()));
    QVERIFY(!body().contains(QLatin1String("size=\"7\"")));
    const QStringList lstSizes =
        run(m_pView,
            QStringLiteral("Array.prototype.map.call(document.querySelectorAll('p, p *'), "
                           "function(e) { return e.lastChild.nodeType == 3 ? "
                           "getComputedStyle(e).fontSize : ''; }).join(' ')"))
            .toString()
            .simplified()
            .split(QLatin1Char(' '));
    QVERIFY(!lstSizes.isEmpty());
    const double dPixels = css.endsWith(QLatin1String("px")) ? css.chopped(2).toDouble()
                                                             : css.chopped(2).toDouble() * 96 / 72;
    for (const QString &strSize : lstSizes)
        QCOMPARE(strSize.chopped(2).toDouble(), dPixels);
}

void tst_pageediting::fontSize_ofPartOfAText_isChangedAgain()
{
    set(QStringLiteral(
        "<p>abc</p><p style='font-size: -webkit-xxx-large'>own</p><p><font size=7>old</font></p>"));
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->setFontSize(QStringLiteral("36"));
    run(m_pView,
        QStringLiteral("var t = document.querySelector('span').firstChild;"
                       "getSelection().setBaseAndExtent(t, 1, t, 2)"));
    QCOMPARE(m_pView->selectedText(), QStringLiteral("b"));
    m_pView->setFontSize(QStringLiteral("12"));
    QCOMPARE(m_pView->fontSize(), QStringLiteral("12"));
    QCOMPARE(m_pView->selectedText(), QStringLiteral("b"));
    run(m_pView, QStringLiteral("getSelection().modify('move', 'backward', 'documentboundary')"));
    QCOMPARE(m_pView->fontSize(), QStringLiteral("36"));
    // What had the mark's size before keeps it.
    QVERIFY(body().contains(QLatin1String("<p style=\"font-size: -webkit-xxx-large\">own</p>")));
    QVERIFY(body().contains(QLatin1String("<font size=\"7\">old</font>")));
}

void tst_pageediting::fontSize_atTheCaret_isThatOfTheTypedText()
{
    set(QStringLiteral("<p>abc</p>"));
    m_pView->setFocus();
    selectElement(m_pView, QStringLiteral("p"));
    run(m_pView, QStringLiteral("getSelection().collapseToEnd()"));
    m_pView->setFontSize(QStringLiteral("20"));
    QCOMPARE(m_pView->fontSize(), QStringLiteral("20"));
    QCOMPARE(body(), QStringLiteral("<p>abc</p>"));
    QTest::keyClick(m_pView, Qt::Key_X);
    QTest::keyClick(m_pView, Qt::Key_Y);
    QVERIFY2(body().contains(QLatin1String("font-size: 20pt;\">xy<")), qPrintable(body()));
    QCOMPARE(m_pView->fontSize(), QStringLiteral("20"));
    QCOMPARE(textOf(m_pView), QStringLiteral("abcxy"));

    // Without typing, the size is forgotten when the caret goes elsewhere.
    m_pView->setFontSize(QStringLiteral("30"));
    run(m_pView, QStringLiteral("getSelection().collapse(document.querySelector('p'), 0)"));
    QCOMPARE(m_pView->fontSize(), QStringLiteral("12"));
    QTest::keyClick(m_pView, Qt::Key_Z);
    QVERIFY2(body().startsWith(QLatin1String("<p>zabc")), qPrintable(body()));
}

void tst_pageediting::fontSize_isUndone()
{
    set(QStringLiteral("<p>abc</p>"));
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->setFontSize(QStringLiteral("20"));
    const QString strSized = body();
    m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), QStringLiteral("<p>abc</p>"));
    m_pView->triggerEdit(QWebPage::Redo);
    QCOMPARE(body(), strSized);
}

void tst_pageediting::fontSize_ofNonsense_changesNothing_data()
{
    QTest::addColumn<QString>("size");
    for (const char *szSize : {"", "abc", "0", "-5", "12em", "1e3", "12;color:red", "99999"})
        QTest::newRow(szSize) << QString::fromLatin1(szSize);
}

void tst_pageediting::fontSize_ofNonsense_changesNothing()
{
    QFETCH(QString, size);
    set(QStringLiteral("<p>abc</p>"));
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->setFontSize(size);
    QCOMPARE(body(), QStringLiteral("<p>abc</p>"));
}

void tst_pageediting::colours_areSetAndShown_data()
{
    QTest::addColumn<QString>("colour");
    QTest::newRow("hash") << "#ff8000";
    QTest::newRow("name") << "blue";
    QTest::newRow("rgb") << "rgb(1, 2, 3)";
}

void tst_pageediting::colours_areSetAndShown()
{
    QFETCH(QString, colour);
    const QColor clr = colour.startsWith(QLatin1String("rgb")) ? QColor(1, 2, 3) : QColor(colour);
    set(QStringLiteral("<p>abc</p>"));
    selectElement(m_pView, QStringLiteral("p"));
    QCOMPARE(m_pView->foreColor(), QColor(Qt::black));
    QCOMPARE(m_pView->backColor().alpha(), 0);
    m_pView->setForeColor(colour);
    QCOMPARE(m_pView->foreColor(), clr);
    QCOMPARE(m_pView->backColor().alpha(), 0);
    m_pView->setForeColor(QStringLiteral("black"));
    m_pView->setBackColor(colour);
    QCOMPARE(m_pView->backColor(), clr);
    QCOMPARE(m_pView->foreColor(), QColor(Qt::black));
    m_pView->setBackColor(QStringLiteral("transparent"));
    QCOMPARE(m_pView->backColor().alpha(), 0);
}

void tst_pageediting::colours_ofNonsense_changeNothing()
{
    set(QStringLiteral("<p>abc</p>"));
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->setForeColor(QString());
    m_pView->setBackColor(QStringLiteral("red; x: y"));
    QCOMPARE(body(), QStringLiteral("<p>abc</p>"));
}

void tst_pageediting::queriesOfANewPage_haveAnAnswer()
{
    QVERIFY(!m_pView->isBold());
    QVERIFY(!m_pView->isItalic());
    QVERIFY(!m_pView->isUnderline());
    QVERIFY(!m_pView->fontName().isEmpty());
    QCOMPARE(m_pView->fontSize(), QStringLiteral("12"));
}

void tst_pageediting::clobberedDocument_isStillEdited()
{
    set(QStringLiteral("<p>abc</p><img name=execCommand><img name=queryCommandState>"
                       "<img name=queryCommandValue><img name=querySelectorAll><img name=body>"
                       "<form id=getSelection></form><a id=Document></a>"));
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->setForeColor(QStringLiteral("blue"));
    QCOMPARE(m_pView->foreColor(), QColor(Qt::blue));
    m_pView->setFontSize(QStringLiteral("20"));
    QCOMPARE(m_pView->fontSize(), QStringLiteral("20"));
}

void tst_pageediting::insertHtml_replacesTheSelection_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("expected");
    QTest::newRow("text") << "xyz"
                          << "<p>a xyz c</p>";
    QTest::newRow("markup") << "<u>x</u>"
                            << "<p>a&nbsp;<u>x</u>&nbsp;c</p>";
    QTest::newRow("entity") << "&lt;"
                            << "<p>a &lt; c</p>";
    QTest::newRow("quotes") << "'\"\\"
                            << "<p>a '\"\\ c</p>";
    QTest::newRow("nothing") << ""
                             << "<p>a &nbsp;c</p>";
}

void tst_pageediting::insertHtml_replacesTheSelection()
{
    QFETCH(QString, html);
    QFETCH(QString, expected);
    set(QStringLiteral("<p>a bbb c</p>"));
    run(m_pView,
        QStringLiteral("var t = document.querySelector('p').firstChild;"
                       "getSelection().setBaseAndExtent(t, 2, t, 5)"));
    m_pView->insertHtml(html);
    QCOMPARE(body(), expected);
}

void tst_pageediting::textDirection_isSet()
{
    set(QStringLiteral("<p>abc</p>"));
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->triggerEdit(QWebPage::SetTextDirectionRightToLeft);
    const QString strDirection =
        QStringLiteral("getComputedStyle(document.querySelector('p')).direction");
    QCOMPARE(run(m_pView, strDirection).toString(), QStringLiteral("rtl"));
    m_pView->triggerEdit(QWebPage::SetTextDirectionLeftToRight);
    QCOMPARE(run(m_pView, strDirection).toString(), QStringLiteral("ltr"));
}

void tst_pageediting::undoAndRedo_followThePage()
{
    set(QStringLiteral("<p>abc</p>"));
    QVERIFY(!m_pView->pageAction(QWebPage::Undo)->isEnabled());
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->insertHtml(QStringLiteral("x"));
    QVERIFY(m_pView->pageAction(QWebPage::Undo)->isEnabled());
    m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(textOf(m_pView), QStringLiteral("abc"));
    QVERIFY(m_pView->pageAction(QWebPage::Redo)->isEnabled());
    m_pView->triggerEdit(QWebPage::Redo);
    QCOMPARE(textOf(m_pView), QStringLiteral("x"));
}

void tst_pageediting::cutCopyPaste_workWhileControlIsHeld()
{
    set(QStringLiteral("<p>abc</p>"));
    QTest::keyPress(m_pView, Qt::Key_Control);
    QVERIFY(!m_pView->page()->isContentEditable());
    selectElement(m_pView, QStringLiteral("p"));
    m_pView->triggerEdit(QWebPage::Cut);
    QCOMPARE(textOf(m_pView).trimmed(), QString());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("abc"));
    m_pView->triggerEdit(QWebPage::Paste);
    m_pView->triggerEdit(QWebPage::Paste);
    QCOMPARE(textOf(m_pView).trimmed(), QStringLiteral("abcabc"));
    QVERIFY(!m_pView->page()->isContentEditable());
    QTest::keyRelease(m_pView, Qt::Key_Control);
    QVERIFY(m_pView->page()->isContentEditable());
}

QTEST_MAIN(tst_pageediting)
#include "tst_pageediting.moc"
