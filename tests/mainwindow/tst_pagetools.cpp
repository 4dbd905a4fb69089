#include "cwindowfixture.h"

#include "pageedit/pagelibrary.h"
#include "web/ceditwebview.h"

#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QToolBar>
#include <QToolButton>
#include <QUndoStack>
#include <QWebElement>
#include <QWebFrame>

// The Page tool bar: when it is visible, what it shows and does.
class tst_pagetools : public QObject
{
    Q_OBJECT

private:
    CWindowFixture *m_pCase = nullptr;

    CEditWebView *view() const { return m_pCase->window().currentDocument().page(); }
    QToolBar *toolBar() const
    {
        return m_pCase->window().findChild<QToolBar *>(QStringLiteral("pageToolBar"));
    }
    QVariant run(const QString &strScript) const
    {
        return view()->page()->mainFrame()->documentElement().evaluateJavaScript(strScript);
    }
    QString body() const
    {
        return view()->page()->mainFrame()->findFirstElement(QStringLiteral("body")).toInnerXml();
    }
    void openPage(const QByteArray &body) const;
    void select(const char *szSelector) const;

private slots:
    void init() { m_pCase = new CWindowFixture; }
    void cleanup() { delete m_pCase; }

    void toolBar_isThereForPagesOnly();
    void toolBar_isPartOfTheFrame();
    void everyButton_hasANameAndADrawing();
    void buttons_followTheCaret();
    void mixedFormats_areShown();
    void page_isAskedOncePerTurn();
    void styleBox_setsTheStyle();
    void command_givesTheKeyboardBack();
    void automatic_takesTheColorOff();
    void link_isMadeInItsDialog();
    void outline_leadsToTheHeading();
    void plainText_isPastedInParagraphs();
    void plainText_standsOnLinesAsThePageDoes();
    void clipboardWithoutText_hasNothingToPastePlain();
    void source_hasNoPageTools();
};

void tst_pagetools::openPage(const QByteArray &body) const
{
    const QString strPath = m_pCase->file(
        QStringLiteral("a.html"),
        "<!DOCTYPE html>\n<html><head><title>T</title></head>\n<body>" + body + "</body></html>\n");
    m_pCase->window().openFile(strPath);
    QTRY_VERIFY(view() && !view()->page()->mainFrame()->findFirstElement("body > *").isNull());
    view()->setFocus();
}

void tst_pagetools::select(const char *szSelector) const
{
    run(QStringLiteral("getSelection().selectAllChildren(document.querySelector('%1'))")
            .arg(QLatin1String(szSelector)));
}

void tst_pagetools::toolBar_isThereForPagesOnly()
{
    QVERIFY(toolBar()->isHidden());
    m_pCase->window().on_actionNewText_triggered();
    QVERIFY(toolBar()->isHidden());
    openPage("<p>one</p>");
    QVERIFY(toolBar()->isVisible());
    QVERIFY(toolBar()->isMovable());
}

void tst_pagetools::toolBar_isPartOfTheFrame()
{
    MainWindow &window = m_pCase->window();
    openPage("<p>one</p>");
    window.addToolBar(Qt::BottomToolBarArea, toolBar());
    const QByteArray arrState = window.saveState();
    window.addToolBar(Qt::TopToolBarArea, toolBar());
    QVERIFY(window.restoreState(arrState));
    QCOMPARE(window.toolBarArea(toolBar()), Qt::BottomToolBarArea);
}

void tst_pagetools::everyButton_hasANameAndADrawing()
{
    openPage("<p>one</p>");
    int nButtons = 0;
    for (QAction *pAction : toolBar()->actions()) {
        auto *pButton = qobject_cast<QToolButton *>(toolBar()->widgetForAction(pAction));
        if (!pButton || pAction->isSeparator())
            continue;
        ++nButtons;
        QVERIFY2(!pAction->icon().pixmap(24).isNull(), qPrintable(pAction->objectName()));
        QVERIFY2(!pAction->text().isEmpty() && !pAction->objectName().isEmpty(),
                 qPrintable(pAction->objectName()));
        QVERIFY2(pButton->focusPolicy() & Qt::TabFocus, qPrintable(pAction->objectName()));
    }
    QVERIFY(nButtons >= 18);
}

