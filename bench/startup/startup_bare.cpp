#include "opening.h"

int main(int nArgc, char **ppArgv)
{
    QApplication app(nArgc, ppArgv);
    QPlainTextEdit edit;
    edit.setLineWrapMode(QPlainTextEdit::NoWrap);
    const auto load = [&edit](const QByteArray &data) {
        edit.setPlainText(QString::fromUtf8(data));
    };
    return runOpening(&edit, load, [] { QCoreApplication::processEvents(); });
}
