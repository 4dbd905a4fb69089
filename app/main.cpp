#include "app/arguments.h"
#include "app/cfilenamecodec.h"
#include "app/clangmgt.h"
#include "app/csettings.h"
#include "app/csingleapp.h"
#include "app/ctranslators.h"
#include "app/platform.h"
#include "app/platformfiles.h"
#include "app/settingsfile.h"
#include "mainwindow/mainwindow.h"
#include "res/icons.h"
#include "spelling/cspelling.h"

#include <QApplication>
#include <QFileInfo>
#include <QLocale>

#include <memory>

namespace {

const char g_szOrganization[] = "Tavrel Software";

int runFirstInstance(QApplication *pApp, CSingleApp *pSingle, const QStringList &lstPaths)
{
    Platform::quitOnTermination(pApp);
    QCoreApplication::setOrganizationName(QLatin1String(g_szOrganization));
    QCoreApplication::setOrganizationDomain(QStringLiteral("quillan.example"));
    QCoreApplication::setApplicationName(
        QFileInfo(QCoreApplication::applicationFilePath()).baseName());
    // Otherwise Qt would append it to each window title.
    QGuiApplication::setApplicationDisplayName(QString());
    // Wayland finds the icon by this name.
    QGuiApplication::setDesktopFileName(QStringLiteral("quillan"));
    QGuiApplication::setWindowIcon(applicationIcon());

    const QString strLocale = QLocale::system().name().toLower();
    const CTranslators translators(strLocale);

    const auto pLangMgt = std::make_unique<CLangMgt>(nullptr);
    g_pLangMgt = pLangMgt.get();
    const QString strOrganization = QLatin1String(g_szOrganization);
    const QString strApplication = QCoreApplication::applicationName();
    dropStreamedValues(strOrganization, strApplication);
    const auto pSettings = std::make_unique<CSettings>(strOrganization, strApplication);
    g_pSettings = pSettings.get();
    pSettings->setLoc(strLocale);
    const auto pSpelling = std::make_unique<CSpelling>(CSpelling::systemFolders(),
                                                       CSpelling::ownWordsFile(), strLocale);
    g_pSpelling = pSpelling.get();
    const auto pMainWindow = std::make_unique<MainWindow>();
    g_pMainWindow = pMainWindow.get();

    QObject::connect(pSingle, &CSingleApp::messageAvailable, pMainWindow.get(),
                     &MainWindow::parseArgument);
    pMainWindow->showMaximized();
    if (!pSingle->hasMailbox())
        pMainWindow->tellThatItIsAlone();
    Platform::restoreEnvironment();
    if (!lstPaths.isEmpty())
        pMainWindow->parseArguments(lstPaths);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char *argv[])
{
    CFileNameCodec::install();
    Platform::surviveFailingWrites();
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    Platform::leaveOutOpenGl();
    QApplication app(argc, argv);
    QCoreApplication::addLibraryPath(QCoreApplication::applicationDirPath());

    const QStringList lstPaths = pathsFromArguments(Platform::processArguments(argc, argv));
    CSingleApp single(nullptr, QStringLiteral("vrix_uniqe_2016"));
    if (single.isRunning()) {
        single.sendPaths(lstPaths);
        return 0;
    }
    const int nExitCode = runFirstInstance(&app, &single, lstPaths);
    // Deletes what the windows queued for deletion when they closed, such as a page's network with
    // its thread.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return nExitCode;
}
