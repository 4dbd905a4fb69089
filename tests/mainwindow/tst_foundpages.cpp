// Pages as they are found: in old encodings, with Windows' line ends, as people wrote them by hand
// twenty years ago. The test edits them with keys and buttons; everything else must stay as it is.

#include "cwindowfixture.h"
#include "foundpages.h"

#include "pageedit/ctablechooser.h"
#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QSet>
#include <QToolBar>
#include <QWebElement>
#include <QWebFrame>

#include <functional>

class tst_foundpages : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { delete m_pCase; }

    void edits_leaveTheRestAsItIs_data() { addFoundPages(); }
    void edits_leaveTheRestAsItIs();
    void undoneEdits_leaveTheFile_data() { addFoundPages(); }
    void undoneEdits_leaveTheFile();
    void eachTool_isUndoneByOneKey_data() { addFoundPages(); }
    void eachTool_isUndoneByOneKey();

private:
    CWindowFixture *m_pCase = nullptr;
    QSet<QString> m_setTried; // The tools that changed the page.

    CEditWebView *page() const { return m_pCase->window().currentDocument().page(); }
    QVariant run(const QString &strScript) const
    {
        return page()->page()->mainFrame()->documentElement().evaluateJavaScript(strScript);
    }
    void open(const QByteArray &content) const;
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void select(const char *szWord) const;
    void caretBehind(const char *szWord) const;
    bool runTable(const char *szCommand) const;
    void edit() const;
    void undoAll() const;
    QByteArray saved() const;
    void tryTool(const QString &strName, const std::function<void()> &tool);
    void tryButtons(const char *szWord);
    void tryTables();
    void tryAsked();
};

void tst_foundpages::init()
{
    QDir(CWindowFixture::draftFolder()).removeRecursively();
    m_pCase = new CWindowFixture;
    m_setTried.clear();
}

void tst_foundpages::open(const QByteArray &content) const
{
    m_pCase->window().openFile(m_pCase->file(QStringLiteral("page.html"), content));
    QTRY_VERIFY(page() && page()->page()->mainFrame()->toPlainText().contains("alpha"));
    page()->setFocus();
}

// As a keyboard does it: Control goes down first and comes up last.
void tst_foundpages::press(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    if (modifiers & Qt::ControlModifier)
        QTest::keyPress(page(), Qt::Key_Control, Qt::ControlModifier);
    QTest::keyClick(page(), key, modifiers);
    if (modifiers & Qt::ControlModifier)
        QTest::keyRelease(page(), Qt::Key_Control);
}

// Where it stands first.
void tst_foundpages::select(const char *szWord) const
{
    QVERIFY(run(QStringLiteral(
                    "(function(word) {"
                    "  var w = document.createTreeWalker(document.body, 4, null, false), n, i;"
                    "  while (n = w.nextNode()) {"
                    "    i = n.data.indexOf(word);"
                    "    if (i < 0) continue;"
                    "    getSelection().setBaseAndExtent(n, i, n, i + word.length);"
                    "    return true;"
                    "  }"
                    "  return false;"
                    "})('%1')")
                    .arg(QLatin1String(szWord)))
                .toBool());
}

void tst_foundpages::caretBehind(const char *szWord) const
{
    select(szWord);
    run(QStringLiteral("getSelection().collapseToEnd()"));
}

// False where it is not possible.
bool tst_foundpages::runTable(const char *szCommand) const
{
    auto *pMenu = m_pCase->window().findChild<QMenu *>(QStringLiteral("menuTable"));
    emit pMenu->aboutToShow();
    const auto lstActions = pMenu->actions();
    for (QAction *pAction : lstActions)
        if (pAction->data() == QLatin1String(szCommand) && pAction->isEnabled()) {
            pAction->trigger();
            return true;
        }
    return false;
}

void tst_foundpages::edit() const
{
    caretBehind("alpha");
    QTest::keyClicks(page(), QStringLiteral("bet & co"));
    select("beta");
    press(Qt::Key_B, Qt::ControlModifier);
    caretBehind("beta");
    press(Qt::Key_Return);
    QTest::keyClicks(page(), QStringLiteral("Then"));
    caretBehind("item");
    press(Qt::Key_Return);
    QTest::keyClicks(page(), QStringLiteral("next one"));
    caretBehind("cell");
    QVERIFY(runTable("rowBelow"));
}

void tst_foundpages::undoAll() const
{
    for (int n = 0; n < 100 && m_pCase->action("actionUndo")->isEnabled(); ++n)
        press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!m_pCase->action("actionUndo")->isEnabled());
}

