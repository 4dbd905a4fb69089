// Every text of the sources has a Chinese and a Japanese translation, and nothing in them is lost.

#include "app/catalogue.h"

#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace {

const char *const g_catalogues[] = {"lang_zh_cn.ts", "lang_ja_jp.ts"};

QString committed(const QString &strFile)
{
    return QStringLiteral(QUILLAN_SOURCE_DIR "/res/") + strFile;
}

// Parts that must be the same on both sides: placeholders, file patterns, mark-up, ellipses.
QStringList fixedPieces(const QString &strText)
{
    static const QRegularExpression s_expression(
        QStringLiteral(R"(%L?\d+|%n|\*\.[a-z*]+|</?[a-z]\w*[^>]*>|\.\.\.|\n)"));
    QStringList lstPieces;
    auto it = s_expression.globalMatch(strText);
    while (it.hasNext())
        lstPieces.append(it.next().captured());
    lstPieces.sort();
    return lstPieces;
}

bool holdsLetter(const QString &strText)
{
    return std::any_of(
        strText.begin(), strText.end(), [](QChar c) { return c.isLetter(); });
}

} // namespace

class tst_translations : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void everyTextOfTheSources_isInTheCatalogue_data() { catalogues(); }
    void everyTextOfTheSources_isInTheCatalogue();
    void everyText_isFinished_data() { catalogues(); }
    void everyText_isFinished();
    void fixedPieces_areTheSameInSourceAndTranslation_data() { catalogues(); }
    void fixedPieces_areTheSameInSourceAndTranslation();
    void sentences_areTranslated_data() { catalogues(); }
    void sentences_areTranslated();
    void blanksAround_areKept_data() { catalogues(); }
    void blanksAround_areKept();

private:
    static void catalogues();

    QTemporaryDir m_folder;
};

void tst_translations::catalogues()
{
    QTest::addColumn<QString>("strFile");
    for (const char *szFile : g_catalogues)
        QTest::newRow(szFile) << QString::fromLatin1(szFile);
}

// Copies of the catalogues, brought up to date with the sources.
void tst_translations::initTestCase()
{
    for (const char *szFile : g_catalogues) {
        const QString strFile = QString::fromLatin1(szFile);
        QVERIFY(QFile::copy(committed(strFile), m_folder.filePath(strFile)));
        QVERIFY(Catalogue::read(committed(strFile)).size() > 100);
    }
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(QUILLAN_SOURCE_DIR "/scripts/update-translations.sh"),
                  {m_folder.path()});
    QVERIFY2(process.waitForFinished(100000), qPrintable(process.errorString()));
    QVERIFY2(process.exitCode() == 0, process.readAll().constData());
}

void tst_translations::everyTextOfTheSources_isInTheCatalogue()
{
    QFETCH(QString, strFile);
    QMap<QString, SCatalogueText> known;
    const QList<SCatalogueText> lstKnown = Catalogue::read(committed(strFile));
    for (const SCatalogueText &text : lstKnown)
        known.insert(text.key(), text);
    QStringList lstMissing;
    const QList<SCatalogueText> lstOfSources = Catalogue::read(m_folder.filePath(strFile));
    QVERIFY(!lstOfSources.isEmpty());
    for (const SCatalogueText &text : lstOfSources)
        if (known.remove(text.key()) == 0)
            lstMissing.append(text.key());
    QVERIFY2(lstMissing.isEmpty(), qPrintable("not translated: " + lstMissing.join('\n')));
    QVERIFY2(known.isEmpty(), qPrintable("no longer used: " + known.keys().join('\n')));
}

void tst_translations::everyText_isFinished()
{
    QFETCH(QString, strFile);
    const QList<SCatalogueText> lstTexts = Catalogue::read(committed(strFile));
    for (const SCatalogueText &text : lstTexts) {
        QVERIFY2(text.strState.isEmpty(), qPrintable(text.key() + ": " + text.strState));
        for (const QString &strTranslation : text.lstTranslations)
            QVERIFY2(!strTranslation.trimmed().isEmpty(), qPrintable(text.key()));
    }
}

void tst_translations::fixedPieces_areTheSameInSourceAndTranslation()
{
    QFETCH(QString, strFile);
    const QList<SCatalogueText> lstTexts = Catalogue::read(committed(strFile));
    int nPieces = 0;
    for (const SCatalogueText &text : lstTexts) {
        const QStringList lstSource = fixedPieces(text.strSource);
        nPieces += lstSource.size();
        for (const QString &strTranslation : text.lstTranslations)
            QVERIFY2(fixedPieces(strTranslation) == lstSource, qPrintable(strTranslation));
    }
    QVERIFY(nPieces > 20);
}

void tst_translations::sentences_areTranslated()
{
    // A translation that equals its source counts as forgotten, unless it is a name or a unit.
    static const QStringList s_names = {"Windows", "Unix",  "OSX",   "%1 TB",
                                        "%1 GB",   "%1 MB", "%1 KB", "%1 B"};
    QFETCH(QString, strFile);
    const QList<SCatalogueText> lstTexts = Catalogue::read(committed(strFile));
    for (const SCatalogueText &text : lstTexts) {
        if (s_names.contains(text.strSource) || !holdsLetter(text.strSource))
            continue;
        for (const QString &strTranslation : text.lstTranslations)
            QVERIFY2(strTranslation != text.strSource, qPrintable(text.key()));
    }
}

void tst_translations::blanksAround_areKept()
{
    QFETCH(QString, strFile);
    const QList<SCatalogueText> lstTexts = Catalogue::read(committed(strFile));
    for (const SCatalogueText &text : lstTexts) {
        const QString strTranslation = text.lstTranslations.constFirst();
        QCOMPARE(strTranslation.front().isSpace(), text.strSource.front().isSpace());
        QCOMPARE(strTranslation.back().isSpace(), text.strSource.back().isSpace());
    }
}

QTEST_GUILESS_MAIN(tst_translations)
#include "tst_translations.moc"
