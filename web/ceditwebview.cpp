#include "web/ceditwebview.h"

#include "app/commonhelpers.h"
#include "app/plaintext.h"
#include "web/cpagenetwork.h"
#include "web/cpagereader.h"
#include "web/csafepage.h"
#include "web/dataaddresses.h"
#include "web/markup.h"
#include "web/pageengine.h"
#include "web/pictures.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTextDocument>
#include <QUndoStack>
#include <QWebElement>
#include <QWebFrame>
#include <QWebHistory>

#include <utility>

namespace {

const int g_nCheckDelay = 300; // Milliseconds without a key.

} // namespace

CEditWebView::CEditWebView(QWidget *pParent) : QWebView(pParent)
{
    (new CSafePage(this))->showIn(this);
    setEditable(true);
    setAccessibleName(tr("Page editor"));
    connect(this, &QWebView::loadStarted, this, &CEditWebView::onLoadStarted);
    connect(this, &QWebView::loadFinished, this, &CEditWebView::onLoadFinished);
    connect(page(), &QWebPage::contentsChanged, this, &CEditWebView::onEditPageContentChanged);
    connect(
        page(), &QWebPage::selectionChanged, this, [this] { enterFrame(page()->currentFrame()); });
    safePage()->setPaste([this] { return pasteHarmful(QGuiApplication::clipboard()->mimeData()); });
    // Queued: the question may run an event loop, which the web view must not be waiting for.
    connect(safePage(), &CSafePage::linkFollowed, this, &CEditWebView::followLink,
            Qt::QueuedConnection);
    connect(page()->undoStack(), &QUndoStack::indexChanged, this,
            &CEditWebView::onUndoIndexChanged);
    m_timerPush.setSingleShot(true);
    m_timerPush.setInterval(g_nCheckDelay);
    connect(&m_timerPush, &QTimer::timeout, this, [this] {
        if (isSourceShown() && !isSourceEdited())
            pushSource();
    });
    buildMenu();
    createSourceEdit();
}

CEditWebView::~CEditWebView()
{
    // What ends together with the page need not be told to it.
    page()->undoStack()->disconnect(this);
    disconnect(this, &QWebView::loadFinished, this, nullptr);
    stop();
    if (m_pSourceEdit) {
        m_pSourceEdit->disconnect(this);
        m_pSourceEdit->setPageEditor(nullptr);
        delete m_pSourceEdit;
    }
}

CSafePage *CEditWebView::safePage() const
{
    return static_cast<CSafePage *>(page());
}

void CEditWebView::buildMenu()
{
    m_menuContext.addAction(tr("Copy"), this, &CEditWebView::onCopy);
    m_menuContext.addAction(tr("Cut"), this, &CEditWebView::onCut);
    m_menuContext.addAction(tr("Paste"), this, &CEditWebView::onPaste);
    m_menuContext.addSeparator();
    m_menuContext.addAction(tr("Refresh"), this, &CEditWebView::onRefresh);
    m_menuContext.addSeparator();
    m_menuContext.addAction(tr("Open file position"), this, &CEditWebView::onOpenFilePosition);
}

void CEditWebView::createSourceEdit()
{
    m_pSourceEdit = new CHighlightEdit(this);
    m_pSourceEdit->setPageEditor(this);
    m_pSourceEdit->setCodecName(QStringLiteral("UTF-8"));
    m_pSourceEdit->hide();
    connect(m_pSourceEdit, &QObject::destroyed, this, &QObject::deleteLater);
}

void CEditWebView::setModified(bool bModified)
{
    // The page counts as modified although nothing was typed, because the loaded text is not the
    // file's.
    if (bModified && !m_bModified && !m_merge.serialised().isEmpty()
        && toHtml() == m_merge.serialised())
        m_bBaseSaved = false;
    m_bModified = bModified;
    if (m_pSourceEdit)
        m_pSourceEdit->setModified(bModified);
}

QString CEditWebView::getTitle() const
{
    QString strTitle = title();
    if (strTitle.isEmpty())
        strTitle = visibleName(QFileInfo(m_strFilePath).fileName());
    if (strTitle.isEmpty())
        strTitle = tr("Untitled");
    if (m_bModified)
        strTitle += QLatin1Char('*');
    return strTitle;
}