QByteArray tst_foundpages::saved() const
{
    press(Qt::Key_S, Qt::ControlModifier);
    if (!QTest::qWaitFor([this] { return !m_pCase->window().currentDocument().isModified(); }))
        return "<not saved>";
    return m_pCase->content(m_pCase->path(QStringLiteral("page.html")));
}

void tst_foundpages::edits_leaveTheRestAsItIs()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, source);
    QFETCH(QStringList, lstChanges);
    open(content);
    edit();
    QString strExpected = QString::fromUtf8(source);
    for (int n = 0; n < lstChanges.size(); n += 2)
        strExpected.replace(lstChanges.at(n), lstChanges.at(n + 1));
    QCOMPARE(QString::fromUtf8(saved()), strExpected);
}

void tst_foundpages::undoneEdits_leaveTheFile()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, source);
    open(content);
    const QString strLoaded = page()->toHtml();
    edit();
    QVERIFY(page()->toHtml() != strLoaded);
    undoAll();
    QCOMPARE(page()->toHtml(), strLoaded);
    QVERIFY(!m_pCase->window().currentDocument().isModified());
    QCOMPARE(page()->htmlForSaving(), source);
    // A save changes only the text that is typed next.
    caretBehind("alpha");
    QTest::keyClicks(page(), QStringLiteral("s"));
    QCOMPARE(QString::fromUtf8(saved()), QString::fromUtf8(source).replace("alpha", "alphas"));
}

// A tool may have nothing to do. If it did something, one key undoes it.
void tst_foundpages::tryTool(const QString &strName, const std::function<void()> &tool)
{
    const QString strBefore = page()->toHtml();
    const QByteArray source = page()->htmlForSaving();
    tool();
    if (page()->toHtml() == strBefore)
        return;
    m_setTried.insert(strName);
    press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY2(page()->toHtml() == strBefore, qPrintable(strName));
    QVERIFY2(page()->htmlForSaving() == source, qPrintable(strName));
    QVERIFY2(!m_pCase->window().currentDocument().isModified(), qPrintable(strName));
}

void tst_foundpages::tryButtons(const char *szWord)
{
    const auto *pBar = m_pCase->window().findChild<QToolBar *>(QStringLiteral("pageToolBar"));
    const auto lstActions = pBar->findChildren<QAction *>();
    for (QAction *pAction : lstActions) {
        // Those ask first, or lead elsewhere.
        if (pAction->objectName().isEmpty() || pAction->text().endsWith(QLatin1String("..."))
            || pAction->menu())
            continue;
        select(szWord);
        // Those that are off here have nothing to do.
        QCoreApplication::processEvents();
        tryTool(pAction->objectName(), [pAction] { pAction->trigger(); });
    }
}

void tst_foundpages::tryTables()
{
    for (const char *szCommand :
         {"rowAbove", "rowBelow", "columnLeft", "columnRight", "rowUp", "rowDown", "moveLeft",
          "moveRight", "merge", "split", "deleteRows", "deleteColumns", "deleteTable"}) {
        caretBehind("cell");
        tryTool(QLatin1String(szCommand), [&] { runTable(szCommand); });
    }
    caretBehind("beta");
    tryTool(QStringLiteral("insertTable"), [this] {
        auto *pMenu = m_pCase->window().findChild<QMenu *>(QStringLiteral("menuTable"));
        emit pMenu->findChild<CTableChooser *>()->chosen(2, 2);
    });
}

void tst_foundpages::tryAsked()
{
    const auto tryCommand = [this](const char *szName, const QVariantMap &arguments) {
        select("beta");
        tryTool(QLatin1String(szName),
                [&] { runPageCommand(page(), QLatin1String(szName), arguments); });
    };
    tryCommand("link", {{"href", "b.html"}, {"text", "beta"}, {"title", "x"}});
    tryCommand("style", {{"style", "pre"}});
    tryCommand("properties",
               {{"title", "New"},
                {"language", "fr"},
                {"description", "x"},
                {"color", ""},
                {"background", "#ffeeee"},
                {"sheets", QStringList {"a.css"}}});
}

void tst_foundpages::eachTool_isUndoneByOneKey()
{
    QFETCH(QByteArray, content);
    open(content);
    QGuiApplication::clipboard()->setText(QStringLiteral("one\ntwo"));
    for (const char *szWord : {"beta", "item", "cell"})
        tryButtons(szWord);
    tryTables();
    tryAsked();
    QVERIFY2(m_setTried.size() > 30, qPrintable(QStringList(m_setTried.values()).join(' ')));
}

QTEST_MAIN(tst_foundpages)
#include "tst_foundpages.moc"
