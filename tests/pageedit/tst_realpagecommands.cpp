#include "web/realpages.h"

#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"
#include "web/cpagemerge.h"
#include "web/cpagereader.h"
#include "web/pagecodec.h"

#include <QTest>
#include <QUndoStack>
#include <QWebPage>

// The commands on real pages: undo restores them, and a save changes only the right lines.
class tst_realpagecommands : public QObject
{
    Q_OBJECT

private slots:
    void command_isUndoneAndSavedAlone_data();
    void command_isUndoneAndSavedAlone();
};

namespace {

struct STriedCommand
{
    const char *szRow;
    const char *szName;
    QVariantMap arguments;
};

QVector<STriedCommand> commands()
{
    const auto one = [](const char *szName, const char *szValue) {
        return QVariantMap {{QLatin1String(szName), QLatin1String(szValue)}};
    };
    return {{"heading", "style", one("style", "h2")},
            {"paragraph", "style", one("style", "p")},
            {"preformatted", "style", one("style", "pre")},
            {"quotation", "style", one("style", "blockquote")},
            {"bullets", "list", one("type", "ul")},
            {"numbers", "list", one("type", "ol")},
            {"indent", "indent", {}},
            {"outdent", "outdent", {}},
            {"center", "align", one("align", "center")},
            {"code", "mark", one("mark", "code")},
            {"plain", "plain", {}},
            {"link", "link", one("href", "x.html")},
            {"unlink", "unlink", {}},
            {"enter", "enter", {}}};
}

// A word, or from one piece of text into one of the next; for Enter a caret.
bool choose(CEditWebView *pView, const STriedCommand &command, double dNode, double dPlace)
{
    if (qstrcmp(command.szName, "enter") == 0)
        return Author::caretAt(pView, dNode, dPlace);
    if (dPlace < 0.5)
        return Author::selectWord(pView, dNode);
    const QString strThen =
        QStringLiteral("var e = all[Math.min(i + 3, all.length - 1)], r = document.createRange();"
                       "r.setStart(t, o);"
                       "r.setEnd(e, Math.max(Math.floor(e.data.length / 2), e == t ? o : 0));"
                       "s.removeAllRanges(); s.addRange(r);");
    return Author::choosePlace(pView, dNode, dPlace, strThen);
}

} // namespace

void tst_realpagecommands::command_isUndoneAndSavedAlone_data()
{
    QTest::addColumn<int>("index");
    const QVector<STriedCommand> lstCommands = commands();
    for (int n = 0; n < lstCommands.size(); ++n)
        QTest::newRow(lstCommands.at(n).szRow) << n;
}

void tst_realpagecommands::command_isUndoneAndSavedAlone()
{
    QFETCH(int, index);
    const STriedCommand command = commands().at(index);
    QRandomGenerator random(4711);
    CPageReader reader;
    int nNumber = 0;
    int nPages = 0;
    int nChanged = 0;
    int nOther = 0;
    for (const SRealPage &page : installedPages() + samplePages()) {
        const double dNode = random.generateDouble();
        const double dPlace = random.generateDouble();
        // A page of a few screens for one command in four: loading and laying out takes long.
        if (page.content.size() > 20000 || nNumber++ % 4 != index % 4)
            continue;
        const CWebCase c;
        CEditWebView view;
        QVERIFY(loadAndWait(&view, c.write(QStringLiteral("a.html"), page.content)));
        const QString strBefore = view.toHtml();
        if (!choose(&view, command, dNode, dPlace))
            continue;
        ++nPages;
        if (!runPageCommand(&view, QLatin1String(command.szName), command.arguments)) {
            QCOMPARE(view.toHtml(), strBefore);
            continue;
        }
        ++nChanged;
        const QString strAfter = view.toHtml();
        view.triggerEdit(QWebPage::Undo);
        QVERIFY2(view.toHtml() == strBefore, qPrintable(page.strName));
        view.triggerEdit(QWebPage::Redo);
        QVERIFY2(view.toHtml() == strAfter, qPrintable(page.strName));
        const QString strSaved = QString::fromUtf8(view.htmlForSaving());
        const QString strRead = comparablePage(reader.serialised(strSaved));
        // What no text can make is as near to it as its own serialisation comes.
        if (strRead != comparablePage(strAfter))
            QCOMPARE(strRead, comparablePage(reader.serialised(strAfter)));
        const QString strSource = asLines(decodePage(page.content));
        const int nMore =
            changedLines(strSource, asLines(strSaved)) - changedLines(strBefore, strAfter);
        if (nMore > 0) {
            ++nOther;
            qInfo("%s: %d other lines", qPrintable(page.strName), nMore);
        }
    }
    qInfo("%d of %d pages changed, %d of them by other lines, too", nChanged, nPages, nOther);
    QVERIFY(nPages > 0);
    // Text that becomes preformatted gets other white space in its source.
    QVERIFY(nOther * (qstrcmp(command.szRow, "preformatted") == 0 ? 4 : 10) <= nPages);
}

QTEST_MAIN(tst_realpagecommands)
#include "tst_realpagecommands.moc"