void tst_pagetools::buttons_followTheCaret()
{
    openPage("<h2 style=\"text-align: right\">one</h2><ol><li><s>two</s></li></ol>"
             "<p><a href=\"x\">three</a></p>");
    const auto *pStyle = toolBar()->findChild<QComboBox *>(QStringLiteral("comboStyle"));
    select("h2");
    QTRY_COMPARE(pStyle->currentData().toString(), QStringLiteral("h2"));
    QVERIFY(m_pCase->action("actionAlign_right")->isChecked());
    QVERIFY(!m_pCase->action("actionList_ol")->isChecked());
    QVERIFY(!m_pCase->action("actionOutdent")->isEnabled());
    select("s");
    QTRY_VERIFY(m_pCase->action("actionList_ol")->isChecked());
    QVERIFY(m_pCase->action("actionMark_s")->isChecked());
    QVERIFY(m_pCase->action("actionOutdent")->isEnabled());
    QVERIFY(!m_pCase->action("actionIndent")->isEnabled());
    QVERIFY(!m_pCase->action("actionRemove_Link")->isEnabled());
    select("a");
    QTRY_VERIFY(m_pCase->action("actionRemove_Link")->isEnabled());
    QVERIFY(!m_pCase->action("actionMark_s")->isChecked());
}

void tst_pagetools::mixedFormats_areShown()
{
    openPage("<p>one <s>two</s></p>");
    select("p");
    QTRY_VERIFY(m_pCase->action("actionMark_s")->property("mixed").toBool());
    QVERIFY(!m_pCase->action("actionMark_s")->isChecked());
    QVERIFY(!m_pCase->action("actionMark_code")->property("mixed").toBool());
}

void tst_pagetools::page_isAskedOncePerTurn()
{
    openPage("<p>one</p>");
    select("p");
    QCoreApplication::processEvents();
    run(QStringLiteral("(function(q) { var ask = q.ask; window.asked = 0;"
                       "  q.ask = function(n, a) { ++window.asked; return ask(n, a); };"
                       "})(window[%1])")
            .arg(pageLibraryKey()));
    for (int n = 0; n < 5; ++n)
        run(QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, %1)")
                .arg(n % 3));
    QCOMPARE(run(QStringLiteral("window.asked")).toInt(), 0);
    QTRY_COMPARE(run(QStringLiteral("window.asked")).toInt(), 1);
}

void tst_pagetools::styleBox_setsTheStyle()
{
    openPage("<p>one</p>");
    select("p");
    auto *pStyle = toolBar()->findChild<QComboBox *>(QStringLiteral("comboStyle"));
    QTRY_VERIFY(pStyle->isEnabled());
    emit pStyle->activated(pStyle->findData(QStringLiteral("h3")));
    QCOMPARE(body(), QStringLiteral("<h3>one</h3>\n"));
    QVERIFY(view()->isModified());
    QVERIFY(m_pCase->action("actionUndo")->isEnabled());
    m_pCase->window().on_actionUndo_triggered();
    QCOMPARE(body(), QStringLiteral("<p>one</p>\n"));
    QVERIFY(!view()->isModified());
}

void tst_pagetools::command_givesTheKeyboardBack()
{
    openPage("<p>one</p>");
    select("p");
    auto *pStyle = toolBar()->findChild<QComboBox *>(QStringLiteral("comboStyle"));
    QTRY_VERIFY(pStyle->isEnabled());
    pStyle->setFocus();
    m_pCase->action("actionAlign_center")->trigger();
    QCOMPARE(m_pCase->window().focusWidget(), view());
    QVERIFY(body().contains(QLatin1String("text-align: center")));
}

void tst_pagetools::automatic_takesTheColorOff()
{
    openPage("<p><font color=\"red\">one</font></p>");
    select("p");
    for (QAction *pAction : m_pCase->action("actionText_Color")->menu()->actions())
        if (pAction->text() == QLatin1String("Automatic"))
            pAction->trigger();
    QCOMPARE(body(), QStringLiteral("<p>one</p>\n"));
}

