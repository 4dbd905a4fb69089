#include "noengine/qwebview.h"

#include <QPainter>

QWebView::QWebView(QWidget *pParent) : QWidget(pParent)
{
    setFocusPolicy(Qt::WheelFocus);
    setPage(new QWebPage(this));
}

QWebView::~QWebView() = default;

void QWebView::setPage(QWebPage *pPage)
{
    if (m_pPage) {
        m_pPage->disconnect(this);
        if (m_pPage->parent() == this)
            delete m_pPage;
    }
    m_pPage = pPage;
    connect(pPage, &QWebPage::loadStarted, this, &QWebView::loadStarted);
    connect(pPage, &QWebPage::loadFinished, this, &QWebView::loadFinished);
    connect(pPage, &QWebPage::selectionChanged, this, &QWebView::selectionChanged);
    connect(pPage->mainFrame(), &QWebFrame::urlChanged, this, &QWebView::urlChanged);
}

void QWebView::setHtml(const QString &strHtml, const QUrl &urlBase)
{
    m_pPage->mainFrame()->setHtml(strHtml, urlBase);
}

void QWebView::triggerPageAction(QWebPage::WebAction action, bool bChecked)
{
    m_pPage->triggerAction(action, bChecked);
}

void QWebView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(rect().adjusted(20, 20, -20, -20), Qt::AlignCenter | Qt::TextWordWrap,
                     tr("This build cannot show pages, only their source."));
}
