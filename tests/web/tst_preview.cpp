#include "webtest.h"

#include "app/platform.h"
#include "editor/chighlightedit.h"
#include "web/cimagewidget.h"
#include "web/cpreviewwidget.h"

#include <QDockWidget>
#include <QMenu>
#include <QWebView>

class tst_preview : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void kindOfFile_choosesTheView_data();
    void kindOfFile_choosesTheView();
    void folderOrMissingFile_keepsThePreview_data();
    void folderOrMissingFile_keepsThePreview();
    void largeText_isCut();
    void largeText_isCutBetweenCharacters();
    void lineThatTakesLongToLayOut_isCut_data();
    void lineThatTakesLongToLayOut_isCut();
    void manyLinesThatAreShort_areNotCut();
    void nameWithSignsOfTheirOwn_isShownAsItIs();
    void textGetsItsLanguage();
    void unreadableText_isEmpty();
    void setFile_withoutLoading_onlyNamesIt();
    void setFile_ofAFolder_doesNothing();
    void clearing_keepsTheFileAndTheTitle();
    void htmlText_isRenderedAndNotEditable();
    void htmlText_becomesEditableByControl();
    void htmlText_isNotEditableWhileControlIsHeld();
    void htmlTextShownAgain_keepsItsPlace();
    void svgText_isDrawn();
    void viewsAreKept_theTextViewIsNot();
    void onlyOneViewIsVisible();
    void contextMenu_needsAFile();
    void panelWithoutDock_hasNoTitle();

private:
    QString visibleKind() const;
    QString title() const { return m_pDock->windowTitle(); }

    CWebCase *m_pCase = nullptr;
    QDockWidget *m_pDock = nullptr;
    CPreviewWidget *m_pPreview = nullptr;
};

void tst_preview::init()
{
    m_pCase = new CWebCase;
    m_pDock = new QDockWidget;
    m_pPreview = new CPreviewWidget;
    m_pDock->setWidget(m_pPreview);
    m_pDock->resize(400, 300);
    m_pDock->show();
}

void tst_preview::cleanup()
{
    delete m_pDock;
    delete m_pCase;
}

// The classes of the visible views.
QString tst_preview::visibleKind() const
{
    QStringList lstKinds;
    const QList<QWidget *> lstViews =
        m_pPreview->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget *pView : lstViews)
        if (pView->isVisible())
            lstKinds.append(QString::fromLatin1(pView->metaObject()->className()));
    return lstKinds.join(QLatin1Char(' '));
}

void tst_preview::kindOfFile_choosesTheView_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("kind");
    QTest::newRow("html") << "page.html"
                          << "QWebView";
    QTest::newRow("htm") << "page.htm"
                         << "QWebView";
    QTest::newRow("upper case") << "page.HTML"
                                << "QWebView";
    QTest::newRow("png") << "image.png"
                         << "CImageWidget";
    QTest::newRow("upper-case image") << "image.PNG"
                                      << "CImageWidget";
    QTest::newRow("svg") << "image.svg"
                         << "CImageWidget";
    QTest::newRow("jpeg") << "image.jpeg"
                          << "CImageWidget";
    QTest::newRow("text") << "file.txt"
                          << "CHighlightEdit";
    QTest::newRow("no suffix") << "file"
                               << "CHighlightEdit";
    QTest::newRow("xhtml") << "page.xhtml"
                           << "CHighlightEdit";
}

void tst_preview::kindOfFile_choosesTheView()
{
    QFETCH(QString, name);
    QFETCH(QString, kind);
    const QString strPath = m_pCase->write(name, "<p>content");
    m_pPreview->previewFile(strPath);
    QCOMPARE(visibleKind(), kind);
    QCOMPARE(m_pPreview->file(), strPath);
    QCOMPARE(title(), QString(QStringLiteral("Preview(") + name + QLatin1Char(')')));
    if (kind == QLatin1String("QWebView")) {
        QTRY_COMPARE(m_pPreview->findChild<QWebView *>()->page()->mainFrame()->toPlainText(),
                     QStringLiteral("content"));
    } else if (kind == QLatin1String("CHighlightEdit")) {
        QCOMPARE(m_pPreview->findChild<CHighlightEdit *>()->toPlainText(),
                 QStringLiteral("<p>content"));
        QVERIFY(m_pPreview->findChild<CHighlightEdit *>()->isReadOnly());
    }
}

