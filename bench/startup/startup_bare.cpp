#include "opening.h"

int main(int nArgc, char **ppArgv)
{
    QApplication app(nArgc, ppArgv);
    QPlainTextEdit edit;
    edit.setLineWrapMode(QPlainTextEdit::NoWrap);
    const auto load = [&edit](const QString &strPath, const auto &firstText) {
        QFile file(strPath);
        file.open(QIODevice::ReadOnly);
        edit.setPlainText(QString::fromUtf8(file.readAll()));
        firstText();
    };
    return runOpening(&edit, load, [] { QCoreApplication::processEvents(); });
}
