// Docks, panes, and what else belongs to no document.
#include "mainwindow/mainwindow.h"

#include "app/commonhelpers.h"
#include "app/version.h"
#include "browser/cwidgetfavorfilelist.h"
#include "mainwindow/cfinddock.h"
#include "mainwindow/cnoticebar.h"
#include "mainwindow/csidepanels.h"
#include "mainwindow/ctabwidget.h"
#include "ui_mainwindow.h"
#include "web/cpreviewwidget.h"

#include <QMessageBox>
#include <QTabBar>

void MainWindow::on_actionAbout_triggered()
{
    QMessageBox::about(
        this, tr("About %1").arg(QStringLiteral(QUILLAN_NAME)),
        QStringLiteral("<h2>%1 %2</h2>")
                .arg(QStringLiteral(QUILLAN_NAME), QStringLiteral(QUILLAN_VERSION))
            + QStringLiteral("<p>%1</p>").arg(tr("Made by the Quillan developers.")));
}

void MainWindow::onDockPreviewChanged(bool bVisible)
{
    m_pPanels->onPreviewVisible(bVisible);
}

void MainWindow::onRootPathChanged(const QString &strPath)
{
    m_pPanels->previewFile(strPath, false);
}

void MainWindow::onFileSelectionChanged(const QString &strPath)
{
    m_pPanels->previewFile(strPath, true);
}

void MainWindow::onTabClickAction(const QString &strText)
{
    const QString strPath = currentDocument().path();
    if (strText == tr("Open position of file") && !strPath.isEmpty())
        openFilePosition(strPath);
}
