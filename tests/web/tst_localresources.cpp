#include "web/cpagenetwork.h"
#include "web/localresources.h"

#include <QDir>
#include <QFile>
#include <QNetworkReply>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_localresources : public QObject
{
    Q_OBJECT

private slots:
    void mayReadLocal_data();
    void mayReadLocal();
    void fileOfAnotherMachine_isKnownByItsPath_data();
    void fileOfAnotherMachine_isKnownByItsPath();
    void linkOutOfTheSite_isRefused();
    void deviceAndFolder_areRefused();
    void siteFolder_stopsBelowHome();
    void network_data();
    void network();
    void refusals_areToldByTheEventLoop();

private:
    static void touch(const QString &strPath);
};

void tst_localresources::touch(const QString &strPath)
{
    QDir().mkpath(QFileInfo(strPath).path());
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("x");
}

void tst_localresources::mayReadLocal_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("allowed");

    const char *szPage = "place/site/pages/page.html";
    QTest::newRow("the page itself") << szPage << "place/site/pages/page.html" << true;
    QTest::newRow("beside the page") << szPage << "place/site/pages/a.png" << true;
    QTest::newRow("below the page") << szPage << "place/site/pages/img/deep/a.png" << true;
    QTest::newRow("one folder up") << szPage << "place/site/css/a.css" << true;
    QTest::newRow("two folders up") << szPage << "place/common/a.css" << true;
    QTest::newRow("three folders up") << szPage << "other/a.css" << false;
    QTest::newRow("missing") << szPage << "place/site/pages/none.png" << false;
    QTest::newRow("hidden file") << szPage << "place/site/pages/.secret" << false;
    QTest::newRow("in a hidden folder") << szPage << "place/site/.git/config" << false;
    QTest::newRow("page without folder") << ""
                                         << "place/site/pages/a.png" << false;
    QTest::newRow("page in a missing folder") << "nowhere/page.html"
                                              << "other/a.css" << false;
    QTest::newRow("not above the shared folder") << "other/page.html"
                                                 << "place/common/a.css" << false;
}

void tst_localresources::mayReadLocal()
{
    QFETCH(QString, page);
    QFETCH(QString, file);
    QFETCH(bool, allowed);

    // The folder for temporary files is one that sites share, so it ends the way up.
#ifdef Q_OS_WIN
    const char *const szTemp = "TMP";
#else
    const char *const szTemp = "TMPDIR";
#endif
    const QByteArray arrOldTemp = qgetenv(szTemp);
    QTemporaryDir folder;
    qputenv(szTemp, QFile::encodeName(QDir::toNativeSeparators(folder.path())));
    for (const char *szFile :
         {"place/site/pages/page.html", "place/site/pages/a.png", "place/site/pages/img/deep/a.png",
          "place/site/css/a.css", "place/common/a.css", "other/a.css", "place/site/pages/.secret",
          "place/site/.git/config"})
        touch(folder.filePath(QLatin1String(szFile)));

    const QString strPage = page.isEmpty() ? QString() : folder.filePath(page);
    const bool bAllowed = ::mayReadLocal(strPage, folder.filePath(file));
    qputenv(szTemp, arrOldTemp);
    QCOMPARE(bAllowed, allowed);
}

void tst_localresources::fileOfAnotherMachine_isKnownByItsPath_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("file");
    QTest::addColumn<bool>("same");
    const QString strPage = QStringLiteral("C:/site/page.html");
    QTest::newRow("beside") << strPage << "C:/site/a.png" << true;
    QTest::newRow("Linux") << "/site/page.html"
                           << "/site/a.png" << true;
    QTest::newRow("of a host") << strPage << QUrl("file://host/share/a.png").toLocalFile() << false;
    QTest::newRow("no host, four slashes")
        << strPage << QUrl("file:////host/share/a.png").toLocalFile() << false;
    QTest::newRow("five slashes") << strPage << QUrl("file://///host/share/a.png").toLocalFile()
                                  << false;
    QTest::newRow("page of the same host") << "//host/share/page.html"
                                           << "//Host/other/a.png" << true;
    QTest::newRow("page of another host") << "//one/share/page.html"
                                          << "//two/share/a.png" << false;
#ifdef Q_OS_WIN // Elsewhere a backslash is part of a name.
    QTest::newRow("backslashes") << strPage << "\\\\host\\share\\a.png" << false;
    QTest::newRow("encoded backslashes")
        << strPage << QUrl("file:///%5C%5Chost/share/a.png").toLocalFile() << false;
    QTest::newRow("device") << strPage << "\\\\?\\UNC\\host\\share\\a.png" << false;
#endif
}

void tst_localresources::fileOfAnotherMachine_isKnownByItsPath()
{
    QFETCH(QString, page);
    QFETCH(QString, file);
    QTEST(isOnMachineOf(page, file), "same");
}

