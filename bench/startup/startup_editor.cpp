#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "highlight/chighlightmgt.h"
#include "highlight/cthreadhighlighter.h"

#include "opening.h"

int main(int nArgc, char **ppArgv)
{
    QApplication app(nArgc, ppArgv);
    CSettings settings(QStringLiteral("Tavrel Software"), QStringLiteral("bench"));
    g_pSettings = &settings;
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    CHighlightEdit edit;
    const auto load = [&](const QByteArray &data) {
        edit.setTextData(data, false);
        edit.setDefinition(registry.definitionForFile(QStringLiteral("text.cpp")));
    };
    const auto settle = [&edit] {
        QCoreApplication::processEvents();
        while (edit.highlighter()->isRunning())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    };
    return runOpening(&edit, load, settle);
}
