#include "document/cpagedocument.h"

#include "app/textcodecs.h"
#include "editor/chighlightedit.h"
#include "pageedit/cpagepictures.h"
#include "pageedit/cpagespelling.h"
#include "pageedit/cpagetables.h"
#include "web/ceditwebview.h"
#include "web/pagesource.h"

#include <QPlainTextEdit>
#include <QScopedValueRollback>
#include <QWebFrame>
#include <QWebView>

CPageDocument::CPageDocument(QWidget *pViewParent) : m_pPage(new CEditWebView(pViewParent))
{
    new CPageSpelling(m_pPage);
    new CPagePictures(m_pPage);
    new CPageTables(m_pPage);
    const CHighlightEdit *pSource = m_pPage->sourceEdit();
    connect(m_pPage->page(), &QWebPage::contentsChanged, this, &CPageDocument::onPageChanged);
    connect(m_pPage, &CEditWebView::modifiedChanged, this, &CDocument::modifiedChanged);
    connect(pSource, &QPlainTextEdit::modificationChanged, this, &CDocument::modifiedChanged);
    connect(pSource, &QPlainTextEdit::textChanged, this, &CDocument::contentsChanged);
    connect(m_pPage, &CEditWebView::textReplacing, this,
            [this] { dropText(SDraft::Reason::Refreshed); });
    connect(m_pPage, &CEditWebView::textDropped, this, [this](const QString &strHtml) {
        const QScopedValueRollback<QString> dropped(m_strDropped, strHtml);
        dropText(SDraft::Reason::Loaded);
    });
    connect(m_pPage, &CEditWebView::fileRead, this, &CPageDocument::onFileRead);
    connect(m_pPage, &CEditWebView::notice, this, [this](const QString &strText) {
        setNotice(Topic::Loading, {strText, {}});
    });
    // A load puts the flag back when it ends, without a signal of its own.
    connect(m_pPage, &QWebView::loadFinished, this, [this] { emit modifiedChanged(isModified()); });
}

CPageDocument::~CPageDocument()
{
    // A page that is deleted while it loads emits signals, which nobody may answer any more.
    m_pPage->page()->disconnect(this);
    m_pPage->sourceEdit()->disconnect(this);
    m_pPage->disconnect(this);
    delete m_pPage; // This deletes its source editor, too.
}

QWidget *CPageDocument::widget() const
{
    return m_bSource ? static_cast<QWidget *>(m_pPage->sourceEdit()) : m_pPage;
}

CHighlightEdit *CPageDocument::editor() const
{
    return m_bSource ? m_pPage->sourceEdit() : nullptr;
}

CEditWebView *CPageDocument::page() const
{
    return m_pPage;
}

QString CPageDocument::path() const
{
    return m_pPage->filePath();
}

QString CPageDocument::title() const
{
    return m_bSource ? m_pPage->sourceEdit()->getTitle() : m_pPage->getTitle();
}

bool CPageDocument::isModified() const
{
    return m_pPage->isModified() || (m_bSource && m_pPage->sourceEdit()->isModified());
}

QString CPageDocument::codecName() const
{
    return m_pPage->codecName();
}

bool CPageDocument::canSave() const
{
    return m_pPage->showsOwnFile();
}

// A load changes the contents as well; the page puts its flag back when it has ended.
void CPageDocument::onPageChanged()
{
    if (isLoading())
        return;
    m_pPage->setModified(true);
    emit contentsChanged();
}

void CPageDocument::showSource(bool bSource)
{
    if (bSource == m_bSource)
        return;
    m_pPage->sourceEdit()->finishReplaceAll();
    QWidget *pOld = widget();
    m_pPage->showSource(bSource);
    if (!bSource)
        m_pPage->applySource(m_pPage->sourceEdit()->getText());
    m_bSource = bSource;
    emit widgetChanged(pOld, widget());
}

SPlace CPageDocument::place() const
{
    SPlace place = CDocument::place();
    place.bSource = m_bSource;
    if (m_bSource)
        notePlace(*m_pPage->sourceEdit(), &place);
    else
        notePagePlace(&place);
    return place;
}

void CPageDocument::notePagePlace(SPlace *pPlace) const
{
    pPlace->scroll = m_pPage->page()->mainFrame()->scrollPosition();
    if (const auto caret = m_pPage->caretPlace()) {
        pPlace->nElements = caret->nElements;
        pPlace->nCaret = caret->nText;
    }
}

void CPageDocument::goToPlace(const SPlace &place)
{
    auto *pOnce = new QObject(this);
    connect(m_pPage, &QWebView::loadFinished, pOnce, [this, pOnce, place] {
        m_pPage->disconnect(pOnce);
        pOnce->deleteLater();
        goToLoadedPlace(place);
    });
}

void CPageDocument::goToLoadedPlace(const SPlace &place)
{
    showSource(place.bSource);
    if (m_bSource) {
        ::goToPlace(m_pPage->sourceEdit(), place);
        return;
    }
    if (place.nElements > 0)
        m_pPage->setCaretPlace({place.nElements, place.nCaret});
    m_pPage->page()->mainFrame()->setScrollPosition(place.scroll);
}

QByteArray CPageDocument::bytesToSave(const QString &strPath) const
{
    return m_pPage->htmlForSaving(strPath == path() ? QString() : strPath);
}

void CPageDocument::setPath(const QString &strPath)
{
    m_pPage->setFilePath(strPath); // The page passes it on to its source editor.
}

void CPageDocument::markSaved()
{
    m_pPage->markSaved(); // This includes its source editor.
}

CResult CPageDocument::loadDecoded(const QString &strPath, const SPageSource &source)
{
    const QScopedValueRollback<const SPageSource *> decoded(m_pDecoded, &source);
    return load(strPath, source.content);
}

CResult CPageDocument::showContent(const QString &strPath, const SFileContent &content)
{
    if (m_pDecoded)
        m_pPage->loadSource(strPath, *m_pDecoded);
    else
        m_pPage->loadSource(strPath, content);
    if (!m_bSource)
        m_pPage->setModified(false);
    return CResult::done();
}

// After a followed link, the page that is shown is read again.
CResult CPageDocument::showAgain(const SFileContent &content)
{
    if (!m_pPage->showsOwnAddress())
        return CResult::doneIf(m_pPage->reload()); // The page shows the reason in the status bar.
    m_pPage->reloadSource(content, m_pPage->chosenCodecName());
    return CResult::done();
}

bool CPageDocument::isContentWhole(const SFileContent &content) const
{
    return isWholeText(codecForName(codecName()), content.bytes);
}

void CPageDocument::fillDraft(SDraft *pDraft) const
{
    pDraft->bPage = true;
    pDraft->nReturnFormat = m_pPage->sourceEdit()->returnFormat();
    if (!m_strDropped.isNull()) {
        pDraft->strText = m_strDropped;
        return;
    }
    // The draft holds what a save would write, so that a recovery restores the source as well.
    pDraft->strText =
        m_bSource ? m_pPage->sourceEdit()->getText() : QString::fromUtf8(m_pPage->htmlForSaving());
}

void CPageDocument::showDraft(const SDraft &draft)
{
    if (!draft.strPath.isEmpty())
        m_pPage->setFilePath(draft.strPath);
    m_pPage->setModified(true); // Set before the load, whose end restores the flag of its start.
    m_pPage->setHtml(draft.strText, QUrl::fromLocalFile(draft.strPath));
    m_pPage->setModified(true);
}
