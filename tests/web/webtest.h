#pragma once

#include "app/csettings.h"
#include "web/ceditwebview.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QWebElement>
#include <QWebFrame>
#include <QWebSettings>
#include <QWebView>

// Settings that are never stored, and a temporary folder, for each test case.
class CWebCase
{
public:
    CWebCase() : m_settings(QStringLiteral("Quillan Tests"), QStringLiteral("web"))
    {
        m_settings.clear();
        m_settings.read();
        g_pSettings = &m_settings;
    }
    ~CWebCase() { g_pSettings = nullptr; }

    QString path(const QString &strName) const { return m_folder.filePath(strName); }
    QString write(const QString &strName, const QByteArray &data) const
    {
        QFile file(path(strName));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot write a test file");
        return file.fileName();
    }

    CSettings m_settings;
    QTemporaryDir m_folder;
};

inline QByteArray contentOf(const QString &strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// True once the page has been loaded, whether with success or not.
inline bool loadAndWait(CEditWebView *pPage, const QString &strPath)
{
    QSignalSpy spy(pPage, &QWebView::loadFinished);
    return pPage->loadFile(strPath) && (!spy.isEmpty() || spy.wait());
}

// True once every timer has fired that the pages shown here had set for the next 100 ms: all pages
// of a process share one queue of timers, and a page with scripts of its own sets one now.
inline bool awaitPageTimers()
{
    QWebPage witness;
    witness.settings()->setAttribute(QWebSettings::JavascriptEnabled, true);
    witness.mainFrame()->setHtml(QStringLiteral(
        "<script>setTimeout(function() { document.title = 'fired'; }, 100)</script>"));
    return QTest::qWaitFor(
        [&witness] { return witness.mainFrame()->title() == QLatin1String("fired"); }, 20000);
}

inline QString textOf(const CEditWebView *pPage)
{
    return pPage->page()->mainFrame()->toPlainText();
}

// Marks the page modified on every change, as the window does.
inline void followChanges(CEditWebView *pPage)
{
    QObject::connect(
        pPage->page(), &QWebPage::contentsChanged, pPage, [pPage] { pPage->setModified(true); });
}

inline QVariant run(const CEditWebView *pPage, const QString &strScript)
{
    return pPage->page()->mainFrame()->documentElement().evaluateJavaScript(strScript);
}

// Selects the whole content of the first element that matches.
inline void selectElement(CEditWebView *pPage, const QString &strSelector)
{
    run(pPage,
        QStringLiteral("var r = document.createRange();"
                       "r.selectNodeContents(document.querySelector('%1'));"
                       "getSelection().removeAllRanges(); getSelection().addRange(r)")
            .arg(strSelector));
}

inline QByteArray page(const QByteArray &body, const QByteArray &head = QByteArray())
{
    return "<!DOCTYPE html><html><head>" + head + "</head><body>" + body + "</body></html>";
}

// At the start of the page.
inline void typeText(CEditWebView *pPage, const QString &strText)
{
    run(pPage, QStringLiteral("getSelection().collapse(document.body, 0)"));
    pPage->insertHtml(strText);
}

// Tests of one page each, in a view of its own.
class CPageTest : public QObject
{
    Q_OBJECT

protected:
    QString body() const
    {
        return m_pView->page()->mainFrame()->findFirstElement(QStringLiteral("body")).toInnerXml();
    }
    void set(const QString &strHtml) { m_pView->setHtml(strHtml); }

    CWebCase *m_pCase = nullptr;
    CEditWebView *m_pView = nullptr;

protected slots:
    void init()
    {
        m_pCase = new CWebCase;
        m_pView = new CEditWebView;
        m_pView->resize(400, 300);
        m_pView->show();
    }
    void cleanup()
    {
        delete m_pView;
        delete m_pCase;
    }
};
