// The Language menu and the label in the status bar, with the definitions that come with the
// program: this test has its own folder, beside theirs.

#include "cwindowfixture.h"

#include "highlight/chighlightmgt.h"
#include "tests/support/boxanswer.h"

#include <QMenu>
#include <QMessageBox>
#include <QTextBlock>

class tst_languagemenu : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // Copies, as not every system gives a link to a folder to anybody who asks.
        QDir copies(QCoreApplication::applicationDirPath() + "/highlighter");
        QFile::remove(copies.path()); // A link, as it once was here.
        QVERIFY(copies.removeRecursively());
        QVERIFY(copies.mkpath("."));
        const QDir definitions(QUILLAN_SOURCE_DIR "/highlighter");
        for (const QString &strName : definitions.entryList(QDir::Files))
            QVERIFY(QFile::copy(definitions.filePath(strName), copies.filePath(strName)));
    }

    void languages_standInTheOrderOfTheirFiles()
    {
        CWindowFixture f;
        QStringList lstExpected;
        const CHighlightMgt registry(QUILLAN_SOURCE_DIR "/highlighter", nullptr);
        for (const QVariant &entry : registry.table())
            lstExpected.append(entry.toMap().value("name").toString());
        QVERIFY(lstExpected.size() > 20);
        QStringList lstShown;
        const auto lst = f.window().findChild<QMenu *>("menuLanguage")->actions();
        for (const QAction *pAction : lst)
            lstShown.append(pAction->isSeparator() ? "-" : pAction->text());
        QCOMPARE(lstShown, QStringList(lstExpected + QStringList({"-", "Unknown Format"})));
    }

    void openedFile_hasTheLanguageOfItsName()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.cpp", "int x; // y"));
        QCOMPARE(f.label("labelLanguage"), QStringLiteral("  C++"));
        QCOMPARE(checkedLanguages(f), QStringList("C++"));
        f.window().openFile(f.file("a.none", "text"));
        QCOMPARE(f.label("labelLanguage"), QStringLiteral("  Unknown Language"));
        QCOMPARE(checkedLanguages(f), QStringList("Unknown Format"));
    }

    void chosenLanguage_coloursTheText()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.none", "# comment"));
        language(f, "Python")->trigger();
        QCOMPARE(f.editor()->languageName(), QStringLiteral("Python"));
        QCOMPARE(f.label("labelLanguage"), QStringLiteral("  Python"));
        QCOMPARE(checkedLanguages(f), QStringList("Python"));
        QTRY_VERIFY(!formats(f).isEmpty());
        QVERIFY(!f.window().currentDocument().isModified());
    }

    void unknownFormat_takesTheColoursAway()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.cpp", "int x; // y"));
        QTRY_VERIFY(!formats(f).isEmpty());
        QVERIFY(f.action("actionToggle_Comment")->isVisible());
        f.action("actionUnknown")->trigger();
        QCOMPARE(f.editor()->languageName(), QString());
        QCOMPARE(f.label("labelLanguage"), QStringLiteral("  Unknown Language"));
        QVERIFY(formats(f).isEmpty());
        QCOMPARE(checkedLanguages(f), QStringList("Unknown Format"));
    }

    void chosenLanguage_decidesWhatCanBeVerified()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.none", "<a></a>"));
        QVERIFY(!f.action("actionVerify_Valid")->isEnabled());
        language(f, "XML")->trigger();
        QVERIFY(f.action("actionVerify_Valid")->isEnabled());
        QVERIFY(f.action("actionFormatting")->isEnabled());
        const CBoxAnswer answer;
        f.action("actionVerify_Valid")->trigger();
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(answer.boxes().first().icon, QMessageBox::Information);
        QCOMPARE(answer.boxes().first().strTitle, QStringLiteral("OK"));
        QCOMPARE(answer.boxes().first().strText,
                 QStringLiteral("The format of the content is good."));
    }

    void image_hasNoLanguage()
    {
        CWindowFixture f;
        f.window().openFile(f.image("i.png"));
        language(f, "Python")->trigger();
        QCOMPARE(f.label("labelLanguage"), QString());
    }

private:
    static QAction *language(CWindowFixture &f, const QString &strName)
    {
        const auto lst = f.window().findChild<QMenu *>("menuLanguage")->actions();
        for (QAction *pAction : lst)
            if (pAction->text() == strName)
                return pAction;
        qFatal("no such language: %s", qPrintable(strName));
    }

    static QStringList checkedLanguages(CWindowFixture &f)
    {
        QStringList lstNames;
        const auto lst = f.window().findChild<QMenu *>("menuLanguage")->actions();
        for (const QAction *pAction : lst)
            if (pAction->isChecked())
                lstNames.append(pAction->text());
        return lstNames;
    }

    static QVector<QTextLayout::FormatRange> formats(CWindowFixture &f)
    {
        return f.editor()->document()->firstBlock().layout()->formats();
    }
};

QTEST_MAIN(tst_languagemenu)
#include "tst_languagemenu.moc"
