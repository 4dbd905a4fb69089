#include "web/keptlines.h"

#include "web/tokenalign.h"

#include <QHash>

namespace {

struct SLine
{
    int nStart = 0;
    int nEnd = 0; // Before the line end.
    int nNext = 0;
};

QVector<SLine> linesOf(const QString &strText)
{
    QVector<SLine> lstLines;
    int nStart = 0;
    for (int n = 0; n < strText.size(); ++n) {
        const QChar c = strText.at(n);
        if (c != QLatin1Char('\n') && c != QLatin1Char('\r'))
            continue;
        const int nEnd = n;
        if (c == QLatin1Char('\r') && n + 1 < strText.size()
            && strText.at(n + 1) == QLatin1Char('\n'))
            ++n;
        lstLines.append({nStart, nEnd, n + 1});
        nStart = n + 1;
    }
    lstLines.append({nStart, strText.size(), strText.size()});
    return lstLines;
}

QVector<quint64> keysOf(const QString &strText, const QVector<SLine> &lstLines)
{
    QVector<quint64> lstKeys;
    lstKeys.reserve(lstLines.size());
    for (const SLine &line : lstLines) {
        const QStringRef strLine = strText.midRef(line.nStart, line.nEnd - line.nStart);
        lstKeys.append((quint64(qHash(strLine, 1)) << 32) | qHash(strLine, 2));
    }
    return lstKeys;
}

bool hasSeveralKinds(const QString &strText)
{
    const int nWindows = strText.count(QLatin1String("\r\n"));
    const int nUnix = strText.count(QLatin1Char('\n')) - nWindows;
    const int nMac = strText.count(QLatin1Char('\r')) - nWindows;
    return (nWindows > 0) + (nUnix > 0) + (nMac > 0) > 1;
}

} // namespace

QString withKeptLineEnds(const QString &strOriginal, const QString &strEdited)
{
    if (!hasSeveralKinds(strOriginal))
        return strEdited;
    const QVector<SLine> lstOriginal = linesOf(strOriginal);
    const QVector<SLine> lstEdited = linesOf(strEdited);
    const QVector<int> lstPartners =
        alignSequences(keysOf(strEdited, lstEdited), keysOf(strOriginal, lstOriginal));
    QString strResult;
    for (int n = 0; n < lstEdited.size(); ++n) {
        const SLine &line = lstEdited.at(n);
        strResult += strEdited.midRef(line.nStart, line.nEnd - line.nStart);
        int nPartner = lstPartners.at(n);
        if (nPartner < 0 && n > 0 && lstPartners.at(n - 1) >= 0) // A changed line after a kept one.
            nPartner = lstPartners.at(n - 1) + 1;
        if (nPartner < 0 || nPartner >= lstOriginal.size() - 1 || n == lstEdited.size() - 1) {
            strResult += strEdited.midRef(line.nEnd, line.nNext - line.nEnd);
        } else {
            const SLine &original = lstOriginal.at(nPartner);
            strResult += strOriginal.midRef(original.nEnd, original.nNext - original.nEnd);
        }
    }
    return strResult;
}
