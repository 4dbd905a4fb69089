#include "hostile/hostile.h"
#include "support/madepictures.h"

namespace {

QByteArray number(int n)
{
    return QByteArray::number(n);
}

// Elements within elements, never closed.
QByteArray nested(const QByteArray &start, int nDepth)
{
    return "<!DOCTYPE html>" + start.repeated(nDepth) + "text";
}

QByteArray styled(const QByteArray &css, const QByteArray &body)
{
    return "<!DOCTYPE html><style>" + css + "</style>" + body;
}

// With the counter in place of each "#", the one before in place of each "@".
QByteArray counted(const QByteArray &part, int nFrom, int nTo)
{
    QByteArray result;
    for (int n = nFrom; n < nTo; ++n)
        result += QByteArray(part).replace("@", number(n - 1)).replace('#', number(n));
    return result;
}

QByteArray data(const QByteArray &bytes, const QByteArray &type = "image/png")
{
    return "data:" + type + ";base64," + bytes.toBase64();
}

QByteArray svg(const QByteArray &content)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "width='1000' height='1000'>"
        + content + "</svg>";
}

class CPages
{
public:
    void add(const QString &strName, const QByteArray &html,
             const QMap<QString, QByteArray> &mapBeside = {})
    {
        m_lstFiles.append(
            {SHostileFile::Kind::Page, strName + QStringLiteral(".html"), html, mapBeside});
    }
    const QList<SHostileFile> &files() const { return m_lstFiles; }

private:
    QList<SHostileFile> m_lstFiles;
};

void addNesting(CPages *pPages)
{
    pPages->add("flex rows", nested("<div style='display:flex'>", 40));
    pPages->add("flex columns", nested("<div style='display:flex;flex-direction:column'>", 30));
    pPages->add("flex columns of old",
                nested("<div style='display:-webkit-box;"
                       "-webkit-box-orient:vertical'>",
                       60));
    pPages->add("flex both",
                nested("<div style='display:flex'><div style='display:flex;"
                       "flex-direction:column;flex:1'>",
                       20));
    pPages->add("divisions", nested("<div>", 100000));
    pPages->add("bold", nested("<b>", 50000));
    pPages->add("links and divisions", nested("<a><div>", 5000));
    pPages->add("tables", nested("<table><tr><td>", 1000));
    pPages->add("columns",
                nested("<div style='-webkit-columns:3'>", 25) + " x"
                    + QByteArray(" text").repeated(1000));
    pPages->add("inline blocks", nested("<div style='display:inline-block'>", 3000));
    pPages->add("floats", nested("<div style='float:left'>", 1500));
    pPages->add("positions", nested("<div style='position:absolute;width:99%'>", 5000));
    pPages->add("directions", nested("<bdo dir=rtl>", 3000));
    pPages->add("lists", nested("<ul><li>", 5000));
    pPages->add("field sets", nested("<fieldset>", 3000));
    pPages->add("ruby", nested("<ruby><rt>", 1000));
    pPages->add("buttons", nested("<button>", 2000));
    const QByteArray floats = "<html xmlns='http://www.w3.org/1999/xhtml'><body>"
        + QByteArray("<div style='float:left'>").repeated(3000) + "x"
        + QByteArray("</div>").repeated(3000) + "</body></html>";
    pPages->add("floats in a frame", "<iframe src='a.xhtml'></iframe>", {{"a.xhtml", floats}});
}

void addSheets(CPages *pPages)
{
    pPages->add("sheet of itself", "<link rel=stylesheet href=a.css><p>x",
                {{"a.css", QByteArray("@import 'a.css';").repeated(12)}});
    pPages->add("sheet of itself by other names", "<link rel=stylesheet href=a.css><p>x",
                {{"a.css", counted("@import 'a.css?#';", 0, 12)}});
    QMap<QString, QByteArray> mapChain;
    for (int n = 0; n < 12; ++n) {
        mapChain.insert(QStringLiteral("%1.css").arg(n),
                        counted("@import '" + number(n + 1) + ".css?#';", 0, 12));
    }
    pPages->add("chain of sheets", "<link rel=stylesheet href=0.css><p>x", mapChain);
    const QByteArray rows = "<div>" + QByteArray("<p><b>x</b></p>").repeated(10000) + "</div>";
    pPages->add(
        "last children",
        styled(counted("p:nth-last-child(#n+1) b:nth-last-of-type(#n+2){color:red}", 1, 60), rows));
    pPages->add("not not", styled(QByteArray(":not(p)").repeated(3000) + "{color:red}", rows));
    pPages->add("descendants",
                styled(QByteArray("div ").repeated(300) + "p{color:red}",
                       QByteArray("<div>").repeated(400) + QByteArray("<p>x</p>").repeated(1000)));
    pPages->add("brothers",
                styled(QByteArray("p ~ ").repeated(30) + "b{color:red}",
                       QByteArray("<p>x</p>").repeated(20000)));
    pPages->add("selectors",
                styled(counted(".c#,!i#,p[a#]{color:red}", 0, 50000).replace('!', '#'), "<p>x"));
    pPages->add("counters",
                styled("p{counter-increment:a} p:before{content:counters(a,'.')}",
                       QByteArray("<p style='counter-reset:a'>").repeated(2000)));
    pPages->add("unclosed", "<style>" + QByteArray("a{").repeated(300000));
    pPages->add("brackets", "<style>a{b:" + QByteArray("(").repeated(300000));
    pPages->add("sums",
                "<p style='width:" + QByteArray("calc(1px + ").repeated(3000) + "1px"
                    + QByteArray(")").repeated(3000) + "'>x");
}

