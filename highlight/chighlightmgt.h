#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>
#include <future>

// The registry of language definition files. It is built once from a folder and keeps a small entry
// per file; every lookup reads and parses the file again, so that an edited file counts at once.
// GUI thread only. Nothing is reported: a file that cannot be read is simply no definition.
class CHighlightMgt : public QObject
{
    Q_OBJECT
public:
    // Scans the folder "highlighter" beside the program, or the program's own folder without one.
    explicit CHighlightMgt(QObject *pParent);
    // Scans strFolder itself.
    CHighlightMgt(const QString &strFolder, QObject *pParent);

    // One entry per file under the file's base name, in the order in which lookups search it. An
    // entry is a QVariantMap: "path" (absolute), "extension" (list of wildcard patterns), "name"
    // (shown to the user), "file_base_name".
    const QMap<QString, QVariant> &table() const;

    // The definition whose patterns match the whole of strFileName, letter case ignored; empty when
    // there is none. Give the bare file name: a pattern without "*" does not match a path.
    QVariantMap definitionForFile(const QString &strFileName) const;
    // The definition with exactly this name; empty when there is none.
    QVariantMap definitionForName(const QString &strName) const;

    // Reads a definition file: "language", "general", "highlighting" and "regions", as far as the
    // file has them; empty when it cannot be read or is not well-formed XML. What a lookup returns
    // has "embedded" besides, the definitions of the languages that the regions embed, by name.
    static QVariantMap parse(const QString &strPath);
    // The same for the bytes of such a file.
    static QVariantMap parseBytes(const QByteArray &bytes);

private:
    QString pathForName(const QString &strName) const;
    QVariantMap withEmbedded(QVariantMap mapDefinition) const;

    // The program's own folder is read on a thread, while the program builds its window; the first
    // look at the table waits for it.
    mutable std::future<QMap<QString, QVariant>> m_scan;
    mutable QMap<QString, QVariant> m_mapTable;
};
