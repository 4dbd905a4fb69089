#include "support/gzipped.h"
#include "support/processortime.h"
#include "web/cimagewidget.h"
#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>

class tst_imagewidget : public QObject
{
    Q_OBJECT

private slots:
    void paintedRectangle_data();
    void paintedRectangle();
    void everyFormat_isDrawn_data();
    void everyFormat_isDrawn();
    void suffix_choosesTheFormat();
    void brokenImage_isPlainWhite_data();
    void brokenImage_isPlainWhite();
    void svgText_replacesTheFile();
    void svgWithExternalEntity_readsNothing();
    void svgWithLinkedImages_opensNone_data();
    void svgWithLinkedImages_opensNone();
    void svgWithItsOwnImage_showsIt();
    void clearImage_forgetsPathAndImage();
    void transparentImage_liesOnWhite();
    void reload_readsTheFileAgain();
    void reloadOfAVanishedFile_keepsTheImage();
    void title_isTheFileName();
};

namespace {

// The rectangle of all pixels that are not white.
QRect drawnRect(CImageWidget &view)
{
    const QImage image = view.grab().toImage();
    QRect rect;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                rect |= QRect(x, y, 1, 1);
    }
    return rect;
}

QString writeImage(const QTemporaryDir &folder, const QString &strName, const QSize &size,
                   const char *szFormat = nullptr)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::blue);
    const QString strPath = folder.filePath(strName);
    if (!image.save(strPath, szFormat))
        qFatal("cannot write a test image");
    return strPath;
}

// Two red pixels by two.
QByteArray gif()
{
    return QByteArray::fromBase64("R0lGODlhAgACAIAAAP8AAAAAACwAAAAAAgACAAACAoRRADs=");
}

void writeFile(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(data);
}

} // namespace

void tst_imagewidget::paintedRectangle_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QSize>("view");
    QTest::addColumn<QRect>("expected");

    QTest::newRow("fits") << QSize(100, 50) << QSize(400, 300) << QRect(150, 125, 100, 50);
    QTest::newRow("too wide and high, flat")
        << QSize(800, 400) << QSize(400, 300) << QRect(0, 50, 400, 200);
    QTest::newRow("too high") << QSize(400, 800) << QSize(400, 300) << QRect(125, 0, 150, 300);
    QTest::newRow("exactly") << QSize(400, 300) << QSize(400, 300) << QRect(0, 0, 400, 300);
    QTest::newRow("one pixel") << QSize(1, 1) << QSize(400, 300) << QRect(199, 149, 1, 1);
    QTest::newRow("only too wide") << QSize(600, 100) << QSize(400, 300) << QRect(0, 116, 400, 67);
    QTest::newRow("rounded down") << QSize(299, 997) << QSize(400, 300) << QRect(155, 0, 90, 300);
    QTest::newRow("huge") << QSize(8000, 8000) << QSize(400, 300) << QRect(50, 0, 300, 300);
}

void tst_imagewidget::paintedRectangle()
{
    QFETCH(QSize, image);
    QFETCH(QSize, view);
    QFETCH(QRect, expected);

    const QTemporaryDir folder;
    CImageWidget widget;
    widget.resize(view);
    widget.setImageFile(writeImage(folder, QStringLiteral("a.png"), image));
    QCOMPARE(widget.imageSize(), image);
    QCOMPARE(drawnRect(widget), expected);
    QCOMPARE(CImageWidget::targetRect(view, image), expected);
}

void tst_imagewidget::everyFormat_isDrawn_data()
{
    QTest::addColumn<QString>("name");
    for (const char *szName : {"a.png", "A.PNG", "photo.jpg", "photo.jpeg", "a.bmp"})
        QTest::newRow(szName) << QString::fromLatin1(szName);
}

void tst_imagewidget::everyFormat_isDrawn()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    CImageWidget widget;
    widget.resize(400, 300);
    widget.setImageFile(writeImage(folder, name, QSize(100, 50)));
    QCOMPARE(drawnRect(widget), QRect(150, 125, 100, 50));
}

