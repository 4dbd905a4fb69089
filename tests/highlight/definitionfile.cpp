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

void readGeneral(const QDomElement &general, DefinitionFile *file)
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

void readContexts(const QDomElement &contexts, DefinitionFile *file)
{
    for (const QDomElement &context : elementsOf(contexts)) {
        const QString pattern = context.firstChildElement("DetectChar").attribute("char");
        if (context.attribute("name") == QLatin1String("El Open"))
            file->tagOpen = pattern;
        else if (context.attribute("name") == QLatin1String("El Close"))
            file->tagClose = pattern;
    }
}

void readHighlighting(const QDomElement &highlighting, DefinitionFile *file)
{
    for (const QDomElement &part : elementsOf(highlighting)) {
        if (part.tagName() == QLatin1String("contexts")) {
            readContexts(part, file);
            continue;
        }
        DefinitionFile::List list {part.attribute("name"), {}};
        for (const QDomElement &item : elementsOf(part))
            list.items.append(item.text());
        file->lists.append(list);
    }
}

} // namespace

DefinitionFile readDefinition(const QString &path)
{
    DefinitionFile file;
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
    return file;
}
