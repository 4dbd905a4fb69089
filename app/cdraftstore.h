#pragma once

#include "app/cdescriptor.h"
#include "app/filestate.h"

#include <QByteArray>
#include <QMutex>
#include <QString>
#include <QVector>

#include <functional>

// What is kept of a modified document until it is saved.
struct SDraft
{
    QString strId; // File name within the store.
    QString strPath; // The document's own file; empty for an untitled one.
    bool bPage = false; // strText is the HTML of a page.
    int nReturnFormat = 1; // Line-ending style of a text.
    QString strText;
    // If set, strText is empty and this function gives the text. It may run on any thread and takes
    // long.
    std::function<QString()> textLater;

    // Why there is a draft. Stored by name: new ones may be added anywhere.
    enum class Reason {
        Unsaved, // Left by the end of the program.
        Closed, // Closed in the background.
        Refreshed, // Replaced by what the file holds.
        Codec, // Replaced by the same bytes read with another codec.
        Formatted,
        Loaded, // A page whose load ended after the user had typed.
        Deleted, // The file is gone.
    };
    Reason reason = Reason::Unsaved;
    qint64 nTime = 0; // Milliseconds since 1970 at which it was written.
    SFileState began; // The file that the document was read from or last saved to, as it was then.
    QByteArray codec; // The name of the codec; empty for that of new documents.
    bool bNotWhole = false; // The file held something that strText cannot give back.
    int nCaret = 0; // UTF-16 units before the caret.
};

// A draft as bytes: a line of JSON that describes it, then its text. The text is UTF-8; if UTF-8
// would change it, it is written as UTF-16 units in the order of memory.
QByteArray draftToBytes(const SDraft &draft);

// False for bytes that are no draft.
bool draftFromBytes(const QByteArray &bytes, SDraft *pDraft);

// Reads all but the text. The bytes are the beginning of a draft, at least up to its first line.
bool draftHeadFromBytes(const QByteArray &bytes, SDraft *pDraft);

// Drafts on the disk. Each running program has a sub-folder of its own, which it holds by a lock on
// an open file. Only the user can read drafts (mode 0600). A write either replaces the earlier
// draft or leaves it whole, and it is on the disk when the call returns. Any thread, one thread at
// a time per draft.
class CDraftStore
{
public:
    enum class Parts { All, Head }; // Head: strText stays empty.

    // Makes the folder if it is missing.
    explicit CDraftStore(const QString &strFolder);

    // False when this program could get no sub-folder; then nothing is kept. Each write tries
    // again.
    bool isValid() const;

    // Counts how often the sub-folder had to be made. When it grows, somebody has removed the old
    // one with all drafts in it, and they have to be written again.
    int generation() const;

    // A new file name, unique in the store.
    static QString newId();

    // Replaces the draft of that id. If it could not, gives false with the reason.
    bool write(const SDraft &draft, QString *pError = nullptr) const;
    bool read(const QString &strId, SDraft *pDraft, QString *pError = nullptr) const;
    void remove(const QString &strId) const;

    // Takes over the drafts of programs that no longer run. They stay on the disk until they are
    // removed. What cannot be read is left where it is.
    QVector<SDraft> takeAbandoned(Parts parts = Parts::All) const;

private:
    bool hasFolder(QString *pError) const;
    bool makeFolder() const;
    QString filePath(const QString &strId) const;
    void takeFrom(const QString &strFolder, Parts parts, QVector<SDraft> *pDrafts) const;

    QString m_strFolder;
    QString m_strOwnFolder;
    mutable QMutex m_mutex; // For what follows.
    mutable CDescriptor m_lock;
    mutable int m_nGeneration = 0;
};
