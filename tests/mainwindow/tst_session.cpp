// Works like a person with real focus on a real display: keys go to the widget with the focus,
// clicks to the buttons of the toolbars.

#include "cwindowfixture.h"

#include "tests/support/boxanswer.h"
#include "web/ceditwebview.h"

#include <QComboBox>
#include <QDialog>
#include <QDropEvent>
#include <QFontComboBox>
#include <QMimeData>
#include <QTextCursor>
#include <QToolBar>
#include <QToolButton>
#include <QWebFrame>

namespace {

// The widget that would get a key of the user, once the window manager has given the focus back.
QWidget *keyTarget()
{
    if (!QTest::qWaitFor([] { return QApplication::activeWindow() != nullptr; }))
        qFatal("no window is active");
    QWidget *pFocus = QApplication::focusWidget();
    return pFocus ? pFocus : QApplication::activeWindow();
}

void type(const char *szKeys)
{
    QTest::keyClicks(keyTarget(), QLatin1String(szKeys));
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(keyTarget(), key, modifiers);
}

QToolButton *button(CWindowFixture &f, const char *szAction)
{
    const auto lstBars = f.window().findChildren<QToolBar *>();
    for (const QToolBar *pBar : lstBars)
        if (QWidget *pWidget = pBar->widgetForAction(f.action(szAction)))
            return qobject_cast<QToolButton *>(pWidget);
    return nullptr;
}

void click(QWidget *pWidget)
{
    QVERIFY(pWidget);
    QTest::mouseClick(pWidget, Qt::LeftButton);
}

bool activate(CWindowFixture &f)
{
    f.window().showMaximized();
    f.window().activateWindow();
    return QTest::qWaitForWindowActive(&f.window());
}

} // namespace

class tst_session : public QObject
{
    Q_OBJECT

private slots:
    void init() { QDir(CWindowFixture::draftFolder()).removeRecursively(); }

    void page_isWrittenWithKeysAndToolBar()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        press(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        CEditWebView *pPage = f.window().currentDocument().page();
        QVERIFY(pPage);
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(pPage));
        type("plain ");
        click(button(f, "actionBold"));
        QTRY_VERIFY(f.action("actionBold")->isChecked());
        pPage->setFocus();
        type("bold");
        QTRY_VERIFY(pPage->toHtml().contains("<b>bold</b>"));
        QVERIFY(f.window().currentDocument().isModified());

        // The whole text in another size, font and colour.
        press(Qt::Key_A, Qt::ControlModifier);
        QTRY_COMPARE(pPage->selectedText(), QStringLiteral("plain bold"));
        auto *pSize = f.window().findChild<QComboBox *>("comboSize");
        pSize->setCurrentIndex(pSize->findText("24"));
        QTRY_COMPARE(pPage->fontSize(), QStringLiteral("24"));
        click(button(f, "actionText_Color"));
        QTRY_COMPARE(pPage->foreColor().name(), f.settings().getTextColor().name());
        auto *pFont = f.window().findChild<QFontComboBox *>();
        pFont->setCurrentFont(QFont("DejaVu Sans Mono"));
        QTRY_COMPARE(pPage->fontName(), QStringLiteral("DejaVu Sans Mono"));

