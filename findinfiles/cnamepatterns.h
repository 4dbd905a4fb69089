#pragma once

#include <QRegularExpression>
#include <QString>
#include <QVector>

// Tells which file names are wanted, by wildcard patterns separated by ";" or ",", such as "*.cpp;
// *.h". A "!" before a pattern excludes names. Case does not count. Without a pattern that includes
// names, all are wanted. Thread-safe.
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
