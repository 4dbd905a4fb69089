#include "app/filereader.h"

#include "app/cdescriptor.h"

#include <QCoreApplication>
#include <QCryptographicHash>

#include <new>

namespace {

using Fault = SFileContent::Fault;

const int g_nReadPiece = 1 << 20; // Bytes.
const qint64 g_nMaxHashed = 4 << 20; // Bytes; hashing that many takes some milliseconds.

class CReadTexts
{
    Q_DECLARE_TR_FUNCTIONS(CReadTexts)

public:
    static SFileContent failure(Fault fault, const SFileState &state = SFileState())
    {
        SFileContent content;
        content.state = state;
        content.fault = fault;
        content.strError = text(fault);
        return content;
    }

private:
    static QString text(Fault fault)
    {
        switch (fault) {
        case Fault::None:
            return QString();
        case Fault::CannotOpen:
        case Fault::ReadError:
            return Platform::errorText();
        case Fault::NotAFile:
            return tr("It is no ordinary file.");
        case Fault::TooLarge:
        case Fault::TooLargeAtAll:
            return tr("The file is too large.");
        case Fault::NoMemory:
            return tr("There is not enough memory for the file.");
        case Fault::Changing:
            return tr("Another program keeps writing to the file.");
        case Fault::Cancelled:
            return tr("Reading was stopped.");
        }
        return QString();
    }
};

// Finds the faults that show without reading.
Fault faultBefore(const SFileState &state, const SReadLimits &limits)
{
    if (state.nSize > g_nMaxReadable)
        return Fault::TooLargeAtAll;
    if (state.nSize > limits.nMaxSize)
        return Fault::TooLarge;
    const qint64 nMemory = state.nSize > g_nReadPiece ? Platform::availableMemory() : -1;
    return nMemory >= 0 && state.nSize > nMemory / qMax(1, limits.nMemoryPerByte) ? Fault::NoMemory
                                                                                  : Fault::None;
}

// Makes room for the next piece. At first that is the whole file and one more byte, which finds the
// end of the file. Files that the system makes up while they are read have no size to go by.
Fault makeRoom(QByteArray *pBytes, qint64 nDone, qint64 nExpected, qint64 nMaxSize)
{
    if (nDone < pBytes->size())
        return Fault::None;
    if (nDone > nMaxSize)
        return Fault::TooLarge;
    const qint64 nSize = nExpected >= 0 ? nExpected + 1 : nDone + qMax(nDone, qint64(g_nReadPiece));
    try {
        pBytes->resize(int(qMin(nSize, g_nMaxReadable + 1)));
    } catch (const std::bad_alloc &) {
        return Fault::NoMemory;
    }
    return Fault::None;
}

// Reports Changing after the first byte beyond the expected size, which is -1 if it is not known.
Fault readBytes(int nHandle, qint64 nExpected, const SReadLimits &limits, QByteArray *pBytes)
{
    pBytes->clear();
    qint64 nDone = 0;
    Fault fault = Fault::None;
    while (fault == Fault::None) {
        fault = makeRoom(pBytes, nDone, nExpected, qMin(limits.nMaxSize, g_nMaxReadable));
        if (fault != Fault::None)
            return fault;
        const qint64 nRead = Platform::readSome(nHandle, pBytes->data() + nDone,
                                                qMin(qint64(g_nReadPiece), pBytes->size() - nDone));
        if (nRead < 0)
            return Fault::ReadError;
        if (nRead == 0)
            break;
        if (limits.beginning && nDone == 0)
            limits.beginning(QByteArray(pBytes->constData(), int(nRead)));
        nDone += nRead;
        if (limits.progress && !limits.progress(nDone, nExpected))
            return Fault::Cancelled;
        if (nExpected >= 0 && nDone > nExpected)
            fault = Fault::Changing;
    }
    pBytes->resize(int(nDone));
    return fault;
}

// Opens nothing but a regular file.
Fault openRegular(const QString &strPath, CDescriptor *pFile)
{
    // Checks the kind before opening, too, because opening a device can start it.
    const Platform::FileKind kind = Platform::kindOfPath(strPath);
    if (kind != Platform::FileKind::Regular && kind != Platform::FileKind::Missing)
        return Fault::NotAFile;
    *pFile = CDescriptor(Platform::openFile(strPath, Platform::FileAccess::Read));
    if (!pFile->isOpen())
        return Fault::CannotOpen;
    return Platform::kindOfHandle(pFile->handle()) == Platform::FileKind::Regular ? Fault::None
                                                                                  : Fault::NotAFile;
}

// Opens and reads once. Reports Changing if the file was no longer the same after reading.
SFileContent readOnce(const QString &strPath, const SReadLimits &limits)
{
    CDescriptor file;
    const Fault opening = openRegular(strPath, &file);
    if (opening != Fault::None)
        return CReadTexts::failure(opening);
    SFileContent content;
    content.state = fileStateOf(file.handle());
    // Taken now, because the file may change while it is read.
    const bool bFresh = isFresh(content.state);
    content.fault = faultBefore(content.state, limits);
    const bool bMadeUp = Platform::isMadeUp(file.handle());
    if (content.fault == Fault::None) {
        content.fault =
            readBytes(file.handle(), bMadeUp ? -1 : content.state.nSize, limits, &content.bytes);
    }
    if (content.fault != Fault::None && content.fault != Fault::Changing)
        return CReadTexts::failure(content.fault, content.state);
    if (fileStateOf(file.handle()) != content.state
        || (!bMadeUp && content.bytes.size() != content.state.nSize))
        content.fault = Fault::Changing;
    content.state.bFresh = bFresh;
    if (bFresh || content.state.nSize <= g_nMaxHashed)
        content.state.hash = hashOfContent(content.bytes);
    return content;
}

} // namespace

