#pragma once

#include "web/pagetokens.h"

#include <QHash>

// How a page's source is written, so that what is added to it looks the same.
struct SPageHabits
{
    bool bUpperTags = false; // <P>
    bool bUpperAttributes = false;
    bool bXml = false; // The source says that it is XHTML, and must stay well-formed.
    QString strVoidEnd = QStringLiteral(">"); // How a tag without content ends; also "/>" or " />".
    QChar cQuote = QLatin1Char('"');
    QString strLineEnd = QStringLiteral("\n");
    // Characters that the source spells as references more often than as themselves.
    QHash<ushort, QString> mapReferences;
};

SPageHabits pageHabits(const QString &strSource, const PageTokens &lstTokens);

// Spells a piece of a serialised page in the way of the source.
QString writePiece(const QString &strHtml, const SPageToken &piece, const SPageHabits &habits);
// Spells a text whose references are resolved.
QString writeText(const QString &strText, const SPageHabits &habits);
// Gives the source's start tag with the attributes that differ between the tags strOld and strNew.
QString changeTag(const QString &strSource, const SPageToken &source, const QString &strOld,
                  const SPageToken &oldTag, const QString &strNew, const SPageToken &newTag,
                  const SPageHabits &habits);
