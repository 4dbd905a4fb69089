// What is decoded and what is not; every header here is made by hand.
#include "support/gzipped.h"
#include "support/madepictures.h"
#include "support/processortime.h"
#include "web/pictureframes.h"
#include "web/pictureheader.h"
#include "web/pictures.h"
#include "web/regularfile.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using Kind = SPictureHeader::Kind;

class tst_pictures : public QObject
{
    Q_OBJECT

private slots:
    void header_tellsKindAndSize_data();
    void header_tellsKindAndSize();
    void size_decidesBeforeDecoding_data();
    void size_decidesBeforeDecoding();
    void cutHeader_isNoPicture();
    void format_mustBeThatOfTheFirstBytes_data();
    void format_mustBeThatOfTheFirstBytes();
    void suffix_decidesWhatAFileIsReadAs_data();
    void suffix_decidesWhatAFileIsReadAs();
    void onlyRegularFiles_areRead();
    void largeFile_isNotRead();
    void framesInAnAnimation_areCounted();
    void innerPictureOfADrawing_isAPictureOfReasonableSize_data();
    void innerPictureOfADrawing_isAPictureOfReasonableSize();
    void styleSheetOfADrawing_isNotOpened();
    void stopsOfAGradient_areDrawnUpToSomeNumber();

private:
    static QString write(const QTemporaryDir &folder, const QString &strName,
                         const QByteArray &data)
    {
        QFile file(folder.filePath(strName));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot write a test file");
        return file.fileName();
    }
};

void tst_pictures::header_tellsKindAndSize_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QSize>("size");

    const auto add = [](const char *szName, const QByteArray &data, Kind kind, const QSize &size) {
        QTest::newRow(szName) << data << int(kind) << size;
    };
    const QSize size(5, 4);
    add("png", savedPicture("PNG"), Kind::Png, size);
    add("jpeg", savedPicture("JPG"), Kind::Jpeg, size);
    add("jpeg with a block of the camera", jpegClaiming(300, 200), Kind::Jpeg, QSize(300, 200));
    add("bmp", savedPicture("BMP"), Kind::Bmp, size);
    add("bmp from the top", bmpClaiming(3, quint32(-7)), Kind::Bmp, QSize(3, 7));
    add("ico", savedPicture("ICO"), Kind::Ico, size);
    add("ico with a png", icoAround(pngClaiming(70000, 2)), Kind::Ico, QSize(70000, 2));
    add("gif", gifOf(30, 20, 1), Kind::Gif, QSize(30, 20));
    add("ppm", savedPicture("PPM"), Kind::Pnm, size);
    add("pgm with a comment", "P5 # made by hand\n30\n20 255\n", Kind::Pnm, QSize(30, 20));
    add("xpm", savedPicture("XPM"), Kind::Xpm, size);
    add("xbm", savedPicture("XBM"), Kind::Xbm, size);
    add("webp", webpClaiming(70000, 3), Kind::Webp, QSize(70000, 3));
    add("mng", mng(), Kind::Other, QSize());
    add("text", "text", Kind::Other, QSize());
    add("nothing", "", Kind::Other, QSize());
    add("svg", "<svg/>", Kind::Svg, QSize());
    add("svg behind a declaration", "\n <?xml version='1.0'?><svg/>", Kind::Svg, QSize());
    add("compressed svg", gzipped("<svg/>"), Kind::Svg, QSize());
}

void tst_pictures::header_tellsKindAndSize()
{
    QFETCH(QByteArray, data);
    QFETCH(int, kind);
    QFETCH(QSize, size);
    const SPictureHeader header = pictureHeader(data);
    QCOMPARE(int(header.kind), kind);
    QCOMPARE(header.size, size);
}

