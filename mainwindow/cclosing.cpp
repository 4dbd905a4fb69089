#include "mainwindow/cclosing.h"

#include "app/cdraftstore.h"
#include "app/plaintext.h"
#include "mainwindow/cpasttabs.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/mainwindow.h"
#include "widgets/messagebox.h"

#include <QMessageBox>
#include <QPointer>

CClosing::CClosing(MainWindow *pWindow, CTabWidget *pTabs, CPastTabs *pPastTabs,
                   std::function<bool(CDocument *)> save)
    : QObject(pWindow),
      m_pWindow(pWindow),
      m_pTabs(pTabs),
      m_pPastTabs(pPastTabs),
      m_save(std::move(save))
{
}

// This document is unsaved: "Yes" saved another one, so its text would be dropped without the
// user's consent.
CClosing::Leaving CClosing::askBeforeClosing(CDocument *pDocument)
{
    if (!pDocument->isModified())
        return Leaving::Settled;
    const QPointer<CDocument> pAsked(pDocument);
    // Deliberately saves the current document, whichever was asked about. It is the one that was
    // current when the box opened, because files may arrive while it is open.
    const QPointer<CDocument> pCurrent(&m_pWindow->currentDocument());
    const bool bPage = pDocument->page();
    const auto answer =
        showMessage(m_pWindow, QMessageBox::Warning,
                    bPage ? MainWindow::tr("Page modified") : MainWindow::tr("File modified"),
                    bPage ? MainWindow::tr("Do you save the modified page?")
                          : MainWindow::tr("Do you save the modified file?"),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (!pAsked || (answer != QMessageBox::Yes && answer != QMessageBox::No))
        return Leaving::Stays;
    if (answer == QMessageBox::No)
        return Leaving::Settled;
    if (!pCurrent || !m_save(pCurrent) || !pAsked)
        return Leaving::Stays;
    return pAsked->isModified() ? Leaving::Unsaved : Leaving::Settled;
}

bool CClosing::mayLeavePage(CDocument *pDocument)
{
    const Leaving leaving = askBeforeClosing(pDocument);
    if (leaving == Leaving::Unsaved)
        emit pDocument->textDropping(SDraft::Reason::Closed);
    return leaving != Leaving::Stays;
}

bool CClosing::close(CDocument *pDocument)
{
    switch (askBeforeClosing(pDocument)) {
    case Leaving::Stays:
        return false;
    case Leaving::Settled:
        m_pPastTabs->note(*pDocument);
        m_pWindow->documents().close(pDocument);
        break;
    case Leaving::Unsaved:
        m_pPastTabs->note(*pDocument);
        m_pWindow->documents().closeDropping(pDocument);
        break;
    }
    m_pWindow->onModifiedChanged();
    return true;
}

bool CClosing::closeAll()
{
    bool bYesToAll = false;
    m_pPastTabs->startEnding();
    // Goes from the last to the first. A document that arrives during a question is asked about
    // next.
    while (m_pTabs->count() > 0) {
        CDocument &document = m_pWindow->documents().of(m_pTabs->widget(m_pTabs->count() - 1));
        if (!closeForGood(&document, &bYesToAll))
            return false;
    }
    m_pPastTabs->storeEnding();
    return true;
}

bool CClosing::closeForGood(CDocument *pDocument, bool *pYesToAll)
{
    if (pDocument->isModified()) {
        m_pTabs->setCurrentWidget(pDocument->widget());
        if (!*pYesToAll) {
            QString strText = MainWindow::tr("Do you save the modified file?");
            if (!pDocument->path().isEmpty())
                strText += QStringLiteral("\n(%1)").arg(visibleName(pDocument->path()));
            const QPointer<CDocument> pAsked(pDocument);
            const auto answer =
                showMessage(m_pWindow, QMessageBox::Warning, MainWindow::tr("File Modified"),
                            strText, QMessageBox::YesToAll | QMessageBox::No | QMessageBox::Cancel,
                            QMessageBox::YesToAll);
            if (!pAsked || (answer != QMessageBox::YesToAll && answer != QMessageBox::No))
                return false;
            *pYesToAll = answer == QMessageBox::YesToAll;
        }
        if (*pYesToAll && !m_save(pDocument))
            return false;
    }
    m_pPastTabs->note(*pDocument);
    m_pWindow->documents().close(pDocument);
    return true;
}
