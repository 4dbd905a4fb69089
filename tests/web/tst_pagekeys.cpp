#include "webtest.h"

#include "editor/chighlightedit.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QVBoxLayout>

// Tests that need a window with the focus: keys, clicks, hiding and showing.
class tst_pagekeys : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void typing_changesThePage();
    void keyWithAControlCharacter_typesNothing_data();
    void keyWithAControlCharacter_typesNothing();
    void control_makesReadOnlyWhileHeld();
    void controlWithAnotherKey_isACommand_data();
    void controlWithAnotherKey_isACommand();
    void boldWithControlHeld_isThatOfTheTypedText_data();
    void boldWithControlHeld_isThatOfTheTypedText();
    void altGr_typesAlthoughControlIsDown();
    void focusLostWithControlDown_isEditableAgain();
    void focusIn_isSignalled();
    void hidingAFocusedPage_typesNothing_data();
    void hidingAFocusedPage_typesNothing();
    void tabKey_isTypedIntoThePage();
    void hoveringALink_signalsIt();
    void contextMenu_isOurs();
    void tabSwap_losesNothing();

private:
    CWebCase *m_pCase = nullptr;
    QTabWidget *m_pTabs = nullptr;
    QWidget *m_pWindow = nullptr;
    QLineEdit *m_pOther = nullptr;
    CEditWebView *m_pView = nullptr;
};

void tst_pagekeys::init()
{
    m_pCase = new CWebCase;
    m_pWindow = new QWidget;
    m_pTabs = new QTabWidget;
    m_pOther = new QLineEdit;
    auto *pLayout = new QVBoxLayout(m_pWindow);
    pLayout->addWidget(m_pOther);
    pLayout->addWidget(m_pTabs);
    m_pView = new CEditWebView;
    m_pTabs->addTab(m_pView, QStringLiteral("page"));
    m_pTabs->addTab(new QWidget, QStringLiteral("other"));
    m_pWindow->resize(500, 400);
    m_pWindow->show();
    QVERIFY(QTest::qWaitForWindowActive(m_pWindow));
    QVERIFY(loadAndWait(m_pView,
                        m_pCase->write(QStringLiteral("a.html"),
                                       "<p id=p>one two three</p><a href='b.html'>link</a>")));
    followChanges(m_pView);
    QTest::mouseClick(m_pView, Qt::LeftButton, Qt::NoModifier, QPoint(10, 15));
    QTRY_VERIFY(m_pView->hasFocus());
    run(m_pView,
        QStringLiteral("var t = document.getElementById('p').firstChild;"
                       "getSelection().collapse(t, t.length)"));
}

void tst_pagekeys::cleanup()
{
    delete m_pView;
    delete m_pWindow;
    delete m_pCase;
}

void tst_pagekeys::typing_changesThePage()
{
    QTest::keyClicks(m_pView, QStringLiteral(" four"));
    QVERIFY(textOf(m_pView).startsWith(QLatin1String("one two three four")));
    QVERIFY(m_pView->isModified());
}

void tst_pagekeys::keyWithAControlCharacter_typesNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<QString>("strText");
    QTest::newRow("Escape") << int(Qt::Key_Escape) << int(Qt::NoModifier) << "\x1b";
    QTest::newRow("Shift+Escape") << int(Qt::Key_Escape) << int(Qt::ShiftModifier) << "\x1b";
    QTest::newRow("Control+Alt+E")
        << int(Qt::Key_E) << int(Qt::ControlModifier | Qt::AltModifier) << "\x05";
    QTest::newRow("Clear") << int(Qt::Key_Clear) << int(Qt::NoModifier) << "\x0b";
}

// Neither into the text nor over what is selected, a picture for instance.
void tst_pagekeys::keyWithAControlCharacter_typesNothing()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(QString, strText);
    const QString strBefore = m_pView->toHtml();
    const auto press = [&] {
        QKeyEvent event(QEvent::KeyPress, key, Qt::KeyboardModifiers(modifiers), strText);
        QCoreApplication::sendEvent(m_pView, &event);
    };
    press();
    QCOMPARE(m_pView->toHtml(), strBefore);
    selectElement(m_pView, QStringLiteral("p"));
    press();
    QCOMPARE(m_pView->toHtml(), strBefore);
    QVERIFY(!m_pView->isModified());
}

