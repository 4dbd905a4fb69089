#include "pagecases.h"
#include "support/boxanswer.h"
#include "support/files.h"

#include "pageedit/cdlgpicture.h"
#include "pageedit/cpagepictures.h"
#include "pageedit/fileaddress.h"
#include "pageedit/picturefiles.h"
#include "pageedit/pictureframe.h"

#include <QClipboard>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSpinBox>
#include <QUndoStack>

// Pictures of a page: their files, dialog, frame, drops and the clipboard.
class tst_picturesedited : public CPageTest
{
    Q_OBJECT

private slots:
    void addressOfAFile_leadsBackToIt_data();
    void addressOfAFile_leadsBackToIt();
    void storedFile_isNeverWrittenOver();
    void copiedFile_isTakenWhereItIsThereAlready();
    void fullFolder_isTold();
    void corner_keepsProportions_data();
    void corner_keepsProportions();

    void dialog_proposesTheFilesOwnSize();
    void dialog_offersToCopyWhatThePageMayNotShow();
    void dialog_keepsProportions();

    void click_selectsAndCornerResizes();
    void doubleClick_asksForProperties();
    void dropOfPictures_insertsThem();
    void dropOfOtherFiles_isLeftToTheWindow_data();
    void dropOfOtherFiles_isLeftToTheWindow();
    void pasteOfAPicture_storesItBesideThePage();
    void pasteOfText_isLeftToThePage();
    void pageWithoutFile_takesNoPicture();
    void outsidePicture_isCopiedBesideThePage();

private:
    // A page beside "a.png" of 40 × 20 pixels, with a CPagePictures.
    void open(const QString &strBody)
    {
        QDir().mkpath(m_pCase->path("site"));
        makePicture("site/a.png");
        const QString strPage = m_pCase->write("site/page.html", page(strBody.toUtf8()));
        QVERIFY(loadAndWait(m_pView, strPage));
        m_pView->setFilePath(strPage);
        m_pPictures = new CPagePictures(m_pView);
        selectPlaces(m_pView, takeMarks(m_pView));
        m_pView->setFocus();
        QTRY_VERIFY(run(m_pView,
                        "[].every.call(document.images, function(i) {"
                        "return i.complete && i.naturalWidth; })")
                        .toBool());
    }
    QString makePicture(const QString &strName, QRgb nColor = 0xff336699) const
    {
        QImage image(40, 20, QImage::Format_ARGB32);
        image.fill(nColor);
        if (!image.save(m_pCase->path(strName)))
            qFatal("cannot write a picture");
        return m_pCase->path(strName);
    }
    QRect box() const
    {
        const QVariantList lst = run(m_pView,
                                     "(function(b) { return [b.left, b.top, b.width, b.height]; })"
                                     "(document.querySelector('img').getBoundingClientRect())")
                                     .toList();
        return {lst.at(0).toInt(), lst.at(1).toInt(), lst.at(2).toInt(), lst.at(3).toInt()};
    }
    // Fills in the dialogs that come while its result lives and accepts them.
    CModalAnswer<CDlgPicture> answerWith(const QString &strAlt)
    {
        m_nAnswered = 0;
        return CModalAnswer<CDlgPicture>([=](CDlgPicture *pDialog) {
            pDialog->findChild<QLineEdit *>("editAlt")->setText(strAlt);
            ++m_nAnswered;
            pDialog->accept();
        });
    }
    bool drop(const QStringList &lstFiles, const QPoint &point)
    {
        QMimeData data;
        QList<QUrl> lstUrls;
        for (const QString &strFile : lstFiles)
            lstUrls.append(QUrl::fromLocalFile(strFile));
        data.setUrls(lstUrls);
        QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.setAccepted(false);
        QCoreApplication::sendEvent(m_pView, &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(point, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_pView, &event);
        return event.isAccepted();
    }

    CPagePictures *m_pPictures = nullptr;
    int m_nAnswered = 0;
};

void tst_picturesedited::addressOfAFile_leadsBackToIt_data()
{
    QTest::addColumn<QString>("file");
    for (const char *szFile : {"/site/pages/a.png", "/site/pages/img/a.png", "/site/img/a.png",
                               "/site/pages/\u00e4 b#?%.png", "/site/pages/a:b.png"})
        QTest::newRow(szFile) << QString::fromUtf8(szFile);
}

void tst_picturesedited::addressOfAFile_leadsBackToIt()
{
    QFETCH(QString, file);
    const QString strPage = QStringLiteral("/site/pages/page.html");
    QCOMPARE(pictureFile(strPage, fileAddress(file, strPage)), file);
    QCOMPARE(pictureFile(strPage, "http://example.org/a.png"), QString());
}

void tst_picturesedited::storedFile_isNeverWrittenOver()
{
    const QString strPage = m_pCase->write("page.html", "x");
    QString strError;
    put(m_pCase->path("page-1.png"), "old");
    QCOMPARE(storeNew(strPage, "new", &strError), m_pCase->path("page-2.png"));
    QCOMPARE(storeNew(strPage, "new", &strError), m_pCase->path("page-3.png"));
    QCOMPARE(contents(m_pCase->path("page-1.png")), QByteArray("old"));
    QCOMPARE(contents(m_pCase->path("page-2.png")), QByteArray("new"));
}

void tst_picturesedited::copiedFile_isTakenWhereItIsThereAlready()
{
    QDir().mkpath(m_pCase->path("site"));
    const QString strPage = m_pCase->write("site/page.html", "x");
    const QString strFile = m_pCase->write("b.tar.png", "bytes");
    QString strError;
    const QString strFirst = copyBeside(strPage, strFile, &strError);
    QCOMPARE(strFirst, m_pCase->path("site/b.tar.png"));
    QCOMPARE(copyBeside(strPage, strFile, &strError), strFirst);
    put(strFile, "other");
    QCOMPARE(copyBeside(strPage, strFile, &strError), m_pCase->path("site/b.tar-1.png"));
    QCOMPARE(contents(strFirst), QByteArray("bytes"));
}

void tst_picturesedited::fullFolder_isTold()
{
    QString strError;
    QVERIFY(storeNew(m_pCase->path("none/page.html"), "new", &strError).isEmpty());
    QVERIFY(!strError.isEmpty());
    QVERIFY(copyBeside(m_pCase->path("page.html"), m_pCase->path("none.png"), &strError).isEmpty());
    QVERIFY(!strError.isEmpty());
}

void tst_picturesedited::corner_keepsProportions_data()
{
    QTest::addColumn<QPoint>("from");
    QTest::addColumn<QPoint>("to");
    QTest::addColumn<QRect>("rect");
    const QRect old(100, 100, 40, 20);
    QTest::newRow("larger by width")
        << old.bottomRight() << QPoint(179, 119) << QRect(100, 100, 80, 40);
    QTest::newRow("larger by height")
        << old.bottomRight() << QPoint(139, 139) << QRect(100, 100, 80, 40);
    QTest::newRow("smaller") << old.bottomRight() << QPoint(119, 109) << QRect(100, 100, 20, 10);
    QTest::newRow("from the left") << old.topLeft() << QPoint(60, 100) << QRect(60, 80, 80, 40);
    QTest::newRow("from the right above")
        << old.topRight() << QPoint(179, 119) << QRect(100, 80, 80, 40);
    QTest::newRow("from the left below")
        << old.bottomLeft() << QPoint(60, 110) << QRect(60, 100, 80, 40);
    QTest::newRow("beyond the other corner")
        << old.bottomRight() << QPoint(0, 0) << QRect(100, 100, 16, 8);
}

void tst_picturesedited::corner_keepsProportions()
{
    QFETCH(QPoint, from);
    QFETCH(QPoint, to);
    const QRect old(100, 100, 40, 20);
    QTEST(resized(old, cornerAt(old, from), to), "rect");
    QCOMPARE(cornerAt(old, old.center()), PictureCorner::None);
}

void tst_picturesedited::dialog_proposesTheFilesOwnSize()
{
    const QString strPage = m_pCase->write("page.html", "x");
    CDlgPicture dialog(strPage, nullptr);
    dialog.setFile(makePicture("a b.png"));
    QCOMPARE(dialog.picture().strAddress, QStringLiteral("a%20b.png"));
    QCOMPARE(dialog.picture().nWidth, 40);
    QCOMPARE(dialog.picture().nHeight, 20);
    QVERIFY(!dialog.isCopyWanted());
}

void tst_picturesedited::dialog_offersToCopyWhatThePageMayNotShow()
{
    QDir().mkpath(m_pCase->path("site/sub/deep/page"));
    const QString strPage = m_pCase->write("site/sub/deep/page/page.html", "x");
    CDlgPicture dialog(strPage, nullptr);
    dialog.show();
    dialog.setFile(makePicture("a.png"));
    QVERIFY(dialog.isCopyWanted());
    dialog.setFile(makePicture("site/sub/a.png"));
    QVERIFY(!dialog.isCopyWanted());
}

void tst_picturesedited::dialog_keepsProportions()
{
    const QString strPage = m_pCase->write("page.html", "x");
    CDlgPicture dialog(strPage, nullptr);
    dialog.setFile(makePicture("a.png"));
    dialog.findChild<QSpinBox *>("boxWidth")->setValue(100);
    QCOMPARE(dialog.picture().nHeight, 50);
    dialog.findChild<QSpinBox *>("boxHeight")->setValue(10);
    QCOMPARE(dialog.picture().nWidth, 20);
}

void tst_picturesedited::click_selectsAndCornerResizes()
{
    open("<p>one <img src=\"a.png\" alt=\"A\"> two|</p>");
    QTest::mouseClick(m_pView, Qt::LeftButton, Qt::NoModifier, box().center());
    QVERIFY(m_pView->selectedHtml().contains("<img"));
    const QRect old = box();
    const QPoint corner = old.bottomRight();
    QTest::mousePress(m_pView, Qt::LeftButton, Qt::NoModifier, corner);
    QTest::mouseMove(m_pView, corner + QPoint(40, 20));
    QTest::mouseRelease(m_pView, Qt::LeftButton, Qt::NoModifier, corner + QPoint(40, 20));
    QCOMPARE(
        body(),
        QStringLiteral("<p>one <img src=\"a.png\" alt=\"A\" width=\"80\" height=\"40\"> two</p>"));
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), QStringLiteral("<p>one <img src=\"a.png\" alt=\"A\"> two</p>"));
    // Elsewhere, a click sets the caret.
    QTest::mouseClick(m_pView, Qt::LeftButton, Qt::NoModifier,
                      QPoint(box().right() + 30, old.center().y()));
    QVERIFY(m_pView->selectedHtml().isEmpty());
}

