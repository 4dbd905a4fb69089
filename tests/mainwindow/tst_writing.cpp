// Writes an article in an empty page, with keys, clicks and a drop, on a real display. With
// QUILLAN_PICTURES=FOLDER each step saves a picture there.

#include "cwindowfixture.h"

#include "pageedit/cdlgpicture.h"
#include "pageedit/ctablechooser.h"
#include "tests/support/boxanswer.h"
#include "web/ceditwebview.h"

#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QSpinBox>
#include <QToolBar>
#include <QToolButton>
#include <QWebFrame>
#include <QXmlStreamReader>

namespace {

// The source that a person would have written by hand.
const char g_szArticle[] =
    "<!DOCTYPE html>\n"
    "<html>\n"
    "<head>\n"
    "<meta charset=\"utf-8\">\n"
    "<title></title>\n"
    "</head>\n"
    "<body>\n"
    "<h1>The garden in winter</h1>\n"
    "<p>Snow lies on the <b>beds</b> now. Read <a href=\"https://example.org/snow\">about snow</a> "
    "or <a href=\"#tools\">the tools</a> first.</p>\n"
    "<h2>What to do</h2>\n"
    "<ol>\n"
    "<li>Cover the roses\n"
    "<ul>\n"
    "<li>fleece</li>\n"
    "<li>straw</li>\n"
    "</ul>\n"
    "</li>\n"
    "<li>Feed the birds</li>\n"
    "</ol>\n"
    "<p>A view:<img src=\"garden.png\" alt=\"White beds\" width=\"60\" height=\"40\"></p>\n"
    "<table border=\"1\">\n"
    "<thead>\n"
    "<tr><th>Plant</th><th>Cover</th><th>From</th><th>To</th></tr>\n"
    "</thead>\n"
    "<tbody>\n"
    "<tr><td>Rose</td><td>fleece</td><td>Nov</td><td>Mar</td></tr>\n"
    "<tr><td>Fig</td><td>straw</td><td></td><td></td></tr>\n"
    "</tbody>\n"
    "</table>\n"
    "<blockquote>\n"
    "<p>Winter is the time for comfort.</p>\n"
    "</blockquote>\n"
    "</body>\n"
    "</html>\n";

// The same source as XHTML.
const char g_szXhtml[] =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Transitional//EN\"\n"
    "    \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-transitional.dtd\">\n"
    "<html xmlns=\"http://www.w3.org/1999/xhtml\" xml:lang=\"en\" lang=\"en\">\n"
    "<head>\n"
    "  <title>Notes</title>\n"
    "</head>\n"
    "<body>\n"
    "  <p>One <strong>two</strong><br />three.</p>\n"
    "  <p>Four &amp; five.</p>\n"
    "</body>\n"
    "</html>\n";

// The error of a text that is not well-formed; otherwise empty.
QString xmlError(const QByteArray &source)
{
    QXmlStreamReader reader(source);
    while (!reader.atEnd())
        reader.readNext();
    return reader.hasError() ? reader.errorString() : QString();
}

#ifndef Q_OS_WIN // Has no tidy.
// What another program finds wrong in an HTML file. Empty if it finds nothing.
QByteArray tidyErrors(const QString &strPath)
{
    QProcess tidy;
    tidy.start(
        QStringLiteral("tidy"),
        {QStringLiteral("-errors"), QStringLiteral("-quiet"), QStringLiteral("-utf8"), strPath});
    if (!tidy.waitForStarted() || !tidy.waitForFinished())
        return "tidy does not run";
    return tidy.exitCode() < 2 ? QByteArray() : tidy.readAllStandardError();
}
#endif

} // namespace

class tst_writing : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { delete m_pCase; }

    void article_isWrittenSavedAndReadBack();
    void editedAgain_onlyTheEditDiffers();
    void xhtmlPage_staysWellFormed();

