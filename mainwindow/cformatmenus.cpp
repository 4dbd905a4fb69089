#include "mainwindow/cformatmenus.h"

#include "app/plaintext.h"
#include "app/textcodecs.h"
#include "document/cdocument.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "mainwindow/cstatuslabels.h"
#include "mainwindow/mainwindow.h"
#include "ui_mainwindow.h"

#include <QAction>

namespace {

const char g_szIndent[] = "  "; // The position before the name in the status bar.

} // namespace

CFormatMenus::CFormatMenus(Ui::MainWindow *pUi, const CHighlightMgt *pLanguages,
                           CStatusLabels *pStatus, MainWindow *pWindow)
    : QObject(pWindow), m_pUi(pUi), m_pLanguages(pLanguages), m_pStatus(pStatus)
{
    addCodecs(pWindow);
    addLanguages(pWindow);
}

void CFormatMenus::addLanguages(MainWindow *pWindow)
{
    QMenu *pMenu = m_pUi->menuLanguage;
    pMenu->removeAction(m_pUi->actionUnknown);
    for (const QVariant &varEntry : m_pLanguages->table()) {
        const QString strName = varEntry.toMap().value(QStringLiteral("name")).toString();
        QAction *pAction = pMenu->addAction(withoutMnemonic(strName));
        pAction->setData(strName);
        pAction->setCheckable(true);
        connect(pAction, &QAction::triggered, pWindow, &MainWindow::onLangClick);
    }
    pMenu->addSeparator();
    pMenu->addAction(m_pUi->actionUnknown);
    connect(m_pUi->actionUnknown, &QAction::triggered, pWindow, &MainWindow::onLangClick);
}

void CFormatMenus::addCodecs(MainWindow *pWindow)
{
    const QStringList lstCodecs = getCodecList();
    for (const QString &strCodec : lstCodecs) {
        QAction *pAction = m_pUi->menuText_Codec->addAction(strCodec);
        pAction->setCheckable(true);
        connect(pAction, &QAction::triggered, pWindow, &MainWindow::onClickAtionTextCodec);
    }
}

void CFormatMenus::show(const CDocument &document)
{
    showReturnFormat(document);
    showLanguage(document);
    showCodec(document);
}

void CFormatMenus::showReturnFormat(const CDocument &document)
{
    QAction *const arrActions[] = {m_pUi->actionWindows, m_pUi->actionUnix, m_pUi->actionOSX};
    const CHighlightEdit *pEditor = document.editor();
    const int nFormat = pEditor ? pEditor->returnFormat() : -1;
    QString strLabel;
    for (int n = 0; n < 3; ++n) {
        arrActions[n]->setEnabled(pEditor && !document.isReadOnly());
        arrActions[n]->setChecked(n == nFormat);
        if (n == nFormat)
            strLabel = arrActions[n]->text();
    }
    m_pStatus->setReturnFormat(strLabel);
}

void CFormatMenus::showLanguage(const CDocument &document)
{
    const CHighlightEdit *pEditor = document.editor();
    const QString strLanguage = pEditor ? pEditor->languageName() : QString();
    QString strLabel;
    if (pEditor)
        strLabel = QLatin1String(g_szIndent)
            + (strLanguage.isEmpty() ? MainWindow::tr("Unknown Language") : strLanguage);
    m_pStatus->setLanguage(strLabel);
    const QList<QAction *> lstLanguages = m_pUi->menuLanguage->actions();
    for (QAction *pAction : lstLanguages)
        pAction->setChecked(pEditor && !strLanguage.isEmpty() && pAction->data() == strLanguage);
    m_pUi->actionUnknown->setChecked(pEditor && strLanguage.isEmpty());
}

void CFormatMenus::showCodec(const CDocument &document)
{
    const CHighlightEdit *pEditor = document.editor();
    // For a page's source it is the codec of its file.
    const QString strCodec = document.codecName();
    m_pStatus->setTextCodec(pEditor ? QString(QLatin1String(g_szIndent) + strCodec) : QString());
    const QList<QAction *> lstCodecs = m_pUi->menuText_Codec->actions();
    for (QAction *pAction : lstCodecs)
        pAction->setChecked(pEditor && pAction->text() == strCodec);
}