void tst_pagekeys::control_makesReadOnlyWhileHeld()
{
    QTest::keyPress(m_pView, Qt::Key_Control);
    QVERIFY(!m_pView->page()->isContentEditable());
    QTest::keyClick(m_pView, Qt::Key_X);
    QVERIFY(!m_pView->isModified());
    QTest::keyRelease(m_pView, Qt::Key_Control);
    QVERIFY(m_pView->page()->isContentEditable());
    QTest::keyClick(m_pView, Qt::Key_X);
    QVERIFY(textOf(m_pView).startsWith(QLatin1String("one two threex")));
}

void tst_pagekeys::controlWithAnotherKey_isACommand_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("expected");
    QTest::newRow("paste") << int(Qt::Key_V) << "one two threepasted";
    QTest::newRow("delete a word") << int(Qt::Key_Backspace) << "one two";
    QTest::newRow("undo") << int(Qt::Key_Z) << "one two three";
}

void tst_pagekeys::controlWithAnotherKey_isACommand()
{
    QFETCH(int, key);
    QFETCH(QString, expected);
    QApplication::clipboard()->setText(QStringLiteral("pasted"));
    QTest::keyClick(m_pView, Qt::Key(key), Qt::ControlModifier); // Presses Control, too.
    QVERIFY(m_pView->page()->isContentEditable());
    QCOMPARE(textOf(m_pView).section(QLatin1Char('\n'), 0, 0).trimmed(), expected);
}

void tst_pagekeys::boldWithControlHeld_isThatOfTheTypedText_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("key of the page") << true;
    QTest::newRow("action of the window") << false;
}

void tst_pagekeys::boldWithControlHeld_isThatOfTheTypedText()
{
    QFETCH(bool, byKey);
    QTest::keyPress(m_pView, Qt::Key_Control);
    if (byKey) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_B, Qt::ControlModifier, QStringLiteral("\x02"));
        QApplication::sendEvent(m_pView, &event);
    } else {
        m_pView->triggerEdit(QWebPage::ToggleBold);
    }
    QVERIFY(!m_pView->page()->isContentEditable());
    QTest::keyRelease(m_pView, Qt::Key_Control);
    QVERIFY(m_pView->isBold());
    QTest::keyClicks(m_pView, QStringLiteral("xy"));
    QVERIFY2(m_pView->toHtml().contains(QLatin1String("three<b>xy</b>")),
             qPrintable(m_pView->toHtml()));
}

void tst_pagekeys::altGr_typesAlthoughControlIsDown()
{
    QTest::keyPress(m_pView, Qt::Key_Control);
    QKeyEvent event(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier,
                    QStringLiteral("@"));
    QApplication::sendEvent(m_pView, &event);
    QTest::keyRelease(m_pView, Qt::Key_Control);
    QVERIFY(textOf(m_pView).startsWith(QLatin1String("one two three@")));
}

void tst_pagekeys::focusLostWithControlDown_isEditableAgain()
{
    QTest::keyPress(m_pView, Qt::Key_Control);
    m_pOther->setFocus();
    QTRY_VERIFY(m_pView->page()->isContentEditable());
}

void tst_pagekeys::focusIn_isSignalled()
{
    m_pOther->setFocus();
    QSignalSpy spy(m_pView, &CEditWebView::focusIn);
    m_pView->setFocus();
    QTRY_COMPARE(spy.count(), 1);
}

void tst_pagekeys::hidingAFocusedPage_typesNothing_data()
{
    QTest::addColumn<int>("how");
    QTest::newRow("hide") << 0;
    QTest::newRow("another tab") << 1;
    QTest::newRow("remove the tab") << 2;
    QTest::newRow("disable") << 3;
    QTest::newRow("hide the window") << 4;
}

void tst_pagekeys::hidingAFocusedPage_typesNothing()
{
    QFETCH(int, how);
    const QString strBefore = m_pView->toHtml();
    QVERIFY(m_pView->hasFocus());
    switch (how) {
    case 0:
        m_pView->hide();
        break;
    case 1:
        m_pTabs->setCurrentIndex(1);
        break;
    case 2:
        m_pTabs->removeTab(0);
        break;
    case 3:
        m_pView->setEnabled(false);
        break;
    default:
        m_pWindow->hide();
    }
    QTRY_VERIFY(!m_pView->hasFocus());
    QCOMPARE(m_pView->toHtml(), strBefore);
    QVERIFY(!m_pView->isModified());
}