void tst_pictures::size_decidesBeforeDecoding_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<bool>("one"); // Its first frame alone.
    QTest::addColumn<bool>("all");

    QTest::newRow("small") << savedPicture("PNG") << true << true;
    QTest::newRow("64 megapixels") << pngClaiming(8192, 8192) << true << true;
    QTest::newRow("a pixel line more") << pngClaiming(8192, 8193) << false << false;
    QTest::newRow("deep") << pngClaiming(8192, 4096, 16) << true << true;
    QTest::newRow("too large for its depth") << pngClaiming(8192, 4097, 16) << false << false;
    QTest::newRow("as large as numbers get") << pngClaiming(~0U, ~0U) << false << false;
    QTest::newRow("no pixels") << pngClaiming(0, 10) << false << false;
    QTest::newRow("png in an icon") << icoAround(pngClaiming(8192, 8193)) << false << false;
    QTest::newRow("large bmp") << bmpClaiming(1 << 20, 1 << 20) << false << false;
    QTest::newRow("largest jpeg") << jpegClaiming(65535, 65535) << false << false;
    QTest::newRow("animation") << gifOf(1000, 1000, 67) << true << true;
    QTest::newRow("long animation") << gifOf(1000, 1000, 68) << true << false;
    QTest::newRow("photograph in ten passes") << jpegClaiming(6000, 4000, 10) << true << true;
    QTest::newRow("thousand passes") << jpegClaiming(100, 100, 1000) << false << false;
    QTest::newRow("large and many passes") << jpegClaiming(8192, 8192, 11) << false << false;
    QTest::newRow("tells no size") << mng() << false << false;
    QTest::newRow("drawing") << QByteArray("<svg/>") << false << false;
}

void tst_pictures::size_decidesBeforeDecoding()
{
    QFETCH(QByteArray, data);
    QFETCH(bool, one);
    QFETCH(bool, all);
    QCOMPARE(isReasonable(pictureHeader(data), false), one);
    QCOMPARE(isReasonable(pictureHeader(data), true), all);
}

void tst_pictures::cutHeader_isNoPicture()
{
    for (const QByteArray &whole :
         {savedPicture("PNG").left(26), savedPicture("JPG"), savedPicture("BMP").left(26),
          icoAround(savedPicture("PNG")).left(48), gifOf(3, 2, 2), jpegClaiming(10, 10)}) {
        for (int nLength = 0; nLength < whole.size(); ++nLength) {
            const SPictureHeader header = pictureHeader(whole.left(nLength));
            QVERIFY(header.nFrames >= 1 && header.decodedBytes() >= 0);
            // The size is told whole or not at all.
            if (isReasonable(header, true))
                QCOMPARE(header.size, pictureHeader(whole).size);
        }
    }
}

void tst_pictures::format_mustBeThatOfTheFirstBytes_data()
{
    QTest::addColumn<QByteArray>("data");
    QTest::addColumn<QByteArray>("format");
    QTest::addColumn<bool>("drawn");
    for (const char *szFormat : {"PNG", "JPG", "BMP", "ICO", "PPM", "XPM", "XBM"}) {
        QTest::newRow(szFormat) << savedPicture(szFormat) << QByteArray(szFormat) << true;
        QTest::addRow("%s said to be another", szFormat)
            << savedPicture(szFormat) << QByteArray(szFormat[0] == 'P' ? "GIF" : "PNG") << false;
    }
    QTest::newRow("icon as a cursor") << savedPicture("ICO") << QByteArray("CUR") << true;
    const QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    QTest::newRow("drawing") << svg << QByteArray("SVG") << true;
    QTest::newRow("drawing as a picture") << svg << QByteArray("PNG") << false;
    QTest::newRow("compressed drawing as a picture") << gzipped(svg) << QByteArray("JPG") << false;
    QTest::newRow("picture as a drawing") << savedPicture("PNG") << QByteArray("SVG") << false;
    QTest::newRow("not on the list") << savedPicture("PNG") << QByteArray("PDF") << false;
    QTest::newRow("no format") << savedPicture("PNG") << QByteArray() << false;
    QTest::newRow("mng") << mng() << QByteArray("MNG") << false;
}

void tst_pictures::format_mustBeThatOfTheFirstBytes()
{
    QFETCH(QByteArray, data);
    QFETCH(QByteArray, format);
    QFETCH(bool, drawn);
    QCOMPARE(!decodePicture(data, format).isNull(), drawn);
}

void tst_pictures::suffix_decidesWhatAFileIsReadAs_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("its own") << "a.png" << true;
    QTest::newRow("upper case") << "a.PNG" << true;
    QTest::newRow("another's") << "a.bmp" << false;
    QTest::newRow("no format's") << "a.xyz" << false;
    QTest::newRow("none") << "a" << false;
}

void tst_pictures::suffix_decidesWhatAFileIsReadAs()
{
    QFETCH(QString, name);
    QFETCH(bool, drawn);
    const QTemporaryDir folder;
    QCOMPARE(!readPicture(write(folder, name, savedPicture("PNG"))).isNull(), drawn);
}

