#include "cwindowfixture.h"

#include "document/cdocument.h"
#include "mainwindow/cnoticebar.h"
#include "tests/support/boxanswer.h"

#ifdef Q_OS_LINUX
#include "support/creadonlyfile.h"
#endif

#include <QDirIterator>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>

namespace {

int draftsOnDisk()
{
    int nCount = 0;
    QDirIterator it(CWindowFixture::draftFolder(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        nCount += QFileInfo(it.next()).fileName() == "lock" ? 0 : 1;
    return nCount;
}

CNoticeBar *bar(CWindowFixture &f)
{
    return f.window().findChild<CNoticeBar *>();
}

void press(CWindowFixture &f, const QString &strText)
{
    const auto lstButtons = bar(f)->findChildren<QPushButton *>();
    for (QPushButton *pButton : lstButtons) {
        if (pButton->text() == strText) {
            pButton->click();
            return;
        }
    }
    QFAIL(qPrintable("no button " + strText));
}

void write(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(data), qint64(data.size()));
}

} // namespace

class tst_guard : public QObject
{
    Q_OBJECT

private slots:
    void init() { QDir(CWindowFixture::draftFolder()).removeRecursively(); }

    void unsavedTextOfAnEndedProgram_isRecovered()
    {
        QTemporaryDir folder;
        const QString strPath = QDir::toNativeSeparators(folder.filePath("a.cpp"));
        write(strPath, "disk");
        {
            CWindowFixture f;
            f.window().openFile(strPath);
            f.editor()->insertPlainText(QString::fromUtf8("mine é "));
            f.action("actionNewText")->trigger();
            f.editor()->insertPlainText("untitled text");
        } // Ends as Exit does: nobody was asked.
        QCOMPARE(draftsOnDisk(), 2);
        {
            CWindowFixture f;
            QTRY_VERIFY(bar(f)->text().contains("left unsaved"));
            const auto *pList = bar(f)->findChild<QListWidget *>();
            QVERIFY(pList->isVisible());
            QCOMPARE(pList->count(), 2);
            QCOMPARE(pList->selectedItems().size(), 2);
            QCOMPARE(pList->findItems("a.cpp", Qt::MatchStartsWith).size(), 1);
            QCOMPARE(pList->findItems("Untitled", Qt::MatchExactly).size(), 1);
            press(f, "Recover");
            QTRY_COMPARE(f.tabs().count(), 2);
            QTRY_COMPARE(bar(f)->text(), QString());
            f.tabs().setCurrentIndex(0);
            if (f.window().currentDocument().path() != strPath)
                f.tabs().setCurrentIndex(1);
            const CDocument &document = f.window().currentDocument();
            QCOMPARE(document.path(), strPath);
            QVERIFY(document.isModified());
            QCOMPARE(document.editor()->toPlainText(), QString::fromUtf8("mine é disk"));
            QCOMPARE(CWindowFixture::content(strPath), QByteArray("disk"));
            // Their drafts, written again before the old ones were removed.
            QCOMPARE(draftsOnDisk(), 2);
            QVERIFY(f.settings().getRecentFileList().isEmpty());
        }
    }

    void discarded_isNotOfferedAgain()
    {
        {
            CWindowFixture f;
            f.action("actionNewText")->trigger();
            f.editor()->insertPlainText("x");
        }
        {
            CWindowFixture f;
            QTRY_VERIFY(!bar(f)->text().isEmpty());
            press(f, "Discard");
            QTRY_COMPARE(draftsOnDisk(), 0);
            QCOMPARE(f.tabs().count(), 0);
        }
        CWindowFixture f;
        QCoreApplication::processEvents();
        QCOMPARE(bar(f)->text(), QString());
    }

    void draft_goesWithSaveUndoAndNo_data()
    {
        QTest::addColumn<QString>("how");
        for (const char *szHow : {"save", "undo", "no"})
            QTest::newRow(szHow) << QString::fromLatin1(szHow);
    }

