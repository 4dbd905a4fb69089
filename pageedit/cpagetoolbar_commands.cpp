// The commands of the buttons and keys.
#include "pageedit/cpagetoolbar.h"

#include "app/plaintext.h"
#include "pageedit/cdlgcharacters.h"
#include "pageedit/cdlglink.h"
#include "pageedit/cdlgpageproperties.h"
#include "pageedit/cpagetyping.h"
#include "pageedit/pagecommands.h"
#include "web/ceditwebview.h"

#include <QApplication>
#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QToolBar>

void CPageToolBar::run(const QString &strCommand, const QVariantMap &arguments)
{
    if (m_pPage)
        runPageCommand(m_pPage, strCommand, arguments);
    finish();
}

void CPageToolBar::runInstead(const QString &strCommand, const QVariantMap &arguments)
{
    if (m_pPage)
        runInsteadOfSelection(m_pPage, strCommand, arguments);
    finish();
}

// The next key goes to the page. A ticked button shows the format there.
void CPageToolBar::finish()
{
    if (!m_pPage)
        return;
    m_pPage->setFocus();
    follow(m_pPage);
}

void CPageToolBar::toggleMark(const QString &strMark)
{
    if (!m_pPage)
        return;
    if (!m_state.bCaret) {
        run(QStringLiteral("mark"), {{QStringLiteral("mark"), strMark}});
        return;
    }
    CPageTyping *pTyping = CPageTyping::of(m_pPage);
    const bool bOn = m_state.marks.value(strMark) == SPageState::Mark::On;
    pTyping->choose(strMark, !pTyping->chosen().value(strMark, bOn));
    finish();
}

void CPageToolBar::clearFormat()
{
    if (!m_pPage)
        return;
    if (m_state.bCaret)
        CPageTyping::of(m_pPage)->choosePlain();
    else
        runPageCommand(m_pPage, QStringLiteral("plain"));
    finish();
}

void CPageToolBar::pastePlain()
{
    const QMimeData *pData = QApplication::clipboard()->mimeData();
    if (m_pPage && pData && pData->hasText())
        pastePlainText(m_pPage, pData->text());
    finish();
}

void CPageToolBar::editLink()
{
    if (!m_pPage)
        return;
    const QPointer<CEditWebView> pPage = m_pPage; // Another page may come to the front meanwhile.
    auto *pDialog = new CDlgLink(pageLink(pPage), pPage->filePath(), m_pToolBar->window());
    pDialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(
        pDialog, &QDialog::accepted, pPage,
        [pDialog, pPage] {
            runPageCommand(pPage, QStringLiteral("link"),
                           {{QStringLiteral("href"), pDialog->address()},
                            {QStringLiteral("text"), pDialog->text()},
                            {QStringLiteral("title"), pDialog->title()}});
        });
    connect(pDialog, &CDlgLink::removeWanted, pPage,
            [pPage] { runPageCommand(pPage, QStringLiteral("unlink")); });
    connect(pDialog, &QDialog::finished, this, &CPageToolBar::finish);
    pDialog->open();
}

void CPageToolBar::editProperties()
{
    if (!m_pPage)
        return;
    const QPointer<CEditWebView> pPage = m_pPage;
    auto *pDialog = new CDlgPageProperties(askPage(pPage, QStringLiteral("properties")).toMap(),
                                           pPage->filePath(), m_pToolBar->window());
    pDialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(pDialog, &QDialog::accepted, pPage, [pDialog, pPage] {
        runPageCommand(pPage, QStringLiteral("properties"), pDialog->properties());
    });
    connect(pDialog, &QDialog::finished, this, &CPageToolBar::finish);
    pDialog->open();
}

void CPageToolBar::showCharacters()
{
    if (!m_pCharacters) {
        m_pCharacters = new CDlgCharacters(m_pToolBar->window());
        connect(m_pCharacters, &CDlgCharacters::characterChosen, this,
                [this](const QString &strCharacter) {
                    if (m_pPage)
                        runInsteadOfSelection(m_pPage, QStringLiteral("type"),
                                              {{QStringLiteral("text"), strCharacter},
                                               {QStringLiteral("on"), QVariantList()},
                                               {QStringLiteral("off"), QVariantList()}});
                });
    }
    m_pCharacters->show();
    m_pCharacters->raise();
    m_pCharacters->activateWindow();
}

void CPageToolBar::fillOutline()
{
    m_pOutline->clear();
    const QVariantList lstPlaces = m_pPage ? askPage(m_pPage, QStringLiteral("outline"))
                                                 .toMap()
                                                 .value(QStringLiteral("places"))
                                                 .toList()
                                           : QVariantList();
    for (int n = 0; n < lstPlaces.size(); ++n) {
        const QVariantMap place = lstPlaces.at(n).toMap();
        const int nLevel = place.value(QStringLiteral("level")).toInt();
        const QString strText = QString(qMax(0, nLevel - 1) * 4, QLatin1Char(' '))
            + withoutMnemonic(place.value(QStringLiteral("text")).toString());
        connect(m_pOutline->addAction(strText), &QAction::triggered, this, [this, n] {
            if (m_pPage)
                askPage(m_pPage, QStringLiteral("goTo"), {{QStringLiteral("index"), n}});
            finish();
        });
    }
    if (lstPlaces.isEmpty())
        m_pOutline->addAction(tr("No headings"))->setEnabled(false);
}
