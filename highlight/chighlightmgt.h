#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>
#include <future>

// What is kept of each definition file, by base name.
struct SDefinitionRegistry
{
    struct SFirstLine
    {
        QStringList lstNames; // How mode lines and "#!" lines call the language.
        QString strPattern; // Matches the beginning of its files. May be empty.
    };

    QMap<QString, QVariant> mapTable;
    QMap<QString, SFirstLine> mapFirstLines;
};

// The registry of language definition files. It is built once from a folder and keeps a small entry
// per file. Every lookup reads and parses the file again, so an edited file takes effect at once. A
// file that cannot be read is no definition; nothing is reported. GUI thread only.
class CHighlightMgt : public QObject
{
    Q_OBJECT
public:
    // Scans the folder "highlighter" beside the program. If there is none, scans the program's own
    // folder.
    explicit CHighlightMgt(QObject *pParent);
    // Scans strFolder.
    CHighlightMgt(const QString &strFolder, QObject *pParent);

    // One entry per file under the file's base name, in the order in which lookups search it. An
    // entry is a QVariantMap: "path" (absolute), "extension" (list of wildcard patterns), "name"
    // (shown to the user), "file_base_name".
    const QMap<QString, QVariant> &table() const;

    // Gives the definition with a pattern that matches all of strFileName, in any letter case.
    // Empty if there is none. Takes a name without folders: a pattern without "*" does not match a
    // path.
    QVariantMap definitionForFile(const QString &strFileName) const;
    // The same. If no definition matches and the name has no suffix, the first lines decide: a mode
    // line of Emacs or Vim, the program after "#!", or how files of the language begin.
    QVariantMap definitionForContent(const QString &strFileName,
                                     const QStringList &lstFirstLines) const;
    // Gives the definition with exactly this name. Empty if there is none.
    QVariantMap definitionForName(const QString &strName) const;

    // Reads a definition file: "language", "general", "highlighting" and "regions", as far as the
    // file has them. Empty if it cannot be read or is not well-formed XML. The lookups above add
    // "embedded": the definitions of the languages that the regions embed, by name.
    static QVariantMap parse(const QString &strPath);
    // The same for the bytes of such a file.
    static QVariantMap parseBytes(const QByteArray &bytes);

private:
    QString pathForFile(const QString &strFileName) const;
    QString pathForName(const QString &strName) const;
    QString pathForFirstLines(const QStringList &lstFirstLines) const;
    QVariantMap withEmbedded(QVariantMap mapDefinition) const;

    // A thread reads the program's own folder while the window is built. The first use of the table
    // waits for it.
    mutable std::future<SDefinitionRegistry> m_scan;
    mutable SDefinitionRegistry m_registry;
};
