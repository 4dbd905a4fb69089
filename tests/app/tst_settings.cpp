#include "app/csettings.h"

#include <QMetaMethod>
#include <QProcess>
#include <QSignalSpy>
#include <QtTest>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace {

const QString g_strOrganization = QStringLiteral("Test");
const QString g_strApplication = QStringLiteral("settings");

} // namespace

class tst_settings : public QObject
{
    Q_OBJECT

private slots:
    void init() { QSettings(g_strOrganization, g_strApplication).clear(); }
    void firstStart_givesTheDefault_data();
    void firstStart_givesTheDefault();
    void everyKey_survivesARestart();
    void setters_writeNothingToDisk();
    void destruction_writes();
    void save_survivesAKill();
    void transparentBackground_comesBackOpaqueBlack();
    void colors_areStoredAsNames();
    void sameTextFontSize_isSignalledAgain();
    void nonsense_givesTheDefault_data();
    void nonsense_givesTheDefault();
    void file_isForTheUserAlone_data();
    void file_isForTheUserAlone();
    void locale_isNotStored();
    void accessors_areInvokable();

private:
    // The content of the store, key by key.
    static QVariant stored(const char *szKey)
    {
        return QSettings(g_strOrganization, g_strApplication).value(QLatin1String(szKey));
    }
};

static QVariant member(const CSettings &settings, const QString &strKey)
{
    const QVariantMap map {
        {QStringLiteral("m_arrFrameState"), settings.m_arrFrameState},
        {QStringLiteral("m_strLastPathFileName"), settings.m_strLastPathFileName},
        {QStringLiteral("m_lstFavorFolders"), settings.m_lstFavorFolders},
        {QStringLiteral("m_clrTextColor"), settings.m_clrTextColor},
        {QStringLiteral("m_clrBackColor"), settings.m_clrBackColor},
        {QStringLiteral("m_nTextFontSize"), settings.m_nTextFontSize},
        {QStringLiteral("m_bLineWrap"), settings.m_bLineWrap},
        {QStringLiteral("m_lstRecentFiles"), settings.m_lstRecentFiles},
        {QStringLiteral("m_bIsHtmlText"), settings.m_bIsHtmlText},
        {QStringLiteral("m_bPageSpelling"), settings.m_bPageSpelling},
        {QStringLiteral("m_bTextSpelling"), settings.m_bTextSpelling},
        {QStringLiteral("m_bFindMatchWholeWord"), settings.m_bFindMatchWholeWord},
        {QStringLiteral("m_bFindMatchCase"), settings.m_bFindMatchCase},
        {QStringLiteral("m_bFindSearchUp"), settings.m_bFindSearchUp},
        {QStringLiteral("m_bFindWrapSearch"), settings.m_bFindWrapSearch},
        {QStringLiteral("m_bFindCloseAfterFindNext"), settings.m_bFindCloseAfterFindNext},
        {QStringLiteral("m_bFindUseRegularExpression"), settings.m_bFindUseRegularExpression},
        {QStringLiteral("m_nFindTransparent"), settings.m_nFindTransparent},
    };
    return map.value(strKey);
}

void tst_settings::firstStart_givesTheDefault_data()
{
    QTest::addColumn<QVariant>("expected");
    QTest::newRow("m_arrFrameState") << QVariant(QByteArray());
    QTest::newRow("m_strLastPathFileName") << QVariant(QString());
    QTest::newRow("m_lstFavorFolders") << QVariant(QStringList());
    QTest::newRow("m_clrTextColor") << QVariant(QColor(Qt::red));
    QTest::newRow("m_clrBackColor") << QVariant(QColor(Qt::transparent));
    QTest::newRow("m_nTextFontSize") << QVariant(12);
    QTest::newRow("m_bLineWrap") << QVariant(false);
    QTest::newRow("m_lstRecentFiles") << QVariant(QStringList());
    QTest::newRow("m_bIsHtmlText") << QVariant(false);
    QTest::newRow("m_bPageSpelling") << QVariant(true);
    QTest::newRow("m_bTextSpelling") << QVariant(false);
    QTest::newRow("m_bFindMatchWholeWord") << QVariant(false);
    QTest::newRow("m_bFindMatchCase") << QVariant(false);
    QTest::newRow("m_bFindSearchUp") << QVariant(false);
    QTest::newRow("m_bFindWrapSearch") << QVariant(true);
    QTest::newRow("m_bFindCloseAfterFindNext") << QVariant(false);
    QTest::newRow("m_bFindUseRegularExpression") << QVariant(false);
    QTest::newRow("m_nFindTransparent") << QVariant(90);
}

