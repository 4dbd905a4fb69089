// Measures how long the page editor lets its user wait. Prints a table; see docs/performance.md.
#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "web/ceditwebview.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextStream>
#include <QWebElement>
#include <QWebFrame>
#include <QWebSettings>
#include <QWebView>

#include <algorithm>
#include <functional>
#include <vector>

namespace {

QByteArray pageOf(int nBytes)
{
    const QByteArray paragraph =
        "<p>Some words of an <b>ordinary</b> paragraph, <a href=\"#\">a link</a> "
        "and <span style=\"color: blue\">a colour</span>.</p>\n"
        "<table><tr><td>1</td><td>2</td></tr></table>\n";
    return "<!DOCTYPE html><html><head><title>Page</title></head><body>\n"
        + paragraph.repeated(nBytes / paragraph.size()) + "</body></html>\n";
}

double milliseconds(const std::function<void()> &action)
{
    QElapsedTimer timer;
    timer.start();
    action();
    return timer.nsecsElapsed() / 1e6;
}

// Median and worst of several runs.
void report(const QString &strWhat, int nRuns, const std::function<double()> &run)
{
    std::vector<double> arrTimes;
    for (int i = 0; i < nRuns; ++i)
        arrTimes.push_back(run());
    std::sort(arrTimes.begin(), arrTimes.end());
    QTextStream(stdout) << QStringLiteral("| %1 | %2 | %3 |\n")
                               .arg(strWhat)
                               .arg(arrTimes[arrTimes.size() / 2], 0, 'f', 1)
                               .arg(arrTimes.back(), 0, 'f', 1);
}

void load(CEditWebView &view, const QString &strPath)
{
    QSignalSpy spy(&view, &QWebView::loadFinished);
    view.loadFile(strPath);
    if (spy.isEmpty())
        spy.wait(60000);
    view.grab();
}

double openToPainted(const QString &strPath)
{
    CEditWebView view;
    view.resize(1000, 700);
    view.show();
    return milliseconds([&] { load(view, strPath); });
}

// The lower bound: the toolkit's own view, without our code.
double openToPaintedBare(const QString &strPath)
{
    QWebView view;
    view.settings()->setAttribute(QWebSettings::JavascriptEnabled, false);
    view.resize(1000, 700);
    view.show();
    return milliseconds([&] {
        QSignalSpy spy(&view, &QWebView::loadFinished);
        view.setUrl(QUrl::fromLocalFile(strPath));
        spy.wait(60000);
        view.grab();
    });
}

void caretToStart(CEditWebView &view)
{
    view.setFocus();
    view.page()->mainFrame()->documentElement().evaluateJavaScript(
        QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, 4)"));
}

double keystroke(CEditWebView &view)
{
    return milliseconds([&] {
        QTest::keyClick(&view, Qt::Key_X);
        view.grab(QRect(0, 0, 1000, 50));
    });
}

// The rows of one page.
class CPageRows
{
public:
    CPageRows(const QString &strSize, const QString &strPath)
        : m_strSize(strSize), m_strPath(strPath)
    {
    }
    void measure()
    {
        measureOpening();
        m_view.resize(1000, 700);
        m_view.show();
        load(m_view, m_strPath);
        caretToStart(m_view);
        measureTyping();
        measureSaving();
        measureSource();
    }

private:
    void row(const char *szWhat, int nRuns, const std::function<double()> &run)
    {
        report(QStringLiteral("%1, %2").arg(QLatin1String(szWhat), m_strSize), nRuns, run);
    }
    void measureOpening();
    void measureTyping();
    void measureSaving();
    void measureSource();

    QString m_strSize;
    QString m_strPath;
    CEditWebView m_view;
};

void CPageRows::measureOpening()
{
    row(
        "open to painted", 5, [&] { return openToPainted(m_strPath); });
    row("the same in a bare web view", 5, [&] { return openToPaintedBare(m_strPath); });
}

void CPageRows::measureTyping()
{
    const auto readState = [&] {
        const bool bStyled = m_view.isBold() || m_view.isItalic() || m_view.isUnderline();
        const QString strFont = m_view.fontName() + m_view.fontSize();
        if (bStyled || strFont.isEmpty() || m_view.foreColor() == m_view.backColor())
            qFatal("the plain text at the caret was expected");
    };
    const auto pressControl = [&] {
        QTest::keyClick(&m_view, Qt::Key_Control);
        m_view.grab(QRect(0, 0, 1000, 50));
    };
    row(
        "keystroke, source hidden", 50, [&] { return keystroke(m_view); });
    row(
        "toolbar state at the caret", 50, [&] { return milliseconds(readState); });
    row("Control pressed and released", 20, [&] { return milliseconds(pressControl); });
}

void CPageRows::measureSaving()
{
    row(
        "save after a letter, for the first time", 5,
        [&] {
            CEditWebView fresh;
            load(fresh, m_strPath);
            caretToStart(fresh);
            QTest::keyClick(&fresh, Qt::Key_X);
            return milliseconds([&] { fresh.htmlForSaving(); });
        });
    row(
        "save after a letter", 10,
        [&] {
            QTest::keyClick(&m_view, Qt::Key_X);
            return milliseconds([&] { m_view.htmlForSaving(); });
        });
    const auto serialise = [&] {
        if (m_view.toHtml().toUtf8().isEmpty())
            qFatal("a page was expected");
    };
    row("the serialisation alone, without the source", 10, [&] { return milliseconds(serialise); });
}

void CPageRows::measureSource()
{
    row(
        "page to source", 5,
        [&] {
            m_view.showSource(false);
            return milliseconds([&] {
                m_view.showSource(true);
                m_view.sourceEdit()->grab();
            });
        });
    row("keystroke, source shown", 10, [&] { return keystroke(m_view); });
    CHighlightEdit peer;
    peer.resize(1000, 700);
    peer.show();
    const auto setWhole = [&] {
        m_view.grab(QRect(0, 0, 1000, 50));
        peer.setTextData(m_view.toHtml().toUtf8(), false);
    };
    row("the same by setting the whole serialisation anew", 10,
        [&] { return milliseconds(setWhole); });
    const auto back = [&] {
        m_view.showSource(false);
        m_view.applySource(m_view.sourceEdit()->getText());
        m_view.grab();
    };
    row("source to page, nothing typed", 5, [&] {
        m_view.showSource(true);
        return milliseconds(back);
    });
    row("source to page, edited", 5, [&] {
        m_view.showSource(true);
        m_view.sourceEdit()->textCursor().insertText(QStringLiteral(" "));
        return milliseconds(back);
    });
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    CSettings settings(QStringLiteral("Quillan Benchmarks"), QStringLiteral("page"));
    g_pSettings = &settings;
    QTemporaryDir folder;
    QTextStream(stdout) << "| step | median, ms | worst, ms |\n|---|---|---|\n";
    for (const int nKilobytes : {100, 1000}) {
        const QString strPath = folder.filePath(QStringLiteral("%1.html").arg(nKilobytes));
        QFile file(strPath);
        if (!file.open(QIODevice::WriteOnly))
            return 1;
        file.write(pageOf(nKilobytes * 1000));
        file.close();
        CPageRows(QStringLiteral("%1 KB").arg(nKilobytes), strPath).measure();
    }
    g_pSettings = nullptr;
    return 0;
}
