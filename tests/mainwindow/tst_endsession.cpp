// The end of a session, as Windows announces it to each window.

#include "cwindowfixture.h"

#include "tests/support/boxanswer.h"

#include <QDirIterator>
#include <QMessageBox>

#include <qt_windows.h>

class tst_endsession : public QObject
{
    Q_OBJECT

private slots:
    void drafts_areWrittenBeforeTheWindowAsks()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("typed ");
        QVERIFY(!draftsHold("typed old"));
        bool bWritten = false;
        const CBoxAnswer answer({QMessageBox::Cancel}, [&] { bWritten = draftsHold("typed old"); });
        QVERIFY(!mayEnd(f));
        QCOMPARE(answer.boxes().size(), 1);
        QVERIFY(bWritten);
        QCOMPARE(saved(strPath), QByteArray("old"));
        goOn(f);
        QVERIFY(f.window().isVisible());
        QVERIFY(f.window().currentDocument().isModified());
    }

    void savedFile_letsTheSessionEnd()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("typed ");
        const CBoxAnswer answer({QMessageBox::YesToAll});
        QVERIFY(mayEnd(f));
        QCOMPARE(answer.boxes().size(), 1);
        QCOMPARE(saved(strPath), QByteArray("typed old"));
        goOn(f);
    }

private:
    static bool mayEnd(CWindowFixture &f)
    {
        const auto hWindow = reinterpret_cast<HWND>(f.window().winId());
        return SendMessageW(hWindow, WM_QUERYENDSESSION, 0, LPARAM(ENDSESSION_LOGOFF)) != 0;
    }

    // Somebody has refused.
    static void goOn(CWindowFixture &f)
    {
        const auto hWindow = reinterpret_cast<HWND>(f.window().winId());
        SendMessageW(hWindow, WM_ENDSESSION, FALSE, LPARAM(ENDSESSION_LOGOFF));
    }

    static QByteArray saved(const QString &strPath)
    {
        QFile file(strPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static bool draftsHold(const QByteArray &text)
    {
        bool bHeld = false;
        QDirIterator it(CWindowFixture::draftFolder(), QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            bHeld = saved(it.next()).contains(text) || bHeld;
        return bHeld;
    }
};

QTEST_MAIN(tst_endsession)
#include "tst_endsession.moc"
