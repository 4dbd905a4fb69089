#include "mainwindow/mainwindow.h"

#include "app/arguments.h"
#include "app/commonhelpers.h"
#include "app/csettings.h"
#include "app/filewriter.h"
#include "app/plaintext.h"
#include "browser/cwidgetfavorfilelist.h"
#include "editor/chighlightedit.h"
#include "mainwindow/cdocumentguard.h"
#include "mainwindow/cfiledropfilter.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/recentfiles.h"
#include "ui_mainwindow.h"

#include <QCoreApplication>
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
            addRecentFile(strPath);
            strFolder = info.absolutePath();
        } else if (info.isDir()) {
            strFolder = strPath;
        }
        if (!bBrowserSet && !strFolder.isEmpty()) {
            pointBrowserAt(strFolder);
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

void MainWindow::on_actionOpen_triggered()
{
    if (m_pBrowser->hasFocusList() && m_pBrowser->openSelection())
        return;
    const QStringList lstPaths =
        QFileDialog::getOpenFileNames(this, tr("Open files"), g_pSettings->getLastPathFileName(),
                                      tr("Web file (*.html *.htm *.css *.js); All files(*.*)"));
    if (lstPaths.isEmpty())
        return;
    g_pSettings->setLastPathFileName(lstPaths.constFirst());
    m_strLastPath = lstPaths.constFirst();
    for (const QString &strPath : lstPaths) {
        openFile(strPath);
        addRecentFile(strPath);
    }
    pointBrowserAt(QFileInfo(m_strLastPath).absolutePath());
}

void MainWindow::addRecentFile(const QString &strPath)
{
    g_pSettings->setRecentFileList(withRecentFile(g_pSettings->getRecentFileList(), strPath));
    g_pSettings->save();
    updateRecentFiles();
}

void MainWindow::updateRecentFiles()
{
    QAction *const arrActions[g_nMaxRecentFiles] = {
        m_pUi->actionRecent_File_1, m_pUi->actionRecent_File_2, m_pUi->actionRecent_File_3,
        m_pUi->actionRecent_File_4, m_pUi->actionRecent_File_5, m_pUi->actionRecent_File_6};
    const QStringList lstFiles = g_pSettings->getRecentFileList();
    for (int n = 0; n < g_nMaxRecentFiles; ++n) {
        const bool bFile = n < lstFiles.size();
        arrActions[n]->setText(bFile ? withoutMnemonic(lstFiles.at(n)) : tr("(empty)"));
        arrActions[n]->setEnabled(bFile);
        arrActions[n]->setVisible(bFile || n == 0);
    }
}

void MainWindow::openRecentFile(int nIndex)
{
    const QString strPath = g_pSettings->getRecentFileList().value(nIndex);
    if (strPath.isEmpty())
        return;
    openFile(strPath);
    addRecentFile(strPath);
}

void MainWindow::on_actionRecent_File_1_triggered()
{
    openRecentFile(0);
}

void MainWindow::on_actionRecent_File_2_triggered()
{
    openRecentFile(1);
}

void MainWindow::on_actionRecent_File_3_triggered()
{
    openRecentFile(2);
}

void MainWindow::on_actionRecent_File_4_triggered()
{
    openRecentFile(3);
}

void MainWindow::on_actionRecent_File_5_triggered()
{
    openRecentFile(4);
}

void MainWindow::on_actionRecent_File_6_triggered()
{
    openRecentFile(5);
}

bool MainWindow::on_actionSave_triggered()
{
    const CDocument document = currentDocument();
    const QString strPath = document.path();
    if (strPath.isEmpty())
        return on_actionSave_As_triggered();
    if (!document.canSave() || !m_pGuard->maySave(document))
        return false;
    QString strError;
    if (!writeFile(strPath, document.bytesToSave(), &strError)) {
        showStatusMessage(strError);
        showMessage(this, QMessageBox::Critical, tr("Fail to save file"),
                    tr("Cannot open file(%1).").arg(strPath));
        return false;
    }
    document.markSaved();
    m_pGuard->documentSaved(document, strPath);
    refreshWindow();
    return true;
}

bool MainWindow::on_actionSave_As_triggered()
{
    const CDocument document = currentDocument();
    if (document.kind() == CDocument::Kind::None)
        return false;
    const QString strStart = document.path().isEmpty() ? m_strLastPath : document.path();
    const QString strChosen =
        QFileDialog::getSaveFileName(this, tr("Save file"), strStart, tr("All files(*.*)"));
    if (strChosen.isEmpty())
        return false;
    const QString strPath = QDir::toNativeSeparators(strChosen);
    m_strLastPath = strPath;
    QString strError;
    if (!writeFile(strPath, document.bytesToSave(), &strError)) {
        showStatusMessage(strError);
        showMessage(this, QMessageBox::Warning, tr("Fail to open file"),
                    tr("Cannot open file\"%1\".").arg(strPath));
        return false;
    }
    const QString strOldPath = document.path();
    document.setPath(strPath);
    document.markSaved();
    m_pGuard->documentSaved(document, strOldPath);
    if (document.kind() == CDocument::Kind::Text)
        chooseLanguage(document.editor(), strPath); // The new name may be another language's.
    m_pTabs->setPlainTabToolTip(m_pTabs->currentIndex(), strPath);
    refreshWindow();
    return true;
}

void MainWindow::on_actionSave_All_triggered() { }

void MainWindow::on_actionExit_triggered()
{
    QCoreApplication::exit(0);
}

void MainWindow::openFileWithFolder(const QString &strPathFileName)
{
    const QFileInfo info(strPathFileName);
    if (info.isFile()) {
        openFile(strPathFileName);
        pointBrowserAt(info.absolutePath());
    } else if (info.isDir()) {
        pointBrowserAt(strPathFileName);
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

void MainWindow::pointBrowserAt(const QString &strFolder)
{
    m_pBrowser->setRootPath(strFolder);
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

void MainWindow::onTabClickAction(const QString &strText)
{
    const QString strPath = currentDocument().path();
    if (strText == tr("Open position of file") && !strPath.isEmpty())
        openFilePosition(strPath);
}