void tst_settings::firstStart_givesTheDefault()
{
    QFETCH(QVariant, expected);
    const CSettings settings(g_strOrganization, g_strApplication);
    QCOMPARE(member(settings, QLatin1String(QTest::currentDataTag())), expected);
}

void tst_settings::everyKey_survivesARestart()
{
    const QByteArray frame("\0\xff state", 8);
    const QStringList lst {QStringLiteral("/a b"), QStringLiteral("/ä,\"; \n%00")};
    {
        CSettings settings(g_strOrganization, g_strApplication);
        settings.setFrameState(frame);
        settings.setLastPathFileName(lst.last());
        settings.setFavorFolders(lst);
        settings.setTextColor(QColor(1, 2, 3));
        settings.setBackColor(QColor(4, 5, 6));
        settings.setTextFontSize(20);
        settings.setLineWrap(true);
        settings.setRecentFileList(lst);
        settings.setIsHtmlText(true);
        settings.m_bFindMatchWholeWord = settings.m_bFindMatchCase = settings.m_bFindSearchUp =
            true;
        settings.m_bFindWrapSearch = settings.m_bPageSpelling = false;
        settings.m_bTextSpelling = true;
        settings.m_bFindCloseAfterFindNext = settings.m_bFindUseRegularExpression = true;
        settings.m_nFindTransparent = 55;
    }
    const CSettings settings(g_strOrganization, g_strApplication);
    QCOMPARE(settings.getFrameState(), frame);
    QCOMPARE(settings.getLastPathFileName(), lst.last());
    QCOMPARE(settings.getFavorFolders(), lst);
    QCOMPARE(settings.getTextColor(), QColor(1, 2, 3));
    QCOMPARE(settings.getBackColor(), QColor(4, 5, 6));
    QCOMPARE(settings.getTextFontSize(), 20);
    QVERIFY(settings.getLineWrap());
    QCOMPARE(settings.getRecentFileList(), lst);
    QVERIFY(settings.getIsHtmlText());
    QVERIFY(settings.m_bTextSpelling && !settings.m_bPageSpelling);
    QVERIFY(settings.m_bFindMatchWholeWord && settings.m_bFindMatchCase);
    QVERIFY(settings.m_bFindSearchUp && !settings.m_bFindWrapSearch);
    QVERIFY(settings.m_bFindCloseAfterFindNext && settings.m_bFindUseRegularExpression);
    QCOMPARE(settings.m_nFindTransparent, 55);
}

void tst_settings::setters_writeNothingToDisk()
{
    CSettings settings(g_strOrganization, g_strApplication);
    settings.setTextFontSize(33);
    settings.setRecentFileList({QStringLiteral("/a")});
    settings.sync();
    QVERIFY(!stored("m_nTextFontSize").isValid());
    QVERIFY(!stored("m_lstRecentFiles").isValid());
    settings.write();
    settings.sync();
    QCOMPARE(stored("m_nTextFontSize").toInt(), 33);
}

void tst_settings::destruction_writes()
{
    {
        CSettings settings(g_strOrganization, g_strApplication);
        settings.setLineWrap(true);
    }
    QCOMPARE(stored("m_bLineWrap").toBool(), true);
    QCOMPARE(QSettings(g_strOrganization, g_strApplication).allKeys().size(), 18);
}

// The child saves, changes more and kills itself.
void tst_settings::save_survivesAKill()
{
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--save-and-die")});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::CrashExit);
    const CSettings settings(g_strOrganization, g_strApplication);
    QCOMPARE(settings.getRecentFileList(), QStringList(QStringLiteral("/remembered")));
    QCOMPARE(settings.getTextFontSize(), 12);
}

void tst_settings::transparentBackground_comesBackOpaqueBlack()
{
    {
        const CSettings settings(g_strOrganization, g_strApplication);
        QCOMPARE(settings.getBackColor().alpha(), 0);
    }
    const CSettings settings(g_strOrganization, g_strApplication);
    QCOMPARE(settings.getBackColor(), QColor(Qt::black));
    QCOMPARE(settings.getBackColor().alpha(), 255);
}

void tst_settings::colors_areStoredAsNames()
{
    CSettings settings(g_strOrganization, g_strApplication);
    settings.setTextColor(QColor(255, 128, 0, 7));
    settings.save();
    QCOMPARE(stored("m_clrTextColor").toString(), QStringLiteral("#ff8000"));
    QCOMPARE(stored("m_clrBackColor").toString(), QStringLiteral("#000000"));
}

void tst_settings::sameTextFontSize_isSignalledAgain()
{
    CSettings settings(g_strOrganization, g_strApplication);
    QSignalSpy spy(&settings, &CSettings::textFontSizeChanged);
    settings.setTextFontSize(settings.getTextFontSize());
    settings.setTextFontSize(settings.getTextFontSize());
    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy.last().first().toInt(), 12);
}