void tst_imagewidget::suffix_choosesTheFormat()
{
    const QTemporaryDir folder;
    CImageWidget widget;
    widget.resize(400, 300);
    // PNG data under another name are not recognised by their content.
    widget.setImageFile(writeImage(folder, QStringLiteral("a.jpg"), QSize(100, 50), "PNG"));
    QVERIFY(widget.isNull());

    writeFile(folder.filePath(QStringLiteral("a.gif")), gif());
    widget.setImageFile(folder.filePath(QStringLiteral("a.gif")));
    QCOMPARE(drawnRect(widget), QRect(199, 149, 2, 2));
}

void tst_imagewidget::brokenImage_isPlainWhite_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("empty file") << "a.png" << QByteArray();
    QTest::newRow("no image") << "a.png" << QByteArray("nothing of the kind");
    QTest::newRow("cut short") << "a.png" << QByteArray("\x89PNG\r\n\x1a\n", 8);
    QTest::newRow("unknown suffix") << "a.xyz" << gif();
    QTest::newRow("no suffix") << "a" << gif();
    QTest::newRow("unreasonable size")
        << "a.svg"
        << QByteArray("<svg xmlns='http://www.w3.org/2000/svg' width='1000000' height='1000000'/>");
}

void tst_imagewidget::brokenImage_isPlainWhite()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    writeFile(folder.filePath(name), content);
    CImageWidget widget;
    widget.resize(100, 100);
    widget.setImageFile(folder.filePath(name));
    QVERIFY(widget.isNull());
    QCOMPARE(drawnRect(widget), QRect());
    QCOMPARE(widget.filePath(), folder.filePath(name));
}

void tst_imagewidget::svgText_replacesTheFile()
{
    const QTemporaryDir folder;
    CImageWidget widget;
    widget.resize(400, 300);
    widget.setImageFile(writeImage(folder, QStringLiteral("a.png"), QSize(10, 10)));
    widget.setSvgText(
        QStringLiteral("<svg xmlns='http://www.w3.org/2000/svg' width='100' height='50'>"
                       "<rect width='100' height='50' fill='blue'/></svg>"));
    QVERIFY(widget.filePath().isEmpty());
    QCOMPARE(drawnRect(widget), QRect(150, 125, 100, 50));
    widget.setSvgText(QStringLiteral("<svg"));
    QVERIFY(widget.isNull());
}

void tst_imagewidget::svgWithExternalEntity_readsNothing()
{
    CImageWidget widget;
    widget.resize(400, 300);
    widget.setSvgText(QStringLiteral("<!DOCTYPE svg [<!ENTITY e SYSTEM 'file:///etc/passwd'>]>"
                                     "<svg xmlns='http://www.w3.org/2000/svg' width='400' "
                                     "height='300'><text y='50'>&e;</text></svg>"));
    QCOMPARE(drawnRect(widget), QRect());
    QString strLaughs = QStringLiteral("<!DOCTYPE svg [<!ENTITY a0 'ha'>");
    for (int i = 1; i < 20; ++i) {
        strLaughs += QStringLiteral("<!ENTITY a%1 '").arg(i)
            + QStringLiteral("&a%1;").arg(i - 1).repeated(10) + QStringLiteral("'>");
    }
    const CProcessorTime time;
    widget.setSvgText(
        strLaughs
        + QStringLiteral("]><svg xmlns='http://www.w3.org/2000/svg'><text>&a19;</text></svg>"));
    QVERIFY(time.elapsed() < 2000);
}

void tst_imagewidget::svgWithLinkedImages_opensNone_data()
{
    QTest::addColumn<QString>("image");
    QTest::newRow("link") << "<image xlink:href='%1' width='50' height='50'/>";
    QTest::newRow("no prefix") << "<image href='%1' width='50' height='50'></image>";
    QTest::newRow("other prefix") << "<s:image x:href='%1' width='50' height='50'/>";
}

