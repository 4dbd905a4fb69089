#include "findinfiles/filewalk.h"

#include "findinfiles/gitlisting.h"

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>
#include <QStringList>

namespace {

QString pathOf(const QString &strFolder, const QString &strName)
{
    const QString strStart =
        strFolder.endsWith(QLatin1Char('/')) ? strFolder : strFolder + QLatin1Char('/');
    return strStart + strName;
}

class CFileWalk
{
public:
    CFileWalk(const std::atomic<bool> &bCancel, const std::function<bool(const QString &)> &onFile)
        : m_bCancel(bCancel), m_onFile(onFile)
    {
    }

    void walk(const QString &strFolder)
    {
        const QString strGit = QStringLiteral(".git");
        bool bFirst = true;
        m_lstFolders = QStringList(strFolder);
        while (!m_lstFolders.isEmpty() && !isDone()) {
            const QString strNext = m_lstFolders.takeLast();
            // The first folder may be anywhere in a repository; the others are reached from outside
            // of one.
            const bool bGit = bFirst ? gitKnowsFolder(strNext, m_bCancel)
                                     : QFileInfo::exists(pathOf(strNext, strGit));
            bFirst = false;
            if (!bGit || !listByGit(strNext))
                list(strNext);
        }
    }

private:
    bool isDone() const { return m_bDone || m_bCancel; }

    bool listByGit(const QString &strFolder)
    {
        return listGitFiles(
            strFolder, m_bCancel,
            [&](const QString &strName, bool bFolder) {
                const QString strPath = pathOf(strFolder, strName);
                if (bFolder)
                    m_lstFolders.append(strPath);
                else if (!m_onFile(strPath))
                    m_bDone = true;
                return !isDone();
            });
    }

    void list(const QString &strFolder)
    {
        const QString strGit = QStringLiteral(".git");
        QDirIterator it(strFolder,
                        QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
        while (it.hasNext() && !isDone()) {
            const QString strPath = it.next();
            const QFileInfo info = it.fileInfo();
            if (info.isSymLink() || info.isJunction())
                continue;
            if (!info.isDir())
                m_bDone = !m_onFile(strPath);
            else if (it.fileName() != strGit)
                m_lstFolders.append(strPath);
        }
    }

    const std::atomic<bool> &m_bCancel;
    const std::function<bool(const QString &)> &m_onFile;
    QStringList m_lstFolders;
    bool m_bDone = false;
};

} // namespace

void walkFiles(const QString &strFolder, const std::atomic<bool> &bCancel,
               const std::function<bool(const QString &)> &onFile)
{
    CFileWalk(bCancel, onFile).walk(QDir::cleanPath(QDir::fromNativeSeparators(strFolder)));
}
