#include "findinfiles/cnamepatterns.h"

#include <QStringList>

#include <algorithm>

CNamePatterns::CNamePatterns(const QString &strPatterns)
{
    static const QRegularExpression s_separator(QStringLiteral("[;,]"));
    static const QRegularExpression s_special(QStringLiteral("[*?\\[\\]]"));
    const QStringList lstParts = strPatterns.split(s_separator);
    for (const QString &strPart : lstParts) {
        QString strPattern = strPart.trimmed();
        const bool bUnwanted = strPattern.startsWith(QLatin1Char('!'));
        if (bUnwanted)
            strPattern.remove(0, 1);
        if (strPattern.isEmpty())
            continue;
        SPattern pattern;
        if (strPattern.startsWith(QLatin1Char('*')) && !strPattern.mid(1).contains(s_special))
            pattern.strSuffix = strPattern.mid(1);
        else
            pattern.expression.setPattern(
                QRegularExpression::wildcardToRegularExpression(strPattern));
        pattern.expression.setPatternOptions(QRegularExpression::CaseInsensitiveOption
                                             | QRegularExpression::DotMatchesEverythingOption);
        (bUnwanted ? m_lstUnwanted : m_lstWanted).append(pattern);
    }
}

bool CNamePatterns::SPattern::matches(const QString &strName) const
{
    if (expression.pattern().isEmpty())
        return strName.endsWith(strSuffix, Qt::CaseInsensitive);
    return expression.match(strName).hasMatch();
}

bool CNamePatterns::anyMatches(const QVector<SPattern> &lst, const QString &strName)
{
    return std::any_of(
        lst.cbegin(), lst.cend(),
        [&](const SPattern &pattern) { return pattern.matches(strName); });
}

bool CNamePatterns::matches(const QString &strName) const
{
    return (m_lstWanted.isEmpty() || anyMatches(m_lstWanted, strName))
        && !anyMatches(m_lstUnwanted, strName);
}