void addPainting(CPages *pPages)
{
    pPages->add("blurs",
                QByteArray("<div style='-webkit-filter:blur(500px);width:4000px;"
                           "height:4000px;background:red'>")
                    .repeated(30));
    pPages->add("shadow of shadows",
                "<p style='-webkit-filter:"
                    + QByteArray("drop-shadow(9px 9px 99px red) ").repeated(100) + "'>x");
    QByteArray shadows = QByteArray("0 0 500px red,").repeated(200);
    shadows.chop(1);
    pPages->add("shadows of text",
                "<p style='text-shadow:" + shadows + "'>" + QByteArray("text ").repeated(500));
    pPages->add("shadows of boxes",
                "<div style='width:3000px;height:3000px;box-shadow:" + shadows + "'>x");
    QByteArray gradients = QByteArray("radial-gradient(red,blue),").repeated(2000);
    gradients.chop(1);
    pPages->add("gradients",
                "<div style='width:5000px;height:5000px;background:" + gradients + "'>");
    pPages->add("endless sizes",
                "<div style='width:1e9px;height:1e9px;border:1px dotted;"
                "border-radius:1e8px;box-shadow:0 0 1e6px red'>x");
    pPages->add("dotted border", "<div style='width:30000000px;border:1px dotted red'>x");
    pPages->add("turning",
                styled("@-webkit-keyframes a{to{-webkit-transform:rotate3d(1,1,1,9turn)}}"
                       "p{-webkit-animation:a 1ms infinite}",
                       QByteArray("<p>x").repeated(2000)));
    pPages->add("reflections",
                QByteArray("<div style='-webkit-box-reflect:below 0'>").repeated(40) + "x");
    pPages->add("masks",
                svg(counted("<mask id='m#'><g mask='url(!m@)'><rect width='999' "
                            "height='999' fill='white' mask='url(!m@)'/></g></mask>",
                            1, 30)
                        .replace('!', '#')
                    + "<rect width='999' height='999' mask='url(#m29)'/>"));
    pPages->add("clips",
                svg(counted("<clipPath id='c#'><g><rect width='999' height='999' "
                            "clip-path='url(!c@)'/><rect width='9' height='9' "
                            "clip-path='url(!c@)'/></g></clipPath>",
                            1, 30)
                        .replace('!', '#')
                    + "<rect width='999' height='999' clip-path='url(#c29)'/>"));
    pPages->add(
        "uses",
        svg("<g id='a0'><rect width='1' height='1'/></g>"
            + counted("<g id='a#'>" + QByteArray("<use xlink:href='!a@'/>").repeated(10) + "</g>",
                      1, 12)
                  .replace('!', '#')));
    pPages->add("patterns",
                svg("<rect id='p' width='1' height='1'/>"
                    + counted("<pattern id='p#' width='.001' height='.001'><rect "
                              "width='999' height='999' fill='url(!p@)'/></pattern>",
                              1, 20)
                          .replace('!', '#')
                    + "<rect width='999' height='999' fill='url(#p19)'/>"));
    pPages->add("turbulence",
                svg("<filter id='f'>"
                    + QByteArray("<feTurbulence baseFrequency='.9' numOctaves='99'/>").repeated(50)
                    + "</filter><rect width='999' height='999' filter='url(#f)'/>"));
    pPages->add("dashes",
                svg("<path d='M0 0L1e9 1e9' stroke='red' stroke-dasharray='.001 .001'/>"));
}

