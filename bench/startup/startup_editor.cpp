#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "editor/longlines.h"
#include "editor/textreading.h"
#include "highlight/chighlightmgt.h"
#include "highlight/cthreadhighlighter.h"

#include "opening.h"

#include <QApplication>
#include <QCoreApplication>
#include <QEventLoop>
#include <QFileInfo>

int main(int nArgc, char **ppArgv)
{
    QApplication app(nArgc, ppArgv);
    CSettings settings(QStringLiteral("Tavrel Software"), QStringLiteral("bench"));
    g_pSettings = &settings;
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    CHighlightEdit edit;
    const auto load = [&](const QString &strPath, const auto &firstText) {
        const auto show = [&] {
            edit.setDefinition(registry.definitionForFile(QFileInfo(strPath).fileName()));
            firstText();
        };
        if (!isShownInSlices(strPath)) {
            edit.setTextData(readForEditor(strPath).bytes, false);
            show();
            return;
        }
        QEventLoop loop;
        QObject::connect(&edit, &CHighlightEdit::firstTextShown, show);
        QObject::connect(&edit, &CHighlightEdit::loadFinished, &loop, &QEventLoop::quit);
        edit.setPathFileName(strPath);
        edit.loadInSlices(LongLines::Whole, false);
        loop.exec();
    };
    const auto settle = [&edit] {
        QCoreApplication::processEvents();
        while (edit.highlighter()->isRunning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    return runOpening(&edit, load, settle);
}
