#pragma once

#include <QMap>
#include <QObject>
#include <QString>
#include <QVariant>
#include <future>

// What is kept of all definition files, under their base names.
struct SDefinitionRegistry
{
    struct SFirstLine
    {
        QStringList lstNames; // by which mode lines and programs call the language
        QString strPattern; // of what its files begin with
    };

    QMap<QString, QVariant> mapTable;
    QMap<QString, SFirstLine> mapFirstLines;
};

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
    // The same, and for a name without a suffix that no definition claims the one that the first
    // lines of the text speak for: a mode line of Emacs or Vim, the program behind "#!", or what
    // files of the language begin with.
    QVariantMap definitionForContent(const QString &strFileName,
                                     const QStringList &lstFirstLines) const;
    // The definition with exactly this name; empty when there is none.
    QVariantMap definitionForName(const QString &strName) const;

    // Reads a definition file: "language", "general", "highlighting" and "regions", as far as the
    // file has them; empty when it cannot be read or is not well-formed XML. What a lookup returns
    // has "embedded" besides, the definitions of the languages that the regions embed, by name.
    static QVariantMap parse(const QString &strPath);
    // The same for the bytes of such a file.
    static QVariantMap parseBytes(const QByteArray &bytes);

private:
    QString pathForFile(const QString &strFileName) const;
    QString pathForName(const QString &strName) const;
    QString pathForFirstLines(const QStringList &lstFirstLines) const;
    QVariantMap withEmbedded(QVariantMap mapDefinition) const;

    // The program's own folder is read on a thread, while the program builds its window; the first
    // look at the table waits for it.
    mutable std::future<SDefinitionRegistry> m_scan;
    mutable SDefinitionRegistry m_registry;
};
