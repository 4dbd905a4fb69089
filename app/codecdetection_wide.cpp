// Encodings of two or four bytes a character.
#include "app/codecdetection.h"

#include "app/textcodecs.h"

#include <QTextCodec>
#include <QTextDecoder>

#include <algorithm>
#include <memory>

namespace {

QString markedCodec(const QByteArray &data)
{
    if (data.startsWith(QByteArray("\xFF\xFE\0\0", 4))
        || data.startsWith(QByteArray("\0\0\xFE\xFF", 4)))
        return QStringLiteral("UTF-32");
    if (data.startsWith("\xFF\xFE") || data.startsWith("\xFE\xFF"))
        return QStringLiteral("UTF-16");
    return QString();
}

bool isBlankOrLineEnd(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
}

bool isPlausible(QChar c)
{
    switch (c.category()) {
    case QChar::Other_Control:
        return isBlankOrLineEnd(c) || c == QLatin1Char('\t') || c == QLatin1Char('\f');
    case QChar::Other_NotAssigned:
    case QChar::Other_PrivateUse:
        return false;
    default:
        return c != QChar::ReplacementCharacter;
    }
}

// Counts the blanks and line ends of the decoded text; 0 when that is no sound text.
int blanksReadAs(const char *szCodec, const QByteArray &data)
{
    QTextCodec *pCodec = QTextCodec::codecForName(szCodec);
    if (!pCodec)
        return 0;
    const std::unique_ptr<QTextDecoder> pDecoder(pCodec->makeDecoder());
    const int nPiece = 0x10000;
    int nBlanks = 0;
    for (int n = 0; n < data.size(); n += nPiece) {
        const QString strText =
            pDecoder->toUnicode(data.constData() + n, qMin(nPiece, data.size() - n));
        if (pDecoder->hasFailure() || !strText.isValidUtf16()
            || !std::all_of(strText.cbegin(), strText.cend(), isPlausible))
            return 0;
        nBlanks += int(std::count_if(strText.cbegin(), strText.cend(), isBlankOrLineEnd));
    }
    return nBlanks;
}

} // namespace

QString detectWideCodec(const QByteArray &data)
{
    QString strMarked = markedCodec(data);
    if (!strMarked.isEmpty())
        return strMarked;
    if (!data.contains('\0')) // Only these bytes occur in a blank or a line end.
        return QString();
    QString strBest;
    int nMostBlanks = 0;
    for (const char *szCodec : {"UTF-32LE", "UTF-32BE", "UTF-16LE", "UTF-16BE"}) {
        if (data.size() % (szCodec[4] == '3' ? 4 : 2) != 0)
            continue;
        const int nBlanks = blanksReadAs(szCodec, data);
        if (nBlanks > nMostBlanks) {
            nMostBlanks = nBlanks;
            strBest = QLatin1String(szCodec);
        }
    }
    return strBest;
}

bool hasEscapedCharacters(const QByteArray &data)
{
    return data.contains("\x1B$");
}
