// Starts like the program, in the language of the system's locale, and prints the texts of its
// window, dialogs and boxes as a JSON object.

#include "app/csettings.h"
#include "app/ctranslators.h"
#include "editor/cdlgfind.h"
#include "editor/cdlggo.h"
#include "editor/chighlightedit.h"
#include "mainwindow/mainwindow.h"
#include "tests/support/boxanswer.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDockWidget>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QLocale>
#include <QMenuBar>
#include <QMessageBox>
#include <QTabBar>

namespace {

QJsonArray menuTexts(const MainWindow &window)
{
    QJsonArray lstTexts;
    const QList<QAction *> lstMenus = window.menuBar()->actions();
    for (const QAction *pAction : lstMenus)
        lstTexts.append(pAction->text());
    return lstTexts;
}

QJsonObject actionTexts(const MainWindow &window)
{
    QJsonObject texts;
    const QList<QAction *> lstActions = window.findChildren<QAction *>();
    for (const QAction *pAction : lstActions)
        if (!pAction->objectName().isEmpty())
            texts.insert(pAction->objectName(), pAction->text());
    return texts;
}

QJsonObject dockTitles(const MainWindow &window)
{
    QJsonObject titles;
    const QList<QDockWidget *> lstDocks = window.findChildren<QDockWidget *>();
    for (const QDockWidget *pDock : lstDocks)
        titles.insert(pDock->objectName(), pDock->windowTitle());
    return titles;
}

// The texts of a dialog's labels and buttons by their object names, and its title.
QJsonObject dialogTexts(const QWidget *pDialog)
{
    QJsonObject texts;
    texts.insert(QStringLiteral("title"), pDialog->windowTitle());
    const QList<QLabel *> lstLabels = pDialog->findChildren<QLabel *>();
    for (const QLabel *pLabel : lstLabels)
        texts.insert(pLabel->objectName(), pLabel->text());
    const QList<QAbstractButton *> lstButtons = pDialog->findChildren<QAbstractButton *>();
    for (const QAbstractButton *pButton : lstButtons)
        texts.insert(pButton->objectName(), pButton->text());
    if (const auto *pTabs = pDialog->findChild<QTabBar *>())
        for (int n = 0; n < pTabs->count(); ++n)
            texts.insert(QStringLiteral("tab%1").arg(n), pTabs->tabText(n));
    return texts;
}

// What the window asks when a modified document is closed, answered with Cancel.
QJsonObject closeBoxTexts(MainWindow *pWindow)
{
    QJsonObject texts;
    const CBoxAnswer answer({QMessageBox::Cancel}, [&texts] {
        const auto *pBox = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        texts.insert(QStringLiteral("title"), pBox->windowTitle());
        texts.insert(QStringLiteral("text"), pBox->text());
        for (const auto &[strKey, button] :
             {std::pair(QStringLiteral("yes"), QMessageBox::Yes),
              std::pair(QStringLiteral("no"), QMessageBox::No),
              std::pair(QStringLiteral("cancel"), QMessageBox::Cancel)})
            if (pBox->button(button))
                texts.insert(strKey, pBox->button(button)->text());
    });
    pWindow->currentDocument().editor()->setModified(true);
    pWindow->onTabCloseRequested(0);
    return texts;
}

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    const QString strLocale = QLocale::system().name().toLower();
    const CTranslators translators(strLocale);
    CSettings settings(QStringLiteral("Tavrel Software"), QStringLiteral("quillan-texts"));
    g_pSettings = &settings;
    MainWindow window;
    window.show();
    window.on_actionNewText_triggered();
    window.on_actionFind_triggered();
    window.on_actionGo_to_Line_triggered();

    QJsonObject texts;
    texts.insert(QStringLiteral("locale"), strLocale);
    texts.insert(QStringLiteral("window"), window.windowTitle());
    texts.insert(QStringLiteral("menus"), menuTexts(window));
    texts.insert(QStringLiteral("actions"), actionTexts(window));
    texts.insert(QStringLiteral("docks"), dockTitles(window));
    texts.insert(QStringLiteral("find"), dialogTexts(window.findChild<CDlgFind *>()));
    texts.insert(QStringLiteral("go"), dialogTexts(window.findChild<CDlgGo *>()));
    texts.insert(QStringLiteral("close"), closeBoxTexts(&window));
    QFile out;
    if (!out.open(stdout, QIODevice::WriteOnly))
        return 1;
    out.write(QJsonDocument(texts).toJson(QJsonDocument::Compact));
    return 0;
}
