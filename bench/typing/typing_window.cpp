#include "app/csettings.h"
#include "document/cdocument.h"
#include "editor/chighlightedit.h"
#include "mainwindow/mainwindow.h"

#include "typing.h"

#include <QApplication>
#include <QPlainTextEdit>

// The whole window.
int main(int nArgc, char **ppArgv)
{
    const QApplication app(nArgc, ppArgv);
    CSettings settings(QStringLiteral("Tavrel Software"), QStringLiteral("bench"));
    g_pSettings = &settings;
    MainWindow window;
    window.resize(1000, 800);
    window.show();
    const auto open = [&window](const QString &strPath) -> QPlainTextEdit * {
        window.openFile(strPath);
        return window.currentDocument().editor();
    };
    const auto close = [&window] {
        // There is nobody to answer questions.
        window.currentDocument().editor()->setModified(false);
        QMetaObject::invokeMethod(&window, "onTabCloseRequested", Q_ARG(int, 0));
    };
    return Typing::run(open, close);
}