void tst_pagekeys::tabKey_isTypedIntoThePage()
{
    QTest::keyClick(m_pView, Qt::Key_Tab);
    QVERIFY(m_pView->hasFocus());
    QVERIFY(m_pView->toHtml().contains(QLatin1Char('\t')));
}

void tst_pagekeys::hoveringALink_signalsIt()
{
    QSignalSpy spy(m_pView, &CEditWebView::overUrl);
    const QPoint posLink =
        m_pView->page()->mainFrame()->findFirstElement(QStringLiteral("a")).geometry().center();
    QMouseEvent over(QEvent::MouseMove, posLink, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(m_pView, &over);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spy.at(0).at(0).toString(),
             QUrl::fromLocalFile(m_pCase->path(QStringLiteral("b.html"))).toString());
    QMouseEvent off(QEvent::MouseMove, QPoint(300, 200), Qt::NoButton, Qt::NoButton,
                    Qt::NoModifier);
    QSignalSpy spyLeft(m_pView, &CEditWebView::linkLeft);
    QApplication::sendEvent(m_pView, &off);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(spyLeft.count(), 1);
    QCOMPARE(spyLeft.at(0).at(0), spy.at(0).at(0));
    QApplication::sendEvent(m_pView, &off);
    QCOMPARE(spyLeft.count(), 1);
    // Out of the view with one move.
    QApplication::sendEvent(m_pView, &over);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(m_pView, &leave);
    QCOMPARE(spyLeft.count(), 2);
}

void tst_pagekeys::contextMenu_isOurs()
{
    QTest::mouseClick(m_pView, Qt::RightButton, Qt::NoModifier, QPoint(10, 15));
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(10, 15),
                            m_pView->mapToGlobal(QPoint(10, 15)));
    QApplication::sendEvent(m_pView, &event);
    QMenu *pMenu = nullptr;
    QTRY_VERIFY((pMenu = qobject_cast<QMenu *>(QApplication::activePopupWidget())));
    QStringList lstTexts;
    const QList<QAction *> lstActions = pMenu->actions();
    for (const QAction *pAction : lstActions) {
        lstTexts.append(pAction->isSeparator() ? QStringLiteral("-") : pAction->text());
        QVERIFY(pAction->isEnabled());
    }
    QCOMPARE(lstTexts.join(QLatin1Char('|')),
             QStringLiteral("Copy|Cut|Paste|-|Refresh|-|Open file position"));
    pMenu->close();
}

// As the window swaps: the tab's widget is the page or its source editor.
void tst_pagekeys::tabSwap_losesNothing()
{
    QTest::keyClicks(m_pView, QStringLiteral(" four"));
    CHighlightEdit *pSource = m_pView->sourceEdit();
    const auto toSource = [&] {
        m_pView->showSource(true);
        m_pTabs->removeTab(0);
        m_pTabs->insertTab(0, pSource, QStringLiteral("source"));
        m_pTabs->setCurrentIndex(0);
        pSource->setFocus();
    };
    const auto toPage = [&] {
        m_pTabs->removeTab(0);
        m_pView->showSource(false);
        m_pView->applySource(pSource->getText());
        m_pTabs->insertTab(0, m_pView, QStringLiteral("page"));
        m_pTabs->setCurrentIndex(0);
        m_pView->setFocus();
    };
    const QString strTyped = m_pView->toHtml();
    toSource();
    QVERIFY(pSource->isVisible());
    QVERIFY(!m_pView->isVisible());
    QCOMPARE(pSource->getText(), QString::fromUtf8(m_pView->htmlForSaving()));
    toPage();
    QVERIFY(m_pView->isVisible());
    QVERIFY(!pSource->isVisible());
    QCOMPARE(m_pView->toHtml(), strTyped);

    toSource();
    QTextCursor cursor = pSource->document()->find(QStringLiteral("four"));
    pSource->setTextCursor(cursor);
    QTest::keyClicks(pSource, QStringLiteral("five"));
    toPage();
    QVERIFY(textOf(m_pView).startsWith(QLatin1String("one two three five")));
    QVERIFY(m_pView->isModified());
    toSource();
    delete pSource->pageEditor();
    m_pView = nullptr;
    QCOMPARE(m_pTabs->count(), 1);
}

QTEST_MAIN(tst_pagekeys)
#include "tst_pagekeys.moc"