void tst_settings::nonsense_givesTheDefault_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QVariant>("expected");
    const auto row = [](const char *szName, const char *szKey, const QVariant &varValue,
                        const QVariant &varExpected) {
        QTest::newRow(szName) << QString(QLatin1String(szKey)) << varValue << varExpected;
    };
    row("size is a word", "m_nTextFontSize", QStringLiteral("large"), 12);
    row("size is zero", "m_nTextFontSize", 0, 12);
    row("size is huge", "m_nTextFontSize", 2000000000, 12);
    row("size is beyond int", "m_nTextFontSize", QStringLiteral("99999999999"), 12);
    row("size is a list", "m_nTextFontSize", QStringList {QStringLiteral("1"), QStringLiteral("2")},
        12);
    row("opacity is a word", "m_nFindTransparent", QStringLiteral("thin"), 90);
    row("opacity is negative", "m_nFindTransparent", -5, 90);
    row("colour has no name", "m_clrTextColor", QStringLiteral("nocolour"), QColor(Qt::red));
    row("colour is empty", "m_clrBackColor", QString(), QColor(Qt::transparent));
    row("flag is a map", "m_bFindWrapSearch", QVariantMap {{QStringLiteral("a"), 1}}, true);
    row("path is a map", "m_strLastPathFileName", QVariantMap {{QStringLiteral("a"), 1}},
        QString());
}

void tst_settings::nonsense_givesTheDefault()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(QVariant, expected);
    QSettings(g_strOrganization, g_strApplication).setValue(key, value);
    const CSettings settings(g_strOrganization, g_strApplication);
    QCOMPARE(member(settings, key), expected);
}

void tst_settings::file_isForTheUserAlone_data()
{
    QTest::addColumn<bool>("bExists");
    QTest::newRow("a new one") << false;
    QTest::newRow("one that was readable") << true;
}

void tst_settings::file_isForTheUserAlone()
{
#ifdef Q_OS_WIN
    QSKIP("The settings are in the user's own registry.");
#endif
    QFETCH(bool, bExists);
    const QString strFile = QSettings(g_strOrganization, g_strApplication).fileName();
    const QFile::Permissions owner =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    QFile::remove(strFile);
    if (bExists) {
        CSettings(g_strOrganization, g_strApplication).save();
        QVERIFY(QFile::setPermissions(strFile, owner | QFile::ReadGroup | QFile::ReadOther));
    }
    CSettings settings(g_strOrganization, g_strApplication);
    if (bExists)
        QCOMPARE(QFile::permissions(strFile),
                 owner); // From the start, and not only after it is written.
    settings.save();
    QCOMPARE(QFile::permissions(strFile), owner);
    settings.setTextFontSize(33);
    settings.save();
    QCOMPARE(QFile::permissions(strFile), owner);
}

void tst_settings::locale_isNotStored()
{
    {
        CSettings settings(g_strOrganization, g_strApplication);
        QCOMPARE(settings.getLoc(), QString());
        settings.setLoc(QStringLiteral("zh_cn"));
        QCOMPARE(settings.getLoc(), QStringLiteral("zh_cn"));
    }
    const CSettings settings(g_strOrganization, g_strApplication);
    QCOMPARE(settings.getLoc(), QString());
}

void tst_settings::accessors_areInvokable()
{
    CSettings settings(g_strOrganization, g_strApplication);
    QVERIFY(QMetaObject::invokeMethod(&settings, "setTextFontSize", Q_ARG(int, 40)));
    int nSize = 0;
    QVERIFY(QMetaObject::invokeMethod(&settings, "getTextFontSize", Q_RETURN_ARG(int, nSize)));
    QCOMPARE(nSize, 40);
    for (const char *szSlot : {"read()", "write()", "save()", "getFrameState()", "getLoc()",
                               "setFrameState(QByteArray)", "setFavorFolders(QStringList)",
                               "setTextColor(QColor)", "setIsHtmlText(bool)", "setLoc(QString)"})
        QVERIFY2(settings.metaObject()->indexOfSlot(szSlot) >= 0, szSlot);
}

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (app.arguments().contains(QStringLiteral("--save-and-die"))) {
        CSettings settings(g_strOrganization, g_strApplication);
        settings.setRecentFileList({QStringLiteral("/remembered")});
        settings.save();
        settings.setTextFontSize(50);
#ifdef Q_OS_WIN
        TerminateProcess(GetCurrentProcess(), 0xf291); // As QProcess::kill() does.
#else
        QProcess::execute(
            QStringLiteral("kill"),
            {QStringLiteral("-9"), QString::number(QCoreApplication::applicationPid())});
#endif
        return 1; // Not reached.
    }
    tst_settings test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_settings.moc"
