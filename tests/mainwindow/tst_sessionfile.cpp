#include "mainwindow/session.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

SPlace placeAt(const QString &strPath)
{
    SPlace place;
    place.strPath = strPath;
    return place;
}

QByteArray documents(const QByteArray &json)
{
    return "{\"format\":\"quillan-session-1\",\"documents\":" + json + "}";
}

} // namespace

class tst_sessionfile : public QObject
{
    Q_OBJECT

private slots:
    void session_comesBackAsItWas()
    {
        SSession session;
        SPlace page = placeAt(QStringLiteral("/w/ü & <b> 100%.html"));
        page.bSource = true;
        page.nCaret = 12;
        page.nElements = 7;
        page.scroll = {3, 45};
        session.lstPlaces = {page, placeAt("/w/\"b\"\n.txt")};
        session.strCurrent = page.strPath;
        const SSession back = sessionFromBytes(sessionToBytes(session));
        QCOMPARE(back.lstPlaces.size(), 2);
        QCOMPARE(back.lstPlaces.at(0).strPath, page.strPath);
        QCOMPARE(back.lstPlaces.at(0).bSource, true);
        QCOMPARE(back.lstPlaces.at(0).nCaret, 12);
        QCOMPARE(back.lstPlaces.at(0).nElements, 7);
        QCOMPARE(back.lstPlaces.at(0).scroll, QPoint(3, 45));
        QCOMPARE(back.lstPlaces.at(1).strPath, session.lstPlaces.at(1).strPath);
        QCOMPARE(back.lstPlaces.at(1).bSource, false);
        QCOMPARE(back.strCurrent, page.strPath);
    }

    void nameThatIsNoText_comesBackAsItWas()
    {
        // A byte that is no UTF-8, as names hold it.
        const QString strPath = QStringLiteral("/w/") + QChar(0xdcff) + QStringLiteral(".txt");
        SSession session;
        session.lstPlaces = {placeAt(strPath)};
        QCOMPARE(sessionFromBytes(sessionToBytes(session)).lstPlaces.value(0).strPath, strPath);
    }

    void relativePath_becomesAbsolute()
    {
        SSession session;
        session.lstPlaces = {placeAt("a.txt")};
        QCOMPARE(sessionFromBytes(sessionToBytes(session)).lstPlaces.value(0).strPath,
                 QDir().absoluteFilePath("a.txt"));
    }

    void nonsense_isLeftOut_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("places");
        QTest::newRow("empty") << QByteArray() << 0;
        QTest::newRow("no JSON") << QByteArray("\x89PNG\r\n\x1a\n\0\0", 10) << 0;
        QTest::newRow("a list") << QByteArray("[1,2]") << 0;
        QTest::newRow("another format") << QByteArray("{\"format\":\"x\",\"documents\":[{}]}") << 0;
        QTest::newRow("cut off") << documents("[{\"path\":\"/a\"}]").chopped(2) << 0;
        QTest::newRow("documents are a number") << documents("7") << 0;
        QTest::newRow("entries of other kinds") << documents("[1,null,[],\"/a\",{}]") << 0;
        QTest::newRow("a path of another kind") << documents("[{\"path\":[\"/a\"]}]") << 0;
        QTest::newRow("a relative path") << documents("[{\"path\":\"a\"}]") << 0;
        QTest::newRow("a path with a zero byte") << documents("[{\"path\":\"/a%00b\"}]") << 0;
        QTest::newRow("one of two") << documents("[{\"path\":\"\"},{\"path\":\"/a\"}]") << 1;
        QTest::newRow("deeply nested")
            << documents(QByteArray("[").repeated(5000) + QByteArray("]").repeated(5000)) << 0;
    }

    void nonsense_isLeftOut()
    {
        QFETCH(QByteArray, bytes);
        QTEST(sessionFromBytes(bytes).lstPlaces.size(), "places");
    }

    void numbersOutOfRange_areZero()
    {
        const SSession session = sessionFromBytes(documents(
            "[{\"path\":\"/a\",\"caret\":-3,\"top\":1e300,\"left\":\"x\",\"source\":7}]"));
        QCOMPARE(session.lstPlaces.size(), 1);
        QCOMPARE(session.lstPlaces.at(0).nCaret, 0);
        QCOMPARE(session.lstPlaces.at(0).scroll, QPoint(0, 0));
        QCOMPARE(session.lstPlaces.at(0).bSource, false);
    }

    void tooMany_areLeftOut()
    {
        const QByteArray one = "{\"path\":\"/a\"},";
        const QByteArray many = "[" + one.repeated(g_nMaxSessionPlaces + 5).chopped(1) + "]";
        QCOMPARE(sessionFromBytes(documents(many)).lstPlaces.size(), g_nMaxSessionPlaces);
    }

    void file_isForThisUserAlone()
    {
#ifdef Q_OS_WIN
        QSKIP("The access list of the user's own folder says it there.");
#endif
        QTemporaryDir folder;
        const QString strFile = folder.filePath("data/session");
        SSession session;
        session.lstPlaces = {placeAt("/a")};
        QVERIFY(writeSession(strFile, session));
        QCOMPARE(readSession(strFile).lstPlaces.size(), 1);
        const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther
            | QFile::WriteOther | QFile::ExeOther;
        QCOMPARE(QFile::permissions(strFile) & others, QFile::Permissions());
    }

    void missingFile_isAnEmptySession()
    {
        QTemporaryDir folder;
        QVERIFY(readSession(folder.filePath("none")).lstPlaces.isEmpty());
        QVERIFY(readSession(folder.path()).lstPlaces.isEmpty());
    }

    void placeThatTakesNoFile_isToldAndHarmless()
    {
        QTemporaryDir folder;
        QFile file(folder.filePath("file"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QVERIFY(!writeSession(folder.filePath("file/session"), SSession()));
    }
};

QTEST_GUILESS_MAIN(tst_sessionfile)
#include "tst_sessionfile.moc"
