#include "app/inplacewriter.h"

#include "app/cdescriptor.h"
#include "app/cinplacejournal.h"
#include "app/filereader.h"
#include "app/filestate.h"
#include "app/platform.h"

#include <QCoreApplication>
#include <QThread>

#include <cerrno>

namespace {

using Platform::FileKind;

class CInPlaceWriter
{
    Q_DECLARE_TR_FUNCTIONS(CInPlaceWriter)

public:
    CInPlaceWriter(const QString &strPath, const QByteArray &data)
        : m_strPath(strPath), m_data(data)
    {
    }

    bool write(QString *pError, SFileState *pState);

private:
    bool isOpen(FileKind kind, QString *pError);
    void openStream();
    bool keepOldBytes(QString *pError);
    bool overwrite();
    bool putBack();
    bool failed(QString *pError) const
    {
        *pError = Platform::errorText();
        return false;
    }

    QString m_strPath;
    QByteArray m_data;
    CDescriptor m_file;
    qint64 m_nOldSize = 0;
    Platform::SPrivileges m_privileges;
    CInPlaceJournal m_journal;
    bool m_bJournal = false;
    QByteArray m_old; // Used when there is no journal.
};

bool CInPlaceWriter::isOpen(FileKind kind, QString *pError)
{
    if (kind == FileKind::Other) {
        *pError = tr("It is no ordinary file.");
        return false;
    }
    if (kind == FileKind::Stream)
        openStream();
    else
        m_file = CDescriptor(Platform::openFile(m_strPath, Platform::FileAccess::ReadWrite));
    if (!m_file.isOpen() && kind == FileKind::Stream && errno == ENXIO)
        *pError = tr("Nobody reads at the other end.");
    else if (!m_file.isOpen() || Platform::kindOfHandle(m_file.handle()) != kind)
        *pError = Platform::errorText();
    else
        return true;
    return false;
}

// Its reader may come a moment later.
void CInPlaceWriter::openStream()
{
    const int nTries = 50;
    for (int n = 0; n < nTries; ++n) {
        m_file = CDescriptor(Platform::openFile(m_strPath, Platform::FileAccess::Write));
        if (m_file.isOpen() || errno != ENXIO)
            return;
        QThread::msleep(20);
        errno = ENXIO;
    }
}

bool CInPlaceWriter::keepOldBytes(QString *pError)
{
    m_nOldSize = fileStateOf(m_file.handle()).nSize;
    m_privileges = Platform::privilegesOf(m_file.handle());
    m_bJournal = m_journal.begin(m_strPath, m_file.handle(), m_data);
    if (m_bJournal)
        return true;
    const QString strReason = Platform::errorText();
    m_journal.end();
    SReadLimits limits;
    limits.nMaxSize = qint64(256) << 20;
    const SFileContent content = readFile(m_strPath, limits);
    if (!content.isWhole() || content.bytes.size() != m_nOldSize) {
        *pError = tr("The old text cannot be kept during the save: %1").arg(strReason);
        return false;
    }
    m_old = content.bytes;
    return true;
}

bool CInPlaceWriter::overwrite()
{
    if (m_data.size() > m_nOldSize && !Platform::reserveFileSpace(m_file.handle(), m_data.size()))
        return false;
    if (!Platform::moveTo(m_file.handle(), 0)
        || !Platform::writeBytes(m_file.handle(), m_data.constData(), m_data.size())
        || !Platform::resizeFile(m_file.handle(), m_data.size()))
        return false;
    Platform::restorePrivileges(m_file.handle(), m_privileges);
    return Platform::syncFile(m_file.handle());
}

bool CInPlaceWriter::putBack()
{
    // Frees the space that was reserved after the old end first, because the disk may be full.
    Platform::resizeFile(m_file.handle(), qMin(m_nOldSize, fileStateOf(m_file.handle()).nSize));
    const bool bDone = m_bJournal ? m_journal.putBack(m_file.handle())
                                  : Platform::moveTo(m_file.handle(), 0)
            && Platform::writeBytes(m_file.handle(), m_old.constData(), m_old.size())
            && Platform::syncFile(m_file.handle());
    Platform::restorePrivileges(m_file.handle(), m_privileges);
    return bDone;
}

bool CInPlaceWriter::write(QString *pError, SFileState *pState)
{
    const FileKind kind = Platform::kindOfPath(m_strPath);
    if (!isOpen(kind, pError))
        return false;
    if (kind == FileKind::Stream) {
        return (Platform::writeBytes(m_file.handle(), m_data.constData(), m_data.size())
                && m_file.close())
            || failed(pError);
    }
    if (!keepOldBytes(pError))
        return false;
    const bool bDone = overwrite();
    if (!bDone) {
        failed(pError);
        if (!putBack() && m_bJournal)
            *pError += QLatin1Char(' ')
                + tr("The old text is kept and will be offered at the next start.");
    }
    *pState = fileStateOf(m_file.handle());
    pState->hash = bDone ? hashOfContent(m_data) : hashOfOpenFile(m_file.handle());
    pState->bFresh = true;
    return bDone && (m_file.close() || failed(pError));
}

} // namespace

bool writeInPlace(const QString &strPath, const QByteArray &data, QString *pError,
                  SFileState *pState)
{
    return CInPlaceWriter(strPath, data).write(pError, pState);
}
