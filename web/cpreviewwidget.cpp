#include "web/cpreviewwidget.h"

#include "app/commonhelpers.h"
#include "app/plaintext.h"
#include "app/textcodecs.h"
#include "editor/chighlightedit.h"
#include "web/ceditwebview.h"
#include "web/cimagewidget.h"
#include "web/cpreviewnotice.h"
#include "web/csafepage.h"
#include "web/previewtext.h"

#include <QContextMenuEvent>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QWebFrame>

namespace {

constexpr qint64 g_nMaxTextBytes = 500000;

// Most files are tested sooner, and then no text flickers.
constexpr int g_nSilentMilliseconds = 200;

} // namespace

CPreviewWidget::CPreviewWidget(QWidget *pParent)
    : QWidget(pParent),
      m_pActOpenPosition(m_menuContext.addAction(tr("Open position of file"))),
      m_pNotice(new CPreviewNotice(this))
{
    auto *pLayout = new QHBoxLayout(this);
    pLayout->setContentsMargins(0, 0, 0, 0);
    pLayout->setSpacing(0);
    connect(m_pActOpenPosition, &QAction::triggered, this, &CPreviewWidget::onClickAction);
    connect(&m_taster, &CTaster::tasted, this, &CPreviewWidget::onTasted);
    connect(m_pNotice, &CPreviewNotice::accepted, this, &CPreviewWidget::onShowAnyway);
    m_timerTasting.setSingleShot(true);
    m_timerTasting.setInterval(g_nSilentMilliseconds);
    connect(&m_timerTasting, &QTimer::timeout, this,
            [this] { say(tr("Trying out whether this file can be shown...")); });
}

void CPreviewWidget::clearPreview()
{
    m_taster.cancel();
    say(QString());
    deleteTextView();
    if (m_pImage) {
        m_pImage->hide();
        m_pImage->clearImage();
    }
    if (m_pWebFile) {
        m_pWebFile->hide();
        m_pWebFile->stop();
        m_pFilePage->navigate([this] { m_pWebFile->setHtml(QString()); });
    }
    if (m_pWebText) {
        m_pWebText->hide();
        m_pWebText->setHtml(QString(), QUrl());
    }
    updateTitle();
}

void CPreviewWidget::setFile(const QString &strPath, bool bLoad)
{
    const QFileInfo info(strPath);
    if (!info.exists() || info.isDir())
        return;
    m_strFile = strPath;
    if (bLoad)
        previewFile(strPath);
    updateTitle();
}

void CPreviewWidget::previewHtml(const QString &strHtml, const QUrl &urlBase)
{
    QWebFrame *pFrame = webTextView()->page()->mainFrame();
    // The preview keeps its place while the document is edited.
    const bool bSame = webTextView()->isVisible() && webTextView()->url() == urlBase;
    const QPoint posScroll = bSame ? pFrame->scrollPosition() : QPoint();
    clearPreview();
    const QString strFile = urlBase.toLocalFile();
    if (!strFile.isEmpty() && sayWhyRefused(strFile, m_taster.known(strFile))) {
        m_showAnyway = [=] { previewHtml(strHtml, urlBase); };
        return;
    }
    webTextView()->show();
    webTextView()->setHtml(strHtml, urlBase);
    pFrame->setScrollPosition(posScroll);
    updateTitle();
}

void CPreviewWidget::previewSvg(const QString &strSvg)
{
    clearPreview();
    imageView()->show();
    imageView()->setSvgText(strSvg);
}

void CPreviewWidget::onClickAction()
{
    if (sender() == m_pActOpenPosition && !m_strFile.isEmpty())
        openFilePosition(m_strFile);
}

void CPreviewWidget::contextMenuEvent(QContextMenuEvent *pEvent)
{
    m_pActOpenPosition->setEnabled(!m_strFile.isEmpty());
    m_menuContext.popup(mapToGlobal(pEvent->pos()));
}

void CPreviewWidget::updateTitle()
{
    auto *pDock = qobject_cast<QDockWidget *>(parent());
    if (!pDock)
        return;
    QString strTitle = tr("Preview");
    if (!m_strFile.isEmpty())
        strTitle += QStringLiteral("(%1)").arg(visibleName(QFileInfo(m_strFile).fileName()));
    pDock->setWindowTitle(plainWindowTitle(strTitle));
    pDock->toggleViewAction()->setText(withoutMnemonic(strTitle));
}

// The window opens what is dropped here; a view would show it itself.
void CPreviewWidget::addView(QWidget *pView)
{
    pView->setAcceptDrops(false);
    layout()->addWidget(pView);
}

CImageWidget *CPreviewWidget::imageView()
{
    if (!m_pImage) {
        m_pImage = new CImageWidget(this);
        addView(m_pImage);
    }
    return m_pImage;
}

QWebView *CPreviewWidget::webFileView()
{
    if (!m_pWebFile) {
        m_pWebFile = new QWebView(this);
        m_pFilePage = new CSafePage(m_pWebFile);
        m_pFilePage->showIn(m_pWebFile);
        m_pWebFile->setAccessibleName(tr("Preview"));
        m_pWebFile->setContextMenuPolicy(Qt::NoContextMenu); // Our own message shows instead.
        addView(m_pWebFile);
    }
    return m_pWebFile;
}

CEditWebView *CPreviewWidget::webTextView()
{
    if (!m_pWebText) {
        m_pWebText = new CEditWebView(this);
        m_pWebText->page()->setContentEditable(false);
        m_pWebText->setAccessibleName(tr("Preview"));
        m_pWebText->setLinksFollowed(false);
        m_pWebText->setContextMenuPolicy(Qt::NoContextMenu);
        addView(m_pWebText);
    }
    return m_pWebText;
}

void CPreviewWidget::showPage(const QString &strPath)
{
    webFileView()->show();
    if (QFileInfo(strPath).isReadable())
        m_pFilePage->navigate([&] { m_pWebFile->load(QUrl::fromLocalFile(strPath)); });
}

void CPreviewWidget::showText(const QString &strPath)
{
    deleteTextView();
    m_pText = new CHighlightEdit(this);
    m_pText->setReadOnly(true);
    m_pText->setAccessibleName(tr("Preview"));
    m_pText->setContextMenuPolicy(Qt::NoContextMenu);
    addView(m_pText);
    m_pText->show();
    QFile file(strPath);
    if (!QFileInfo(strPath).isFile() || !file.open(QIODevice::ReadOnly)) // A pipe never ends.
        return;
    m_pText->setPathFileName(strPath);
    const QByteArray bytes = file.read(g_nMaxTextBytes);
    setText(file.atEnd() ? bytes : withoutCutUtf8(bytes));
    file.close();
    if (m_definition)
        m_pText->setDefinition(m_definition(strPath));
}

// Lines are cut before the view gets them: it lays them out at once.
void CPreviewWidget::setText(const QByteArray &bytes)
{
    const QString strCodec = codecNameForData(QString(), bytes);
    const QString strText = decodeText(codecForName(strCodec), bytes);
    const QString strCut = withCutLines(strText);
    const bool bCut = strCut.size() != strText.size();
    m_pText->setCodecName(bCut ? QStringLiteral("UTF-8") : strCodec);
    m_pText->setTextData(bCut ? strCut.toUtf8() : bytes, false);
}

void CPreviewWidget::deleteTextView()
{
    delete m_pText;
    m_pText = nullptr;
}