void tst_picturesedited::doubleClick_asksForProperties()
{
    open("<p>|<img src=\"a.png\" alt=\"A\"></p>");
    const auto answer = answerWith("B");
    QTest::mouseDClick(m_pView, Qt::LeftButton, Qt::NoModifier, box().center());
    QTRY_COMPARE(m_nAnswered, 1);
    QTRY_COMPARE(body(), QStringLiteral("<p><img src=\"a.png\" alt=\"B\"></p>"));
}

void tst_picturesedited::dropOfPictures_insertsThem()
{
    open("<p>one</p><p>|two</p>");
    const QPoint first(
        run(m_pView, "document.querySelector('p').getBoundingClientRect().left").toInt() + 300,
        run(m_pView, "document.querySelector('p').getBoundingClientRect().top").toInt() + 5);
    const auto answer = answerWith("A & \"B\"");
    QVERIFY(drop({m_pCase->path("site/a.png")}, first));
    QTRY_COMPARE(body(),
                 QStringLiteral("<p>one<img src=\"a.png\" alt=\"A &amp; &quot;B&quot;\" "
                                "width=\"40\" height=\"20\"></p><p>two</p>"));
}

void tst_picturesedited::dropOfOtherFiles_isLeftToTheWindow_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::newRow("a text") << QStringList {"site/page.html"};
    QTest::newRow("a picture and a text") << QStringList {"site/a.png", "site/page.html"};
    QTest::newRow("a missing picture") << QStringList {"site/none.png"};
    QTest::newRow("a folder") << QStringList {"site"};
}

