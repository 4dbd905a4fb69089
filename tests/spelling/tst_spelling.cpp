#include "smalldictionary.h"
#include "spelling/cspelling.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

class tst_spelling : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void words_areRightUntilTheDictionaryIsRead();
    void language_choosesTheDictionary();
    void noDictionary_isSilent();
    void brokenDictionary_isSilent();
    void wordOfAnotherScript_isRight();
    void oldEncoding_isRead();
    void suggestions_holdTheWordThatWasMeant();
    void curvedApostrophe_staysCurved();
    void addedWord_isRightInAllLanguages();
    void addedWord_survivesARestart();
    void addedWord_keepsWhatTheFileHolds();
    void unwritableFile_isToldAndTheWordCounts();

private:
    void read(CSpelling *pSpelling, const QString &strLanguage);
    std::unique_ptr<CSpelling> make(const QString &strLocale = "en_US") const;

    QTemporaryDir m_folder;
    QString m_strWords;
};

void tst_spelling::initTestCase()
{
    putDictionary(m_folder.path(), "en_US", "hello/S world don't Fritz");
    putDictionary(m_folder.path(), "de_DE", QStringLiteral("hallo Welt gr\u00fcn"), "ISO8859-1");
    put(m_folder.filePath("fr_FR.aff"), "SET NONSENSE-99\n");
    put(m_folder.filePath("fr_FR.dic"), "1\nbonjour\n");
}

void tst_spelling::init()
{
    m_strWords = m_folder.filePath("settings/dictionary.txt");
    QFile::remove(m_strWords);
}

std::unique_ptr<CSpelling> tst_spelling::make(const QString &strLocale) const
{
    return std::make_unique<CSpelling>(QStringList {m_folder.path()}, m_strWords, strLocale);
}

void tst_spelling::read(CSpelling *pSpelling, const QString &strLanguage)
{
    pSpelling->isCorrect(strLanguage, "any");
    QTRY_VERIFY(pSpelling->hasDictionary(strLanguage));
}

void tst_spelling::words_areRightUntilTheDictionaryIsRead()
{
    const auto pSpelling = make();
    const QSignalSpy spy(pSpelling.get(), &CSpelling::changed);
    QVERIFY(pSpelling->isCorrect(QString(), "wrld"));
    QTRY_COMPARE(spy.count(), 1);
    QVERIFY(!pSpelling->isCorrect(QString(), "wrld"));
    QVERIFY(!pSpelling->isCorrect(QString(), "wrld")); // As it is remembered.
    QVERIFY(pSpelling->isCorrect(QString(), "world"));
    QVERIFY(pSpelling->isCorrect(QString(), "Hellos"));
    QVERIFY(!pSpelling->isCorrect(QString(), "fritz"));
}

void tst_spelling::language_choosesTheDictionary()
{
    const auto pSpelling = make();
    read(pSpelling.get(), "de");
    read(pSpelling.get(), QString());
    QVERIFY(pSpelling->isCorrect("de-AT", "Welt"));
    QVERIFY(!pSpelling->isCorrect("de", "world"));
    QVERIFY(!pSpelling->isCorrect("en", "Welt"));
}

void tst_spelling::noDictionary_isSilent()
{
    const auto pSpelling = make("it_IT");
    const QSignalSpy spy(pSpelling.get(), &CSpelling::changed);
    QVERIFY(pSpelling->isCorrect(QString(), "wrld"));
    QVERIFY(pSpelling->isCorrect("it", "wrld"));
    QVERIFY(pSpelling->suggestions("it", "wrld").isEmpty());
    QVERIFY(!pSpelling->hasDictionary("it"));
    QCOMPARE(spy.count(), 0);
}

void tst_spelling::brokenDictionary_isSilent()
{
    const auto pSpelling = make();
    QSignalSpy spy(pSpelling.get(), &CSpelling::changed);
    QVERIFY(pSpelling->isCorrect("fr", "wrld"));
    QVERIFY(spy.wait());
    QVERIFY(pSpelling->isCorrect("fr", "wrld"));
    QVERIFY(!pSpelling->hasDictionary("fr"));
}

