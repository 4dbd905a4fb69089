#include "app/arguments.h"

#include <QtTest>

class tst_arguments : public QObject
{
    Q_OBJECT

private slots:
    void arguments_becomePaths_data();
    void arguments_becomePaths();
    void existingName_becomesAbsolute_data();
    void existingName_becomesAbsolute();
    void nameBehindALink_keepsItsMeaning();
    void name_isLookedUpInTheCurrentFolder();
    void paths_becomeAMessage_data();
    void paths_becomeAMessage();
    void message_isSplit_data();
    void message_isSplit();
    void anyPath_survivesTheHandOver();
};

void tst_arguments::arguments_becomePaths_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("paths");
    QTest::newRow("nothing at all") << QStringList() << QStringList();
    QTest::newRow("program only") << QStringList {"quillan"} << QStringList();
    QTest::newRow("trimmed") << QStringList {"q", " \ta b.txt\n"}
                             << QStringList(QStringLiteral("a b.txt"));
    QTest::newRow("empty ones left out") << QStringList {"q", "", "a", "   ", "b"}
                                         << QStringList({QStringLiteral("a"), QStringLiteral("b")});
    QTest::newRow("quotes kept") << QStringList {"q", "\"a\""}
                                 << QStringList(QStringLiteral("\"a\""));
    const QString strManyScripts = QStringLiteral("ä中Ж.txt"); // No code page holds all three.
    QTest::newRow("many scripts") << QStringList {"q", strManyScripts}
                                  << QStringList(strManyScripts);
}

void tst_arguments::arguments_becomePaths()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, paths);
    QCOMPARE(pathsFromArguments(arguments), paths);
}

void tst_arguments::existingName_becomesAbsolute_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("path"); // "@" stands for the folder of the start.
    const auto row = [](const char *szArgument, const char *szPath) {
        QTest::newRow(szArgument) << QString::fromUtf8(szArgument) << QString::fromUtf8(szPath);
    };
    row("a.txt", "@/a.txt");
    row(" a.txt ", "@/a.txt");
    row("./a.txt", "@/a.txt");
    row("with blank ä.txt", "@/with blank ä.txt");
    row("sub", "@/sub");
    row("sub/", "@/sub");
    row(".", "@");
    row("sub/../a.txt", "@/a.txt");
    row("sub/b.txt", "@/sub/b.txt");
    row("missing.txt", "missing.txt");
    row("./missing.txt", "./missing.txt");
    row("b.txt", "b.txt");
    row("\"a.txt\"", "\"a.txt\"");
    row("-a.txt", "-a.txt");
    row("@/a.txt", "@/a.txt");
    row("@/./a.txt", "@/./a.txt");
    row("@/missing.txt", "@/missing.txt");
}

namespace {

void makeFile(const QString &strPath)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
}

} // namespace

void tst_arguments::existingName_becomesAbsolute()
{
    QFETCH(QString, argument);
    QFETCH(QString, path);
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkdir(QStringLiteral("sub")));
    for (const char *szName : {"a.txt", "with blank ä.txt", "sub/b.txt"})
        makeFile(dir.filePath(QString::fromUtf8(szName)));
    argument.replace('@', folder.path());
    path.replace('@', folder.path());
    QCOMPARE(pathsFromArguments({"q", argument}, dir), QStringList(path));
}

void tst_arguments::nameBehindALink_keepsItsMeaning()
{
    const QTemporaryDir folder;
    const QDir dir(folder.path());
    QVERIFY(dir.mkpath(QStringLiteral("deep/target")));
    makeFile(dir.filePath(QStringLiteral("deep/a.txt")));
    makeFile(dir.filePath(QStringLiteral("a.txt")));
    if (!QFile::link(dir.filePath(QStringLiteral("deep/target")),
                     dir.filePath(QStringLiteral("link"))))
        QSKIP("No links here.");
#ifdef Q_OS_WIN
    QSKIP("The system takes .. off a path before it looks at links.");
#endif
    const QString strPath = pathsFromArguments({"q", "link/../a.txt"}, dir).value(0);
    QVERIFY(QDir::isAbsolutePath(strPath));
    QCOMPARE(QFileInfo(strPath).canonicalFilePath(),
             QFileInfo(dir.filePath(QStringLiteral("deep/a.txt"))).canonicalFilePath());
}