void tst_picturesedited::dropOfOtherFiles_isLeftToTheWindow()
{
    QFETCH(QStringList, files);
    open("<p>|one</p>");
    for (QString &strFile : files)
        strFile = m_pCase->path(strFile);
    QVERIFY(!drop(files, QPoint(20, 20)));
}

void tst_picturesedited::pasteOfAPicture_storesItBesideThePage()
{
    open("<p>one|</p>");
    QImage image(6, 4, QImage::Format_RGB32);
    image.fill(Qt::red);
    QGuiApplication::clipboard()->setImage(image);
    for (int n = 1; n <= 2; ++n) {
        const auto answer = answerWith(QString());
        m_pView->triggerEdit(QWebPage::Paste);
        QCOMPARE(m_nAnswered, 1);
        QCOMPARE(QImage(m_pCase->path(QStringLiteral("site/page-%1.png").arg(n))).size(),
                 QSize(6, 4));
    }
    QVERIFY(body().contains("<img src=\"page-1.png\" alt=\"\" width=\"6\" height=\"4\">"));
    QCOMPARE(m_pView->page()->undoStack()->count(), 2);
}

void tst_picturesedited::pasteOfText_isLeftToThePage()
{
    open("<p>one|</p>");
    auto *pData = new QMimeData;
    pData->setImageData(QImage(6, 4, QImage::Format_RGB32));
    pData->setHtml("<p>words and <img src=\"x.png\"></p>");
    QVERIFY(!m_pPictures->takesPaste(pData));
    pData->setHtml("<img src=\"http://example.org/x.png\">");
    QVERIFY(m_pPictures->takesPaste(pData));
    pData->setHtml(QString());
    pData->setText("words");
    QVERIFY(!m_pPictures->takesPaste(pData));
    delete pData;
}

