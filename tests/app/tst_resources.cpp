// The resources that the program uses exist under exactly these names.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonDocument>
#include <QTest>
#include <QTranslator>

#include "res/icons.h"

namespace {

// Loads them like the program: by a file name, with the root of the resources as the folder.
bool loadCatalogue(QTranslator *pTranslator, const QString &strFile)
{
    return pTranslator->load(strFile, QStringLiteral(":/"));
}

int solidPixels(const QImage &image)
{
    int nSolid = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            nSolid += qAlpha(image.pixel(x, y)) > 128;
    return nSolid;
}

} // namespace

class tst_resources : public QObject
{
    Q_OBJECT
private slots:
    void namedPicture_loads_data();
    void namedPicture_loads();
    void actionPicture_existsForMenuAndToolBar_data();
    void actionPicture_existsForMenuAndToolBar();
    void everyPicture_hasDoubleSizeNeighbour();
    void drawnIcon_isSharpInMenuAndToolBar();
    void drawnIcon_unknownName_hasNoPicture();
    void applicationIcon_hasEveryUsualSize();
    void catalogue_loadsByLocaleName_data();
    void catalogue_loadsByLocaleName();
    void japaneseListOfCatalogues_isCarriedAsItIs();
    void japaneseTextsOfQt_areCarried();
    void absentCatalogue_isNotFound_data();
    void absentCatalogue_isNotFound();
    void translationTable_liesInShareOnly();
    void translationTable_isBodyOfJsonObject();
};

void tst_resources::namedPicture_loads_data()
{
    QTest::addColumn<QString>("strFile");
    for (const char *szName :
         {"preview.png", "folder_explore.png", "new_text.svg", "file_text.png", "file_text_svg.png",
          "new.png", "html_text.svg", "image.png", "switch_back.png", "switch_fore.png",
          "link_un.png", "refresh.png", "upper.png", "folder_add.png", "folder_delete.png"})
        QTest::newRow(szName) << QStringLiteral(":/res/%1").arg(QLatin1String(szName));
}

void tst_resources::namedPicture_loads()
{
    QFETCH(QString, strFile);
    const QImage image(strFile);
    QCOMPARE(image.size(), QSize(16, 16));
    QVERIFY2(solidPixels(image) > 40, "hardly anything is drawn");
    QVERIFY(!QIcon(strFile).pixmap(16, 16).isNull());
}

void tst_resources::actionPicture_existsForMenuAndToolBar_data()
{
    QTest::addColumn<QString>("strName");
    for (const char *szName :
         {"open",       "save",       "save_as",       "save_all",       "cut",
          "copy",       "paste",      "undo",          "redo",           "bold",
          "italic",     "underline",  "left_to_right", "right_to_left",  "back",
          "forward",    "exit",       "find",          "find_next",      "find_previous",
          "replace",    "go_to_line", "select_all",    "toggle_comment", "verify_valid",
          "formatting", "line_wrap",  "color_dialog",  "text_color",     "back_color",
          "about",      "recover",    "warning",       "close",          "new_text",
          "new",        "refresh",    "preview"})
        QTest::newRow(szName) << QString::fromLatin1(szName);
}

void tst_resources::actionPicture_existsForMenuAndToolBar()
{
    QFETCH(QString, strName);
    QCOMPARE(QImage(QStringLiteral(":/res/%1.png").arg(strName)).size(), QSize(16, 16));
    QCOMPARE(QImage(QStringLiteral(":/res/24/%1.png").arg(strName)).size(), QSize(24, 24));
}

void tst_resources::everyPicture_hasDoubleSizeNeighbour()
{
    int nPictures = 0;
    for (const QString &strFolder : {QStringLiteral(":/res/"), QStringLiteral(":/res/24/")}) {
        const QStringList lstFiles = QDir(strFolder).entryList({QStringLiteral("*.png")});
        for (const QString &strFile : lstFiles) {
            if (strFile.contains(QLatin1String("@2x")))
                continue;
            ++nPictures;
            const QString strDouble = strFolder + strFile.chopped(4) + QLatin1String("@2x.png");
            const QImage image(strFolder + strFile);
            QVERIFY2(!image.isNull(), qPrintable(strFile));
            QVERIFY2(QImage(strDouble).size() == image.size() * 2, qPrintable(strDouble));
        }
    }
    QVERIFY(nPictures >= 2 * 45);
}

