// The questions before a document goes.
#include "mainwindow/mainwindow.h"

#include "app/plaintext.h"
#include "mainwindow/cpasttabs.h"
#include "mainwindow/ctabwidget.h"

#include <QCloseEvent>
#include <QPointer>

// Unsaved: the document goes with text that nobody declined, since "Yes" saved another one.
MainWindow::Leaving MainWindow::askBeforeClosing(CDocument *pDocument)
{
    if (!pDocument->isModified())
        return Leaving::Settled;
    const QPointer<CDocument> pAsked(pDocument);
    // Deliberately the current document is saved, whichever was asked about: the one that was
    // current when the box opened, for files may arrive while it stands.
    const QPointer<CDocument> pCurrent(&currentDocument());
    const bool bPage = pDocument->page();
    const auto answer = showMessage(
        this, QMessageBox::Warning, bPage ? tr("Page modified") : tr("File modified"),
        bPage ? tr("Do you save the modified page?") : tr("Do you save the modified file?"),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (!pAsked || (answer != QMessageBox::Yes && answer != QMessageBox::No))
        return Leaving::Stays;
    if (answer == QMessageBox::No)
        return Leaving::Settled;
    if (!pCurrent || !saveDocument(pCurrent, false) || !pAsked)
        return Leaving::Stays;
    return pAsked->isModified() ? Leaving::Unsaved : Leaving::Settled;
}

bool MainWindow::mayLeavePage(CDocument *pDocument)
{
    const Leaving leaving = askBeforeClosing(pDocument);
    if (leaving == Leaving::Unsaved)
        emit pDocument->textDropping(SDraft::Reason::Closed);
    return leaving != Leaving::Stays;
}

void MainWindow::onTabCloseRequested(int nIndex)
{
    CDocument &document = m_pDocuments->of(m_pTabs->widget(nIndex));
    if (document.widget())
        closeDocument(&document);
}

// False when the user keeps it.
bool MainWindow::closeDocument(CDocument *pDocument)
{
    switch (askBeforeClosing(pDocument)) {
    case Leaving::Stays:
        return false;
    case Leaving::Settled:
        m_pPastTabs->note(*pDocument);
        m_pDocuments->close(pDocument);
        break;
    case Leaving::Unsaved:
        m_pPastTabs->note(*pDocument);
        m_pDocuments->closeDropping(pDocument);
        break;
    }
    refreshWindow();
    return true;
}

void MainWindow::closeEvent(QCloseEvent *pEvent)
{
    bool bYesToAll = false;
    m_pPastTabs->startEnding();
    // From the last to the first; what arrives while a question stands is asked about next.
    while (m_pTabs->count() > 0) {
        CDocument &document = m_pDocuments->of(m_pTabs->widget(m_pTabs->count() - 1));
        if (!closeForGood(&document, &bYesToAll)) {
            pEvent->ignore();
            return;
        }
    }
    m_pPastTabs->storeEnding();
    m_arrClosedState = saveState(); // Docks that float are hidden with the window.
    pEvent->accept();
}

bool MainWindow::closeForGood(CDocument *pDocument, bool *pYesToAll)
{
    if (pDocument->isModified()) {
        m_pTabs->setCurrentWidget(pDocument->widget());
        if (!*pYesToAll) {
            QString strText = tr("Do you save the modified file?");
            if (!pDocument->path().isEmpty())
                strText += QStringLiteral("\n(%1)").arg(pDocument->path());
            const QPointer<CDocument> pAsked(pDocument);
            const auto answer =
                showMessage(this, QMessageBox::Warning, tr("File Modified"), strText,
                            QMessageBox::YesToAll | QMessageBox::No | QMessageBox::Cancel,
                            QMessageBox::YesToAll);
            if (!pAsked || (answer != QMessageBox::YesToAll && answer != QMessageBox::No))
                return false;
            *pYesToAll = answer == QMessageBox::YesToAll;
        }
        if (*pYesToAll && !saveDocument(pDocument, false))
            return false;
    }
    m_pPastTabs->note(*pDocument);
    m_pDocuments->close(pDocument);
    return true;
}

void MainWindow::onTabDbClick(int nIndex)
{
    if (nIndex < 0)
        on_actionNewText_triggered();
}
