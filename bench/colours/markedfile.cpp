#include "markedfile.h"

#include "classes.h"
#include "files.h"

#include <QTextStream>

void printMarkedFile(const CHighlightMgt &registry, const QString &strPath, const QString &strName)
{
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    const QStringList lstLines = readLines(strPath);
    const CharacterClasses lstOurs = classesOfOurs(registry.definitionForFile(strName), lstLines);
    QString strLanguage;
    for (const SFileKind &kind : fileKinds())
        if (kind.strFileName.section('.', -1) == strName.section('.', -1))
            strLanguage = kind.strName;
    const CharacterClasses lstPeers = classesOfPeer(strLanguage, strName, lstLines).byGrammar;
    for (int nLine = 0; nLine < lstLines.size() && !lstPeers.empty(); ++nLine) {
        const std::vector<bool> &lstOne = lstOurs[size_t(nLine)];
        const std::vector<bool> &lstTwo = lstPeers[size_t(nLine)];
        if (lstOne == lstTwo)
            continue;
        QString strMarks;
        for (size_t n = 0; n < lstOne.size(); ++n)
            strMarks += QLatin1Char(lstOne[n] == lstTwo[n] ? ' ' : lstOne[n] ? 'o' : 'p');
        out << QStringLiteral("%1: ").arg(nLine + 1, 5)
            << QString(lstLines.at(nLine)).replace('\t', ' ') << "\n       " << strMarks << "\n";
    }
}
