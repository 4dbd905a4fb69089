// Measures how far the colours of real files agree with those of KSyntaxHighlighting: for each
// character, whether it is in a comment or string. Prints a Markdown table with a row per language.
// bench_colours [--others] FOLDER [LANGUAGE] With a language it names the runs of wrong lines and
// the peer's styles, too. --others takes other files than those of the table. bench_colours --file
// FILE [NAME] shows a file, with what differs marked
#include "agreement.h"
#include "highlight/chighlightmgt.h"
#include "markedfile.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int nArguments, char *arrArguments[])
{
    const QCoreApplication application(nArguments, arrArguments);
    const CHighlightMgt registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"), nullptr);
    const QStringList lst = application.arguments();
    if (lst.size() > 2 && lst.at(1) == QLatin1String("--file")) {
        printMarkedFile(registry, lst.at(2), lst.value(3, lst.at(2).section('/', -1)));
        return 0;
    }
    SOptions options;
    options.bOthers = lst.value(1) == QLatin1String("--others");
    options.strRoot = lst.value(options.bOthers ? 2 : 1);
    options.strOnly = lst.value(options.bOthers ? 3 : 2);
    if (options.strRoot.isEmpty()) {
        QTextStream(stderr) << "bench_colours [--others] FOLDER [LANGUAGE] | --file FILE [NAME]\n";
        return 2;
    }
    printAgreement(registry, options);
    return 0;
}
