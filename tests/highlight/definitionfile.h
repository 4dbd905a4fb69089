#pragma once

#include <QRegExp>
#include <QString>
#include <QStringList>
#include <QVector>

// One language definition file as its author wrote it: what the checks need, nothing interpreted.
// Read here apart from the program's own reader, so that the two do not share an error.
struct DefinitionFile
{
    struct Comment
    {
        QString name, start, end;
    };
    struct List
    {
        QString name;
        QStringList items;
    };

    QString path;
    QString baseName; // up to the first dot: the key that decides between two claims
    QString error; // why the file is not well-formed; empty when it is
    QString name;
    QStringList patterns;
    bool caseSensitive = false;
    QVector<Comment> comments;
    QVector<List> lists;
    QString tagOpen, tagClose;
    QVector<QPair<QString, QString>> regionPatterns; // attribute and pattern
    QStringList groups, names; // that the regions declare
    QStringList groupsUsed, namesUsed, languagesUsed;
};

// A pattern together with where it stands in the file, for messages.
struct NamedPattern
{
    QString origin;
    QRegExp pattern;
    bool isKeyword = false;
};

DefinitionFile readDefinition(const QString &path);

// The keyword's whole-word pattern: only the asterisk is escaped.
QRegExp keywordPattern(const QString &keyword, Qt::CaseSensitivity sensitivity);

// Every pattern that highlighting makes of the file.
QVector<NamedPattern> patternsOf(const DefinitionFile &file);

// Whether one of the file's patterns matches the whole file name, in any case.
bool claims(const DefinitionFile &file, const QString &fileName);

// Each returns what is wrong, one sentence per fault; an empty list when nothing is.
QStringList attributeFaults(const DefinitionFile &file);
QStringList commentFaults(const DefinitionFile &file);
QStringList listFaults(const DefinitionFile &file);
QStringList keywordFaults(const DefinitionFile &file);
QStringList patternFaults(const DefinitionFile &file);
// Patterns that regions cannot run, and groups and regions that are named but not there.
QStringList regionFaults(const DefinitionFile &file);
// Searches lines of 10,000 equal characters; 50 ms of processor time is the bound for one line.
QStringList slownessFaults(const DefinitionFile &file);
// Claims of one name or one pattern by two files, and patterns that another file answers first.
QStringList claimFaults(const QVector<DefinitionFile> &files);
