// Find in Files within the window, and documents whose files are replaced or renamed there.
#include "cwindowfixture.h"

#include "browser/cwidgetfavorfilelist.h"
#include "findinfiles/cwidgetfindinfiles.h"

#include <QCheckBox>
#include <QDir>
#include <QDockWidget>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

class tst_findpanel : public QObject
{
    Q_OBJECT

private slots:
    void key_showsTheHiddenDockWithTheSelection()
    {
        CWindowFixture f;
        QVERIFY(QTest::qWaitForWindowActive(&f.window()));
        auto *pDock = f.window().findChild<QDockWidget *>("Find in Files");
        QVERIFY(!pDock->isVisible());
        f.window().openFile(f.file("a.txt", "one two\n"));
        f.editor()->find("two", true, nullptr);
        QTest::keyClick(f.editor(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        QTRY_VERIFY(pDock->isVisible());
        QCOMPARE(field(f, "editText")->text(), QStringLiteral("two"));
        QTRY_VERIFY(field(f, "editText")->hasFocus());
        const QString strFolder = QDir::fromNativeSeparators(field(f, "editFolder")->text());
        QVERIFY(QFileInfo(f.path("a.txt")).absolutePath().startsWith(strFolder));
    }

    void match_isShownSelected_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("text") << "a.txt";
        QTest::newRow("page") << "a.html";
    }
    void match_isShownSelected()
    {
        QFETCH(QString, name);
        CWindowFixture f;
        f.file(name, "<p>one</p>\n<p>a needle</p>\n");
        QVERIFY(find(f, "needle"));
        choose(f);
        QCOMPARE(f.window().currentDocument().path(), f.path(name));
        QTRY_VERIFY(f.editor());
        QCOMPARE(f.editor()->textCursor().selectedText(), QStringLiteral("needle"));
        QCOMPARE(f.editor()->textCursor().blockNumber(), 1);
    }

    void replacedFile_isReadAgain()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old\n");
        f.window().openFile(strPath);
        QVERIFY(find(f, "old"));
        replace(f, "new");
        QTRY_COMPARE(f.editor()->getText(), QStringLiteral("new\n"));
        QVERIFY(!f.editor()->isModified());
    }

    void unsavedDocument_isLeftAlone()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old\n");
        f.window().openFile(strPath);
        QVERIFY(find(f, "old"));
        f.editor()->insertPlainText("more ");
        replace(f, "new");
        QTRY_VERIFY(tree(f)->model()->index(0, 0).data().toString().contains("unsaved"));
        QCOMPARE(f.editor()->getText(), QStringLiteral("more old\n"));
        QFile file(strPath);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("old\n"));
    }

    void renamedFile_isFollowed()
    {
        CWindowFixture f;
        const QString strOld = f.file("a.txt");
        f.window().openFile(strOld);
        f.editor()->insertPlainText("unsaved ");
        const QString strNew = f.path("b.txt");
        QVERIFY(QFile::rename(strOld, strNew));
        emit browser(f)->fileRenamed(strOld, strNew);
        QCOMPARE(f.window().currentDocument().path(), strNew);
        QVERIFY(f.editor()->isModified());
        QCOMPARE(f.tabs().tabToolTip(0), strNew);
        QVERIFY(f.window().windowTitle().contains("b.txt"));
        f.action("actionSave")->trigger();
        QVERIFY(!QFile::exists(strOld));
        QVERIFY(!f.editor()->isModified());
    }

    void renamedFolder_takesItsDocumentsAlong()
    {
        CWindowFixture f;
        QVERIFY(QDir().mkpath(f.path("sub")));
        QVERIFY(QDir().mkpath(f.path("subway")));
        f.window().openFile(f.file("sub/a.txt"));
        f.window().openFile(f.file("subway/b.txt"));
        QVERIFY(QDir().rename(f.path("sub"), f.path("new")));
        emit browser(f)->fileRenamed(f.path("sub"), f.path("new"));
        QCOMPARE(f.tabs().tabToolTip(0), f.path("new/a.txt"));
        QCOMPARE(f.tabs().tabToolTip(1), f.path("subway/b.txt"));
    }

    void windowThatClosesWhileItSearches_isClean()
    {
        CWindowFixture f;
        for (int n = 0; n < 300; ++n)
            f.file(QString::number(n), QByteArray("needle\n").repeated(100));
        openPanel(f);
        field(f, "editText")->setText("needle");
        QTest::keyClick(field(f, "editText"), Qt::Key_Return);
    }

private:
    static QLineEdit *field(CWindowFixture &f, const char *szName)
    {
        return f.window().findChild<QLineEdit *>(QLatin1String(szName));
    }
    static QTreeView *tree(CWindowFixture &f)
    {
        return f.window().findChild<CWidgetFindInFiles *>()->findChild<QTreeView *>();
    }
    static CWidgetFavorFileList *browser(CWindowFixture &f)
    {
        return f.window().findChild<CWidgetFavorFileList *>();
    }

    static void openPanel(CWindowFixture &f)
    {
        f.window().findChild<QDockWidget *>("Find in Files")->show();
        QTRY_VERIFY(f.window().findChild<CWidgetFindInFiles *>());
    }

    static bool find(CWindowFixture &f, const char *szText)
    {
        openPanel(f);
        field(f, "editFolder")->setText(f.path(QString()));
        field(f, "editText")->setText(QLatin1String(szText));
        QTest::keyClick(field(f, "editText"), Qt::Key_Return);
        const auto *pCancel = f.window().findChild<QPushButton *>("btnCancel");
        return QTest::qWaitFor([&] { return !pCancel->isEnabled(); })
            && tree(f)->model()->rowCount() == 1;
    }

    static void choose(CWindowFixture &f)
    {
        const QModelIndex file = tree(f)->model()->index(0, 0);
        tree(f)->setCurrentIndex(tree(f)->model()->index(0, 0, file));
        QTest::keyClick(tree(f), Qt::Key_Return);
    }

    static void replace(CWindowFixture &f, const char *szText)
    {
        f.window().findChild<QCheckBox *>("checkReplace")->setChecked(true);
        field(f, "editReplace")->setText(QLatin1String(szText));
        f.window().findChild<QPushButton *>("btnReplace")->click();
    }
};

QTEST_MAIN(tst_findpanel)
#include "tst_findpanel.moc"
