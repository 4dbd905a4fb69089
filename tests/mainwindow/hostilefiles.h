#pragma once

#include <QByteArray>
#include <QString>

// Files that somebody might send to harm whoever opens them.

// An SVG that names a file of the reader's as an entity.
inline QByteArray svgReading(const QString &strPath)
{
    return "<?xml version=\"1.0\"?>\n<!DOCTYPE svg [<!ENTITY secret SYSTEM \"file://"
        + strPath.toUtf8()
        + "\">]>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9\" height=\"9\">"
          "<text>&secret;</text></svg>\n";
}

// Ten entities, each ten times the one before.
inline QByteArray billionLaughs()
{
    QByteArray svg = "<!DOCTYPE svg [<!ENTITY a0 \"ha\">\n";
    for (char n = '1'; n <= '9'; ++n) {
        svg += "<!ENTITY a" + QByteArray(1, n) + " \"";
        for (int nTimes = 0; nTimes < 10; ++nTimes)
            svg += "&a" + QByteArray(1, char(n - 1)) + ';';
        svg += "\">\n";
    }
    return svg + "]>\n<svg xmlns=\"http://www.w3.org/2000/svg\"><text>&a9;</text></svg>\n";
}

// Elements within elements.
inline QByteArray deepXml(int nDepth)
{
    return QByteArray("<g>").repeated(nDepth) + QByteArray("</g>").repeated(nDepth);
}

// A page that tries everything forbidden: scripts, other files, the network.
inline QByteArray trapPage(const QString &strSecret, int nPort)
{
    const QByteArray file = "file://" + strSecret.toUtf8();
    const QByteArray web = "http://127.0.0.1:" + QByteArray::number(nPort);
    return "<html><head><title>trap</title><meta http-equiv=\"refresh\" content=\"0;url=" + web
        + "/refresh\"><link rel=\"stylesheet\" href=\"" + web
        + "/style.css\"><link rel=\"prefetch\" href=\"" + web + "/prefetch\"><script src=\"" + web
        + "/script.js\"></script><script>document.title = 'scripts run';"
          "new Image().src = '"
        + web + "/beacon';</script><style>@import url(" + web
        + "/import.css); body { background: url(" + web
        + "/back.png) } @font-face { font-family: x; src: url(" + web
        + "/font.woff) }</style></head><body onload=\"document.title='onload runs'\">"
          "<iframe src=\""
        + file + "\"></iframe><object data=\"" + file + "\"></object><embed src=\"" + file
        + "\"><img src=\"" + file + "\"><iframe src=\"" + web + "/frame\"></iframe><img src=\""
        + web + "/pixel.png\" width=\"100000\" height=\"100000\"><video src=\"" + web
        + "/film.mp4\" autoplay></video><form action=\"" + web
        + "/form\"><input autofocus onfocus=\"this.form.submit()\"></form>"
        + QByteArray("<div>").repeated(5000) + "text" + QByteArray("</div>").repeated(5000)
        + "</body></html>\n";
}
