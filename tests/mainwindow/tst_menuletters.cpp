// Alt with a letter, wherever the window has the keyboard, with real keys on a real display.

#include "cwindowfixture.h"

#include "web/ceditwebview.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QWebFrame>

namespace {

QString openMenu(CWindowFixture &f)
{
    const QAction *pActive = f.window().menuBar()->activeAction();
    return pActive && pActive->menu() && pActive->menu()->isVisible() ? pActive->menu()->title()
                                                                      : QString();
}

bool activate(CWindowFixture &f)
{
    f.window().activateWindow();
    return QTest::qWaitForWindowActive(&f.window());
}

void closeMenu()
{
    while (QWidget *pPopup = QApplication::activePopupWidget())
        pPopup->close();
}

} // namespace

class tst_menuletters : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { closeMenu(); }

    void everywhere_theMenuOpensAndNothingIsTyped()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().on_actionNewText_triggered();
        QList<QWidget *> lstPlaces = {f.editor(), f.window().findChild<QListView *>(), &f.window()};
        lstPlaces += f.window().findChild<QComboBox *>("comboSize");
        for (QLineEdit *pEdit : f.window().findChildren<QLineEdit *>())
            if (pEdit->isVisible() && pEdit->isEnabled())
                lstPlaces.append(pEdit);
        QVERIFY(lstPlaces.size() >= 5);
        for (QWidget *pPlace : qAsConst(lstPlaces)) {
            if (!pPlace->isVisible() || !pPlace->isEnabled())
                continue;
            pPlace->setFocus();
            const auto *pEdit = qobject_cast<QLineEdit *>(pPlace);
            const QString strBefore = pEdit ? pEdit->text() : QString();
            QTest::keyClick(pPlace, Qt::Key_V, Qt::AltModifier);
            QCOMPARE(openMenu(f), QStringLiteral("View"));
            QVERIFY(!pEdit || pEdit->text() == strBefore);
            closeMenu();
        }
        QCOMPARE(f.editor()->toPlainText(), QString());
    }

    void inAPage_theMenuOpensAndNothingIsTyped()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().on_actionNewHtml_triggered();
        CEditWebView *pPage = f.window().currentDocument().page();
        QTRY_VERIFY(pPage->hasFocus());
        QTest::keyClick(pPage, Qt::Key_H, Qt::AltModifier);
        QCOMPARE(openMenu(f), QStringLiteral("Help"));
        closeMenu();
        QCOMPARE(pPage->page()->mainFrame()->toPlainText().trimmed(), QString());
    }

    void pressedAgain_theNextMenuOfTheLetter()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        QWidget *pList = f.window().findChild<QListView *>();
        pList->setFocus();
        QTest::keyClick(pList, Qt::Key_F, Qt::AltModifier);
        QCOMPARE(openMenu(f), QStringLiteral("File"));
        const auto again = [] {
            QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_F, Qt::AltModifier);
        };
        again();
        QCOMPARE(openMenu(f), QStringLiteral("Format"));
        again();
        QCOMPARE(openMenu(f), QStringLiteral("File"));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_E, Qt::AltModifier);
        QCOMPARE(openMenu(f), QStringLiteral("Edit"));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Q, Qt::AltModifier); // No menu.
        QCOMPARE(openMenu(f), QStringLiteral("Edit"));
    }

    void inTheEditor_pressedAgain_theNextMenu()
    {
        CWindowFixture f;
        QVERIFY(activate(f));
        f.window().on_actionNewText_triggered();
        QTest::keyClick(f.editor(), Qt::Key_F, Qt::AltModifier);
        QCOMPARE(openMenu(f), QStringLiteral("File"));
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_F, Qt::AltModifier);
        QCOMPARE(openMenu(f), QStringLiteral("Format"));
    }
};

QTEST_MAIN(tst_menuletters)
#include "tst_menuletters.moc"
