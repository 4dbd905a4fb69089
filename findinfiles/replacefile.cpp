#include "findinfiles/replacefile.h"

#include "app/filewriter.h"
#include "app/textcodecs.h"
#include "findinfiles/filereading.h"

#include <QFileInfo>

namespace {

const char g_szMark[] = "\xef\xbb\xbf"; // The byte-order mark that UTF-8 may begin with.

// Walks along the lines of a text with any line ends, by the editor's rules.
class CLineWalk
{
public:
    explicit CLineWalk(const QString &strText) : m_strText(strText) { findEnd(); }

    // Goes forward to a line. False if there is none.
    bool goTo(int nLine)
    {
        while (m_nLine < nLine && m_nEnd < m_strText.length()) {
            const bool bPair = m_strText.midRef(m_nEnd, 2) == QLatin1String("\r\n");
            m_nStart = m_nEnd + (bPair ? 2 : 1);
            ++m_nLine;
            findEnd();
        }
        return m_nLine == nLine;
    }

    int start() const { return m_nStart; }
    int length() const { return m_nEnd - m_nStart; }

private:
    void findEnd()
    {
        m_nEnd = m_nStart;
        while (m_nEnd < m_strText.length() && m_strText.at(m_nEnd) != QLatin1Char('\n')
               && m_strText.at(m_nEnd) != QLatin1Char('\r'))
            ++m_nEnd;
    }

    const QString &m_strText;
    int m_nLine = 1;
    int m_nStart = 0;
    int m_nEnd = 0;
};

} // namespace

bool replaceMatches(const QVector<SFileMatch> &lstMatches, const QString &strReplace,
                    QString *pText)
{
    QString strDone;
    CLineWalk line(*pText);
    int nTaken = 0;
    for (const SFileMatch &match : lstMatches) {
        if (!line.goTo(match.nLine) || match.nColumn < 0
            || match.nColumn + match.nLength > line.length()
            || line.start() + match.nColumn < nTaken)
            return false;
        const int nStart = line.start() + match.nColumn;
        strDone += pText->midRef(nTaken, nStart - nTaken);
        strDone += strReplace;
        nTaken = nStart + match.nLength;
    }
    strDone += pText->midRef(nTaken);
    *pText = strDone;
    return true;
}

bool CFileReplacer::replace(const SFileReplacement &replacement, const QString &strText,
                            QString *pReason)
{
    QByteArray data;
    if (readTextFile(replacement.strPath, &data) != FileKind::Text
        || fingerprintOf(data) != replacement.fingerprint) {
        *pReason = tr("It has changed since the search.");
        return false;
    }
    const QString strCodec = codecNameForData(QString(), data);
    QString strFile = decodeText(codecForName(strCodec), data);
    const QByteArray mark = data.startsWith(g_szMark) ? QByteArray(g_szMark) : QByteArray();
    // The file is written as UTF-8, so it must already be UTF-8 and survive decoding unchanged.
    if (mark + strFile.toUtf8() != data) {
        *pReason = tr("It is not UTF-8: saving it from the editor would convert it.");
        return false;
    }
    if (!replaceMatches(replacement.lstMatches, strText, &strFile)) {
        *pReason = tr("It has changed since the search.");
        return false;
    }
    return writeFile(replacement.strPath, mark + strFile.toUtf8(), pReason);
}
