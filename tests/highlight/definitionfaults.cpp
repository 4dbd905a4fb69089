#include "definitionfile.h"
#include "highlight/canchoredpattern.h"

#include <QMap>
#include <QSet>

#include <algorithm>
#include <ctime>

namespace {

const int lineLength = 10000;
const double boundSeconds = 0.050;

bool isRegExpList(const SDefinitionFile::SList &list)
{
    return list.name == QLatin1String("reg_exp");
}

Qt::CaseSensitivity sensitivityOf(const SDefinitionFile &file)
{
    return file.caseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive;
}

QRegExp markerPattern(QString marker)
{
    return QRegExp(marker.replace('*', "\\*"));
}

// Measures processor time, so that a busy machine does not look like a slow pattern, and takes the
// best of three, so that a page fault does not either.
double searchSeconds(const QRegExp &pattern, const QString &line)
{
    double best = boundSeconds + 1;
    for (int i = 0; i < 3 && best > boundSeconds; ++i) {
        QRegExp search(pattern);
        const std::clock_t start = std::clock();
        int from = 0;
        while ((from = search.indexIn(line, from)) >= 0 && search.matchedLength() > 0)
            from += search.matchedLength();
        best = std::min(best, double(std::clock() - start) / CLOCKS_PER_SEC);
    }
    return best;
}

// A name that the wildcard pattern is meant for.
QString exampleName(QString pattern)
{
    return pattern.replace('*', "example").replace('?', "x");
}

} // namespace

QRegExp keywordPattern(const QString &keyword, Qt::CaseSensitivity sensitivity)
{
    QString escaped = keyword;
    escaped.replace('*', "\\*");
    return QRegExp(QStringLiteral("\\b%1\\b").arg(escaped), sensitivity);
}

QVector<SNamedPattern> patternsOf(const SDefinitionFile &file)
{
    QVector<SNamedPattern> patterns;
    for (const SDefinitionFile::SList &list : file.lists) {
        for (const QString &item : list.items) {
            const QRegExp pattern = isRegExpList(list) ? QRegExp(item, sensitivityOf(file))
                                                       : keywordPattern(item, sensitivityOf(file));
            patterns.append({list.name + ": " + item, pattern, !isRegExpList(list)});
        }
    }
    for (const SDefinitionFile::SComment &c : file.comments) {
        const bool single = c.name.toLower() == QLatin1String("singleline");
        const QRegExp start = single ? QRegExp(c.start) : markerPattern(c.start);
        // "(*" cannot be written as a pattern. Such a marker colours nothing, but Toggle Comment
        // types it.
        if (!single && !start.isValid())
            continue;
        patterns.append({"comment: " + c.start, start});
        if (!c.end.isEmpty())
            patterns.append({"comment end: " + c.end, markerPattern(c.end)});
    }
    if (!file.tagOpen.isEmpty() && !file.tagClose.isEmpty()) {
        patterns.append({"El Open: " + file.tagOpen, QRegExp(file.tagOpen)});
        patterns.append({"El Close: " + file.tagClose, QRegExp(file.tagClose)});
    }
    return patterns;
}

bool claims(const SDefinitionFile &file, const QString &fileName)
{
    return std::any_of(
        file.patterns.begin(), file.patterns.end(),
        [&](const QString &pattern) {
            return QRegExp(pattern, Qt::CaseInsensitive, QRegExp::WildcardUnix)
                .exactMatch(fileName);
        });
}

QStringList attributeFaults(const SDefinitionFile &file)
{
    QStringList faults;
    if (file.name.isEmpty())
        faults << QStringLiteral("the language has no name");
    if (file.patterns.join(QString()).isEmpty())
        faults << QStringLiteral("the language claims no files");
    if (file.tagOpen.isEmpty() != file.tagClose.isEmpty())
        faults << QStringLiteral("a tag region needs both El Open and El Close");
    return faults;
}

QStringList commentFaults(const SDefinitionFile &file)
{
    QStringList faults;
    for (const SDefinitionFile::SComment &c : file.comments) {
        if (c.name == QLatin1String("multiLine") && (c.start.isEmpty() || c.end.isEmpty()))
            faults << QStringLiteral("a multiLine comment needs start and end");
        if (c.name == QLatin1String("singleLine") && !c.end.isEmpty())
            faults << QStringLiteral("a singleLine comment has no end");
    }
    return faults;
}