private:
    CWindowFixture *m_pCase = nullptr;

    CEditWebView *page() const { return m_pCase->window().currentDocument().page(); }
    QString text() const { return page()->page()->mainFrame()->toPlainText(); }
    // A dialog may close before the window manager has noticed it.
    void focusPage() const
    {
        if (!QApplication::focusWidget())
            m_pCase->window().activateWindow();
        QTRY_COMPARE_WITH_TIMEOUT(QApplication::focusWidget(), static_cast<QWidget *>(page()),
                                  20000);
    }
    void type(const char *szKeys) const
    {
        focusPage();
        QTest::keyClicks(page(), QLatin1String(szKeys));
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void click(const char *szAction) const;
    void setStyle(const char *szStyle) const;
    void link(const char *szText, const char *szAddress) const;
    void chooseTable(int nRows, int nColumns) const;
    void dropPicture(const QString &strPath, const QString &strAlt) const;
    void saveAs(const QString &strPath) const;
    void open(const QString &strPath, const QString &strWord) const;
    void find(const char *szWord) const;
    void picture(const char *szStep) const;
    void writeArticle(const QString &strPath) const;
};

void tst_writing::init()
{
    QDir(CWindowFixture::draftFolder()).removeRecursively();
    m_pCase = new CWindowFixture;
    m_pCase->window().showMaximized();
    m_pCase->window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_pCase->window()));
}

// As a keyboard does it: Control goes down first and comes up last.
void tst_writing::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    focusPage();
    const QPointer<CEditWebView> pPage = page(); // The key may close it.
    if (modifiers & Qt::ControlModifier)
        QTest::keyPress(pPage, Qt::Key_Control, Qt::ControlModifier);
    QTest::keyClick(pPage, key, modifiers);
    if (pPage && modifiers & Qt::ControlModifier)
        QTest::keyRelease(pPage, Qt::Key_Control);
}

void tst_writing::click(const char *szAction) const
{
    QAction *pAction = m_pCase->action(szAction);
    QTRY_VERIFY(pAction->isEnabled());
    const auto lstBars = m_pCase->window().findChildren<QToolBar *>();
    for (const QToolBar *pBar : lstBars)
        if (QWidget *pButton = pBar->widgetForAction(pAction)) {
            QTest::mouseClick(pButton, Qt::LeftButton);
            return;
        }
    QFAIL(szAction);
}

void tst_writing::setStyle(const char *szStyle) const
{
    auto *pStyle = m_pCase->window().findChild<QComboBox *>(QStringLiteral("comboStyle"));
    QTRY_VERIFY(pStyle->isEnabled());
    emit pStyle->activated(pStyle->findData(QLatin1String(szStyle)));
}

void tst_writing::link(const char *szText, const char *szAddress) const
{
    QTRY_VERIFY(m_pCase->action("actionLink")->isEnabled());
    press(Qt::Key_K, Qt::ControlModifier);
    QDialog *pDialog = nullptr;
    QTRY_VERIFY((pDialog = m_pCase->window().findChild<QDialog *>(QStringLiteral("dlgLink"))));
    QTRY_VERIFY(pDialog->isAncestorOf(QApplication::focusWidget()));
    QTest::keyClicks(QApplication::focusWidget(), QLatin1String(szAddress));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTest::keyClicks(QApplication::focusWidget(), QLatin1String(szText));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_VERIFY(!m_pCase->window().findChild<QDialog *>(QStringLiteral("dlgLink")));
}

void tst_writing::chooseTable(int nRows, int nColumns) const
{
    auto *pMenu = m_pCase->window().findChild<QMenu *>(QStringLiteral("menuTable"));
    pMenu->popup(m_pCase->window().mapToGlobal(QPoint(100, 100)));
    auto *pChooser = pMenu->findChild<CTableChooser *>();
    QTRY_VERIFY(pChooser->isVisible());
    pChooser->setFocus();
    for (int n = 1; n < nRows; ++n)
        QTest::keyClick(pChooser, Qt::Key_Down);
    for (int n = 1; n < nColumns; ++n)
        QTest::keyClick(pChooser, Qt::Key_Right);
    QTest::keyClick(pChooser, Qt::Key_Return);
    QTRY_VERIFY(!pMenu->isVisible());
}

