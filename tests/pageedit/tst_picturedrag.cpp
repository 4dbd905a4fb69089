#include "pagecases.h"

#include "pageedit/cpicturemouse.h"

#include <QApplication>
#include <QImage>
#include <QUndoStack>

// A picture that the mouse moves to another place in the text.
class tst_picturedrag : public CPageTest
{
    Q_OBJECT

private slots:
    void drag_movesThePicture_data();
    void drag_movesThePicture();
    void drag_isOneStepAndKeepsAddresses();
    void dragOfALetterOrTwo_isAClick();
    void escape_endsTheDrag();
    void dropOutsideTheView_changesNothing();

private:
    void open(const QString &strBody)
    {
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::blue);
        QVERIFY(image.save(m_pCase->path("a.png")));
        const QString strPage = m_pCase->write("page.html", page(strBody.toUtf8()));
        QVERIFY(loadAndWait(m_pView, strPage));
        m_pView->setFilePath(strPage);
        new CPictureMouse(m_pView);
        m_pView->setFocus();
        QTRY_VERIFY(run(m_pView, "document.images[0].naturalWidth").toInt() > 0);
    }
    QPoint middleOf(const QString &strSelector) const
    {
        const QVariantList lst = run(m_pView,
                                     QStringLiteral("(function(b) { return [(b.left + b.right) / 2,"
                                                    " (b.top + b.bottom) / 2]; })(document"
                                                    ".querySelector('%1').getBoundingClientRect())")
                                         .arg(strSelector))
                                     .toList();
        return {lst.value(0).toInt(), lst.value(1).toInt()};
    }
    // Right behind the text of an element.
    QPoint endOf(const QString &strSelector) const
    {
        const QVariantList lst =
            run(m_pView,
                QStringLiteral("(function(e) { var r = document.createRange(), b;"
                               "  r.selectNodeContents(e);"
                               "  b = r.getBoundingClientRect();"
                               "  return [b.right, (b.top + b.bottom) / 2];"
                               "})(document.querySelector('%1'))")
                    .arg(strSelector))
                .toList();
        return {lst.value(0).toInt() + 1, lst.value(1).toInt()};
    }
    void press(const QPoint &point)
    {
        QTest::mousePress(m_pView, Qt::LeftButton, Qt::NoModifier, point);
    }
    void move(const QPoint &point)
    {
        QMouseEvent event(QEvent::MouseMove, point, m_pView->mapToGlobal(point), Qt::NoButton,
                          Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_pView, &event);
    }
    void release(const QPoint &point)
    {
        QTest::mouseRelease(m_pView, Qt::LeftButton, Qt::NoModifier, point);
    }
    void drag(const QPoint &from, const QPoint &to)
    {
        press(from);
        move((from + to) / 2);
        move(to);
        release(to);
    }
};

