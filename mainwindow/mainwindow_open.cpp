// Opens files from arguments, later starts, dialogs, the recent list and drops.
#include "mainwindow/mainwindow.h"

#include "app/arguments.h"
#include "app/csettings.h"
#include "browser/cwidgetfavorfilelist.h"
#include "mainwindow/cfiledropfilter.h"
#include "mainwindow/crecentmenu.h"
#include "mainwindow/csidepanels.h"
#include "widgets/buttonstyle.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QFileInfo>

void MainWindow::parseArgument(const QString &strArg)
{
    parseArguments(pathsFromMessage(strArg));
}

void MainWindow::parseArguments(const QStringList &lstArgs)
{
    topWindow();
    bool bBrowserSet = false;
    for (const QString &strPath : lstArgs) {
        const QFileInfo info(strPath);
        QString strFolder;
        if (info.isFile()) {
            openFile(strPath);
            m_pRecent->add(strPath);
            strFolder = info.absolutePath();
        } else if (info.isDir()) {
            strFolder = strPath;
        }
        if (!bBrowserSet && !strFolder.isEmpty()) {
            m_pPanels->browser()->setRootPath(strFolder);
            bBrowserSet = true;
        }
    }
}

void MainWindow::topWindow()
{
    if (isMinimized())
        showNormal();
    showAndActivate(this, true);
    activateWindow();
    raise();
}

void MainWindow::tellThatItIsAlone()
{
    showStatusMessage(
        tr("Files opened from elsewhere get a window of their own: the system's mailbox for them "
           "cannot be used."));
}

void MainWindow::on_actionOpen_triggered()
{
    if (m_pPanels->browser()->hasFocusList() && m_pPanels->browser()->openSelection())
        return;
    const QStringList lstPaths =
        QFileDialog::getOpenFileNames(this, tr("Open files"), g_pSettings->getLastPathFileName(),
                                      tr("Web file (*.html *.htm *.css *.js); All files(*.*)"));
    if (lstPaths.isEmpty())
        return;
    m_strLastPath = QDir::toNativeSeparators(lstPaths.constFirst());
    g_pSettings->setLastPathFileName(m_strLastPath);
    for (const QString &strPath : lstPaths) {
        openFile(strPath);
        m_pRecent->add(strPath);
    }
    m_pPanels->browser()->setRootPath(QFileInfo(m_strLastPath).absolutePath());
}

void MainWindow::on_actionRecent_File_1_triggered()
{
    m_pRecent->open(0);
}

void MainWindow::on_actionRecent_File_2_triggered()
{
    m_pRecent->open(1);
}

void MainWindow::on_actionRecent_File_3_triggered()
{
    m_pRecent->open(2);
}

void MainWindow::on_actionRecent_File_4_triggered()
{
    m_pRecent->open(3);
}

void MainWindow::on_actionRecent_File_5_triggered()
{
    m_pRecent->open(4);
}

void MainWindow::on_actionRecent_File_6_triggered()
{
    m_pRecent->open(5);
}

void MainWindow::openFileWithFolder(const QString &strPathFileName)
{
    const QFileInfo info(strPathFileName);
    if (info.isFile()) {
        openFile(strPathFileName);
        m_pPanels->browser()->setRootPath(info.absolutePath());
    } else if (info.isDir()) {
        m_pPanels->browser()->setRootPath(strPathFileName);
    }
}

void MainWindow::openFiles(const QStringList &lstPaths)
{
    if (lstPaths.isEmpty())
        return;
    for (const QString &strPath : lstPaths.mid(0, lstPaths.size() - 1))
        openFile(strPath);
    openFileWithFolder(lstPaths.constLast());
}

void MainWindow::dragEnterEvent(QDragEnterEvent *pEvent)
{
    if (!CFileDropFilter::localFiles(pEvent->mimeData()).isEmpty())
        pEvent->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent *pEvent)
{
    openFiles(CFileDropFilter::localFiles(pEvent->mimeData()));
}