void tst_picturesedited::pageWithoutFile_takesNoPicture()
{
    set("<p>one</p>");
    m_pPictures = new CPagePictures(m_pView);
    QSignalSpy spy(m_pView, &CEditWebView::statusMessage);
    QGuiApplication::clipboard()->setImage(QImage(6, 4, QImage::Format_RGB32));
    m_pView->triggerEdit(QWebPage::Paste);
    m_pPictures->insertFiles({m_pCase->path("a.png")});
    QCOMPARE(spy.count(), 2);
    QCOMPARE(body(), QStringLiteral("<p>one</p>"));
}

void tst_picturesedited::outsidePicture_isCopiedBesideThePage()
{
    QDir().mkpath(m_pCase->path("deep/er/site"));
    open("<p>one|</p>");
    const QString strPage = m_pCase->write("deep/er/site/page.html", page("<p>one</p>"));
    QVERIFY(loadAndWait(m_pView, strPage));
    m_pView->setFilePath(strPage);
    selectElement(m_pView, "p");
    const auto answer = answerWith("A");
    m_pPictures->insertFiles({makePicture("b.png")});
    QCOMPARE(body(),
             QStringLiteral("<p>one<img src=\"b.png\" alt=\"A\" width=\"40\" height=\"20\"></p>"));
    QCOMPARE(contents(m_pCase->path("deep/er/site/b.png")), contents(m_pCase->path("b.png")));
}

QTEST_MAIN(tst_picturesedited)
#include "tst_picturesedited.moc"