void CEditWebView::setFilePath(const QString &strPath)
{
    m_strFilePath = strPath;
    m_urlNamed = url();
    if (m_pSourceEdit)
        m_pSourceEdit->setPathFileName(strPath);
}

QIcon CEditWebView::icon() const
{
    const QWebElementCollection lstLinks = page()->mainFrame()->findAllElements(
        QStringLiteral("link[rel~=icon], link[rel~=ICON], link[rel~=Icon]"));
    for (const QWebElement &link : lstLinks) {
        const QUrl urlIcon =
            page()->mainFrame()->baseUrl().resolved(QUrl(link.attribute(QStringLiteral("href"))));
        if (urlIcon.isLocalFile() && safePage()->network()->isAllowed(urlIcon))
            return QIcon(QPixmap::fromImage(readIcon(urlIcon.toLocalFile())));
    }
    return QIcon();
}

QString CEditWebView::toHtml() const
{
    const QString strHtml = page()->mainFrame()->toHtml();
    return restoreRefusedData(hasPageEngine() ? repairSerialised(strHtml) : strHtml);
}

void CEditWebView::onLoadStarted()
{
    m_bModifiedBeforeLoad = m_bModified;
    m_bPageComing = true;
    m_strTyped = QString();
}

// Somebody typed before a load had ended: into the page that is loading, or into the one that it
// replaces.
void CEditWebView::rememberTyped(const std::function<void()> &edit)
{
    const QPointer<CEditWebView> pThis(this);
    const QString strBefore = m_bPageComing ? toHtml() : QString();
    edit();
    const QString strNow = pThis && m_bPageComing ? toHtml() : QString();
    if (strNow == strBefore)
        return;
    m_strTyped = strNow;
    m_rootTyped = page()->mainFrame()->documentElement();
}

// Called at the end of a load: true if the text typed meanwhile is in the page.
bool CEditWebView::keepTyped()
{
    m_bPageComing = false;
    const QString strTyped = std::exchange(m_strTyped, QString());
    if (strTyped.isNull())
        return false;
    if (std::exchange(m_rootTyped, QWebElement()) == page()->mainFrame()->documentElement())
        return true;
    emit textDropped(strTyped);
    return false;
}

void CEditWebView::onLoadFinished(bool bOk)
{
    m_bLoadFailed = !bOk;
    const bool bTyped = keepTyped();
    takeSource(bTyped);
    enterFrame(page()->mainFrame());
    followFrameset();
    m_bBaseSaved = !m_bModifiedBeforeLoad && !bTyped;
    m_nUndoIndex = 0;
    setModified(m_bModifiedBeforeLoad || bTyped);
    if (isSourceShown())
        pushSource();
    movePageCaret();
    if (hasFocus())
        ensureCaret();
    tellHiddenPictures();
}

void CEditWebView::followFrameset()
{
    const bool bFrameset =
        !page()->mainFrame()->findFirstElement(QStringLiteral("html > frameset")).isNull();
    const bool bWas = m_bFrameset;
    m_bFrameset = bFrameset;
    if (bFrameset) {
        setEditable(false);
        emit statusMessage(tr("The frames of this page are not edited."));
    } else if (bWas) {
        setEditable(true);
    }
}

void CEditWebView::onEditPageContentChanged()
{
    applyPendingFontSize();
    if (isSourceShown())
        pushSourceSoon();
}

void CEditWebView::onRefresh()
{
    if (m_bModified)
        emit textReplacing();
    reload();
}

void CEditWebView::onCopy()
{
    triggerPageAction(QWebPage::Copy, false);
}

void CEditWebView::onCut()
{
    triggerPageAction(QWebPage::Cut, false);
}

void CEditWebView::onPaste()
{
    if (!isPasteTaken())
        triggerPageAction(QWebPage::Paste, false);
}

void CEditWebView::onSelectAll()
{
    triggerPageAction(QWebPage::SelectAll, false);
}

void CEditWebView::onOpenFilePosition()
{
    openFilePosition(m_strFilePath);
}
