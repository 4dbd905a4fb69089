#include "typing.h"

#include <QFontDatabase>
#include <QMainWindow>
#include <QPlainTextEdit>

// A bare QPlainTextEdit in a window, with the font of the editor.
int main(int nArgc, char **ppArgv)
{
    const QApplication app(nArgc, ppArgv);
    QMainWindow window;
    window.resize(1000, 800);
    window.show();
    const auto open = [&window](const QString &strPath) {
        auto *pEdit = new QPlainTextEdit;
        pEdit->setLineWrapMode(QPlainTextEdit::NoWrap);
        QFont fnt = pEdit->font();
        fnt.setFamily(QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
        fnt.setPixelSize(12);
        pEdit->setFont(fnt);
        window.setCentralWidget(pEdit);
        QFile file(strPath);
        if (!file.open(QIODevice::ReadOnly))
            qFatal("cannot read %s", qPrintable(strPath));
        pEdit->setPlainText(QString::fromUtf8(file.readAll()));
        return pEdit;
    };
    return Typing::run(open, [&window] { delete window.takeCentralWidget(); });
}