    void draft_goesWithSaveUndoAndNo()
    {
        QFETCH(QString, how);
        CWindowFixture f;
        f.window().openFile(f.file("a.txt", "old"));
        f.editor()->insertPlainText("x");
        QTRY_COMPARE_WITH_TIMEOUT(draftsOnDisk(), 1, 10000);
        CBoxAnswer answer({QMessageBox::No});
        if (how == "save")
            QVERIFY(f.window().on_actionSave_triggered());
        else if (how == "undo")
            f.action("actionUndo")->trigger();
        else
            f.window().onTabCloseRequested(0);
        QTRY_COMPARE(draftsOnDisk(), 0);
    }

    void fileChangedOutside_raisesOneBarWithRefresh()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.window().openFile(f.file("b.txt"));
        write(strPath, "changed outside");
        f.tabs().setCurrentIndex(0);
        QTRY_VERIFY(bar(f)->text().contains(strPath));
        f.tabs().setCurrentIndex(1);
        QCOMPARE(bar(f)->text(), QString());
        f.tabs().setCurrentIndex(0);
        press(f, "Refresh");
        QCOMPARE(f.editor()->toPlainText(), QStringLiteral("changed outside"));
        QTRY_COMPARE(bar(f)->text(), QString());
    }

    void ownSave_raisesNoBar()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("longer ");
        QVERIFY(f.window().on_actionSave_triggered());
        QSignalSpy spy(&f.window().currentDocument(), &CDocument::noticeChanged);
        QVERIFY(!spy.wait(1000));
        QCOMPARE(bar(f)->text(), QString());
    }

    void saveOverAChangedFile_asksInTheBarFirst()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("mine ");
        write(strPath, "theirs, and longer");
        QVERIFY(!f.window().on_actionSave_triggered());
        QCOMPARE(f.content(strPath), QByteArray("theirs, and longer"));
        QCOMPARE(bar(f)->text(),
                 QString("Not saved: another program has changed " + strPath + '.'));
        press(f, "Overwrite");
        QCOMPARE(f.content(strPath), QByteArray("mine old"));
        QVERIFY(!f.window().currentDocument().isModified());
        QTRY_COMPARE(bar(f)->text(), QString());
    }

    void deletedFile_isWrittenAgainBySave()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        QVERIFY(QFile::remove(strPath));
        QTRY_VERIFY(bar(f)->text().contains(strPath));
        QVERIFY(f.window().on_actionSave_triggered());
        QCOMPARE(f.content(strPath), QByteArray("old"));
    }

    void binaryFile_isNotOverwrittenWithoutAsking()
    {
        CWindowFixture f;
        // A picture under a text's name, which no codec can write back.
        const QByteArray data = f.content(QUILLAN_SOURCE_DIR "/res/res/open.png");
        const QString strPath = f.file("a.bin", data);
        f.window().openFile(strPath);
        QVERIFY(!f.label("labelMessage").isEmpty());
        f.editor()->insertPlainText("x");
        QVERIFY(!f.window().on_actionSave_triggered());
        QCOMPARE(f.content(strPath), data);
        QVERIFY(bar(f)->text().startsWith("Not saved: not all of " + strPath));
        press(f, "Overwrite");
        QVERIFY(f.content(strPath) != data);
    }

#ifdef Q_OS_LINUX
    void readOnlyFile_isSaidToBeSoAndStaysAsItIs()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "text\n");
        const CReadOnlyFile readOnly(strPath);
        if (!readOnly.isReadOnly())
            QSKIP("Needs a mount of its own.");
        f.window().openFile(strPath);
        QCOMPARE(f.label("labelMessage"), QString("The file is read-only."));
        f.editor()->insertPlainText("more ");
        const CBoxAnswer answer({QMessageBox::Ok});
        QVERIFY(!f.window().on_actionSave_triggered());
        QCOMPARE(answer.boxes().size(), 1);
        QVERIFY(f.editor()->document()->isModified());
        QCOMPARE(f.content(strPath), QByteArray("text\n"));
    }
#endif
};

QTEST_MAIN(tst_guard)
#include "tst_guard.moc"
