#include "hostile/hostile.h"
#include "support/madepictures.h"

#include <QImage>
#include <QRandomGenerator>

namespace {

const QByteArray g_drawing =
    "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink'><image "
    "xlink:href='/dev/zero' width='9' height='9'/></svg>";

// Always the same.
QByteArray noise(int nBytes)
{
    QRandomGenerator random(20);
    QByteArray bytes(nBytes, '\0');
    for (char &c : bytes)
        c = char(random.bounded(256));
    return bytes;
}

QByteArray pngChunk(const QByteArray &type, const QByteArray &data)
{
    return bigEndian(quint32(data.size())) + type + data + QByteArray(4, '\0');
}

// 400 megapixels in 50 kilobytes, whole and true.
QByteArray honestLargePng()
{
    QImage image(20000, 20000, QImage::Format_Mono);
    image.fill(0);
    return savedPicture(image, "PNG");
}

// As large as is allowed.
QByteArray honestLargestJpeg()
{
    QImage image(8000, 8000, QImage::Format_Grayscale8);
    image.fill(100);
    return savedPicture(image, "JPG");
}

QByteArray headers(const QByteArray &suffix)
{
    if (suffix == "png")
        return pngClaiming(60000, 60000);
    if (suffix == "jpg")
        return jpegClaiming(65000, 65000);
    if (suffix == "gif")
        return gifOf(65000, 65000, 1);
    if (suffix == "bmp")
        return bmpClaiming(60000, 60000);
    if (suffix == "ico")
        return icoAround(pngClaiming(60000, 60000));
    if (suffix == "cur")
        return icoAround(bmpClaiming(60000, 120000).mid(14));
    if (suffix == "ppm")
        return "P6 60000 60000 65535\n";
    if (suffix == "xpm")
        return "/* XPM */\nstatic char *x[] = {\n\"60000 60000 1 1\",\n\"a c #000\",\n";
    return "#define x_width 2000000\n#define x_height 2000000\nstatic char x_bits[] = {0";
}

} // namespace

QList<SHostileFile> hostilePictures()
{
    QList<SHostileFile> lstFiles;
    const auto add = [&](const QByteArray &name, const QByteArray &data) {
        lstFiles.append({SHostileFile::Kind::Picture, QString::fromLatin1(name), data, {}});
    };
    for (const char *szSuffix : {"png", "jpg", "gif", "bmp", "ico", "cur", "ppm", "xpm", "xbm"}) {
        const QByteArray suffix(szSuffix);
        add("large." + suffix, headers(suffix));
        add("drawing." + suffix, g_drawing);
        add("noise." + suffix, headers(suffix).left(12) + noise(20000));
    }
    add("no size.png", mng());
    add("no size.mng", mng());
    add("honest.png", honestLargePng());
    add("largest.jpg", honestLargestJpeg());
    add("passes.jpg", jpegClaiming(8000, 8000, 5000));
    add("frames.gif", gifOf(5000, 5000, 20000));
    add("frame larger than the whole.gif",
        gifOf(9, 9, 1).replace(24, 4, littleEndian(65000, 2) + littleEndian(65000, 2)));
    add("colours.xpm", "/* XPM */\nstatic char *x[] = {\n\"9 9 99999999 4\",\n");
    add("profile.png",
        savedPicture("PNG").insert(33, pngChunk("iCCP", "x" + QByteArray(2, '\0') + noise(90000))));
    add("negative.bmp", bmpClaiming(quint32(-5), 1U << 31));
    add("icons.ico", QByteArray("\0\0\1\0\xff\xff", 6) + QByteArray(100000, '\x10'));
    add("empty.png", QByteArray());
    add("cut.jpg", savedPicture("JPG", QSize(500, 500)).left(900));
    return lstFiles;
}