void tst_localresources::linkOutOfTheSite_isRefused()
{
#ifdef Q_OS_WIN
    QSKIP("Links to files need a right of their own there.");
#endif
    QTemporaryDir folder;
    QTemporaryDir folderElsewhere;
    touch(folder.filePath(QStringLiteral("page.html")));
    touch(folderElsewhere.filePath(QStringLiteral("secret")));
    const QString strLink = folder.filePath(QStringLiteral("link.png"));
    QVERIFY(QFile::link(folderElsewhere.filePath(QStringLiteral("secret")), strLink));
    QVERIFY(!::mayReadLocal(folder.filePath(QStringLiteral("page.html")), strLink));
}

void tst_localresources::deviceAndFolder_areRefused()
{
    QTemporaryDir folder;
    touch(folder.filePath(QStringLiteral("sub/page.html")));
    const QString strPage = folder.filePath(QStringLiteral("sub/page.html"));
    QVERIFY(!::mayReadLocal(strPage, folder.filePath(QStringLiteral("sub"))));
    QVERIFY(!::mayReadLocal(QStringLiteral("/dev/page.html"), QStringLiteral("/dev/zero")));
}

void tst_localresources::siteFolder_stopsBelowHome()
{
    QDir dirHome = QDir::home();
    QVERIFY(dirHome.mkpath(QStringLiteral("site/pages")));
    const QString strHome = QFileInfo(dirHome.path()).canonicalFilePath();
    QCOMPARE(siteFolder(strHome + QStringLiteral("/site/pages/a.html")),
             QString(strHome + QStringLiteral("/site")));
    QCOMPARE(siteFolder(strHome + QStringLiteral("/site/a.html")),
             QString(strHome + QStringLiteral("/site")));
    QCOMPARE(siteFolder(strHome + QStringLiteral("/a.html")), strHome);
    QCOMPARE(siteFolder(strHome + QStringLiteral("/site/")),
             QString(strHome + QStringLiteral("/site")));
}

void tst_localresources::network_data()
{
    QTest::addColumn<QString>("document");
    QTest::addColumn<QString>("url");
    QTest::addColumn<bool>("allowed");

    QTest::newRow("local page, web") << "file:///site/a.html"
                                     << "http://host/x.png" << false;
    QTest::newRow("local page, secure web") << "file:///site/a.html"
                                            << "https://host/x.png" << false;
    QTest::newRow("local page, ftp") << "file:///site/a.html"
                                     << "ftp://host/x.png" << false;
    QTest::newRow("local page, data") << "file:///site/a.html"
                                      << "data:image/gif;base64,x" << true;
    QTest::newRow("local page, system file") << "file:///site/a.html"
                                             << "file:///etc/passwd" << false;
    QTest::newRow("local page, file of a host") << "file:///site/a.html"
                                                << "file://host/share/x" << false;
    QTest::newRow("text, web") << "about:blank"
                               << "http://host/x.png" << false;
    QTest::newRow("text, system file") << "about:blank"
                                       << "file:///etc/passwd" << false;
    QTest::newRow("nothing yet, web") << ""
                                      << "http://host/x.png" << false;
    QTest::newRow("web page, web") << "http://host/"
                                   << "https://cdn/x.png" << true;
    QTest::newRow("web page, file") << "http://host/"
                                    << "file:///etc/passwd" << false;
    QTest::newRow("web page, ftp") << "http://host/"
                                   << "ftp://host/x" << false;
    QTest::newRow("device as the document") << "file:///dev/zero"
                                            << "file:///dev/zero" << false;
}

void tst_localresources::network()
{
    QFETCH(QString, document);
    QFETCH(QString, url);
    QFETCH(bool, allowed);
    CPageNetwork network;
    network.setDocument(QUrl(document));
    QCOMPARE(network.isAllowed(QUrl(url)), allowed);
}

void tst_localresources::refusals_areToldByTheEventLoop()
{
    CPageNetwork network;
    network.setDocument(QUrl("file:///x/page.html"));
    const QSignalSpy spyRefused(&network, &CPageNetwork::refused);
    const QSignalSpy spyFinished(&network, &QNetworkAccessManager::finished);
    QList<QNetworkReply *> lstReplies;
    for (const char *szUrl : {"http://host/a.png", "http://host/b.png", "http://host/c.png"})
        lstReplies.append(network.get(QNetworkRequest(QUrl(szUrl))));
    QCOMPARE(spyRefused.size(), 3);
    QCOMPARE(spyFinished.size(), 0);
    delete lstReplies.takeAt(1); // As a page does that stops loading.
    // What is asked for meanwhile is told, too.
    connect(lstReplies.first(), &QNetworkReply::finished, this, [&network, &lstReplies] {
        lstReplies.append(network.get(QNetworkRequest(QUrl("http://host/d.png"))));
    });
    QTRY_COMPARE(spyFinished.size(), 3);
    for (const QNetworkReply *pReply : qAsConst(lstReplies)) {
        QCOMPARE(pReply->error(), QNetworkReply::ContentAccessDenied);
        QVERIFY(pReply->isFinished());
    }
}

QTEST_GUILESS_MAIN(tst_localresources)
#include "tst_localresources.moc"
