#include "taster/ctasting.h"

#include "web/csafepage.h"
#include "web/pictures.h"

#include <QFileInfo>
#include <QImage>
#include <QTimer>
#include <QWebFrame>
#include <QWebSettings>
#include <QWebView>

CTasting::CTasting(QObject *pParent)
    : QObject(pParent), m_pView(new QWebView), m_pPage(new CSafePage(m_pView))
{
    m_pPage->showIn(m_pView);
    // For platforms that have a screen.
    m_pView->setAttribute(Qt::WA_DontShowOnScreen);
    m_pView->show();
    connect(m_pView, &QWebView::loadFinished, this, &CTasting::onLoaded);
    // What the first page needs is loaded before there is one.
    m_pPage->navigate([this] { m_pView->setHtml(QStringLiteral("<p>x")); });
}

CTasting::~CTasting()
{
    delete m_pView;
}

void CTasting::taste(const QString &strPath, const QSize &size)
{
    const QString strSuffix = QFileInfo(strPath).suffix().toLower();
    if (strSuffix.startsWith(QLatin1String("svg"))) {
        readPicture(strPath);
        emit shown();
        return;
    }
    m_bTasting = true;
    m_pView->resize(size);
    m_pPage->navigate([&] { m_pView->load(QUrl::fromLocalFile(strPath)); });
}

void CTasting::onLoaded()
{
    QImage image(m_pView->size(), QImage::Format_ARGB32_Premultiplied);
    m_pView->render(&image);
    if (!m_bTasting)
        return;
    m_bTasting = false;
    // Lets the page finish queued work first, such as the sizes of its frames.
    QTimer::singleShot(0, this, [this] {
        QImage second(m_pView->size(), QImage::Format_ARGB32_Premultiplied);
        m_pView->render(&second);
        m_pPage->navigate([this] { m_pView->setHtml(QString()); });
        QWebSettings::clearMemoryCaches();
        emit shown();
    });
}