void tst_spelling::wordOfAnotherScript_isRight()
{
    const auto pSpelling = make();
    read(pSpelling.get(), "en");
    QVERIFY(pSpelling->isCorrect("en", QStringLiteral("\u0441\u043b\u043e\u0432\u043e")));
    QVERIFY(!pSpelling->isCorrect("en", QStringLiteral("w\u00f6rld")));
}

void tst_spelling::oldEncoding_isRead()
{
    const auto pSpelling = make();
    read(pSpelling.get(), "de");
    QVERIFY(pSpelling->isCorrect("de", QStringLiteral("gr\u00fcn")));
    QVERIFY(!pSpelling->isCorrect("de", QStringLiteral("gr\u00fcm")));
    QVERIFY(pSpelling->suggestions("de", QStringLiteral("gr\u00fcm"))
                .contains(QStringLiteral("gr\u00fcn")));
}

void tst_spelling::suggestions_holdTheWordThatWasMeant()
{
    const auto pSpelling = make();
    read(pSpelling.get(), "en");
    QCOMPARE(pSpelling->suggestions("en", "wrold").value(0), QStringLiteral("world"));
}

void tst_spelling::curvedApostrophe_staysCurved()
{
    const auto pSpelling = make();
    read(pSpelling.get(), "en");
    QVERIFY(pSpelling->isCorrect("en", QStringLiteral("don\u2019t")));
    QVERIFY(!pSpelling->isCorrect("en", QStringLiteral("dom\u2019t")));
    QCOMPARE(pSpelling->suggestions("en", QStringLiteral("dom\u2019t")).value(0),
             QStringLiteral("don\u2019t"));
}

void tst_spelling::addedWord_isRightInAllLanguages()
{
    const auto pSpelling = make();
    read(pSpelling.get(), "en");
    read(pSpelling.get(), "de");
    const QSignalSpy spy(pSpelling.get(), &CSpelling::changed);
    QString strError;
    QVERIFY2(pSpelling->addWord("quillan", &strError), qPrintable(strError));
    QCOMPARE(spy.count(), 1);
    for (const char *szLanguage : {"en", "de"}) {
        QVERIFY(pSpelling->isCorrect(szLanguage, "quillan"));
        QVERIFY(pSpelling->isCorrect(szLanguage, "Quillan")); // It may begin a sentence.
    }
    QVERIFY(pSpelling->addWord("Tavrel", &strError));
    QVERIFY(!pSpelling->isCorrect("en", "tavrel"));
}

void tst_spelling::addedWord_survivesARestart()
{
    QString strError;
    QVERIFY(make()->addWord(QStringLiteral("gr\u00fcnn\u2019s"), &strError));
    const auto pSpelling = make();
    read(pSpelling.get(), "en");
    QVERIFY(pSpelling->isCorrect("en", QStringLiteral("gr\u00fcnn's")));
}

void tst_spelling::addedWord_keepsWhatTheFileHolds()
{
    QDir().mkpath(QFileInfo(m_strWords).path());
    const auto pSpelling = make();
    put(m_strWords, "by hand\r\nlast");
    QString strError;
    QVERIFY(pSpelling->addWord("word", &strError));
    QCOMPARE(contents(m_strWords), QByteArray("by hand\r\nlast\nword\n"));
    const auto pLater = make();
    read(pLater.get(), "en");
    QVERIFY(pLater->isCorrect("en", "last"));
}

void tst_spelling::unwritableFile_isToldAndTheWordCounts()
{
    m_strWords = m_folder.filePath("de_DE.dic/dictionary.txt"); // Below a file.
    const auto pSpelling = make();
    read(pSpelling.get(), "en");
    QString strError;
    QVERIFY(!pSpelling->addWord("wrd", &strError));
    QVERIFY(!strError.isEmpty());
    QVERIFY(pSpelling->isCorrect("en", "wrd"));
}

QTEST_GUILESS_MAIN(tst_spelling)
#include "tst_spelling.moc"
