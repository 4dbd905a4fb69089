#include "app/csettings.h"
#include "browser/testtree.h"
#include "editor/chighlightedit.h"
#include "editor/linesearch.h"
#include "findinfiles/cbytefilter.h"
#include "findinfiles/creplaceinfiles.h"
#include "findinfiles/filereading.h"
#include "findinfiles/findquery.h"
#include "findinfiles/replacefile.h"
#include "support/cunprivileged.h"

#include <QSignalSpy>
#include <QtTest>

class tst_replacefile : public QObject
{
    Q_OBJECT

private slots:
    void matches_areReplacedAndNothingElse_data();
    void matches_areReplacedAndNothingElse();
    void allMatches_giveWhatReplaceAllGives();
    void uncheckedMatches_stay();
    void foreignText_isRefused_data();
    void foreignText_isRefused();
    void changedFile_isRefused();
    void goneFile_isRefused();
    void matchOutsideTheText_isRefused();
    void closedFile_isRefusedAsItWas();
    void severalFiles_areDoneOneByOne();
    void destructionMeanwhile_isClean();
};

static QByteArray content(const QString &strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

static SFileReplacement searched(const QString &strPath, const QString &strText)
{
    const std::atomic<bool> bCancel = false;
    const QByteArray data = content(strPath);
    const SSearchOptions options;
    return {strPath, fingerprintOf(data),
            findInData(CLineSearch(strText, options), CByteFilter(strText, options), data, 1000,
                       bCancel)};
}

void tst_replacefile::matches_areReplacedAndNothingElse_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("one") << QByteArray("a old b\n") << QByteArray("a née b\n");
    QTest::newRow("several") << QByteArray("old old\nxoldx\n\nold")
                             << QByteArray("née née\nxnéex\n\nnée");
    QTest::newRow("pairs") << QByteArray("a\r\nold\r\n") << QByteArray("a\r\nnée\r\n");
    QTest::newRow("returns") << QByteArray("old\rold\r") << QByteArray("née\rnée\r");
    QTest::newRow("mixed ends stay")
        << QByteArray("old\r\nold\nold\rold") << QByteArray("née\r\nnée\nnée\rnée");
    QTest::newRow("mark stays") << QByteArray("\xef\xbb\xbfold\n")
                                << QByteArray("\xef\xbb\xbfnée\n");
    QTest::newRow("UTF-8") << QByteArray("größer old €\n") << QByteArray("größer née €\n");
    QTest::newRow("separators") << QByteArray("a\xe2\x80\xa9old\xe2\x80\xa8old\n")
                                << QByteArray("a\xe2\x80\xa9née\xe2\x80\xa8née\n");
    QTest::newRow("no last line end") << QByteArray("old") << QByteArray("née");
}

void tst_replacefile::matches_areReplacedAndNothingElse()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const CTestTree tree;
    const QString strPath = tree.addFile(QStringLiteral("a"), before);
    QString strReason;
    QVERIFY2(CFileReplacer::replace(searched(strPath, QStringLiteral("old")), QStringLiteral("née"),
                                    &strReason),
             qPrintable(strReason));
    QCOMPARE(content(strPath), after);
}

void tst_replacefile::allMatches_giveWhatReplaceAllGives()
{
    CSettings settings(QStringLiteral("Test"), QStringLiteral("replace"));
    g_pSettings = &settings;
    const CTestTree tree;
    for (const char *szText : {"aXa\nba\n\naaa", "", "a\r\nA\r\n", "é a é\n"}) {
        const QString strPath = tree.addFile(QStringLiteral("a"), szText);
        const SFileReplacement replacement = searched(strPath, QStringLiteral("a"));
        CHighlightEdit edit;
        edit.setTextData(szText, false);
        edit.replaceAll(QStringLiteral("a"), QStringLiteral("aa"));
        QString strReason;
        if (!replacement.lstMatches.isEmpty())
            QVERIFY(CFileReplacer::replace(replacement, QStringLiteral("aa"), &strReason));
        QCOMPARE(content(strPath), edit.getText().toUtf8());
    }
    g_pSettings = nullptr;
}

void tst_replacefile::uncheckedMatches_stay()
{
    const CTestTree tree;
    const QString strPath = tree.addFile(QStringLiteral("a"), "x x x\nx\n");
    SFileReplacement replacement = searched(strPath, QStringLiteral("x"));
    replacement.lstMatches.remove(1);
    QString strReason;
    QVERIFY(CFileReplacer::replace(replacement, QString(), &strReason));
    QCOMPARE(content(strPath), QByteArray(" x \n\n"));
}

void tst_replacefile::foreignText_isRefused_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::newRow("Latin") << QByteArray("gr\xfc\xdf"
                                         "e x\n");
    QTest::newRow("broken UTF-8") << QByteArray("x \xc3\xb6 \xff\n");
    QTest::newRow("cut UTF-8") << QByteArray("x \xc3");
    QTest::newRow("GBK") << QByteArray("x \xc4\xe3\xba\xc3\n");
    QTest::newRow("binary") << QByteArray("x \0 x", 5);
}