void tst_preview::folderOrMissingFile_keepsThePreview_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("folder") << ".";
    QTest::newRow("missing") << "none.txt";
}

void tst_preview::folderOrMissingFile_keepsThePreview()
{
    QFETCH(QString, name);
    m_pPreview->previewFile(m_pCase->write(QStringLiteral("a.txt"), "text"));
    m_pPreview->previewFile(m_pCase->path(name));
    QCOMPARE(visibleKind(), QStringLiteral("CHighlightEdit"));
    QCOMPARE(m_pPreview->findChild<CHighlightEdit *>()->toPlainText(), QStringLiteral("text"));
    QCOMPARE(title(), QStringLiteral("Preview(a.txt)"));
}

void tst_preview::largeText_isCut()
{
    m_pPreview->previewFile(
        m_pCase->write(QStringLiteral("a.txt"), QByteArray("0123456789\n").repeated(60000)));
    QCOMPARE(m_pPreview->findChild<CHighlightEdit *>()->getText().size(), 500000);
}

void tst_preview::largeText_isCutBetweenCharacters()
{
    for (const char *szBefore : {"", "a", "ab"}) {
        const QByteArray before(szBefore);
        m_pPreview->previewFile(
            m_pCase->write(QStringLiteral("a.txt"),
                           before + QByteArray("\xE4\xB8\xAD\xE6\x96\x87").repeated(90000)));
        const QString strText = m_pPreview->findChild<CHighlightEdit *>()->getText();
        QCOMPARE(m_pPreview->findChild<CHighlightEdit *>()->codecName(), QStringLiteral("UTF-8"));
        QCOMPARE(strText.size(), before.size() + (500000 - before.size()) / 3);
        QVERIFY(!strText.contains(QChar::ReplacementCharacter));
    }
}

void tst_preview::lineThatTakesLongToLayOut_isCut_data()
{
    QTest::addColumn<QString>("character");
    QTest::addColumn<int>("shown"); // Characters of the line.
    QTest::newRow("plain") << "a" << 30000;
    QTest::newRow("accent of its own") << "\u00e9" << 30000;
    QTest::newRow("Chinese") << "\u4e2d" << 30000;
    QTest::newRow("combining mark") << "\u0301" << 5001;
    QTest::newRow("Thai") << "\u0e01" << 5001;
    QTest::newRow("Arabic") << "\u0645" << 5001;
    QTest::newRow("beyond the first plane") << "\U0001f600" << 5001;
}

void tst_preview::lineThatTakesLongToLayOut_isCut()
{
    QFETCH(QString, character);
    QFETCH(int, shown);
    const QString strLine = character.repeated(30000 / character.size());
    m_pPreview->previewFile(m_pCase->write(
        QStringLiteral("a.txt"), QString("first\n" + strLine + "\nlast\n" + strLine).toUtf8()));
    const QStringList lstLines =
        m_pPreview->findChild<CHighlightEdit *>()->getText().split(QLatin1Char('\n'));
    QCOMPARE(lstLines.size(), 4);
    QCOMPARE(lstLines.at(0) + lstLines.at(2), QStringLiteral("firstlast"));
    QCOMPARE(lstLines.at(1).size(), shown);
    QCOMPARE(lstLines.at(3), lstLines.at(1));
    QVERIFY(shown == 30000 || lstLines.at(1).endsWith(QChar(0x2026)));
    QVERIFY(lstLines.at(1).startsWith(character) && lstLines.at(1).isValidUtf16());
}

void tst_preview::manyLinesThatAreShort_areNotCut()
{
    for (const char *szEnd : {"\n", "\r", "\r\n"}) {
        const QString strLine = QString(100, QChar(0xe01)) + QLatin1String(szEnd);
        m_pPreview->previewFile(
            m_pCase->write(QStringLiteral("a.txt"), strLine.repeated(300).toUtf8()));
        const QString strShown = m_pPreview->findChild<CHighlightEdit *>()->getText();
        QCOMPARE(strShown.count(QChar(0xe01)), 30000);
    }
}

