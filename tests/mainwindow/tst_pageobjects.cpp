#include "cwindowfixture.h"

#include "pageedit/cdlgpicture.h"
#include "tests/support/boxanswer.h"
#include "web/ceditwebview.h"

#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QWebElement>
#include <QWebFrame>

// Files dropped on a window with a page: pictures go into the page, everything else opens.
class tst_pageobjects : public QObject
{
    Q_OBJECT

private:
    CWindowFixture *m_pCase = nullptr;

    void openPage();
    QString picture(const QString &strName) const;
    void drop(QWidget *pTarget, const QString &strFile);
    QString body() const
    {
        const CEditWebView *pPage = m_pCase->window().currentDocument().page();
        return pPage->page()->mainFrame()->findFirstElement(QStringLiteral("body")).toInnerXml();
    }

private slots:
    void init() { m_pCase = new CWindowFixture; }
    void cleanup() { delete m_pCase; }

    void pictureOnAPage_goesIntoIt();
    void otherFileOnAPage_opens();
    void pictureOnTheSource_opens();
    void pictureOnAText_opens();
    void tableMenu_offersWhatCanBeDone();
};

void tst_pageobjects::openPage()
{
    m_pCase->window().openFile(m_pCase->file("page.html", "<!DOCTYPE html><p>one</p>"));
    QVERIFY(m_pCase->window().currentDocument().page());
    QTRY_VERIFY(body().contains("one"));
    QTRY_VERIFY(m_pCase->window().currentDocument().page()->showsOwnFile());
}

QString tst_pageobjects::picture(const QString &strName) const
{
    QImage image(12, 8, QImage::Format_RGB32);
    image.fill(Qt::blue);
    if (!image.save(m_pCase->path(strName)))
        qFatal("cannot write a picture");
    return m_pCase->path(strName);
}

void tst_pageobjects::drop(QWidget *pTarget, const QString &strFile)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(strFile)});
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(pTarget, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(pTarget, &event);
    QVERIFY(event.isAccepted());
}

void tst_pageobjects::pictureOnAPage_goesIntoIt()
{
    openPage();
    const CModalAnswer<CDlgPicture> answer([](CDlgPicture *pDialog) {
        pDialog->findChild<QLineEdit *>(QStringLiteral("editAlt"))->setText("blue");
        pDialog->accept();
    });
    drop(m_pCase->window().currentDocument().page(), picture("a.png"));
    QTRY_VERIFY(body().contains("<img src=\"a.png\" alt=\"blue\" width=\"12\" height=\"8\">"));
    QCOMPARE(m_pCase->tabs().count(), 1);
    QVERIFY(m_pCase->window().currentDocument().isModified());
}

void tst_pageobjects::otherFileOnAPage_opens()
{
    openPage();
    drop(m_pCase->window().currentDocument().page(), m_pCase->file("a.txt", "text"));
    QTRY_COMPARE(m_pCase->tabs().count(), 2);
}

void tst_pageobjects::pictureOnTheSource_opens()
{
    openPage();
    m_pCase->window().findChild<QAction *>(QStringLiteral("actionSwapHtml"))->trigger();
    CHighlightEdit *pSource = m_pCase->window().currentDocument().editor();
    QVERIFY(pSource);
    drop(pSource->viewport(), picture("a.png"));
    QTRY_COMPARE(m_pCase->tabs().count(), 2);
}

void tst_pageobjects::pictureOnAText_opens()
{
    m_pCase->window().openFile(m_pCase->file("a.txt", "text"));
    drop(m_pCase->editor()->viewport(), picture("a.png"));
    QTRY_COMPARE(m_pCase->tabs().count(), 2);
}

void tst_pageobjects::tableMenu_offersWhatCanBeDone()
{
    m_pCase->window().openFile(m_pCase->file(
        "page.html", "<!DOCTYPE html><p>x</p><table><tr><td>one</td><td>two</td></tr></table>"));
    QTRY_VERIFY(m_pCase->window().currentDocument().page() && body().contains("two"));
    CEditWebView *pPage = m_pCase->window().currentDocument().page();
    auto *pMenu = m_pCase->window().findChild<QMenu *>(QStringLiteral("menuTable"));
    const auto enabled = [&](const QString &strSelector) {
        if (!strSelector.isEmpty()) // Else what is selected.
            pPage->page()->mainFrame()->documentElement().evaluateJavaScript(
                QStringLiteral("getSelection().selectAllChildren(document.querySelector('%1'))")
                    .arg(strSelector));
        emit pMenu->aboutToShow();
        QStringList lstEnabled;
        for (const QAction *pAction : pMenu->actions())
            if (pAction->isEnabled() && !pAction->isSeparator() && !pAction->data().isNull())
                lstEnabled.append(pAction->data().toString());
        return lstEnabled;
    };
    QCOMPARE(enabled("p"), QStringList());
    const QStringList lstOne = enabled("td");
    QVERIFY(lstOne.contains("rowBelow") && lstOne.contains("moveRight"));
    QVERIFY(lstOne.contains("deleteRows") && lstOne.contains("deleteTable"));
    for (const char *szOff : {"rowUp", "rowDown", "moveLeft", "merge", "split"})
        QVERIFY2(!lstOne.contains(szOff), szOff);
    pPage->page()->mainFrame()->documentElement().evaluateJavaScript(
        QStringLiteral("(function(c) { getSelection().setBaseAndExtent(c[0].firstChild, 1, "
                       "c[1].firstChild, 2); })(document.querySelectorAll('td'))"));
    QVERIFY(enabled(QString()).contains("merge"));
}

QTEST_MAIN(tst_pageobjects)
#include "tst_pageobjects.moc"
