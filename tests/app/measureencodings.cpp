// Measures how well the encoding of word lists is found. It is no test; docs/encodings.md reports
// the results. measureencodings LIST ENCODING… The list is UTF-8 with a word on each line; "/" and
// the text after it are left out. Six words with foreign letters at a time are written in each
// encoding and detected.

#include "app/textcodecs.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTextCodec>
#include <QTextStream>

namespace {

bool isForeignWord(const QString &strWord)
{
    return std::any_of(
        strWord.cbegin(), strWord.cend(), [](QChar c) { return c.unicode() > 127; });
}

QStringList foreignWords(const QString &strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly))
        return QStringList();
    QStringList lstWords;
    const QStringList lstLines = QString::fromUtf8(file.readAll()).split('\n');
    for (const QString &strLine : lstLines) {
        const QString strWord = strLine.section('/', 0, 0).trimmed();
        if (isForeignWord(strWord))
            lstWords.append(strWord);
    }
    return lstWords;
}

struct SCounts
{
    int nTexts = 0;
    int nRight = 0;
    int nSureAndWrong = 0;
    int nAsHan = 0;
};

void measure(const QTextCodec *pCodec, const QString &strText, SCounts *pCounts)
{
    const QByteArray data = pCodec->fromUnicode(strText);
    const SDetectedCodec detected = detectCodec(data);
    const QString strShown = decodeText(codecForName(detected.strName), data);
    ++pCounts->nTexts;
    if (strShown == strText) {
        ++pCounts->nRight;
        return;
    }
    pCounts->nSureAndWrong += detected.bSure;
    pCounts->nAsHan += std::any_of(strShown.cbegin(), strShown.cend(),
                                   [](QChar c) { return c.script() == QChar::Script_Han; });
}

SCounts measureAll(const QTextCodec *pCodec, const QStringList &lstWords)
{
    QRandomGenerator random(7);
    SCounts counts;
    for (int n = 0; n < 400 && !lstWords.isEmpty(); ++n) {
        QString strText;
        for (int nWord = 0; nWord < 6; ++nWord)
            strText += lstWords.at(random.bounded(lstWords.size())) + '\n';
        if (pCodec->canEncode(strText))
            measure(pCodec, strText, &counts);
    }
    return counts;
}

} // namespace

int main(int argc, char *argv[])
{
    const QStringList lstWords = foreignWords(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    QTextStream out(stdout);
    for (int n = 2; n < argc; ++n) {
        const QTextCodec *pCodec = QTextCodec::codecForName(argv[n]);
        if (!pCodec)
            continue;
        const SCounts counts = measureAll(pCodec, lstWords);
        out << "| " << argv[n] << " | " << counts.nTexts << " | " << counts.nRight << " | "
            << counts.nSureAndWrong << " | " << counts.nAsHan << " |\n";
    }
    return 0;
}
