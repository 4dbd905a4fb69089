#include "highlight/chighlightmgt.h"

#include "app/xmlguard.h"
#include "highlight/modeline.h"

#include <QCoreApplication>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QRegExp>

#include <algorithm>

namespace {

// Names match in any letter case.
bool hasName(const QDomNode &node, const char *pszName)
{
    return node.nodeName().toLower() == QLatin1String(pszName);
}

// Empty for a node that is no element, such as a comment between items.
QString attribute(const QDomNode &node, const char *pszName)
{
    return node.toElement().attribute(QLatin1String(pszName));
}

// In any encoding, XML begins with an angle bracket, after blanks or a byte-order mark.
bool mayBeXml(const QByteArray &bytes)
{
    const QByteArray skipped = QByteArrayLiteral("\xef\xbb\xbf\xfe\xff\0 \t\r\n");
    const auto begin =
        std::find_if_not(bytes.cbegin(), bytes.cend(), [&](char c) { return skipped.contains(c); });
    return begin == bytes.cend() || *begin == '<';
}

// Empty if the file cannot be read or is no XML. Without a folder of their own the definitions lie
// beside programs of many MB, which are not worth reading.
QByteArray readXml(const QString &strPath)
{
    QFile file(strPath);
    if (strPath.isEmpty() || !file.open(QIODevice::ReadOnly | QIODevice::Text)
        || !mayBeXml(file.peek(1024)))
        return QByteArray();
    return file.readAll();
}

// Null if the bytes are not well-formed, or made to exhaust the parser.
QDomElement readRoot(const QByteArray &bytes, QDomDocument *pDocument)
{
    const bool bGood = guardXml(bytes).isGood() && pDocument->setContent(bytes);
    return bGood ? pDocument->documentElement() : QDomElement();
}

QVariantList parseComments(const QDomNode &nodeComments)
{
    QVariantList lst;
    for (QDomNode node = nodeComments.firstChild(); !node.isNull(); node = node.nextSibling()) {
        QVariantMap mapComment;
        for (const char *pszKey : {"name", "start", "end"})
            mapComment.insert(QLatin1String(pszKey), attribute(node, pszKey));
        lst.append(mapComment);
    }
    return lst;
}

QVariantMap parseGeneral(const QDomNode &nodeGeneral)
{
    QVariantMap map;
    for (QDomNode node = nodeGeneral.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (hasName(node, "keywords")) {
            const QVariantMap mapKeywords {
                {QStringLiteral("casesensitive"), attribute(node, "casesensitive")}};
            map.insert(QStringLiteral("keywords"), mapKeywords);
        } else if (hasName(node, "comments")) {
            map.insert(QStringLiteral("comments"), parseComments(node));
        }
    }
    return map;
}

QStringList parseItems(const QDomNode &nodeList)
{
    QStringList lst;
    for (QDomNode node = nodeList.firstChild(); !node.isNull(); node = node.nextSibling())
        lst.append(node.toElement().text());
    return lst;
}

QVariantMap parseContext(const QDomNode &nodeContext)
{
    QVariantList lstChildren;
    for (QDomNode node = nodeContext.firstChild(); !node.isNull(); node = node.nextSibling()) {
        lstChildren.append(QVariantMap {{QStringLiteral("tag"), node.toElement().tagName()},
                                        {QStringLiteral("char"), attribute(node, "char")},
                                        {QStringLiteral("char1"), attribute(node, "char1")}});
    }
    return QVariantMap {{QStringLiteral("name"), attribute(nodeContext, "name")},
                        {QStringLiteral("children"), lstChildren}};
}

QVariantMap parseHighlighting(const QDomNode &nodeHighlighting)
{
    QVariantMap map;
    for (QDomNode node = nodeHighlighting.firstChild(); !node.isNull(); node = node.nextSibling()) {
        if (hasName(node, "list")) {
            map.insert(attribute(node, "name"), parseItems(node));
        } else if (hasName(node, "contexts")) {
            QVariantList lstContexts;
            for (QDomNode context = node.firstChild(); !context.isNull();
                 context = context.nextSibling())
                lstContexts.append(parseContext(context));
            map.insert(QStringLiteral("contexts"), lstContexts);
        }
    }
    return map;
}

// Gives an element of the regions with everything in it. Drops comments.
QVariantMap parseRegions(const QDomElement &element)
{
    QVariantMap mapAttributes;
    const QDomNamedNodeMap lstAttributes = element.attributes();
    for (int n = 0; n < lstAttributes.count(); ++n) {
        const QDomAttr attribute = lstAttributes.item(n).toAttr();
        mapAttributes.insert(attribute.name(), attribute.value());
    }
    QVariantList lstChildren;
    for (QDomElement child = element.firstChildElement(); !child.isNull();
         child = child.nextSiblingElement())
        lstChildren.append(parseRegions(child));
    return QVariantMap {{QStringLiteral("tag"), element.tagName()},
                        {QStringLiteral("attributes"), mapAttributes},
                        {QStringLiteral("children"), lstChildren}};
}

// Collects the names of the languages that the regions embed.
void collectLanguages(const QVariantMap &mapElement, QStringList *pNames)
{
    const QString strName = mapElement.value(QStringLiteral("attributes"))
                                .toMap()
                                .value(QStringLiteral("language"))
                                .toString();
    if (!strName.isEmpty())
        pNames->append(strName);
    const QVariantList lstChildren = mapElement.value(QStringLiteral("children")).toList();
    for (const QVariant &child : lstChildren)
        collectLanguages(child.toMap(), pNames);
}

// Scans the definitions of a folder. Any thread.
SDefinitionRegistry scanFolder(const QDir &dir)
{
    SDefinitionRegistry registry;
    const QFileInfoList lstFiles =
        dir.entryInfoList(QDir::Files | QDir::NoSymLinks | QDir::Readable, QDir::Name);
    for (const QFileInfo &info : lstFiles) {
        QDomDocument document;
        const QDomElement root = readRoot(readXml(info.absoluteFilePath()), &document);
        if (root.isNull())
            continue;
        const QStringList lstPatterns =
            attribute(root, "extensions").split(QLatin1Char(';'), Qt::KeepEmptyParts);
        const QString strBaseName = info.baseName();
        registry.mapTable.insert(strBaseName,
                                 QVariantMap {{QStringLiteral("path"), info.absoluteFilePath()},
                                              {QStringLiteral("extension"), lstPatterns},
                                              {QStringLiteral("name"), attribute(root, "name")},
                                              {QStringLiteral("file_base_name"), strBaseName}});
        registry.mapFirstLines.insert(
            strBaseName,
            {attribute(root, "aliases").split(QLatin1Char(';'), Qt::SkipEmptyParts)
                 + QStringList {attribute(root, "name"), strBaseName},
             attribute(root, "firstline")});
    }
    return registry;
}

QString pathOf(const QVariant &entry)
{
    return entry.toMap().value(QStringLiteral("path")).toString();
}

QDir programFolder()
{
    QDir dir(QCoreApplication::applicationDirPath());
    dir.cd(QStringLiteral("highlighter"));
    return dir;
}

} // namespace