void tst_preview::nameWithSignsOfTheirOwn_isShownAsItIs()
{
    const QString strName = QStringLiteral("b[*]&c.txt");
    if (!Platform::isFileName(strName))
        QSKIP("The system has no such names.");
    m_pPreview->previewFile(m_pCase->write(strName, "text"));
    // As the frame shows it: the sign for "modified" doubled stands for itself.
    QCOMPARE(title(), QStringLiteral("Preview(b[*][*]&c.txt)"));
    QCOMPARE(m_pDock->toggleViewAction()->text(), QStringLiteral("Preview(b[*]&&c.txt)"));
}

void tst_preview::textGetsItsLanguage()
{
    QString strAsked;
    m_pPreview->setDefinitionFunction([&](const QString &strPath) {
        strAsked = strPath;
        return QVariantMap();
    });
    const QString strPath = m_pCase->write(QStringLiteral("a.cpp"), "int x;");
    m_pPreview->previewFile(strPath);
    QCOMPARE(strAsked, strPath);
    m_pPreview->previewFile(m_pCase->write(QStringLiteral("a.html"), "x"));
    QCOMPARE(strAsked, strPath);
}

void tst_preview::unreadableText_isEmpty()
{
    if (!QFile::exists(QStringLiteral("/dev/zero")))
        QSKIP("no devices here");
    m_pPreview->previewFile(QStringLiteral("/dev/zero"));
    QCOMPARE(visibleKind(), QStringLiteral("CHighlightEdit"));
    QCOMPARE(m_pPreview->findChild<CHighlightEdit *>()->toPlainText(), QString());
}

void tst_preview::setFile_withoutLoading_onlyNamesIt()
{
    m_pPreview->setFile(m_pCase->write(QStringLiteral("a.txt"), "text"), false);
    QCOMPARE(title(), QStringLiteral("Preview(a.txt)"));
    QCOMPARE(visibleKind(), QString());
    m_pPreview->setFile(m_pCase->path(QStringLiteral("a.txt")), true);
    QCOMPARE(visibleKind(), QStringLiteral("CHighlightEdit"));
}

void tst_preview::setFile_ofAFolder_doesNothing()
{
    m_pPreview->setFile(m_pCase->m_folder.path(), true);
    m_pPreview->setFile(m_pCase->path(QStringLiteral("none")), true);
    QVERIFY(m_pPreview->file().isEmpty());
    QCOMPARE(visibleKind(), QString());
}

void tst_preview::clearing_keepsTheFileAndTheTitle()
{
    m_pPreview->clearPreview();
    QCOMPARE(title(), QStringLiteral("Preview"));
    const QString strPath = m_pCase->write(QStringLiteral("100%1.txt"), "text");
    m_pPreview->previewFile(strPath);
    m_pPreview->clearPreview();
    QCOMPARE(visibleKind(), QString());
    QCOMPARE(m_pPreview->file(), strPath);
    QCOMPARE(title(), QStringLiteral("Preview(100%1.txt)"));
}

void tst_preview::htmlText_isRenderedAndNotEditable()
{
    m_pPreview->previewHtml(QStringLiteral("<p>text é"),
                            QUrl::fromLocalFile(m_pCase->path(QStringLiteral("a.html"))));
    QCOMPARE(visibleKind(), QStringLiteral("CEditWebView"));
    auto *pView = m_pPreview->findChild<CEditWebView *>();
    QCOMPARE(textOf(pView), QStringLiteral("text é"));
    QVERIFY(!pView->page()->isContentEditable());
    m_pPreview->clearPreview();
    QCOMPARE(textOf(pView), QString());
}

void tst_preview::htmlText_becomesEditableByControl()
{
    m_pPreview->previewHtml(QStringLiteral("<p>text"), QUrl());
    auto *pView = m_pPreview->findChild<CEditWebView *>();
    QTest::keyClick(pView, Qt::Key_Control);
    QVERIFY(pView->page()->isContentEditable());
}

