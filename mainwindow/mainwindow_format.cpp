#include "mainwindow/mainwindow.h"

#include "app/plaintext.h"
#include "app/textcodecs.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "highlight/ctextdocument.h"
#include "mainwindow/cstatuslabels.h"
#include "ui_mainwindow.h"

#include <QFileInfo>

void MainWindow::setupLanguageMenu()
{
    QMenu *pMenu = m_pUi->menuLanguage;
    pMenu->removeAction(m_pUi->actionUnknown);
    for (const QVariant &varEntry : m_pHighlightMgt->table()) {
        const QString strName = varEntry.toMap().value(QStringLiteral("name")).toString();
        QAction *pAction = pMenu->addAction(withoutMnemonic(strName));
        pAction->setData(strName);
        pAction->setCheckable(true);
        connect(pAction, &QAction::triggered, this, &MainWindow::onLangClick);
    }
    pMenu->addSeparator();
    pMenu->addAction(m_pUi->actionUnknown);
    connect(m_pUi->actionUnknown, &QAction::triggered, this, &MainWindow::onLangClick);
}

void MainWindow::setupTextCodecMenu()
{
    const QStringList lstCodecs = getCodecList();
    for (const QString &strCodec : lstCodecs) {
        QAction *pAction = m_pUi->menuText_Codec->addAction(strCodec);
        pAction->setCheckable(true);
        connect(pAction, &QAction::triggered, this, &MainWindow::onClickAtionTextCodec);
    }
}

void MainWindow::onLangClick()
{
    const auto *pAction = qobject_cast<QAction *>(sender());
    CHighlightEdit *pEditor = currentDocument().editor();
    if (!pAction || !pEditor)
        return;
    pEditor->textDocument()->clearAdditionalFormats();
    pEditor->setDefinition(pAction == m_pUi->actionUnknown
                               ? QVariantMap()
                               : m_pHighlightMgt->definitionForName(pAction->data().toString()));
    updateActions();
    updateLanguage(currentDocument());
}

void MainWindow::onClickAtionTextCodec()
{
    const auto *pAction = qobject_cast<QAction *>(sender());
    CHighlightEdit *pEditor = currentDocument().editor();
    if (pAction && pEditor)
        pEditor->setCodecName(pAction->text());
    refreshWindow();
}

void MainWindow::chooseLanguage(CHighlightEdit *pEditor, const QString &strFileName)
{
    pEditor->setDefinition(m_pHighlightMgt->definitionForFile(QFileInfo(strFileName).fileName()));
}

void MainWindow::updateLanguage(const CDocument &document)
{
    const CHighlightEdit *pEditor = document.editor();
    const QString strLanguage = pEditor ? pEditor->languageName() : QString();
    const QString strCodec = pEditor ? pEditor->codecName() : QString();
    const QString strIndent = QStringLiteral("  ");
    m_pStatus->setLanguage(
        !pEditor ? QString()
                 : strIndent + (strLanguage.isEmpty() ? tr("Unknown Language") : strLanguage));
    m_pStatus->setTextCodec(pEditor ? strIndent + strCodec : QString());

    const QList<QAction *> lstLanguages = m_pUi->menuLanguage->actions();
    for (QAction *pAction : lstLanguages)
        pAction->setChecked(pEditor && !strLanguage.isEmpty() && pAction->data() == strLanguage);
    m_pUi->actionUnknown->setChecked(pEditor && strLanguage.isEmpty());
    const QList<QAction *> lstCodecs = m_pUi->menuText_Codec->actions();
    for (QAction *pAction : lstCodecs)
        pAction->setChecked(pEditor && pAction->text() == strCodec);
}

void MainWindow::updateReturnFormat(const CDocument &document)
{
    QAction *const arrActions[] = {m_pUi->actionWindows, m_pUi->actionUnix, m_pUi->actionOSX};
    const CHighlightEdit *pEditor = document.editor();
    const int nFormat = pEditor ? pEditor->returnFormat() : -1;
    QString strLabel;
    for (int n = 0; n < 3; ++n) {
        arrActions[n]->setEnabled(pEditor);
        arrActions[n]->setChecked(n == nFormat);
        if (n == nFormat)
            strLabel = arrActions[n]->text();
    }
    m_pStatus->setReturnFormat(strLabel);
}

void MainWindow::setReturnFormat(int nFormat)
{
    CHighlightEdit *pEditor = currentDocument().editor();
    if (pEditor && pEditor->returnFormat() != nFormat) {
        pEditor->setReturnFormat(nFormat);
        pEditor->setModified(true); // What would be saved is no longer what lies on the disk.
    }
    updateReturnFormat(currentDocument());
}

void MainWindow::on_actionWindows_triggered()
{
    setReturnFormat(0);
}

void MainWindow::on_actionUnix_triggered()
{
    setReturnFormat(1);
}

void MainWindow::on_actionOSX_triggered()
{
    setReturnFormat(2);
}