void tst_arguments::name_isLookedUpInTheCurrentFolder()
{
    const QTemporaryDir folder;
    makeFile(folder.filePath(QStringLiteral("a.txt")));
    const QString strBefore = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    const QStringList lstPaths = pathsFromArguments({"q", "a.txt"});
    const QString strFolder = QDir::currentPath();
    QDir::setCurrent(strBefore);
    QCOMPARE(lstPaths, QStringList(strFolder + "/a.txt"));
}

void tst_arguments::paths_becomeAMessage_data()
{
    QTest::addColumn<QStringList>("paths");
    QTest::addColumn<QString>("message");
    QTest::newRow("none") << QStringList() << QString();
    QTest::newRow("one with a blank")
        << QStringList(QStringLiteral("a b.txt")) << QStringLiteral("\"a b.txt\"");
    QTest::newRow("two") << QStringList({QStringLiteral("a"), QStringLiteral("b")})
                         << QStringLiteral("\"a\" \"b\"");
    QTest::newRow("already quoted")
        << QStringList(QStringLiteral("\"a\"")) << QStringLiteral("\"a\"");
    QTest::newRow("only begins with a quote")
        << QStringList(QStringLiteral("\"a")) << QStringLiteral("\"a");
    QTest::newRow("ends with a quote")
        << QStringList(QStringLiteral("a\"")) << QStringLiteral("\"a\"\"");
}

void tst_arguments::paths_becomeAMessage()
{
    QFETCH(QStringList, paths);
    QFETCH(QString, message);
    QCOMPARE(messageFromPaths(paths), message);
}

void tst_arguments::message_isSplit_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("paths");
    const auto row = [](const char *szName, const char *szMessage, const QStringList &lstPaths) {
        QTest::newRow(szName) << QString::fromUtf8(szMessage) << lstPaths;
    };
    const QString a = QStringLiteral("a");
    const QString b = QStringLiteral("b");
    row("empty", "", {});
    row("one blank", " ", {QString()});
    row("one word", "a", {a});
    row("words", "a b", {a, b});
    row("blanks between words", "a   b ", {a, b, QString()});
    row("quoted", "\"a\"", {a, QString()});
    row("quoted with blanks", "\" a b \"", {QStringLiteral(" a b "), QString()});
    row("two quoted", "\"a\" \"b\"", {a, b, QString()});
    row("empty quotes", "\"\"", {QString(), QString()});
    row("quote inside a word", "a\"b c\"", {QStringLiteral("ab c"), QString()});
    row("word behind quotes", "\"a\"b", {a, b});
    row("open quote", "\"a b", {QStringLiteral("a b")});
    row("open quote is trimmed", "\" a ", {a});
    row("tab is no separator", "a\tb", {QStringLiteral("a\tb")});
    row("tab is trimmed", "\ta ", {a, QString()});
}

void tst_arguments::message_isSplit()
{
    QFETCH(QString, message);
    QFETCH(QStringList, paths);
    QCOMPARE(pathsFromMessage(message), paths);
}

void tst_arguments::anyPath_survivesTheHandOver()
{
    const QStringList lstPaths {QStringLiteral("/a b/ä.txt"), QStringLiteral("C:\\dir\\file"),
                                QStringLiteral("/two\nlines"), QStringLiteral("/100%1")};
    QStringList lstReceived = pathsFromMessage(messageFromPaths(lstPaths));
    lstReceived.removeAll(QString());
    QCOMPARE(lstReceived, lstPaths);
}

QTEST_GUILESS_MAIN(tst_arguments)
#include "tst_arguments.moc"
