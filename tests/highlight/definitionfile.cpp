#include "definitionfile.h"

#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

namespace {

QVector<QDomElement> elementsOf(const QDomElement &parent)
{
    QVector<QDomElement> elements;
    for (QDomElement e = parent.firstChildElement(); !e.isNull(); e = e.nextSiblingElement())
        elements.append(e);
    return elements;
}

void readGeneral(const QDomElement &general, SDefinitionFile *file)
{
    for (const QDomElement &part : elementsOf(general)) {
        if (part.tagName() == QLatin1String("keywords"))
            file->caseSensitive = part.attribute("casesensitive") == QLatin1String("true");
        if (part.tagName() != QLatin1String("comments"))
            continue;
        for (const QDomElement &e : elementsOf(part))
            file->comments.append({e.attribute("name"), e.attribute("start"), e.attribute("end")});
    }
}

void readContexts(const QDomElement &contexts, SDefinitionFile *file)
{
    for (const QDomElement &context : elementsOf(contexts)) {
        const QString pattern = context.firstChildElement("DetectChar").attribute("char");
        if (context.attribute("name") == QLatin1String("El Open"))
            file->tagOpen = pattern;
        else if (context.attribute("name") == QLatin1String("El Close"))
            file->tagClose = pattern;
    }
}

void readHighlighting(const QDomElement &highlighting, SDefinitionFile *file)
{
    for (const QDomElement &part : elementsOf(highlighting)) {
        if (part.tagName() == QLatin1String("contexts")) {
            readContexts(part, file);
            continue;
        }
        SDefinitionFile::SList list {part.attribute("name"), {}};
        for (const QDomElement &item : elementsOf(part))
            list.items.append(item.text());
        file->lists.append(list);
    }
}

// The end of a region holds its key, which is no pattern.
void addRegionPattern(const QString &attribute, const QString &value, SDefinitionFile *file)
{
    for (const QString &part : QString(value).replace("%2", "%1").split("%1"))
        if (!part.isEmpty())
            file->regionPatterns.append({attribute, part});
}

void readRegions(const QDomElement &parent, SDefinitionFile *file)
{
    for (const QDomElement &e : elementsOf(parent)) {
        for (const char *attribute : {"start", "key", "then", "after", "end", "skip", "nests"})
            addRegionPattern(attribute, e.attribute(attribute), file);
        if (e.tagName() == QLatin1String("token"))
            addRegionPattern("pattern", e.attribute("pattern"), file);
        if (e.hasAttribute("name"))
            (e.tagName() == QLatin1String("group") ? file->groups : file->names)
                << e.attribute("name");
        file->groupsUsed << e.attribute("inner").split(' ', Qt::SkipEmptyParts);
        if (e.hasAttribute("next"))
            file->namesUsed << e.attribute("next");
        if (e.hasAttribute("language"))
            file->languagesUsed << e.attribute("language");
        readRegions(e, file);
    }
}

} // namespace

SDefinitionFile readDefinition(const QString &path)
{
    SDefinitionFile file;
    file.path = path;
    file.baseName = QFileInfo(path).baseName();
    QFile device(path);
    QDomDocument document;
    QString message;
    int line = 0;
    if (!device.open(QIODevice::ReadOnly) || !document.setContent(&device, &message, &line)) {
        file.error = QStringLiteral("line %1: %2")
                         .arg(line)
                         .arg(message.isEmpty() ? device.errorString() : message);
        return file;
    }
    const QDomElement root = document.documentElement();
    file.name = root.attribute("name");
    file.patterns = root.attribute("extensions").split(';');
    readGeneral(root.firstChildElement("general"), &file);
    readHighlighting(root.firstChildElement("highlighting"), &file);
    const QDomElement regions = root.firstChildElement("regions");
    if (regions.hasAttribute("language"))
        file.languagesUsed << regions.attribute("language");
    readRegions(regions, &file);
    return file;
}