QStringList listFaults(const SDefinitionFile &file)
{
    QStringList faults;
    QSet<QString> names, items;
    for (const SDefinitionFile::SList &list : file.lists) {
        if (names.contains(list.name))
            faults << QStringLiteral("a second list %1 replaces the first").arg(list.name);
        names.insert(list.name);
        if (list.name == QLatin1String("contexts"))
            faults << QStringLiteral("a list named contexts takes the place of the contexts");
        for (const QString &item : list.items) {
            const QString key = file.caseSensitive ? item : item.toLower();
            if (items.contains(key))
                faults << QStringLiteral("%1 stands twice").arg(item);
            items.insert(key);
        }
    }
    return faults;
}

QStringList keywordFaults(const SDefinitionFile &file)
{
    QStringList faults;
    for (const SDefinitionFile::SList &list : file.lists) {
        if (isRegExpList(list))
            continue;
        for (const QString &item : list.items) {
            if (!keywordPattern(item, sensitivityOf(file)).exactMatch(item))
                faults << QStringLiteral("%1: the keyword %2 does not match its own text")
                              .arg(list.name, item);
        }
    }
    return faults;
}

QStringList patternFaults(const SDefinitionFile &file)
{
    QStringList faults;
    for (const SNamedPattern &p : patternsOf(file))
        if (!p.pattern.isValid())
            faults << p.origin + " is not valid: " + p.pattern.errorString();
        else if (QRegExp(p.pattern).indexIn(QString()) >= 0)
            faults << p.origin + " matches nothing at all";
    return faults;
}

QStringList regionFaults(const SDefinitionFile &file)
{
    QStringList faults;
    for (const auto &[attribute, pattern] : file.regionPatterns) {
        const auto direction = attribute == QLatin1String("after") ? CAnchoredPattern::Backwards
                                                                   : CAnchoredPattern::Forwards;
        if (!CAnchoredPattern(pattern, sensitivityOf(file), direction).isUsable())
            faults << QStringLiteral("%1: %2 cannot be run").arg(attribute, pattern);
    }
    for (const QString &group : file.groupsUsed)
        if (group != QLatin1String("top") && !file.groups.contains(group))
            faults << QStringLiteral("there is no group %1").arg(group);
    for (const QString &name : file.namesUsed)
        if (!file.names.contains(name))
            faults << QStringLiteral("there is no region %1").arg(name);
    return faults;
}

QStringList slownessFaults(const SDefinitionFile &file)
{
    QStringList faults;
    // A whole word can only lose itself among words; a pattern may among any of these.
    const QString forKeywords = QStringLiteral("a\t\"\\");
    const QString forPatterns = forKeywords + " A0-_.$@#<>=/*'`([{:;&!%|+~^,";
    for (const SNamedPattern &p : patternsOf(file)) {
        for (const QChar c : p.isKeyword ? forKeywords : forPatterns) {
            const double seconds = searchSeconds(p.pattern, QString(lineLength, c));
            if (seconds > boundSeconds)
                faults << QStringLiteral("%1 takes %2 ms on a line of %3")
                              .arg(p.origin)
                              .arg(seconds * 1000)
                              .arg(c);
        }
    }
    return faults;
}

QStringList claimFaults(const QVector<SDefinitionFile> &files)
{
    QStringList faults;
    QMap<QString, QString> names, patterns;
    QMap<QString, const SDefinitionFile *> byKey;
    const auto claim = [&faults](QMap<QString, QString> &owners, const QString &what,
                                 const QString &owner) {
        if (owners.contains(what))
            faults
                << QStringLiteral("%1 and %2 both claim %3").arg(owners.value(what), owner, what);
        owners.insert(what, owner);
    };
    for (const SDefinitionFile &file : files) {
        if (byKey.contains(file.baseName))
            faults << QStringLiteral("two files are named %1").arg(file.baseName);
        byKey.insert(file.baseName, &file);
        claim(names, file.name, file.baseName);
        for (const QString &pattern : file.patterns)
            claim(patterns, pattern.toLower(), file.baseName);
    }
    // The files are asked in the order of their base names; the first to claim a name answers.
    for (const SDefinitionFile &file : files) {
        for (const QString &pattern : file.patterns) {
            const QString example = exampleName(pattern);
            const auto first = std::find_if(byKey.begin(), byKey.end(), [&](const auto *other) {
                return claims(*other, example);
            });
            if (first == byKey.end() || *first != &file)
                faults << QStringLiteral("%1 of %2 is answered by %3")
                              .arg(pattern, file.baseName,
                                   first == byKey.end() ? QStringLiteral("nobody") : first.key());
        }
    }
    return faults;
}