SFileContent readFile(const QString &strPath, const SReadLimits &limits)
{
    const int nTries = 5;
    SFileContent content;
    for (int n = 0; n < nTries; ++n) {
        content = readOnce(strPath, limits);
        if (content.fault != Fault::Changing)
            break;
    }
    if (content.fault == Fault::Changing)
        content.strError = CReadTexts::failure(Fault::Changing).strError;
    return content;
}

SFileContent lookAtFile(const QString &strPath, const SReadLimits &limits)
{
    CDescriptor file;
    const Fault opening = openRegular(strPath, &file);
    if (opening != Fault::None)
        return CReadTexts::failure(opening);
    const SFileState state = fileStateOf(file.handle());
    return CReadTexts::failure(faultBefore(state, limits), state);
}

SFileContent readingFailed(SFileContent::Fault fault, const SFileState &state)
{
    return CReadTexts::failure(fault, state);
}

QByteArray hashOfOpenFile(int nHandle)
{
    QByteArray piece(g_nReadPiece, Qt::Uninitialized);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    qint64 nRead = Platform::moveTo(nHandle, 0) ? 1 : -1;
    while (nRead > 0) {
        nRead = Platform::readSome(nHandle, piece.data(), piece.size());
        hash.addData(piece.constData(), int(qMax(qint64(0), nRead)));
    }
    return nRead == 0 ? hash.result() : QByteArray();
}

bool isFileUnchanged(const QString &strPath, SFileState *pState)
{
    const SFileState now = fileStateOf(strPath);
    if (!now.bExists || !pState->bExists)
        return now.bExists == pState->bExists;
    if (!isSameFile(now, *pState) || now.nSize != pState->nSize
        || now.nModifiedNs != pState->nModifiedNs)
        return false;
    if (now.nChangedNs == pState->nChangedNs && !pState->bFresh)
        return true;
    const bool bSettled = !isFresh(now); // The state before the file is read.
    const CDescriptor file(Platform::openFile(strPath, Platform::FileAccess::Read));
    if (pState->hash.isEmpty() || !file.isOpen()
        || Platform::kindOfHandle(file.handle()) != Platform::FileKind::Regular
        || hashOfOpenFile(file.handle()) != pState->hash || fileStateOf(file.handle()) != now)
        return false;
    pState->nChangedNs = now.nChangedNs;
    pState->bFresh = !bSettled;
    return true;
}
