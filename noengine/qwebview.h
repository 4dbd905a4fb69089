#pragma once

#include "noengine/qwebpage.h"

#include <QWidget>

// Shows a text in the middle that pages cannot be shown.
class QWebView : public QWidget
{
    Q_OBJECT

public:
    explicit QWebView(QWidget *pParent = nullptr);
    ~QWebView() override;

    QWebPage *page() const { return m_pPage; }
    void setPage(QWebPage *pPage); // Not owned unless it is a child.
    QWebSettings *settings() const { return m_pPage->settings(); }
    QWebHistory *history() const { return m_pPage->history(); }

    void load(const QUrl &url) { m_pPage->mainFrame()->load(url); }
    void setUrl(const QUrl &url) { load(url); }
    void setHtml(const QString &strHtml, const QUrl &urlBase = QUrl());
    void stop() { m_pPage->mainFrame()->stop(); }
    QUrl url() const { return m_pPage->mainFrame()->url(); }
    QString title() const { return QString(); }
    QString selectedText() const { return QString(); }
    QString selectedHtml() const { return QString(); }
    bool hasSelection() const { return false; }
    QAction *pageAction(QWebPage::WebAction action) const { return m_pPage->action(action); }
    void triggerPageAction(QWebPage::WebAction action, bool bChecked = false);
    qreal zoomFactor() const { return m_dZoom; }
    void setZoomFactor(qreal dZoom) { m_dZoom = dZoom; }

signals:
    void loadFinished(bool bOk);
    void loadStarted();
    void selectionChanged();
    void titleChanged(const QString &strTitle);
    void urlChanged(const QUrl &url);

protected:
    void paintEvent(QPaintEvent *pEvent) override;

private:
    QWebPage *m_pPage = nullptr;
    qreal m_dZoom = 1;
};