void tst_pictures::onlyRegularFiles_areRead()
{
#ifdef Q_OS_UNIX
    const QTemporaryDir folder;
    const QString strPipe = folder.filePath(QStringLiteral("pipe.png"));
    QCOMPARE(mkfifo(QFile::encodeName(strPipe).constData(), 0600), 0);
    QVERIFY(readPicture(strPipe).isNull());
    const QString strZeros = folder.filePath(QStringLiteral("zeros.png"));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), strZeros));
    QVERIFY(readPicture(strZeros).isNull());
    QByteArray data;
    QVERIFY(!readRegularFile(folder.path(), 1000, &data));
    QVERIFY(!readRegularFile(folder.filePath(QStringLiteral("none")), 1000, &data));
#else
    QSKIP("no pipes among the files here");
#endif
}

void tst_pictures::largeFile_isNotRead()
{
    const QTemporaryDir folder;
    const QString strPath = write(folder, QStringLiteral("a"), "12345");
    QByteArray data;
    QVERIFY(readRegularFile(strPath, 5, &data));
    QCOMPARE(data, QByteArray("12345"));
    QVERIFY(!readRegularFile(strPath, 4, &data));
}

void tst_pictures::framesInAnAnimation_areCounted()
{
    QCOMPARE(countGifFrames(gifOf(3, 2, 1)), 1);
    QCOMPARE(countGifFrames(gifOf(3, 2, 500)), 500);
    QCOMPARE(countGifFrames("GIF89a"), 1);
    const QByteArray frame = "ANMF" + littleEndian(3, 4) + "xyz ";
    QCOMPARE(countWebpFrames("RIFF____WEBP" + frame.repeated(7)), 7);
    QCOMPARE(countWebpFrames("RIFF____WEBP" + frame + "ANMF" + littleEndian(~0U, 4)), 2);
    // A frame may be larger than the whole that it belongs to.
    QByteArray gif = gifOf(3, 2, 2);
    gif.replace(10 + 3 + 6 + 5, 2, littleEndian(60000, 2));
    QCOMPARE(largestGifFrame(gif), QSize(60000, 2));
}

void tst_pictures::innerPictureOfADrawing_isAPictureOfReasonableSize_data()
{
    QTest::addColumn<QByteArray>("picture");
    QTest::addColumn<bool>("drawn");
    QTest::newRow("small") << savedPicture("PNG", QSize(50, 50)) << true;
    QTest::newRow("said to be large") << pngClaiming(60000, 60000) << false;
    QTest::newRow("drawing with a picture elsewhere")
        << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='50' height='50'>"
                      "<rect width='50' height='50'/></svg>")
        << false;
    QTest::newRow("unknown") << mng() << false;
}

void tst_pictures::innerPictureOfADrawing_isAPictureOfReasonableSize()
{
    QFETCH(QByteArray, picture);
    QFETCH(bool, drawn);
    const QImage image = decodePicture(
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
        "width='50' height='50'><image width='50' height='50' xlink:href='data:image/png;base64,"
            + picture.toBase64() + "'/></svg>",
        "SVG");
    QCOMPARE(image.size(), QSize(50, 50));
    QCOMPARE(qAlpha(image.pixel(25, 25)) != 0, drawn);
}

void tst_pictures::styleSheetOfADrawing_isNotOpened()
{
    const QTemporaryDir folder;
    const QString strStyle = write(folder, QStringLiteral("a.css"), "rect { fill: red }");
    const QImage image = decodePicture(
        "<?xml version=\"1.0\"?><?xml-stylesheet type=\"text/css\" href=\"" + strStyle.toUtf8()
            + "\"?><svg xmlns=\"http://www.w3.org/2000/svg\" width=\"50\" height=\"50\">"
              "<rect width=\"50\" height=\"50\" fill=\"#0000ff\"/></svg>",
        "SVG");
    QCOMPARE(image.pixel(25, 25), qRgb(0, 0, 255));
}

void tst_pictures::stopsOfAGradient_areDrawnUpToSomeNumber()
{
    const auto drawing = [](int nStops) {
        return decodePicture(
            "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'>"
            "<linearGradient id='g'>"
                + QByteArray("<stop offset='.5' stop-color='#0000ff'/>").repeated(nStops)
                + "</linearGradient><rect width='9' height='9' fill='url(#g)'/>"
                  "</svg>",
            "SVG");
    };
    QCOMPARE(drawing(2).pixel(4, 4), qRgb(0, 0, 255));
    const CProcessorTime time;
    QCOMPARE(drawing(200000).pixel(4, 4), qRgb(0, 0, 255));
    QVERIFY(time.elapsed() < 2000);
}

QTEST_MAIN(tst_pictures)
#include "tst_pictures.moc"