void addTables(CPages *pPages)
{
    pPages->add("column spans", "<table>" + QByteArray("<td colspan=1000>x").repeated(3000));
    pPages->add("row spans",
                "<table>" + QByteArray("<tr><td rowspan=65534 colspan=1000>x").repeated(300));
    pPages->add("spans of columns",
                "<table>" + QByteArray("<col span=1000>").repeated(20000) + "<tr><td>x");
    pPages->add("options", "<select>" + QByteArray("<option>x").repeated(200000));
    pPages->add("frame set", "<frameset rows='" + QByteArray("1,").repeated(100000) + "*'><frame>");
    pPages->add("grid of inputs", QByteArray("<input type=range>").repeated(20000));
}

void addText(CPages *pPages)
{
    pPages->add("long word", "<p>" + QByteArray(3000000, 'a'));
    pPages->add("marks", "<meta charset=utf-8><p>" + QByteArray("\xcc\x81").repeated(300000));
    pPages->add("Thai", "<meta charset=utf-8><p>" + QByteArray("\xe0\xb8\x81").repeated(200000));
    pPages->add("hyphens", "<p>" + QByteArray("a&shy;").repeated(300000));
    pPages->add("attributes", "<p " + counted("a#=1 ", 0, 100000) + ">x");
    pPages->add("large attribute", "<p title='" + QByteArray(5000000, 'x') + "'>x");
    pPages->add("entities",
                "<p>" + QByteArray("&CounterClockwiseContourIntegral;").repeated(200000));
    pPages->add("binary", QByteArray::fromHex("00ff80fe7f3c21").repeated(50000));
    pPages->add("preformatted", "<pre>" + QByteArray("\n").repeated(500000));
}

void addFrames(CPages *pPages)
{
    pPages->add("frame of itself", "<iframe src='frame of itself.html'></iframe>");
    pPages->add("frames of itself",
                counted("<iframe src='frames of itself.html?#'></iframe>", 0, 20));
    pPages->add("frames of frames", counted("<iframe src='b.html?#'></iframe>", 0, 30),
                {{"b.html", counted("<iframe src='c.html?#'></iframe>", 0, 30)},
                 {"c.html", counted("<iframe src='b.html?#'></iframe>", 0, 30)}});
    pPages->add("frames within the text",
                counted("<iframe srcdoc='<iframe srcdoc=x></iframe>'></iframe>", 0, 300));
    pPages->add("frames of data", counted("<iframe src='data:text/html,<p>#'></iframe>", 0, 300));
}

void addPictures(CPages *pPages)
{
    const QByteArray large = data(pngClaiming(30000, 30000, 1));
    pPages->add("large picture", "<img src='" + large + "'>");
    pPages->add("large background", "<body style='background:url(" + large + ")'>");
    pPages->add("large input", "<input type=image src='" + large + "'>");
    pPages->add("large mark of a list", "<ul><li style='list-style-image:url(" + large + ")'>x");
    pPages->add("large border",
                "<p style='border:9px;-webkit-border-image:url(" + large + ") 9'>x");
    pPages->add("large content", styled("p:before{content:url(" + large + ")}", "<p>x"));
    pPages->add("large picture in a drawing",
                svg("<image width='9' height='9' xlink:href='" + large + "'/>"));
    pPages->add("large object", "<object data='" + large + "'></object>");
    pPages->add("large poster", "<video poster='" + large + "'></video>");
    pPages->add("large picture spelled", "<img src='&#100;a\nta&colon;" + large.mid(5) + "'>");
    pPages->add("animation", "<img src='" + data(gifOf(4000, 4000, 1000), "image/gif") + "'>");
    pPages->add("icon around", "<img src='" + data(icoAround(pngClaiming(30000, 30000))) + "'>");
    pPages->add("drawing as a picture",
                "<img src='" + data(svg("<image xlink:href='/dev/zero'/>")) + "'>");
    pPages->add("tells no size", "<img src='" + data(mng(), "image/x-mng") + "'>");
    pPages->add("icon", "<link rel=icon href='" + data("x") + "'>");
    pPages->add("icon of nothing", "<link rel='shortcut icon' href='data:'>");
    pPages->add("icon that is a drawing",
                "<link rel=icon type='image/svg+xml' href='" + data(svg("<g/>"), "image/svg+xml")
                    + "'><p>x");
    pPages->add("icon that is large", "<link rel=icon href='" + large + "'>");
    pPages->add("pictures", counted("<img src='#.png'>", 0, 20000));
}

} // namespace

QList<SHostileFile> hostilePages()
{
    CPages pages;
    addNesting(&pages);
    addSheets(&pages);
    addPainting(&pages);
    addTables(&pages);
    addText(&pages);
    addFrames(&pages);
    addPictures(&pages);
    return pages.files();
}
