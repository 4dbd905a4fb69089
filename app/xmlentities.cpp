#include "app/xmlentities.h"

#include <QHash>

namespace {

const QLatin1String g_strDeclaration("<!ENTITY");
const int g_nMaxDeclarations = 2000; // Qt's parser takes time in the square of their number.
const int g_nMaxEntityLength = 4096; // Qt's parser refuses longer ones that hold references.
const int g_nMaxExpansion = 10 * 1000 * 1000;

int skipSpace(const QString &strText, int nPosition)
{
    while (nPosition < strText.length() && strText.at(nPosition).isSpace())
        ++nPosition;
    return nPosition;
}

// A reference "&name;" or "%name;"; empty when none begins at the position.
QString referenceAt(const QString &strText, int nPosition)
{
    const QChar c = strText.at(nPosition);
    if (c != QLatin1Char('&') && c != QLatin1Char('%'))
        return QString();
    int nEnd = nPosition + 1;
    while (nEnd < strText.length()) {
        const QChar inside = strText.at(nEnd);
        if (inside == QLatin1Char(';'))
            return strText.mid(nPosition, nEnd - nPosition);
        if (inside.isSpace() || QStringLiteral("<&%").contains(inside))
            break;
        ++nEnd;
    }
    return QString();
}

class CEntities
{
public:
    explicit CEntities(const QString &strText)
        : m_strText(strText), m_bParameter(declaresParameterEntities(strText))
    {
    }

    int excessivePosition()
    {
        const int nPosition = readDeclarations();
        return nPosition >= 0 ? nPosition : sumReferences();
    }

private:
    int readDeclarations()
    {
        int nCount = 0;
        int nPosition = m_strText.indexOf(g_strDeclaration);
        while (nPosition >= 0) {
            if (++nCount > g_nMaxDeclarations)
                return nPosition;
            declare(nPosition + g_strDeclaration.size());
            nPosition = m_strText.indexOf(g_strDeclaration, nPosition + 1);
        }
        return -1;
    }

    // Reads what follows the keyword: white space, perhaps "%", a name, a quoted value.
    void declare(int nPosition)
    {
        nPosition = skipSpace(m_strText, nPosition);
        QChar sign = QLatin1Char('&');
        if (nPosition < m_strText.length() && m_strText.at(nPosition) == QLatin1Char('%')) {
            sign = QLatin1Char('%');
            nPosition = skipSpace(m_strText, nPosition + 1);
        }
        const int nName = nPosition;
        while (nPosition < m_strText.length() && !m_strText.at(nPosition).isSpace())
            ++nPosition;
        const QString strName = sign + m_strText.mid(nName, nPosition - nName);
        nPosition = skipSpace(m_strText, nPosition);
        if (nPosition >= m_strText.length())
            return;
        const QChar quote = m_strText.at(nPosition);
        if (quote != QLatin1Char('"') && quote != QLatin1Char('\''))
            return; // External: never read.
        const int nEnd = m_strText.indexOf(quote, nPosition + 1);
        if (nEnd >= 0)
            m_lengths[strName] = qMax(m_lengths.value(strName),
                                      lengthOf(m_strText.mid(nPosition + 1, nEnd - nPosition - 1)));
    }

    qint64 lengthOf(const QString &strValue) const
    {
        qint64 nLength = strValue.length();
        for (int i = 0; i < strValue.length(); ++i)
            nLength += referencedLength(referenceAt(strValue, i));
        const bool bReferences = strValue.contains(QLatin1Char('&'));
        return bReferences ? qMax<qint64>(nLength, g_nMaxEntityLength) : nLength;
    }

    // Values of entities may declare further entities, which this scan does not see: any value is
    // possible.
    qint64 referencedLength(const QString &strReference) const
    {
        if (strReference.isEmpty())
            return 0;
        const bool bCharacter = strReference.startsWith(QLatin1String("&#"));
        return m_lengths.value(strReference, m_bParameter && !bCharacter ? m_strText.length() : 0);
    }

    int sumReferences() const
    {
        if (m_lengths.isEmpty() && !m_bParameter)
            return -1;
        const qint64 nMax = g_nMaxExpansion + 2 * qint64(m_strText.length());
        qint64 nSum = 0;
        for (int i = 0; i < m_strText.length(); ++i) {
            nSum += referencedLength(referenceAt(m_strText, i));
            if (nSum > nMax)
                return i;
        }
        return -1;
    }

    const QString &m_strText;
    const bool m_bParameter;
    QHash<QString, qint64> m_lengths; // What "&name" or "%name" stands for, in characters.
};

} // namespace

bool declaresParameterEntities(const QString &strText)
{
    int nPosition = strText.indexOf(g_strDeclaration);
    while (nPosition >= 0) {
        const int nNext = skipSpace(strText, nPosition + g_strDeclaration.size());
        if (nNext < strText.length() && strText.at(nNext) == QLatin1Char('%'))
            return true;
        nPosition = strText.indexOf(g_strDeclaration, nPosition + 1);
    }
    return false;
}

int excessiveEntityPosition(const QString &strText)
{
    if (!strText.contains(g_strDeclaration))
        return -1;
    return CEntities(strText).excessivePosition();
}
