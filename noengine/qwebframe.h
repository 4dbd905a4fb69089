#pragma once

#include "noengine/qwebelement.h"

#include <QObject>
#include <QPoint>
#include <QSize>
#include <QUrl>

class QNetworkReply;
class QWebPage;

// The result of a hit test, which is always empty.
class QWebHitTestResult
{
public:
    QWebElement element() const { return QWebElement(); }
    QUrl linkUrl() const { return QUrl(); }
    QUrl imageUrl() const { return QUrl(); }
    bool isContentEditable() const { return false; }
};

// Holds the text of a page as it was given or read, character by character, and gives it back as
// the page's HTML. So the source of a page can be edited and saved, although nothing shows the
// page.
class QWebFrame : public QObject
{
    Q_OBJECT

public:
    explicit QWebFrame(QWebPage *pPage);

    QWebPage *page() const { return m_pPage; }
    QWebFrame *parentFrame() const { return nullptr; }
    QList<QWebFrame *> childFrames() const { return {}; }

    // Both ask the page first, and end in its loadFinished(), never before they return.
    void load(const QUrl &url);
    void setHtml(const QString &strHtml, const QUrl &urlBase = QUrl());
    void reload() { load(m_url); }
    void stop();

    QString toHtml() const { return m_strHtml; }
    QString toPlainText() const { return m_strHtml; }
    QString title() const { return QString(); }
    QUrl url() const { return m_url; }
    QUrl requestedUrl() const { return m_url; }
    QUrl baseUrl() const { return m_url; }

    QPoint scrollPosition() const { return QPoint(); }
    void setScrollPosition(const QPoint &) { }
    void scroll(int, int) { }
    QSize contentsSize() const { return QSize(); }
    QWebElement documentElement() const { return QWebElement(); }
    QWebElement findFirstElement(const QString &) const { return QWebElement(); }
    QWebElementCollection findAllElements(const QString &) const { return {}; }
    QWebHitTestResult hitTestContent(const QPoint &) const { return QWebHitTestResult(); }
    QVariant evaluateJavaScript(const QString &) { return QVariant(); }

signals:
    void contentsSizeChanged(const QSize &size);
    void titleChanged(const QString &strTitle);
    void urlChanged(const QUrl &url);
    void loadFinished(bool bOk);

private:
    bool begin(const QUrl &url);
    void take(QNetworkReply *pReply);
    void endSoon(bool bOk);

    QWebPage *m_pPage;
    QNetworkReply *m_pReply = nullptr;
    QString m_strHtml;
    QUrl m_url;
    int m_nLoad = 0; // A load that is replaced by another one does not end.
};
