#include "hostile/hostile.h"
#include "support/gzipped.h"
#include "support/madepictures.h"

namespace {

QByteArray drawing(const QByteArray &content,
                   const QByteArray &attributes = "width='99' height='99'")
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
        + attributes + ">" + content + "</svg>";
}

QByteArray repeated(const QByteArray &part, int nTimes)
{
    return part.repeated(nTimes);
}

// Each holds the one before ten times.
QByteArray uses(int nLevels)
{
    QByteArray result = "<g id='a0'><rect width='1' height='1'/></g>";
    for (int n = 1; n < nLevels; ++n) {
        result += "<g id='a" + QByteArray::number(n) + "'>"
            + repeated("<use xlink:href='#a" + QByteArray::number(n - 1) + "'/>", 10) + "</g>";
    }
    return result;
}

QByteArray entities()
{
    QByteArray result = "<!DOCTYPE svg [<!ENTITY a0 'ha'>";
    for (int n = 1; n < 20; ++n) {
        result += "<!ENTITY a" + QByteArray::number(n) + " '"
            + repeated("&a" + QByteArray::number(n - 1) + ";", 10) + "'>";
    }
    return result + "]>" + drawing("<text y='9'>&a19;</text>");
}

QByteArray image(const QByteArray &address)
{
    return "<image width='9' height='9' xlink:href='" + address + "'/>";
}

} // namespace

QList<SHostileFile> hostileDrawings()
{
    QList<SHostileFile> lstFiles;
    const auto add = [&](const char *szName, const QByteArray &data,
                         const char *szSuffix = ".svg") {
        lstFiles.append({SHostileFile::Kind::Drawing,
                         QString::fromLatin1(szName) + QLatin1String(szSuffix),
                         data,
                         {}});
    };
    add("uses", drawing(uses(12)));
    add("use of itself", drawing("<g id='a'><use xlink:href='#a'/></g>"));
    add("groups", drawing(QByteArray("<g>").repeated(50000) + QByteArray("</g>").repeated(50000)));
    add("groups without end", QByteArray("<svg>") + QByteArray("<g>").repeated(200000));
    add("group alone", "<g/>");
    add("drawings in each other", QByteArray("<svg>").repeated(20000));
    add("entities", entities());
    add("large", drawing("", "width='100000' height='100000'"));
    add("as large as can be",
        drawing("<rect width='9' height='9'/>", "width='8000' height='8000'"));
    add("negative", drawing("<rect width='-9' height='9'/>", "width='-5' height='1e30'"));
    add("no view", drawing("<rect width='9' height='9'/>", "viewBox='0 0 0 0'"));
    add("device", drawing(image("/dev/zero")));
    add("terminal", drawing(image("/dev/ptmx")));
    add("picture", drawing(image("data:image/png;base64," + pngClaiming(60000, 60000).toBase64())));
    add("drawing in a drawing",
        drawing(image("data:image/svg+xml;base64," + drawing(image("/dev/zero")).toBase64())));
    add("sheet", "<?xml-stylesheet type=\"text/css\" href=\"/dev/zero\"?>" + drawing("<g/>"));
    add("points",
        drawing("<path stroke='red' d='M0 0" + QByteArray("L9 1e3 1 1").repeated(200000) + "'/>"));
    add("dashes", drawing("<path stroke='red' stroke-dasharray='.0001 .0001' d='M0 0L1e7 1e7'/>"));
    add("wide line", drawing("<path stroke='red' stroke-width='1e20' d='M0 0L9 9L1e20 5'/>"));
    add("arcs",
        drawing("<path d='M0 0" + QByteArray("A1e9 1e-9 45 1 1 9 9").repeated(50000) + "'/>"));
    add("stops",
        drawing("<linearGradient id='g'>"
                + QByteArray("<stop offset='.5' stop-color='red'/>").repeated(200000)
                + "</linearGradient><rect width='99' height='99' fill='url(#g)'/>"));
    add("text", drawing("<text y='9'>" + QByteArray(1000000, 'x') + "</text>"));
    add("large text", drawing("<text y='9' font-size='1e9'>xxxxxxxx</text>"));
    add("turns",
        drawing(QByteArray("<g transform='rotate(45) scale(1e9)'>").repeated(500)
                + "<rect width='9' height='9'/>" + QByteArray("</g>").repeated(500)));
    add("packed", gzipped(drawing(QByteArray(50000000, ' '))), ".svgz");
    add("packed badly", gzipped(drawing("")).left(20), ".svgz");
    return lstFiles;
}

QList<SHostileFile> hostileTexts()
{
    QList<SHostileFile> lstFiles;
    const auto add = [&](const char *szName, const QByteArray &data) {
        lstFiles.append({SHostileFile::Kind::Text, QString::fromLatin1(szName), data, {}});
    };
    add("marks.txt", QByteArray("\xcc\x81").repeated(1000000));
    add("Thai.txt", QByteArray("\xe0\xb8\x81").repeated(200000));
    add("Arabic.txt", QByteArray("\xd9\x85").repeated(300000));
    add("Devanagari.txt", QByteArray("\xe0\xa4\x95\xe0\xa5\x8d").repeated(100000));
    add("emoji.txt", QByteArray("\xf0\x9f\x91\xa9\xe2\x80\x8d").repeated(100000));
    add("one line.txt", QByteArray(3000000, 'x'));
    add("tabs.txt", QByteArray(500000, '\t'));
    add("empty lines.txt", QByteArray(2000000, '\n'));
    add("directions.txt",
        QByteArray("\xe2\x80\xae"
                   "a")
            .repeated(100000));
    add("controls.txt", QByteArray::fromHex("01021b5b33316d07").repeated(50000));
    add("zeros.txt", QByteArray(1000000, '\0'));
    add("brackets.json", QByteArray(500000, '['));
    add("elements.xml", QByteArray("<a>").repeated(150000));
    add("comments.cpp", QByteArray("/*").repeated(250000));
    add("quotes.py", QByteArray("\"\"\"'").repeated(100000));
    add("escapes.js", "\"" + QByteArray(500000, '\\'));
    add("stars.md", QByteArray("*_").repeated(250000));
    add("brackets.css", QByteArray("a{").repeated(250000));
    add("variables.sh", QByteArray("${").repeated(250000));
    add("signs.php", "<?php " + QByteArray("$a[").repeated(150000));
    return lstFiles;
}