void tst_replacefile::foreignText_isRefused()
{
    QFETCH(QByteArray, data);
    const CTestTree tree;
    const QString strPath = tree.addFile(QStringLiteral("a"), data);
    QString strReason;
    QVERIFY(!CFileReplacer::replace(searched(strPath, QStringLiteral("x")), QStringLiteral("y"),
                                    &strReason));
    QVERIFY(!strReason.isEmpty());
    QCOMPARE(content(strPath), data);
}

void tst_replacefile::changedFile_isRefused()
{
    const CTestTree tree;
    const QString strPath = tree.addFile(QStringLiteral("a"), "x\n");
    const SFileReplacement replacement = searched(strPath, QStringLiteral("x"));
    tree.addFile(QStringLiteral("a"), "x \n"); // Within the same second, and the match still there.
    QString strReason;
    QVERIFY(!CFileReplacer::replace(replacement, QStringLiteral("y"), &strReason));
    QVERIFY(!strReason.isEmpty());
    QCOMPARE(content(strPath), QByteArray("x \n"));
}

void tst_replacefile::goneFile_isRefused()
{
    const CTestTree tree;
    const QString strPath = tree.addFile(QStringLiteral("a"), "x\n");
    const SFileReplacement replacement = searched(strPath, QStringLiteral("x"));
    QFile::remove(strPath);
    QString strReason;
    QVERIFY(!CFileReplacer::replace(replacement, QStringLiteral("y"), &strReason));
    QVERIFY(!QFile::exists(strPath));
}

void tst_replacefile::matchOutsideTheText_isRefused()
{
    SFileMatch match;
    match.nLine = 2;
    match.nColumn = 3;
    match.nLength = 2;
    QString strText = QStringLiteral("abc\nabcd");
    QVERIFY(!replaceMatches({match}, QStringLiteral("x"), &strText));
    match.nLine = 9;
    QVERIFY(!replaceMatches({match}, QStringLiteral("x"), &strText));
    QCOMPARE(strText, QStringLiteral("abc\nabcd"));
}

void tst_replacefile::closedFile_isRefusedAsItWas()
{
#ifndef Q_OS_LINUX
    QSKIP("Nothing takes this program's permissions away here.");
#endif
    const CTestTree tree;
    const QString strFolder = tree.addFolder(QStringLiteral("closed"));
    const QString strPath = tree.addFile(QStringLiteral("closed/a"), "x\n");
    const SFileReplacement replacement = searched(strPath, QStringLiteral("x"));
    QFile::setPermissions(strPath, QFileDevice::ReadOwner | QFileDevice::ReadOther);
    QFile::setPermissions(strFolder,
                          QFileDevice::ReadOwner | QFileDevice::ExeOwner | QFileDevice::ReadOther
                              | QFileDevice::ExeOther);
    QString strReason;
    bool bDone = true;
    {
        const CUnprivileged unprivileged;
        bDone = CFileReplacer::replace(replacement, QStringLiteral("y"), &strReason);
    }
    QVERIFY(!bDone);
    QVERIFY(!strReason.isEmpty());
    QCOMPARE(content(strPath), QByteArray("x\n"));
    QFile::setPermissions(strFolder,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner);
}

void tst_replacefile::severalFiles_areDoneOneByOne()
{
    const CTestTree tree;
    QVector<SFileReplacement> lst;
    for (int n = 0; n < 5; ++n)
        lst.append(searched(tree.addFile(QString::number(n), "x\n"), QStringLiteral("x")));
    tree.addFile(QStringLiteral("2"), "changed x\n");
    CReplaceInFiles replacer;
    QSignalSpy spyDone(&replacer, &CReplaceInFiles::fileDone);
    const QSignalSpy spyEnd(&replacer, &CReplaceInFiles::finished);
    replacer.start(lst, QStringLiteral("y"));
    QVERIFY(replacer.isRunning());
    QTRY_COMPARE(spyEnd.size(), 1);
    QVERIFY(!replacer.isRunning());
    QCOMPARE(spyDone.size(), 5);
    for (int n = 0; n < 5; ++n) {
        QCOMPARE(spyDone.at(n).at(0).toString(), tree.path(QString::number(n)));
        QCOMPARE(spyDone.at(n).at(1).toString().isEmpty(), n != 2);
        QCOMPARE(content(tree.path(QString::number(n))),
                 QByteArray(n == 2 ? "changed x\n" : "y\n"));
    }
}

void tst_replacefile::destructionMeanwhile_isClean()
{
    const CTestTree tree;
    QVector<SFileReplacement> lst;
    for (int n = 0; n < 200; ++n)
        lst.append(searched(tree.addFile(QString::number(n), "x\n"), QStringLiteral("x")));
    {
        CReplaceInFiles replacer;
        replacer.start(lst, QStringLiteral("y"));
    }
    for (int n = 0; n < 200; ++n) {
        const QByteArray data = content(tree.path(QString::number(n)));
        QVERIFY(data == "x\n" || data == "y\n");
    }
}

QTEST_MAIN(tst_replacefile)
#include "tst_replacefile.moc"
