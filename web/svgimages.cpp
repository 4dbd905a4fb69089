#include "web/svgimages.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

// The prefixes may be any.
bool isLinkedImage(const QXmlStreamReader &reader)
{
    if (reader.name() != QLatin1String("image"))
        return false;
    const QXmlStreamAttributes lstAttributes = reader.attributes();
    return std::any_of(lstAttributes.cbegin(), lstAttributes.cend(),
                       [](const QXmlStreamAttribute &attribute) {
                           return attribute.name() == QLatin1String("href")
                               && !attribute.value().startsWith(QLatin1String("data:"));
                       });
}

void copyElement(QXmlStreamReader *pReader, QXmlStreamWriter *pWriter)
{
    if (isLinkedImage(*pReader)) {
        pReader->skipCurrentElement();
        return;
    }
    pWriter->writeStartElement(pReader->qualifiedName().toString());
    const QXmlStreamAttributes lstAttributes = pReader->attributes();
    for (const QXmlStreamAttribute &attribute : lstAttributes)
        pWriter->writeAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
}

} // namespace

QByteArray withoutLinkedImages(const QByteArray &svg)
{
    QByteArray result;
    QXmlStreamReader reader(svg);
    reader.setNamespaceProcessing(false); // As the plug-in has it: prefixes need no declaration.
    QXmlStreamWriter writer(&result);
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            copyElement(&reader, &writer);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            break;
        case QXmlStreamReader::Characters:
            writer.writeCharacters(reader.text().toString());
            break;
        case QXmlStreamReader::ProcessingInstruction: // A style sheet, perhaps.
            writer.writeProcessingInstruction(reader.processingInstructionTarget().toString(),
                                              reader.processingInstructionData().toString());
            break;
        default: // The declarations are used up, comments draw nothing.
            break;
        }
    }
    return result;
}