void tst_picturedrag::drag_movesThePicture_data()
{
    QTest::addColumn<QString>("before"); // To behind the text of "#to".
    QTest::addColumn<QString>("after");
    const auto row = [](const char *szName, const char *szBefore, const char *szAfter) {
        QTest::newRow(szName) << szBefore << szAfter;
    };
    row("to another paragraph", "<p>one <img src=\"a.png\" alt=\"A\"> two</p>\n<p id=\"to\">x</p>",
        "<p>one two</p>\n<p id=\"to\">x<img src=\"a.png\" alt=\"A\"></p>");
    row("out of a paragraph of its own",
        "<p>one</p>\n<p><img src=\"a.png\" alt=\"A\"></p>\n<p id=\"to\">x</p>",
        "<p>one</p>\n<p id=\"to\">x<img src=\"a.png\" alt=\"A\"></p>");
    row("with its link",
        "<p><a href=\"b.html\"><img src=\"a.png\" alt=\"A\"></a> one</p>"
        "<p id=\"to\">x</p>",
        "<p> one</p><p id=\"to\">x<a href=\"b.html\"><img src=\"a.png\" alt=\"A\"></a></p>");
    row("out of a link with text",
        "<p><a href=\"b.html\">one <img src=\"a.png\" alt=\"A\"></a></p><p id=\"to\">x</p>",
        "<p><a href=\"b.html\">one </a></p><p id=\"to\">x<img src=\"a.png\" alt=\"A\"></p>");
    row("into an item",
        "<p>one<img src=\"a.png\" alt=\"A\"></p>\n<ul>\n<li id=\"to\">x</li>\n</ul>",
        "<p>one</p>\n<ul>\n<li id=\"to\">x<img src=\"a.png\" alt=\"A\"></li>\n</ul>");
    row("out of a cell, which stays",
        "<table><tbody><tr><td><img src=\"a.png\" alt=\"A\"></td><td>y</td></tr></tbody></table>"
        "<p id=\"to\">x</p>",
        "<table><tbody><tr><td></td><td>y</td></tr></tbody></table>"
        "<p id=\"to\">x<img src=\"a.png\" alt=\"A\"></p>");
    row("within its paragraph", "<p id=\"to\"><img src=\"a.png\" alt=\"A\"> one two</p>",
        "<p id=\"to\"> one two<img src=\"a.png\" alt=\"A\"></p>");
    row("a figure with its caption",
        "<figure>\n<img src=\"a.png\" alt=\"A\">\n<figcaption>y</figcaption>\n</figure>\n"
        "<p>one</p>\n<p id=\"to\">x</p>\n<p>two</p>",
        "<p>one</p>\n<p id=\"to\">x</p>\n"
        "<figure>\n<img src=\"a.png\" "
        "alt=\"A\">\n<figcaption>y</figcaption>\n</figure>\n<p>two</p>");
    row("to where it stands", "<p id=\"to\">one<img src=\"a.png\" alt=\"A\"></p>",
        "<p id=\"to\">one<img src=\"a.png\" alt=\"A\"></p>");
}

void tst_picturedrag::drag_movesThePicture()
{
    QFETCH(QString, before);
    QFETCH(QString, after);
    open(before);
    drag(middleOf("img"), endOf("#to"));
    QCOMPARE(body(), after);
    QCOMPARE(m_pView->page()->undoStack()->count(), before == after ? 0 : 1);
    if (before != after)
        m_pView->triggerEdit(QWebPage::Undo);
    QCOMPARE(body(), before);
}

void tst_picturedrag::drag_isOneStepAndKeepsAddresses()
{
    open("<p>one</p>\n<p><IMG SRC=\"./a.png\"  alt=A> two</p>\n<p id=\"to\">x &eacute;</p>");
    drag(middleOf("img"), endOf("#to"));
    QCOMPARE(m_pView->page()->undoStack()->count(), 1);
    QVERIFY(m_pView->selectedHtml().contains("img"));
    const QByteArray saved = m_pView->htmlForSaving();
    QVERIFY2(saved.contains("<p id=\"to\">x &eacute;<img src=\"./a.png\" alt=\"A\"></p>"), saved);
    QVERIFY2(!saved.contains("file:") && !saved.contains("data:"), saved);
    QVERIFY2(saved.contains("<p>one</p>\n"), saved);
}

void tst_picturedrag::dragOfALetterOrTwo_isAClick()
{
    const QString strBody = QStringLiteral("<p>one <img src=\"a.png\" alt=\"A\"> two</p>");
    open(strBody);
    const QPoint start = middleOf("img");
    drag(start, start + QPoint(QApplication::startDragDistance() - 1, 0));
    QCOMPARE(body(), strBody);
    QVERIFY(m_pView->selectedHtml().contains("img"));
}

void tst_picturedrag::escape_endsTheDrag()
{
    const QString strBody =
        QStringLiteral("<p>one <img src=\"a.png\" alt=\"A\"></p><p id=\"to\">x</p>");
    open(strBody);
    press(middleOf("img"));
    move(endOf("#to"));
    QTest::keyClick(m_pView, Qt::Key_Escape);
    release(endOf("#to"));
    QCOMPARE(body(), strBody);
}

void tst_picturedrag::dropOutsideTheView_changesNothing()
{
    const QString strBody = QStringLiteral("<p>one <img src=\"a.png\" alt=\"A\"></p><p>x</p>");
    open(strBody);
    drag(middleOf("img"), QPoint(20, m_pView->height() + 30));
    QCOMPARE(body(), strBody);
}

QTEST_MAIN(tst_picturedrag)
#include "tst_picturedrag.moc"
