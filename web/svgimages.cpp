#include "web/svgimages.h"

#include "web/pictureheader.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

// More than any drawing has: the time they take grows with the square of their number.
constexpr int g_nMaxStops = 5000;

// The plug-in reads what follows the last of these marks.
QByteArray imageWithin(const QStringRef &strAddress)
{
    static const QString strMark = QStringLiteral("base64,");
    const int nMark = strAddress.lastIndexOf(strMark);
    if (nMark < 0 || !strAddress.startsWith(QLatin1String("data:")))
        return QByteArray();
    return QByteArray::fromBase64(strAddress.mid(nMark + strMark.size()).toLatin1());
}

// The prefixes may be any.
bool isUnsafeImage(const QXmlStreamReader &reader)
{
    if (reader.name() != QLatin1String("image"))
        return false;
    const QXmlStreamAttributes lstAttributes = reader.attributes();
    return std::any_of(
        lstAttributes.cbegin(), lstAttributes.cend(), [](const QXmlStreamAttribute &attribute) {
            return attribute.name() == QLatin1String("href")
                && !isReasonable(pictureHeader(imageWithin(attribute.value())), false);
        });
}

bool isStop(const QXmlStreamReader &reader)
{
    return reader.name() == QLatin1String("stop");
}

// pStops counts the stops of all gradients so far.
void copyElement(QXmlStreamReader *pReader, QXmlStreamWriter *pWriter, int *pStops)
{
    if (isUnsafeImage(*pReader) || (isStop(*pReader) && ++*pStops > g_nMaxStops)) {
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
    // Reads like the plug-in, for which prefixes need no declaration.
    reader.setNamespaceProcessing(false);
    QXmlStreamWriter writer(&result);
    int nStops = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            copyElement(&reader, &writer, &nStops);
            break;
        case QXmlStreamReader::EndElement:
            writer.writeEndElement();
            break;
        case QXmlStreamReader::Characters:
            writer.writeCharacters(reader.text().toString());
            break;
        default: // The declarations are used up, comments draw nothing. What is said to the
                 // program names style sheets in other files.
            break;
        }
    }
    return result;
}