void tst_resources::drawnIcon_isSharpInMenuAndToolBar()
{
    const QIcon icon = drawnIcon(QStringLiteral("save"));
    // The pixels are those of this size, and not scaled from another one.
    const auto same = [&icon](int nSize, const QString &strFile) {
        return icon.pixmap(nSize, nSize)
                   .toImage()
                   .convertToFormat(QImage::Format_ARGB32_Premultiplied)
            == QImage(strFile).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    QVERIFY(same(16, QStringLiteral(":/res/save.png")));
    QVERIFY(same(24, QStringLiteral(":/res/24/save.png")));
}

void tst_resources::drawnIcon_unknownName_hasNoPicture()
{
    QVERIFY(drawnIcon(QStringLiteral("no_such_drawing")).availableSizes().isEmpty());
}

void tst_resources::applicationIcon_hasEveryUsualSize()
{
    const QIcon icon = applicationIcon();
    for (int nSize : {16, 24, 32, 48, 64, 128, 256})
        QCOMPARE(icon.actualSize(QSize(nSize, nSize)), QSize(nSize, nSize));
    QCOMPARE(QImage(QStringLiteral(":/share/quillan.png")).size(), QSize(256, 256));
}

void tst_resources::catalogue_loadsByLocaleName_data()
{
    QTest::addColumn<QString>("strFile");
    QTest::addColumn<QByteArray>("strContext");
    QTest::addColumn<QByteArray>("strSource");
    QTest::addColumn<QString>("strTranslation");
    const QByteArray strButtons("QPlatformTheme");
    QTest::newRow("own Chinese") << "lang_zh_cn.qm" << QByteArray("MainWindow")
                                 << QByteArray("Open...") << QStringLiteral(u"打开...");
    QTest::newRow("own Japanese") << "lang_ja_jp.qm" << QByteArray("MainWindow")
                                  << QByteArray("Open...") << QStringLiteral(u"開く...");
    QTest::newRow("Qt's Chinese") << "qt_zh_cn.qm" << strButtons << QByteArray("Cancel")
                                  << QStringLiteral(u"取消");
}

void tst_resources::catalogue_loadsByLocaleName()
{
    QFETCH(QString, strFile);
    QFETCH(QByteArray, strContext);
    QFETCH(QByteArray, strSource);
    QTranslator translator;
    QVERIFY(loadCatalogue(&translator, strFile));
    QTEST(translator.translate(strContext, strSource), "strTranslation");
}

void tst_resources::japaneseListOfCatalogues_isCarriedAsItIs()
{
    // A list of catalogues that are not among the resources: loading it fails, whole as it is.
    QFile file(QStringLiteral(":/qt_ja_jp.qm"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains(QByteArray("\0q\0t\0b\0a\0s\0e\0_\0j\0a", 18)));
    QTranslator translator;
    QVERIFY(!loadCatalogue(&translator, QStringLiteral("qt_ja_jp.qm")));
}

void tst_resources::japaneseTextsOfQt_areCarried()
{
    QTranslator translator;
    QVERIFY(loadCatalogue(&translator, QStringLiteral("qtbase_ja_jp.qm")));
    QCOMPARE(translator.translate("QPlatformTheme", "Cancel"), QStringLiteral(u"キャンセル"));
}

void tst_resources::absentCatalogue_isNotFound_data()
{
    QTest::addColumn<QString>("strFile");
    for (const char *szFile : {"base_zh_cn.qm", "base_ja_jp.qm", "lang_zh_tw.qm", "qt_zh_tw.qm",
                               "lang_de_de.qm", "qt_de_de.qm", "lang_en_us.qm", "lang_c.qm"})
        QTest::newRow(szFile) << QString::fromLatin1(szFile);
}

void tst_resources::absentCatalogue_isNotFound()
{
    QFETCH(QString, strFile);
    QTranslator translator;
    QVERIFY(!loadCatalogue(&translator, strFile));
}

void tst_resources::translationTable_liesInShareOnly()
{
    QVERIFY(QFile::exists(QStringLiteral(":/share/lang.txt")));
    QVERIFY(!QFile::exists(QStringLiteral(":/lang.txt")));
}

void tst_resources::translationTable_isBodyOfJsonObject()
{
    QFile file(QStringLiteral(":/share/lang.txt"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QJsonParseError error;
    const QByteArray strJson = "{" + file.readAll() + "}";
    const QVariantMap table = QJsonDocument::fromJson(strJson, &error).toVariant().toMap();
    QVERIFY2(error.error == QJsonParseError::NoError, qPrintable(error.errorString()));
    QCOMPARE(table.keys(), QStringList({QStringLiteral("ja_jp"), QStringLiteral("zh_cn")}));
    const QVariantMap chinese = table.value(QStringLiteral("zh_cn")).toMap();
    QCOMPARE(chinese.value(QStringLiteral("Cancel")).toString(), QStringLiteral(u"取消"));
    QVERIFY(chinese.size() >= 20);
    QVERIFY(table.value(QStringLiteral("ja_jp")).toMap().isEmpty());
}

QTEST_MAIN(tst_resources)
#include "tst_resources.moc"
