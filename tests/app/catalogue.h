#pragma once

#include <QFile>
#include <QList>
#include <QString>
#include <QXmlStreamReader>

// A text of a catalogue source (.ts) with all its translations: one, or one per plural form.
struct SCatalogueText
{
    QString strContext;
    QString strSource;
    QString strComment;
    QString strState; // "" when finished, else "unfinished", "vanished" or "obsolete".
    QStringList lstTranslations;

    // The key of a text.
    QString key() const
    {
        return strContext + QLatin1Char('|') + strSource + QLatin1Char('|') + strComment;
    }
};

namespace Catalogue {

inline void readTranslation(QXmlStreamReader *pXml, SCatalogueText *pText)
{
    pText->strState = pXml->attributes().value(QLatin1String("type")).toString();
    QString strWhole;
    while (pXml->readNext() != QXmlStreamReader::EndElement && !pXml->atEnd())
        if (pXml->isStartElement())
            pText->lstTranslations.append(pXml->readElementText());
        else if (pXml->isCharacters())
            strWhole += pXml->text();
    if (pText->lstTranslations.isEmpty())
        pText->lstTranslations.append(strWhole);
}

inline SCatalogueText readMessage(QXmlStreamReader *pXml, const QString &strContext)
{
    SCatalogueText text;
    text.strContext = strContext;
    while (pXml->readNextStartElement())
        if (pXml->name() == QLatin1String("source"))
            text.strSource = pXml->readElementText();
        else if (pXml->name() == QLatin1String("comment"))
            text.strComment = pXml->readElementText();
        else if (pXml->name() == QLatin1String("translation"))
            readTranslation(pXml, &text);
        else
            pXml->skipCurrentElement();
    return text;
}

// Empty when the file cannot be read or is not well-formed.
inline QList<SCatalogueText> read(const QString &strPath)
{
    QFile file(strPath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QXmlStreamReader xml(&file);
    QList<SCatalogueText> lstTexts;
    QString strContext;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            strContext = xml.readElementText();
        else if (xml.name() == QLatin1String("message"))
            lstTexts.append(readMessage(&xml, strContext));
    }
    return xml.hasError() ? QList<SCatalogueText>() : lstTexts;
}

} // namespace Catalogue
