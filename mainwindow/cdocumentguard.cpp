#include "mainwindow/cdocumentguard.h"

#include "mainwindow/cdocument.h"

#include <QFileInfo>

#include <algorithm>

CDocumentGuard::CDocumentGuard(const QString &strFolder, CNoticeBar *pBar, QObject *pParent)
    : QObject(pParent), m_pBar(pBar), m_watch(this), m_drafts(strFolder, this)
{
    connect(&m_watch, &CFileWatch::changed, this, &CDocumentGuard::onFileChanged);
    connect(m_pBar, &CNoticeBar::dismissed, this, [this] {
        if (m_notices.remove(m_pCurrent) == 0)
            m_recovery = SNotice();
        showNotice();
    });
}

void CDocumentGuard::documentOpened(const CDocument &document)
{
    if (document.path().isEmpty())
        return;
    m_paths.insert(document.key(), document.path());
    m_watch.remember(document.path());
}

void CDocumentGuard::documentSaved(const CDocument &document, const QString &strOldPath)
{
    if (strOldPath != document.path()
        && std::count(m_paths.cbegin(), m_paths.cend(), strOldPath) <= 1)
        m_watch.forget(strOldPath);
    m_notWhole.remove(document.key());
    documentOpened(document);
    m_drafts.documentClosed(document);
    setNotice(document.key(), SNotice());
}

void CDocumentGuard::documentReloaded(const CDocument &document)
{
    m_watch.remember(document.path());
    m_drafts.documentChanged(document);
    setNotice(document.key(), SNotice());
}

void CDocumentGuard::documentClosed(const CDocument &document)
{
    QObject *pKey = document.key();
    m_drafts.documentClosed(document);
    const QString strPath = m_paths.take(pKey);
    if (!strPath.isEmpty() && std::count(m_paths.cbegin(), m_paths.cend(), strPath) == 0)
        m_watch.forget(strPath);
    m_notices.remove(pKey);
    m_notWhole.remove(pKey);
    m_saveAnyway.remove(pKey);
}

void CDocumentGuard::currentChanged(const CDocument &document)
{
    m_pCurrent = document.key();
    showNotice();
}

void CDocumentGuard::setNotWhole(const CDocument &document)
{
    m_notWhole.insert(document.key());
}

bool CDocumentGuard::maySave(const CDocument &document)
{
    QObject *pKey = document.key();
    if (m_saveAnyway.remove(pKey))
        return true;
    SNotice notice;
    if (m_watch.isChanged(document.path()) && QFileInfo::exists(document.path())) {
        notice = changedNotice(document.path());
        notice.strText = tr("Not saved: another program has changed %1.").arg(document.path());
    } else if (m_notWhole.contains(pKey)) {
        notice.strText =
            tr("Not saved: not all of %1 can be shown as text, and saving loses the rest.")
                .arg(document.path());
    } else {
        return true;
    }
    notice.lstChoices.prepend({tr("Overwrite"), [this, pKey] {
                                   m_saveAnyway.insert(pKey);
                                   emit saveWanted();
                               }});
    setNotice(pKey, notice);
    return false;
}

SNotice CDocumentGuard::changedNotice(const QString &strPath)
{
    SNotice notice;
    if (QFileInfo::exists(strPath)) {
        notice.strText = tr("Another program has changed %1.").arg(strPath);
        notice.lstChoices.append({tr("Refresh"), [this] { emit refreshWanted(); }});
    } else {
        notice.strText = tr("%1 is no longer there. Saving writes it again.").arg(strPath);
    }
    return notice;
}

void CDocumentGuard::onFileChanged(const QString &strPath)
{
    for (auto it = m_paths.cbegin(); it != m_paths.cend(); ++it) {
        if (it.value() == strPath)
            m_notices.insert(it.key(), changedNotice(strPath));
    }
    showNotice();
}

void CDocumentGuard::offerRecovery()
{
    const QVector<SDraft> lstDrafts = m_drafts.takeAbandoned();
    if (lstDrafts.isEmpty())
        return;
    QStringList lstNames;
    for (const SDraft &draft : lstDrafts)
        lstNames.append(draft.strPath.isEmpty() ? tr("Untitled")
                                                : QFileInfo(draft.strPath).fileName());
    m_recovery.strText =
        tr("Left unsaved when the program last ended: %1").arg(lstNames.join(QStringLiteral(", ")));
    const auto answer = [this, lstDrafts](bool bRecover) {
        m_recovery = SNotice();
        showNotice();
        for (const SDraft &draft : lstDrafts) {
            if (bRecover)
                emit recoverWanted(draft);
        }
        // Written anew for the documents that hold them now, before the old ones go.
        m_drafts.flush();
        for (const SDraft &draft : lstDrafts)
            m_drafts.discard(draft);
    };
    m_recovery.lstChoices = {{tr("Recover"), [answer] { answer(true); }},
                             {tr("Discard"), [answer] { answer(false); }}};
    showNotice();
}

void CDocumentGuard::setNotice(QObject *pKey, const SNotice &notice)
{
    if (notice.strText.isEmpty())
        m_notices.remove(pKey);
    else
        m_notices.insert(pKey, notice);
    showNotice();
}

void CDocumentGuard::showNotice()
{
    const auto it = m_notices.constFind(m_pCurrent);
    m_pBar->show(it == m_notices.constEnd() ? m_recovery : *it);
}
