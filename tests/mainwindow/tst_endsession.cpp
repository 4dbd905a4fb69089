// The end of a session, as Windows announces it to each window.

#include "cwindowfixture.h"

#include <qt_windows.h>

class tst_endsession : public QObject
{
    Q_OBJECT

private slots:
    void typedText_isInADraftWhenTheSystemAsks()
    {
        CWindowFixture f;
        const QString strPath = f.file("a.txt", "old");
        f.window().openFile(strPath);
        f.editor()->insertPlainText("typed ");
        QVERIFY(!draftsHold("typed old"));
        QVERIFY(SendMessageW(windowOf(f), WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF));
        QVERIFY(draftsHold("typed old"));
        QCOMPARE(saved(strPath), QByteArray("old"));
    }

    // Another program may refuse, and the session goes on.
    void sessionThatGoesOn_keepsTheWindow()
    {
        CWindowFixture f;
        f.window().openFile(f.file("a.txt", "old"));
        f.editor()->insertPlainText("typed ");
        QVERIFY(SendMessageW(windowOf(f), WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF));
        SendMessageW(windowOf(f), WM_ENDSESSION, FALSE, ENDSESSION_LOGOFF);
        QVERIFY(f.window().isVisible());
        f.editor()->insertPlainText("more ");
        QVERIFY(f.window().currentDocument().isModified());
        QVERIFY(SendMessageW(windowOf(f), WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF));
        QVERIFY(draftsHold("typed more old"));
    }

private:
    static HWND windowOf(CWindowFixture &f) { return reinterpret_cast<HWND>(f.window().winId()); }

    static QByteArray saved(const QString &strPath)
    {
        QFile file(strPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static bool draftsHold(const QByteArray &text)
    {
        const QDir folder(CWindowFixture::draftFolder());
        const QFileInfoList lst = folder.entryInfoList(QDir::Files);
        return std::any_of(lst.cbegin(), lst.cend(), [&text](const QFileInfo &info) {
            return saved(info.filePath()).contains(text);
        });
    }
};

QTEST_MAIN(tst_endsession)
#include "tst_endsession.moc"