void tst_preview::htmlText_isNotEditableWhileControlIsHeld()
{
    m_pPreview->previewHtml(QStringLiteral("<p>one two three"), QUrl());
    auto *pView = m_pPreview->findChild<CEditWebView *>();
    pView->setFocus();
    QTest::keyPress(pView, Qt::Key_Control);
    QTest::keyClick(pView, Qt::Key_Backspace, Qt::ControlModifier);
    QTest::keyClick(pView, Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(textOf(pView), QStringLiteral("one two three"));
}

void tst_preview::htmlTextShownAgain_keepsItsPlace()
{
    const QUrl url = QUrl::fromLocalFile(m_pCase->path(QStringLiteral("a.html")));
    const QString strHtml = QStringLiteral("<p style='height:3000px'>text");
    m_pPreview->previewHtml(strHtml, url);
    QWebFrame *pFrame = m_pPreview->findChild<CEditWebView *>()->page()->mainFrame();
    pFrame->setScrollPosition(QPoint(0, 1000));
    m_pPreview->previewHtml(strHtml + QStringLiteral(" more"), url);
    QCOMPARE(pFrame->scrollPosition(), QPoint(0, 1000));
    m_pPreview->previewHtml(strHtml, QUrl::fromLocalFile(m_pCase->path(QStringLiteral("b.html"))));
    QCOMPARE(pFrame->scrollPosition(), QPoint(0, 0));
}

void tst_preview::svgText_isDrawn()
{
    m_pPreview->previewSvg(
        QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='30' height='20'/>"));
    QCOMPARE(visibleKind(), QStringLiteral("CImageWidget"));
    QCOMPARE(m_pPreview->findChild<CImageWidget *>()->imageSize(), QSize(30, 20));
    m_pPreview->clearPreview();
    QVERIFY(m_pPreview->findChild<CImageWidget *>()->isNull());
}

void tst_preview::viewsAreKept_theTextViewIsNot()
{
    const QString strPage = m_pCase->write(QStringLiteral("a.html"), "x");
    const QString strText = m_pCase->write(QStringLiteral("a.txt"), "x");
    m_pPreview->previewFile(strPage);
    const QPointer<QWebView> pWeb = m_pPreview->findChild<QWebView *>();
    m_pPreview->previewFile(strText);
    const QPointer<CHighlightEdit> pText = m_pPreview->findChild<CHighlightEdit *>();
    m_pPreview->previewFile(strPage);
    QVERIFY(!pText);
    QCOMPARE(m_pPreview->findChildren<QWebView *>().size(), 1);
    QCOMPARE(m_pPreview->findChild<QWebView *>(), pWeb.data());
}

void tst_preview::onlyOneViewIsVisible()
{
    const QStringList lstNames = {QStringLiteral("a.html"), QStringLiteral("a.png"),
                                  QStringLiteral("a.txt")};
    for (const QString &strName : lstNames)
        m_pCase->write(strName, "x");
    for (const QString &strFirst : lstNames) {
        for (const QString &strSecond : lstNames) {
            m_pPreview->previewFile(m_pCase->path(strFirst));
            m_pPreview->previewFile(m_pCase->path(strSecond));
            QVERIFY(!visibleKind().contains(QLatin1Char(' ')));
            m_pPreview->previewHtml(QStringLiteral("x"), QUrl());
            QCOMPARE(visibleKind(), QStringLiteral("CEditWebView"));
        }
    }
}

void tst_preview::contextMenu_needsAFile()
{
    const auto entry = [&] {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                m_pPreview->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(m_pPreview, &event);
        auto *pMenu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        const QList<QAction *> lstActions = pMenu ? pMenu->actions() : QList<QAction *>();
        const QString strEntry = lstActions.size() != 1 ? QString()
                                                        : lstActions.first()->text()
                + (lstActions.first()->isEnabled() ? QLatin1String("+") : QLatin1String("-"));
        if (pMenu)
            pMenu->close();
        return strEntry;
    };
    QCOMPARE(entry(), QStringLiteral("Open position of file-"));
    m_pPreview->setFile(m_pCase->write(QStringLiteral("a.txt"), "x"), true);
    QCOMPARE(entry(), QStringLiteral("Open position of file+"));
}

void tst_preview::panelWithoutDock_hasNoTitle()
{
    CPreviewWidget preview;
    preview.previewFile(m_pCase->write(QStringLiteral("a.txt"), "x"));
    QCOMPARE(preview.windowTitle(), QString());
}

QTEST_MAIN(tst_preview)
#include "tst_preview.moc"
