#include "web/cloadjournal.h"

#include "app/platformfiles.h"
#include "web/filekey.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

namespace {

constexpr qint64 g_nMaxNote = 10000; // Bytes.

struct SNote
{
    QByteArray key;
    QString strPath;
};

// The lock lasts until the file is closed or this program ends in any way.
bool lockOpenFile(const QFile &file)
{
    return Platform::lockFile(file.handle()) == Platform::FileLock::Mine;
}

// Empty while the program that wrote it runs.
SNote readLeftNote(const QString &strNote)
{
    QFile file(strNote);
    if (!QFileInfo(strNote).isFile() || !file.open(QIODevice::ReadWrite) || !lockOpenFile(file))
        return SNote();
    const QList<QByteArray> lstLines = file.read(g_nMaxNote).split('\n');
    return {lstLines.constFirst(), QString::fromUtf8(QByteArray::fromHex(lstLines.value(1)))};
}

} // namespace

// A note that this program holds locked. It is removed together with the object.
class CLoadJournal::CNote
{
public:
    explicit CNote(const QString &strPath) : m_file(strPath) { }
    ~CNote() { m_file.remove(); }

    // While it is empty, nobody takes it for a note that was left behind.
    bool begin(const QByteArray &text)
    {
        return m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly)
            && m_file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) && lockOpenFile(m_file)
            && m_file.write(text) == text.size() && m_file.flush();
    }

private:
    Q_DISABLE_COPY_MOVE(CNote)
    QFile m_file; // Open, and so locked.
};

CLoadJournal::CLoadJournal(const QString &strFolder) : m_strFolder(strFolder)
{
    const QStringList lstNotes = leftNotes();
    for (const QString &strNote : lstNotes) {
        const SNote note = readLeftNote(strNote);
        if (!note.key.isEmpty() && fileKey(note.strPath) != note.key)
            QFile::remove(strNote);
    }
}

CLoadJournal::~CLoadJournal() = default;

void CLoadJournal::begin(const QString &strPath)
{
    const QByteArray key = fileKey(strPath);
    if (key.isEmpty() || !QDir().mkpath(m_strFolder))
        return;
    QFile::setPermissions(m_strFolder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString strName = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const auto pNote = QSharedPointer<CNote>::create(m_strFolder + '/' + strName + ".load");
    if (pNote->begin(key + '\n' + strPath.toUtf8().toHex() + '\n'))
        m_hashNotes.insert(strPath, pNote);
}

void CLoadJournal::end(const QString &strPath)
{
    const auto it = m_hashNotes.find(strPath);
    if (it != m_hashNotes.end())
        m_hashNotes.erase(it); // This deletes the file as well.
}

bool CLoadJournal::isBlamed(const QString &strPath) const
{
    const QByteArray key = fileKey(strPath);
    if (key.isEmpty())
        return false;
    bool bBlamed = false;
    const QStringList lstNotes = leftNotes();
    for (const QString &strNote : lstNotes)
        bBlamed |= readLeftNote(strNote).key == key;
    return bBlamed;
}

void CLoadJournal::forgive(const QString &strPath)
{
    const QByteArray key = fileKey(strPath);
    const QStringList lstNotes = leftNotes();
    for (const QString &strNote : lstNotes)
        if (!key.isEmpty() && readLeftNote(strNote).key == key)
            QFile::remove(strNote);
}

// Notes of running programs are among them.
QStringList CLoadJournal::leftNotes() const
{
    const QDir dir(m_strFolder);
    QStringList lstPaths;
    const QStringList lstNames = dir.entryList({QStringLiteral("*.load")}, QDir::Files);
    for (const QString &strName : lstNames)
        lstPaths.append(dir.filePath(strName));
    return lstPaths;
}
