// Closing tabs and the window.
#include "mainwindow/mainwindow.h"

#include "document/cdocument.h"
#include "mainwindow/cclosing.h"
#include "mainwindow/ctabwidget.h"

#include <QCloseEvent>

void MainWindow::onTabCloseRequested(int nIndex)
{
    CDocument &document = m_pDocuments->of(m_pTabs->widget(nIndex));
    if (document.widget())
        m_pClosing->close(&document);
}

void MainWindow::onTabDbClick(int nIndex)
{
    if (nIndex < 0)
        on_actionNewText_triggered();
}

void MainWindow::closeEvent(QCloseEvent *pEvent)
{
    if (!m_pClosing->closeAll()) {
        pEvent->ignore();
        return;
    }
    m_arrClosedState = saveState(); // Closing the window hides floating docks.
    pEvent->accept();
}
