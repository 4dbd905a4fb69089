#pragma once

#include <QRegExp>
#include <QString>
#include <QStringList>
#include <QVector>

// One language definition file as its author wrote it: the parts that the checks need, without
// interpretation. It has a reader of its own, so that it does not share errors with the program's
// reader.
struct SDefinitionFile
{
    struct SComment
    {
        QString name, start, end;
    };
    struct SList
    {
        QString name;
        QStringList items;
    };

    QString path;
    QString baseName; // Up to the first dot. It decides between two claims.
    QString error; // Why the file is not well-formed. Empty if it is.
    QString name;
    QStringList patterns;
    bool caseSensitive = false;
    QVector<SComment> comments;
    QVector<SList> lists;
    QString tagOpen, tagClose;
    QVector<QPair<QString, QString>> regionPatterns; // Attribute and pattern.
    QStringList groups, names; // Those that the regions declare.
    QStringList groupsUsed, namesUsed, languagesUsed;
};

// A pattern together with where it stands in the file, for messages.
struct SNamedPattern
{
    QString origin;
    QRegExp pattern;
    bool isKeyword = false;
};

SDefinitionFile readDefinition(const QString &path);

// The keyword's whole-word pattern: only the asterisk is escaped.
QRegExp keywordPattern(const QString &keyword, Qt::CaseSensitivity sensitivity);

// Every pattern that highlighting makes of the file.
QVector<SNamedPattern> patternsOf(const SDefinitionFile &file);

// Whether one of the file's patterns matches the whole file name, in any case.
bool claims(const SDefinitionFile &file, const QString &fileName);

// Each returns what is wrong, one sentence per fault; an empty list when nothing is.
QStringList attributeFaults(const SDefinitionFile &file);
QStringList commentFaults(const SDefinitionFile &file);
QStringList listFaults(const SDefinitionFile &file);
QStringList keywordFaults(const SDefinitionFile &file);
QStringList patternFaults(const SDefinitionFile &file);
// Patterns that regions cannot run, and groups and regions that are named but not there.
QStringList regionFaults(const SDefinitionFile &file);
// Searches lines of 10,000 equal characters; 50 ms of processor time is the bound for one line.
QStringList slownessFaults(const SDefinitionFile &file);
// Claims of one name or one pattern by two files, and patterns that another file answers first.
QStringList claimFaults(const QVector<SDefinitionFile> &files);
