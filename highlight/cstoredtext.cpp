#include "highlight/cstoredtext.h"

#include <utility>

void CStoredText::append(const CCompactText &text, std::vector<int> lstLengths)
{
    m_lstRuns.push_back({text, std::move(lstLengths)});
}

QString CStoredText::text() const
{
    qint64 nSize = 0;
    for (const SRun &run : m_lstRuns)
        nSize += run.text.size() + qint64(run.lstLengths.size());
    QString strText;
    strText.reserve(int(nSize));
    for (const SRun &run : m_lstRuns) {
        const QString strRun = run.text.mid(0, run.text.size());
        int nAt = 0;
        for (const int nLength : run.lstLengths) {
            strText.append(strRun.constData() + nAt, nLength);
            strText.append(QLatin1Char('\n'));
            nAt += nLength;
        }
    }
    strText.chop(1); // The last line has no end.
    return strText;
}