        // Source, an edit there, and back.
        click(button(f, "actionSwapHtml"));
        QTRY_VERIFY(f.editor() && f.editor()->toPlainText().contains("bold"));
        QTextCursor cursor = f.editor()->document()->find("bold</");
        QVERIFY(!cursor.isNull());
        cursor.setPosition(cursor.selectionStart());
        f.editor()->setTextCursor(cursor);
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(f.editor()));
        type("very ");
        click(button(f, "actionSwapHtml"));
        QTRY_COMPARE(pPage->page()->mainFrame()->toPlainText(), QStringLiteral("plain very bold"));

        const QString strPath = f.path("written.html");
        {
            CFileDialogAnswer answer({strPath});
            press(Qt::Key_S, Qt::ControlModifier);
        }
        QTRY_VERIFY(f.content(strPath).contains("very bold"));
        // The dialog closed before the window manager had noticed it.
        QVERIFY(activate(f));
        QVERIFY(!f.window().currentDocument().isModified());
        press(Qt::Key_W, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().count(), 0);
        f.window().openFile(strPath);
        QTRY_COMPARE(f.window().currentDocument().page()->page()->mainFrame()->toPlainText(),
                     QStringLiteral("plain very bold"));
    }

    void pageHandedOver_takesKeysAtOnce()
    {
        CWindowFixture f;
        const QByteArray html = "<!DOCTYPE html>\n<html>\n<body>\n<p>one</p>\n</body>\n</html>\n";
        const QString strPath = f.file("page.html", html);
        QVERIFY(activate(f));
        f.window().parseArgument(QLatin1Char('"') + strPath + QLatin1Char('"'));
        CEditWebView *pPage = f.window().currentDocument().page();
        QTRY_COMPARE(pPage->page()->mainFrame()->toPlainText(), QString("one"));
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(pPage));
        type("two ");
        QTRY_VERIFY(pPage->toHtml().contains("two"));
        press(Qt::Key_S, Qt::ControlModifier);
        QTRY_COMPARE(f.content(strPath), QByteArray(html).replace("one", "two one"));
    }

    void text_isSearchedAndChangedWithKeys()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.cpp", "int one;\nint two;\nint three;\n");
        f.window().openFile(strPath);
        QVERIFY(activate(f));
        f.editor()->setFocus();
        press(Qt::Key_F, Qt::ControlModifier);
        auto *pDialog = f.window().findChild<QDialog *>("CDlgFind");
        QVERIFY(pDialog);
        QVERIFY(QTest::qWaitForWindowActive(pDialog));
        QTRY_COMPARE(QApplication::focusWidget(), pDialog->findChild<QWidget *>("comboBox_find"));
        type("int");
        press(Qt::Key_Return);
        QTRY_COMPARE(f.editor()->textCursor().selectedText(), QStringLiteral("int"));
        press(Qt::Key_Escape);
        QTRY_VERIFY(!pDialog->isVisible());
        QTRY_VERIFY(f.window().isActiveWindow());
        press(Qt::Key_F3);
        QTRY_COMPARE(f.editor()->textCursor().blockNumber(), 1);
        press(Qt::Key_F3, Qt::ShiftModifier);
        QTRY_COMPARE(f.editor()->textCursor().blockNumber(), 0);

        f.editor()->setFocus();
        press(Qt::Key_A, Qt::ControlModifier);
        press(Qt::Key_Tab);
        QCOMPARE(f.editor()->toPlainText().left(5), QStringLiteral("\tint "));
        press(Qt::Key_Z, Qt::ControlModifier);
        QTRY_VERIFY(!f.window().currentDocument().isModified());
        QCOMPARE(f.editor()->toPlainText(), QString::fromUtf8(f.content(strPath)));
    }

    void tabs_areWalkedAndClosedWithKeys()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt"));
        f.window().openFile(f.file("b.txt"));
        QVERIFY(activate(f));
        f.editor()->setFocus();
        press(Qt::Key_Tab, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 0);
        press(Qt::Key_Tab, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_COMPARE(f.tabs().currentIndex(), 1);
        press(Qt::Key_W, Qt::ControlModifier);
        QTRY_COMPARE(f.tabs().count(), 1);
    }

    void droppedFiles_openAndTextDropsStayText()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt", "text"));
        QVERIFY(activate(f));
        QMimeData files;
        files.setUrls(
            {QUrl::fromLocalFile(f.file("b & c.txt")), QUrl::fromLocalFile(f.file("d.txt"))});
        QDragEnterEvent filesEnter(QPoint(20, 20), Qt::CopyAction, &files, Qt::LeftButton,
                                   Qt::NoModifier);
        QCoreApplication::sendEvent(f.editor()->viewport(), &filesEnter);
        QVERIFY(filesEnter.isAccepted());
        QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(f.editor()->viewport(), &drop);
        QTRY_COMPARE(f.tabs().count(), 3);
        QCOMPARE(f.window().currentDocument().path(), f.path("d.txt"));
        QVERIFY(f.settings().getRecentFileList().isEmpty());

        QMimeData text;
        text.setText("dropped ");
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(f.editor()->viewport(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent textDrop(QPointF(5, 5), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(f.editor()->viewport(), &textDrop);
        QVERIFY(f.editor()->toPlainText().contains("dropped"));
        QCOMPARE(f.tabs().count(), 3);
    }
};

QTEST_MAIN(tst_session)
#include "tst_session.moc"