CHighlightMgt::CHighlightMgt(QObject *pParent)
    : QObject(pParent), m_scan(std::async(std::launch::async, scanFolder, programFolder()))
{
}

CHighlightMgt::CHighlightMgt(const QString &strFolder, QObject *pParent)
    : QObject(pParent), m_registry(scanFolder(QDir(strFolder)))
{
}

const QMap<QString, QVariant> &CHighlightMgt::table() const
{
    if (m_scan.valid())
        m_registry = m_scan.get();
    return m_registry.mapTable;
}

QVariantMap CHighlightMgt::definitionForFile(const QString &strFileName) const
{
    return withEmbedded(parse(pathForFile(strFileName)));
}

QString CHighlightMgt::pathForFile(const QString &strFileName) const
{
    for (const QVariant &entry : table()) {
        const QVariantMap mapEntry = entry.toMap();
        const QStringList lstPatterns = mapEntry.value(QStringLiteral("extension")).toStringList();
        for (const QString &strPattern : lstPatterns)
            if (QRegExp(strPattern, Qt::CaseInsensitive, QRegExp::WildcardUnix)
                    .exactMatch(strFileName))
                return pathOf(entry);
    }
    return QString();
}

QVariantMap CHighlightMgt::definitionForContent(const QString &strFileName,
                                                const QStringList &lstFirstLines) const
{
    QString strPath = pathForFile(strFileName);
    if (strPath.isEmpty() && !strFileName.contains(QLatin1Char('.')))
        strPath = pathForFirstLines(lstFirstLines);
    return withEmbedded(parse(strPath));
}