void tst_pagetools::link_isMadeInItsDialog()
{
    openPage("<p id=\"here\">one</p>");
    select("p");
    QTRY_VERIFY(m_pCase->action("actionLink")->isEnabled());
    m_pCase->action("actionLink")->trigger();
    auto *pDialog = m_pCase->window().findChild<QDialog *>(QStringLiteral("dlgLink"));
    QVERIFY(pDialog);
    auto *pAddress = pDialog->findChild<QComboBox *>();
    QCOMPARE(pAddress->itemText(0), QStringLiteral("#here"));
    pAddress->setEditText(QStringLiteral("b.html"));
    QTest::keyClick(pDialog, Qt::Key_Return);
    QCOMPARE(body(), QStringLiteral("<p id=\"here\"><a href=\"b.html\">one</a></p>\n"));
}

void tst_pagetools::outline_leadsToTheHeading()
{
    openPage("<h1>A &amp; B</h1><p>x</p><h2>C</h2><p id=\"d\">y</p>");
    auto *pMenu = m_pCase->window().findChild<QMenu *>(QStringLiteral("menuOutline"));
    emit pMenu->aboutToShow();
    QCOMPARE(pMenu->actions().size(), 3);
    QCOMPARE(pMenu->actions().at(0)->text(), QStringLiteral("A && B"));
    QCOMPARE(pMenu->actions().at(1)->text(), QStringLiteral("    C"));
    QCOMPARE(pMenu->actions().at(2)->text(), QStringLiteral("#d"));
    pMenu->actions().at(1)->trigger();
    QCOMPARE(run(QStringLiteral("getSelection().anchorNode.data")).toString(), QStringLiteral("C"));
}

void tst_pagetools::plainText_isPastedInParagraphs()
{
    openPage("<p>one <b>two</b></p>");
    select("b");
    auto *pData = new QMimeData;
    pData->setText(QStringLiteral("a <i>b</i>\r\n\r\nc"));
    pData->setHtml(QStringLiteral("<h1>no</h1>"));
    QApplication::clipboard()->setMimeData(pData);
    QTRY_VERIFY(m_pCase->action("actionPaste_Plain")->isEnabled());
    const int nSteps = view()->page()->undoStack()->index();
    m_pCase->action("actionPaste_Plain")->trigger();
    const QString strText = view()->page()->mainFrame()->toPlainText().simplified();
    QCOMPARE(strText, QStringLiteral("one a <i>b</i> c"));
    QCOMPARE(view()->page()->mainFrame()->findAllElements(QStringLiteral("p")).count(), 2);
    QVERIFY(view()->page()->mainFrame()->findFirstElement(QStringLiteral("h1, div")).isNull());
    QCOMPARE(view()->page()->undoStack()->index(), nSteps + 1);
    m_pCase->window().on_actionUndo_triggered();
    QCOMPARE(body(), QStringLiteral("<p>one <b>two</b></p>\n"));
}

void tst_pagetools::plainText_standsOnLinesAsThePageDoes()
{
    openPage("\n  <p>one</p>\n  <p>two</p>\n");
    select("p");
    QApplication::clipboard()->setText(QStringLiteral("a\nb\nc"));
    QTRY_VERIFY(m_pCase->action("actionPaste_Plain")->isEnabled());
    m_pCase->action("actionPaste_Plain")->trigger();
    QVERIFY2(
        view()->htmlForSaving().contains("\n  <p>a</p>\n  <p>b</p>\n  <p>c</p>\n  <p>two</p>\n"),
        view()->htmlForSaving());
}

void tst_pagetools::clipboardWithoutText_hasNothingToPastePlain()
{
    openPage("<p>one</p>");
    select("p");
    QApplication::clipboard()->setText(QStringLiteral("x"));
    QTRY_VERIFY(m_pCase->action("actionPaste_Plain")->isEnabled());
    QApplication::clipboard()->setImage(QImage(3, 3, QImage::Format_RGB32));
    QTRY_VERIFY(!m_pCase->action("actionPaste_Plain")->isEnabled());
    QVERIFY(m_pCase->action("actionClear_Formatting")->isEnabled());
}

void tst_pagetools::source_hasNoPageTools()
{
    openPage("<p>one</p>");
    m_pCase->window().on_actionSwapHtml_triggered();
    QVERIFY(toolBar()->isHidden());
    QVERIFY(!m_pCase->action("actionClear_Formatting")->isEnabled());
    QVERIFY(!m_pCase->action("actionStyle_h1")->isEnabled());
}

QTEST_MAIN(tst_pagetools)
#include "tst_pagetools.moc"