// As from the folder list, behind the last line.
void tst_writing::dropPicture(const QString &strPath, const QString &strAlt) const
{
    const QPoint point = page()->selectedSpot().isEmpty()
        ? QPoint(page()->width() - 40,
                 page()->inputMethodQuery(Qt::ImCursorRectangle).toRect().center().y())
        : page()->selectedSpot().center();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(strPath)});
    QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(page(), &enter);
    QVERIFY(enter.isAccepted());
    QTimer answer;
    connect(&answer, &QTimer::timeout, this, [&] {
        if (auto *pDialog = qobject_cast<CDlgPicture *>(QApplication::activeModalWidget())) {
            QTest::keyClicks(pDialog->findChild<QLineEdit *>(QStringLiteral("editAlt")), strAlt);
            QTest::keyClick(pDialog, Qt::Key_Return);
        }
    });
    answer.start(20);
    QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(page(), &drop);
    QTRY_VERIFY(page()->toHtml().contains(QStringLiteral("<img")));
}

void tst_writing::saveAs(const QString &strPath) const
{
    {
        CFileDialogAnswer answer({strPath});
        press(Qt::Key_S, Qt::ControlModifier);
    }
    QTRY_VERIFY(QFileInfo::exists(strPath));
    m_pCase->window().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&m_pCase->window()));
    page()->setFocus();
}

void tst_writing::open(const QString &strPath, const QString &strWord) const
{
    m_pCase->window().openFile(strPath);
    QTRY_VERIFY(page() && text().contains(strWord));
    focusPage();
}

// The dialog finds the word; the caret then stands behind it.
void tst_writing::find(const char *szWord) const
{
    QVERIFY(m_pCase->window().currentDocument().find(QLatin1String(szWord), false).isDone());
    QCOMPARE(page()->selectedText(), QLatin1String(szWord));
}

void tst_writing::picture(const char *szStep) const
{
    const QString strFolder = qEnvironmentVariable("QUILLAN_PICTURES");
    if (!strFolder.isEmpty())
        QVERIFY(m_pCase->window().grab().save(
            QDir(strFolder).filePath(QLatin1String(szStep) + QStringLiteral(".png"))));
}

void tst_writing::writeArticle(const QString &strPath) const
{
    QTRY_VERIFY(m_pCase->action("actionStyle_h1")->isEnabled());
    press(Qt::Key_1, Qt::ControlModifier | Qt::AltModifier);
    type("The garden in winter");
    press(Qt::Key_Return);
    picture("1-heading");
    saveAs(strPath);
    type("Snow lies on the ");
    press(Qt::Key_B, Qt::ControlModifier);
    type("beds");
    press(Qt::Key_B, Qt::ControlModifier);
    type(" now. Read ");
    link("about snow", "https://example.org/snow");
    type(" or ");
    link("the tools", "#tools");
    type(" first.");
    picture("2-links");
    press(Qt::Key_Return);
    press(Qt::Key_2, Qt::ControlModifier | Qt::AltModifier);
    type("What to do");
    press(Qt::Key_Return);
    click("actionList_ol");
    type("Cover the roses");
    press(Qt::Key_Return);
    press(Qt::Key_Tab);
    click("actionList_ul");
    type("fleece");
    press(Qt::Key_Return);
    type("straw");
    press(Qt::Key_Return);
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    type("Feed the birds");
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    picture("3-list");
    type("A view:");
    dropPicture(m_pCase->path("garden.png"), QStringLiteral("White beds"));
    press(Qt::Key_Return);
    picture("4-picture");
    chooseTable(3, 4);
    for (const char *szCell : {"Plant", "Cover", "From", "To", "Rose", "fleece", "Nov", "Mar"}) {
        type(szCell);
        press(Qt::Key_Tab);
    }
    type("Fig");
    press(Qt::Key_Tab);
    type("straw");
    picture("5-table");
    press(Qt::Key_End, Qt::ControlModifier);
    setStyle("blockquote");
    type("Winter is the time for comfort.");
    picture("6-quotation");
}