QString CHighlightMgt::pathForFirstLines(const QStringList &lstFirstLines) const
{
    const QString strMode = modeOf(lstFirstLines);
    const QString strFirst = lstFirstLines.value(0);
    const QMap<QString, QVariant> &mapTable = table();
    QString strKeyByPattern;
    for (auto it = m_registry.mapFirstLines.begin(); it != m_registry.mapFirstLines.end(); ++it) {
        if (!strMode.isEmpty() && it->lstNames.contains(strMode, Qt::CaseInsensitive))
            return pathOf(mapTable.value(it.key()));
        if (strKeyByPattern.isEmpty() && !it->strPattern.isEmpty()
            && QRegExp(it->strPattern, Qt::CaseInsensitive).indexIn(strFirst) == 0)
            strKeyByPattern = it.key();
    }
    return pathOf(mapTable.value(strKeyByPattern));
}

QVariantMap CHighlightMgt::definitionForName(const QString &strName) const
{
    return withEmbedded(parse(pathForName(strName)));
}

QString CHighlightMgt::pathForName(const QString &strName) const
{
    for (const QVariant &entry : table()) {
        const QVariantMap mapEntry = entry.toMap();
        if (mapEntry.value(QStringLiteral("name")).toString() == strName)
            return pathOf(entry);
    }
    return QString();
}

// Adds the languages that it embeds and those that they embed, once each.
QVariantMap CHighlightMgt::withEmbedded(QVariantMap mapDefinition) const
{
    QVariantMap mapEmbedded;
    QStringList lstNames;
    collectLanguages(mapDefinition.value(QStringLiteral("regions")).toMap(), &lstNames);
    while (!lstNames.isEmpty()) {
        const QString strName = lstNames.takeFirst();
        const QVariantMap map =
            mapEmbedded.contains(strName) ? QVariantMap() : parse(pathForName(strName));
        if (!map.isEmpty()) {
            mapEmbedded.insert(strName, map);
            collectLanguages(map.value(QStringLiteral("regions")).toMap(), &lstNames);
        }
    }
    if (!mapEmbedded.isEmpty())
        mapDefinition.insert(QStringLiteral("embedded"), mapEmbedded);
    return mapDefinition;
}

QVariantMap CHighlightMgt::parse(const QString &strPath)
{
    return parseBytes(readXml(strPath));
}

QVariantMap CHighlightMgt::parseBytes(const QByteArray &bytes)
{
    QDomDocument document;
    const QDomElement root = readRoot(bytes, &document);
    if (root.isNull())
        return QVariantMap();
    QVariantMap map;
    map.insert(QStringLiteral("language"),
               QVariantMap {{QStringLiteral("name"), attribute(root, "name")},
                            {QStringLiteral("extensions"), attribute(root, "extensions")}});
    for (QDomNode node = root.firstChild(); !node.isNull(); node = node.nextSibling())
        if (hasName(node, "general"))
            map.insert(QStringLiteral("general"), parseGeneral(node));
        else if (hasName(node, "highlighting"))
            map.insert(QStringLiteral("highlighting"), parseHighlighting(node));
        else if (hasName(node, "regions"))
            map.insert(QStringLiteral("regions"), parseRegions(node.toElement()));
    return map;
}
