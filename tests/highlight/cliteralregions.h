#pragma once

#include <QHash>
#include <QMap>
#include <QRegExp>
#include <QString>
#include <QVariant>
#include <memory>
#include <vector>

// The regions of a definition as its documentation describes them: the elements themselves, a list
// of what is open, and a QRegExp for each pattern, asked place after place. Slow and plain; the
// program's own rules have to give the same. Only for languages whose patterns count letter case.
class CLiteralRegions
{
public:
    explicit CLiteralRegions(const QVariantMap &mapDefinition);

    // For each character 'c' in a comment, 's' in a string, '.' elsewhere. Lines in their order.
    QString divide(const QString &strLine);
    // The open regions, in words.
    QString state() const;

private:
    struct SElement
    {
        QString strTag;
        QMap<QString, QString> mapAttributes;
        std::vector<std::shared_ptr<SElement>> lstChildren;
        int nLanguage = 0;
        int nNumber = 0;

        bool has(const char *psz) const { return mapAttributes.contains(QLatin1String(psz)); }
        QString get(const char *psz) const { return mapAttributes.value(QLatin1String(psz)); }
        bool is(const char *psz) const { return get(psz) == QLatin1String("true"); }
    };
    using ElementPtr = std::shared_ptr<SElement>;
    struct SOpen
    {
        ElementPtr pElement; // Null in the text of an embedded language.
        int nLanguage;
        QString strKey;
        bool bSecondHalf = false;
        bool bWaits = false;
    };
    struct SLanguage
    {
        ElementPtr pRegions;
        QMap<QString, ElementPtr> mapNamed; // Regions by name.
        QMap<QString, ElementPtr> mapGroups;
        Qt::CaseSensitivity sensitivity = Qt::CaseSensitive;
    };
    struct SMatch
    {
        int nFrom = -1;
        int nStart = -1;
        int nLength = 0;
    };

    static constexpr int nMaxDepth = 24;

    // The closing bracket of an opening one; other keys are their own.
    static QString partner(const QString &strKey);
    // -1 when there is nothing else.
    static int columnsOfBlanks(const QString &strLine);

    ElementPtr read(const QVariantMap &mapElement, int nLanguage);
    void addLanguage(const QVariantMap &mapDefinition);
    void collectNames(const ElementPtr &pElement, SLanguage *pLanguage);
    int endOf(int nLanguage, const QString &strPattern, int nAt);
    bool standsBehind(int nLanguage, const SElement &element, int nAt);
    int endOfEnd(const SOpen &open, int nAt);
    QChar kind(const SOpen *pOpen) const;
    bool isFirm(size_t n) const;
    std::vector<ElementPtr> rulesInside(int nLanguage, const ElementPtr &pElement);

    bool tryPlace(int nAt);
    bool tryEndsFurtherOut(int nAt);
    bool tryAnywhere(int nAt);
    bool tryInnermost(int nAt);
    bool tryElement(const ElementPtr &pElement, int nLanguage, int nAt);
    bool beginRegion(const ElementPtr &pElement, int nLanguage, int nAt);
    void enter(const SOpen &open, int nAt, int nBehind);
    void leave(size_t nDepth, int nAt, int nBehind);
    void paint(int nFrom, int nTo, QChar ch);
    void endLine();
    bool endsWithLine(const SElement &element) const;

    std::vector<SLanguage> m_lstLanguages;
    QStringList m_lstNames;
    int m_nElements = 0;
    std::vector<SOpen> m_lstOpen;
    std::vector<SOpen> m_lstPending;
    QString m_strLine;
    QString m_strKinds;
    int m_nAt = 0;
    QHash<QString, QRegExp> m_mapPatterns;
    QHash<QString, SMatch> m_mapMatches; // Within the line.
};
