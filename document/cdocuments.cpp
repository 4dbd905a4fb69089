#include "document/cdocuments.h"

#include "app/cdraftstore.h"
#include "app/filestate.h"
#include "app/platform.h"
#include "document/cpagedocument.h"
#include "web/ceditwebview.h"

#include <QDir>
#include <QGuiApplication>
#include <QSessionManager>
#include <QWebView>

namespace {

// True if closing it would lose text that no file holds any more.
bool isLastCopy(const CDocument &document)
{
    return document.canSave() && !document.isModified() && document.fileState().bExists
        && !fileStateOf(document.path()).bExists;
}

} // namespace

CDocuments::CDocuments(const QString &strFolder, QObject *pParent)
    : QObject(pParent),
      m_drafts(strFolder + QStringLiteral("/recovery"), this),
      m_recovery(&m_drafts, this),
      m_loads(strFolder + QStringLiteral("/loading"))
{
    connect(&m_watch, &CFileWatch::mayHaveChanged, this, &CDocuments::checkFiles);
    // Drafts are written before any window asks about its documents: the system may not wait for an
    // answer.
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this] { m_drafts.flush(); });
}

CDocuments::~CDocuments()
{
    clear();
}

void CDocuments::clear()
{
    m_drafts.flush(); // Text that is dropped at the end of the program can be recovered.
    m_drafts.disconnect();
    while (!m_lstDocuments.isEmpty())
        delete m_lstDocuments.takeLast();
}

void CDocuments::add(CDocument *pDocument)
{
    m_lstDocuments.append(pDocument);
    m_drafts.add(pDocument);
    connect(pDocument, &CDocument::loaded, this, &CDocuments::watchFiles);
    connect(
        pDocument, &CDocument::saved, this, [this, pDocument] { onSaved(pDocument); });
    connect(pDocument, &CDocument::textDropping, this, [this, pDocument](SDraft::Reason reason) {
        m_recovery.offerReplaced(pDocument, m_drafts.keep(*pDocument, reason));
    });
}

void CDocuments::close(CDocument *pDocument)
{
    if (isLastCopy(*pDocument))
        m_recovery.offerClosed(m_drafts.keep(*pDocument, SDraft::Reason::Deleted));
    m_lstDocuments.removeOne(pDocument);
    emit pDocument->closed();
    delete pDocument;
    watchFiles();
}

void CDocuments::closeDropping(CDocument *pDocument)
{
    if (pDocument->isModified())
        m_recovery.offerClosed(m_drafts.keep(*pDocument, SDraft::Reason::Closed));
    close(pDocument);
}

void CDocuments::restore(CDocument *pDocument, const SDraft &draft)
{
    pDocument->restore(draft);
    m_drafts.adopt(pDocument, draft);
    watchFiles();
}

CDocument &CDocuments::of(const QWidget *pWidget)
{
    for (CDocument *pDocument : qAsConst(m_lstDocuments))
        if (pWidget && pDocument->widget() == pWidget)
            return *pDocument;
    return m_none;
}

CDocument *CDocuments::withPath(const QString &strPath) const
{
    for (CDocument *pDocument : m_lstDocuments)
        if (Platform::isSamePath(pDocument->path(), strPath))
            return pDocument;
    return nullptr;
}

void CDocuments::beginLoad(const QString &strPath)
{
    m_drafts.flush();
    m_loads.begin(strPath);
}

void CDocuments::endLoad(const QString &strPath)
{
    m_loads.end(strPath);
}

void CDocuments::endLoadWith(CPageDocument *pDocument, const QString &strPath)
{
    auto *pNote = new QObject(pDocument); // Deleted with the load or with the document.
    connect(pNote, &QObject::destroyed, this, [this, strPath] { endLoad(strPath); });
    connect(pDocument->page(), &QWebView::loadFinished, pNote, &QObject::deleteLater);
}

void CDocuments::followRenamed(const QString &strOld, const QString &strNew)
{
    for (CDocument *pDocument : qAsConst(m_lstDocuments)) {
        const QString strPath = pDocument->path();
        const bool bInFolder = strPath.midRef(strOld.length()).startsWith(QDir::separator());
        if (Platform::isSamePath(strPath, strOld)
            || (bInFolder && Platform::isSamePath(strPath.left(strOld.length()), strOld)))
            pDocument->fileRenamed(strNew + strPath.mid(strOld.length()));
    }
    watchFiles();
}

void CDocuments::watchFiles()
{
    QStringList lstPaths;
    for (const CDocument *pDocument : qAsConst(m_lstDocuments))
        if (!pDocument->path().isEmpty())
            lstPaths.append(pDocument->path());
    m_watch.setFiles(lstPaths);
}

// The same file may be open in another tab, under this path or another spelling of it.
void CDocuments::onSaved(const CDocument *pDocument)
{
    watchFiles();
    for (CDocument *pOther : qAsConst(m_lstDocuments))
        if (pOther != pDocument && isSameFile(fileStateOf(pOther->path()), pDocument->fileState()))
            pOther->checkFileAfterSaveElsewhere();
}

void CDocuments::checkFiles()
{
    watchFiles();
    for (CDocument *pDocument : qAsConst(m_lstDocuments))
        pDocument->checkFile();
}
