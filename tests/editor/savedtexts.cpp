// Opens each file of a folder in the editor, types a line at its end and writes what the program
// would save to another folder: savedtexts FROM TO. The results of two systems can be compared. It
// prints a line with the codec and line ends of each file.

#include "app/filereader.h"
#include "app/filewriter.h"
#include "editor/chighlightedit.h"
#include "editor/lineendings.h"
#include "tests/editor/withsettings.h"

#include <QApplication>
#include <QDir>
#include <QTextCursor>

#include <cstdio>

int main(int nArgc, char **ppArgv)
{
    QApplication app(nArgc, ppArgv);
    const QStringList lstArguments = QCoreApplication::arguments();
    const QDir from(lstArguments.value(1));
    const QDir to(lstArguments.value(2));
    const WithSettings settings;
    const QStringList lstNames = from.entryList(QDir::Files, QDir::Name);
    for (const QString &strName : lstNames) {
        CHighlightEdit edit;
        edit.setReturnFormat(ReturnFormatUnix); // Where a file has no line end of its own.
        edit.setTextData(readFile(from.filePath(strName)).bytes, false);
        edit.moveCursor(QTextCursor::End);
        edit.insertPlainText(QStringLiteral("\n\u4E2Dx\u00E9"));
        std::printf("%s %s %d %d\n", qPrintable(strName), qPrintable(edit.codecName()),
                    edit.returnFormat(), int(edit.isWhole()));
        if (!writeFile(to.filePath(strName), edit.getText().toUtf8()))
            return 1;
    }
    return lstNames.isEmpty() ? 1 : 0;
}
