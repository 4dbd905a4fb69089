#pragma once

#include <QRegularExpression>
#include <QString>
#include <QVector>

// Which file names are wanted: wildcard patterns separated by ";" or ",", such as "*.cpp; *.h", and
// with a "!" before it what is not wanted. Case does not matter. Without a pattern that asks for
// something, all names are wanted. Thread-safe.
class CNamePatterns
{
public:
    explicit CNamePatterns(const QString &strPatterns);

    bool matches(const QString &strName) const;

private:
    struct SPattern
    {
        bool matches(const QString &strName) const;

        QString strSuffix; // For the usual "*.suffix", which needs no expression.
        QRegularExpression expression;
    };

    static bool anyMatches(const QVector<SPattern> &lst, const QString &strName);

    QVector<SPattern> m_lstWanted;
    QVector<SPattern> m_lstUnwanted;
};
