#include "mainwindow/cpasttabs.h"

#include "app/plaintext.h"
#include "document/cdocuments.h"
#include "document/place.h"
#include "mainwindow/ctabwidget.h"

#include <QFileInfo>

CPastTabs::CPastTabs(CTabWidget *pTabs, CDocuments *pDocuments, const QString &strFile,
                     QObject *pParent)
    : QObject(pParent),
      m_pTabs(pTabs),
      m_pDocuments(pDocuments),
      m_strFile(strFile),
      m_last(readSession(strFile))
{
}

void CPastTabs::note(const CDocument &document)
{
    const SPlace place = document.place();
    m_closed.add(place);
    if (!place.strPath.isEmpty())
        m_ending.lstPlaces.prepend(place);
}

void CPastTabs::startEnding()
{
    m_ending = SSession();
    m_ending.strCurrent = m_pDocuments->of(m_pTabs->currentWidget()).path();
}

void CPastTabs::storeEnding()
{
    store(m_ending);
}

void CPastTabs::storeOpen()
{
    startEnding();
    for (int n = m_pTabs->count(); n > 0; --n)
        note(m_pDocuments->of(m_pTabs->widget(n - 1)));
    storeEnding();
}

// Keeps the stored session after a run in which no file was open.
void CPastTabs::store(const SSession &session)
{
    if (!session.lstPlaces.isEmpty() || !m_closed.isEmpty())
        writeSession(m_strFile, session); // If that fails, the old session is offered again.
}

QStringList CPastTabs::lastPaths() const
{
    QStringList lstPaths;
    for (const SPlace &place : m_last.lstPlaces)
        lstPaths.append(place.strPath);
    return lstPaths;
}

QStringList CPastTabs::openPaths() const
{
    QStringList lstPaths;
    for (const CDocument *pDocument : m_pDocuments->all())
        lstPaths.append(pDocument->path());
    return lstPaths;
}

void CPastTabs::reopenClosed()
{
    const SPlace place = m_closed.takeLast(openPaths());
    if (place.strPath.isEmpty())
        emit message(tr("No closed tab is left to open again."));
    else if (!reopen(place))
        emit message(tr("No longer there: %1").arg(visibleName(place.strPath)));
    else if (m_pTabs->currentWidget())
        m_pTabs->currentWidget()->setFocus();
}

void CPastTabs::reopenLast()
{
    QStringList lstGone;
    for (const SPlace &place : qAsConst(m_last.lstPlaces))
        if (!reopen(place))
            lstGone.append(visibleName(QFileInfo(place.strPath).fileName()));
    if (m_pDocuments->withPath(m_last.strCurrent) && !m_last.strCurrent.isEmpty())
        emit openWanted(m_last.strCurrent);
    if (m_pTabs->currentWidget())
        m_pTabs->currentWidget()->setFocus();
    if (!lstGone.isEmpty())
        emit message(tr("No longer there: %1").arg(lstGone.join(QStringLiteral(", "))));
}

// False when the file no longer exists. A document that is open already keeps its caret.
bool CPastTabs::reopen(const SPlace &place)
{
    const bool bOpen = m_pDocuments->withPath(place.strPath);
    if (!bOpen && !QFileInfo(place.strPath).isFile())
        return false;
    emit openWanted(place.strPath);
    CDocument *pDocument = m_pDocuments->withPath(place.strPath);
    if (pDocument && !bOpen)
        pDocument->goToPlace(place);
    return true;
}