void tst_writing::article_isWrittenSavedAndReadBack()
{
    QImage image(60, 40, QImage::Format_RGB32);
    image.fill(Qt::white);
    QVERIFY(image.save(m_pCase->path("garden.png")));
    const QString strPath = m_pCase->path("article.html");
    QTest::keyClick(&m_pCase->window(), Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY(page());
    writeArticle(strPath);

    // A step back and forth changes nothing.
    const QString strWritten = page()->toHtml();
    press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(page()->toHtml() != strWritten);
    press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(page()->toHtml(), strWritten);

    press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!m_pCase->window().currentDocument().isModified());
    QCOMPARE(QString::fromUtf8(m_pCase->content(strPath)), QString::fromUtf8(g_szArticle));
#ifndef Q_OS_WIN
    QCOMPARE(tidyErrors(strPath), QByteArray());
#endif

    press(Qt::Key_W, Qt::ControlModifier);
    QTRY_COMPARE(m_pCase->tabs().count(), 0);
    open(strPath, QStringLiteral("comfort"));
    QCOMPARE(page()->toHtml().remove(QLatin1Char('\n')),
             QString(strWritten).remove(QLatin1Char('\n')));
    QCOMPARE(page()->htmlForSaving(), m_pCase->content(strPath));
}

void tst_writing::editedAgain_onlyTheEditDiffers()
{
    const QString strPath = m_pCase->file("article.html", g_szArticle);
    m_pCase->image("garden.png");
    open(strPath, QStringLiteral("comfort"));
    find("straw");
    type("dry leaves");
    find("comfort");
    press(Qt::Key_Right);
    press(Qt::Key_Return);
    type("So they say.");
    press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!m_pCase->window().currentDocument().isModified());
    QByteArray expected(g_szArticle);
    const int nStraw = expected.lastIndexOf("straw"); // It searches backward by default.
    expected.replace(nStraw, 5, "dry leaves");
    expected.replace("comfort.</p>\n", "comfort</p>\n<p>So they say..</p>\n");
    QCOMPARE(QString::fromUtf8(m_pCase->content(strPath)), QString::fromUtf8(expected));
}

void tst_writing::xhtmlPage_staysWellFormed()
{
    const QString strPath = m_pCase->file("notes.html", g_szXhtml);
    QCOMPARE(xmlError(g_szXhtml), QString());
    open(strPath, QStringLiteral("five"));
    find("One");
    press(Qt::Key_B, Qt::ControlModifier);
    find("five");
    press(Qt::Key_Right);
    press(Qt::Key_Return, Qt::ShiftModifier);
    type("6 < 7 & 8");
    press(Qt::Key_Return);
    click("actionHorizontal_Line");
    press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!m_pCase->window().currentDocument().isModified());
    const QByteArray saved = m_pCase->content(strPath);
    QCOMPARE(xmlError(saved), QString());
    QByteArray expected(g_szXhtml);
    expected.replace("One <strong>", "<strong>One</strong> <strong>");
    QVERIFY2(saved.startsWith(expected.left(expected.indexOf("  <p>Four"))), saved);
    QVERIFY2(saved.contains("  <p>Four &amp; five<br />6 &lt; 7 &amp; 8</p>\n"), saved);
    QVERIFY2(saved.contains("<hr />\n"), saved);
}

QTEST_MAIN(tst_writing)
#include "tst_writing.moc"