void tst_imagewidget::svgWithLinkedImages_opensNone()
{
    QFETCH(QString, image);
    const QTemporaryDir folder;
    const QString strPicture = writeImage(folder, QStringLiteral("a.png"), QSize(50, 50));
    const QString strSvg =
        QString("<svg xmlns='http://www.w3.org/2000/svg' width='100' height='100'>"
                + image.arg(strPicture) + "<rect width='20' height='20' fill='blue'/></svg>");
    CImageWidget widget;
    widget.resize(100, 100);
    widget.setSvgText(strSvg);
    QCOMPARE(drawnRect(widget), QRect(0, 0, 20, 20));
    for (const char *szName : {"a.svg", "a.svgz"}) {
        const QString strPath = folder.filePath(szName);
        writeFile(strPath, strSvg.toUtf8());
        widget.setImageFile(strPath);
        QCOMPARE(drawnRect(widget), QRect(0, 0, 20, 20));
        writeFile(strPath, gzipped(strSvg.toUtf8()));
        widget.setImageFile(strPath);
        QCOMPARE(drawnRect(widget), QRect(0, 0, 20, 20));
    }
}

void tst_imagewidget::svgWithItsOwnImage_showsIt()
{
    QByteArray png;
    QBuffer buffer(&png);
    QVERIFY(buffer.open(QIODevice::WriteOnly));
    QImage image(50, 50, QImage::Format_RGB32);
    image.fill(Qt::red);
    QVERIFY(image.save(&buffer, "PNG"));
    CImageWidget widget;
    widget.resize(100, 100);
    widget.setSvgText(QString("<svg xmlns='http://www.w3.org/2000/svg' "
                              "xmlns:xlink='http://www.w3.org/1999/xlink' width='100' height='100'>"
                              "<style>.a { fill: blue }</style><g><image width='50' height='50' "
                              "xlink:href='data:image/png;base64,"
                              + QString::fromLatin1(png.toBase64())
                              + "'/></g><rect class='a' x='60' width='10' height='10'/></svg>"));
    QCOMPARE(drawnRect(widget), QRect(0, 0, 70, 50));
}

void tst_imagewidget::clearImage_forgetsPathAndImage()
{
    const QTemporaryDir folder;
    CImageWidget widget;
    widget.resize(100, 100);
    widget.setImageFile(writeImage(folder, QStringLiteral("a.png"), QSize(10, 10)));
    widget.clearImage();
    QVERIFY(widget.filePath().isEmpty());
    QVERIFY(widget.isNull());
    QCOMPARE(drawnRect(widget), QRect());
}

void tst_imagewidget::transparentImage_liesOnWhite()
{
    const QTemporaryDir folder;
    QImage image(50, 50, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    const QString strPath = folder.filePath(QStringLiteral("a.png"));
    QVERIFY(image.save(strPath));
    CImageWidget widget;
    widget.resize(100, 100);
    widget.setImageFile(strPath);
    QVERIFY(!widget.isNull());
    QCOMPARE(drawnRect(widget), QRect());
}

void tst_imagewidget::reload_readsTheFileAgain()
{
    const QTemporaryDir folder;
    CImageWidget widget;
    widget.resize(400, 300);
    widget.setImageFile(writeImage(folder, QStringLiteral("a.png"), QSize(10, 10)));
    drawnRect(widget);
    writeImage(folder, QStringLiteral("a.png"), QSize(100, 50));
    QVERIFY(widget.reload());
    QCOMPARE(drawnRect(widget), QRect(150, 125, 100, 50));
}

void tst_imagewidget::reloadOfAVanishedFile_keepsTheImage()
{
    const QTemporaryDir folder;
    CImageWidget widget;
    widget.resize(400, 300);
    widget.setImageFile(writeImage(folder, QStringLiteral("a.png"), QSize(100, 50)));
    QVERIFY(QFile::remove(widget.filePath()));
    QVERIFY(!widget.reload());
    QCOMPARE(drawnRect(widget), QRect(150, 125, 100, 50));
}

void tst_imagewidget::title_isTheFileName()
{
    CImageWidget widget;
    QCOMPARE(widget.getTitle(), QStringLiteral("Untitled"));
    widget.setFilePath(QStringLiteral("/a/b/photo.jpg"));
    QCOMPARE(widget.getTitle(), QStringLiteral("photo.jpg"));
}

QTEST_MAIN(tst_imagewidget)
#include "tst_imagewidget.moc"
