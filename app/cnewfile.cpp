#include "app/cnewfile.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <cerrno>

namespace {

// The ending has the length of mkstemp()'s.
QString randomEnding()
{
    const char szLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789";
    QString strEnding(QLatin1Char('.'));
    for (int n = 0; n < 6; ++n) {
        const int nLetter = QRandomGenerator::system()->bounded(int(sizeof szLetters) - 1);
        strEnding.append(QLatin1Char(szLetters[nLetter]));
    }
    return strEnding;
}

} // namespace

CNewFile::~CNewFile()
{
    const int nError = errno; // The number of the error that is reported.
    m_file.close();
    if (!m_strName.isEmpty())
        Platform::removeFile(m_strName);
    errno = nError;
}

bool CNewFile::create(Platform::FilePrivacy privacy)
{
    const int nTries = 100;
    const int nLongest = 40; // Characters; a name of that length has room for the ending.
    const QFileInfo target(m_strTarget);
    const QString strBeginning =
        target.path() + QLatin1Char('/') + target.fileName().left(nLongest);
    for (int n = 0; n < nTries && !m_file.isOpen(); ++n) {
        const QString strName = strBeginning + randomEnding();
        m_file = CDescriptor(Platform::createFile(strName, privacy));
        if (m_file.isOpen())
            m_strName = strName;
        else if (errno != EEXIST)
            break;
    }
    return m_file.isOpen();
}

bool CNewFile::write(const QByteArray &data)
{
    return Platform::writeBytes(m_file.handle(), data.constData(), data.size());
}

bool CNewFile::sync()
{
    if (!Platform::syncFile(m_file.handle()))
        return false;
    m_state = fileStateOf(m_file.handle());
    return m_file.close();
}

bool CNewFile::putInPlace()
{
    if (!Platform::renameFile(m_strName, m_strTarget))
        return false;
    m_strName.clear();
    // Renaming changes one of the times. Any other difference comes from another program.
    const SFileState now = fileStateOf(m_strTarget);
    if (isSameFile(now, m_state) && now.nModifiedNs == m_state.nModifiedNs
        && now.nSize == m_state.nSize)
        m_state.nChangedNs = now.nChangedNs;
    return true;
}

bool writePrivateFile(const QString &strPath, const QByteArray &data)
{
    CNewFile file(strPath);
    return file.create(Platform::FilePrivacy::OnlyMe) && file.write(data) && file.sync()
        && file.putInPlace();
}
