// Saves files and reads them again.
#include "mainwindow/mainwindow.h"

#include "app/plaintext.h"
#include "document/cdocument.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "mainwindow/copener.h"
#include "mainwindow/ctabwidget.h"
#include "widgets/messagebox.h"

#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPointer>

bool MainWindow::on_actionSave_triggered()
{
    return saveDocument(&currentDocument(), false);
}

bool MainWindow::on_actionSave_As_triggered()
{
    return saveDocumentAs(&currentDocument());
}

void MainWindow::on_actionSave_All_triggered() { }

// With bAnyway the user has answered the question of the notice bar.
bool MainWindow::saveDocument(CDocument *pDocument, bool bAnyway)
{
    const QString strPath = pDocument->path();
    if (strPath.isEmpty())
        return saveDocumentAs(pDocument);
    if (!pDocument->canSave())
        return false;
    const CResult result = bAnyway ? pDocument->saveAnyway() : pDocument->save();
    if (result.isDone()) {
        refreshWindow();
        return true;
    }
    if (!result.text().isEmpty()) {
        showStatusMessage(result.text());
        showMessage(this, QMessageBox::Critical, tr("Fail to save file"),
                    tr("Cannot open file(%1).").arg(visibleName(strPath)));
    }
    return false;
}

// strAgreed is the path that the user chose before the notice bar asked about it.
bool MainWindow::saveDocumentAs(CDocument *pDocument, const QString &strAgreed)
{
    if (!pDocument->widget() || pDocument->isReadOnly())
        return false;
    const QPointer<CDocument> pAsked(pDocument);
    const QString strStart = pDocument->path().isEmpty() ? m_strLastPath : pDocument->path();
    const QString strChosen = !strAgreed.isEmpty()
        ? strAgreed
        : QFileDialog::getSaveFileName(this, tr("Save file"), strStart, tr("All files(*.*)"));
    if (strChosen.isEmpty() || !pAsked)
        return false;
    const QString strPath = QDir::toNativeSeparators(strChosen);
    m_strLastPath = strPath;
    const CResult result =
        strAgreed.isEmpty() ? pDocument->saveAs(strPath) : pDocument->saveAsAnyway(strPath);
    if (!result.isDone() && result.text().isEmpty())
        return false; // The bar asks.
    if (!result.isDone()) {
        showStatusMessage(result.text());
        showMessage(this, QMessageBox::Warning, tr("Fail to open file"),
                    tr("Cannot open file\"%1\".").arg(visibleName(strPath)));
        return false;
    }
    if (pDocument->kind() == CDocument::Kind::Text) // The new name may belong to another language.
        pDocument->editor()->setDefinition(
            m_pHighlightMgt->definitionForFile(QFileInfo(strPath).fileName()));
    m_pTabs->setPlainTabToolTip(m_pTabs->indexOf(pDocument->widget()), strPath);
    refreshWindow();
    return true;
}

void MainWindow::on_actionRefresh_triggered()
{
    refreshDocument(&currentDocument());
}

void MainWindow::refreshDocument(CDocument *pDocument)
{
    if (pDocument->isArriving())
        return;
    if (pDocument->isModified()) {
        const QPointer<CDocument> pAsked(pDocument);
        const auto answer = showMessage(this, QMessageBox::Warning, tr("File Modified"),
                                        tr("Are you sure to refresh and discard the modification?"),
                                        QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Yes);
        if (answer != QMessageBox::Yes || !pAsked)
            return;
    }
    const CResult result = pDocument->reload();
    if (!result.isDone() && pDocument->kind() == CDocument::Kind::Text)
        m_pOpener->showFailure(pDocument->path(), result.text());
    else if (!result.text().isEmpty())
        showStatusMessage(result.text());
    refreshWindow();
}
