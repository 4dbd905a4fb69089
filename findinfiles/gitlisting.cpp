#include "findinfiles/gitlisting.h"

#include "app/platformfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

namespace {

// Switches off what the environment or a repository's settings would make Git do besides listing.
void restrict(QProcess *pProcess)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char *szName :
         {"GIT_DIR", "GIT_WORK_TREE", "GIT_INDEX_FILE", "GIT_PREFIX", "GIT_TRACE", "GIT_NAMESPACE"})
        environment.remove(QLatin1String(szName));
    environment.insert(QStringLiteral("GIT_OPTIONAL_LOCKS"), QStringLiteral("0"));
    environment.insert(QStringLiteral("GIT_NO_LAZY_FETCH"), QStringLiteral("1"));
    environment.insert(QStringLiteral("GIT_TERMINAL_PROMPT"), QStringLiteral("0"));
    pProcess->setProcessEnvironment(environment);
    pProcess->setStandardInputFile(QProcess::nullDevice());
    pProcess->setStandardErrorFile(QProcess::nullDevice());
}

bool startGit(QProcess *pProcess, const QString &strFolder, const QStringList &lstArguments)
{
    const QString strGit = QStandardPaths::findExecutable(QStringLiteral("git"));
    if (strGit.isEmpty())
        return false;
    restrict(pProcess);
    pProcess->setWorkingDirectory(strFolder);
    const QStringList lstSafe {
        QStringLiteral("-c"), QStringLiteral("core.fsmonitor=false"),
        QStringLiteral("-c"), QStringLiteral("core.hooksPath=/dev/null"),
        QStringLiteral("-c"), QStringLiteral("protocol.allow=never"),
    };
    pProcess->start(strGit, lstSafe + lstArguments, QIODevice::ReadOnly);
    return pProcess->waitForStarted();
}

// The exit code; -1 when it was cancelled or crashed.
int finish(QProcess *pProcess, const std::atomic<bool> &bCancel)
{
    while (pProcess->state() != QProcess::NotRunning && !bCancel)
        pProcess->waitForFinished(50);
    if (pProcess->state() != QProcess::NotRunning) {
        pProcess->kill();
        pProcess->waitForFinished();
        return -1;
    }
    return pProcess->exitStatus() == QProcess::NormalExit ? pProcess->exitCode() : -1;
}

bool isInRepository(const QString &strFolder)
{
    QDir dir(QFileInfo(strFolder).canonicalFilePath());
    do {
        if (QFileInfo::exists(dir.filePath(QStringLiteral(".git"))))
            return true;
    } while (dir.cdUp());
    return false;
}

// One entry is a path. For a tracked file its mode, object and stage and a tab come before the
// path.
struct SEntry
{
    explicit SEntry(const QByteArray &line)
    {
        const int nTab = line.indexOf('\t');
        const bool bTracked = nTab >= 49 && line.at(6) == ' ' && line.at(nTab - 2) == ' ';
        mode = bTracked ? line.left(6) : QByteArray();
        cStage = bTracked ? line.at(nTab - 1) : '0';
        path = bTracked ? line.mid(nTab + 1) : line;
    }

    QByteArray mode;
    char cStage = '0';
    QByteArray path;
};

class CGitOutput
{
public:
    explicit CGitOutput(const std::function<bool(const QString &, bool)> &onFile) : m_onFile(onFile)
    {
    }

    // False when no more is wanted.
    bool take(const QByteArray &data)
    {
        m_rest += data;
        int nFrom = 0;
        for (int nEnd; (nEnd = m_rest.indexOf('\0', nFrom)) >= 0; nFrom = nEnd + 1) {
            m_bAny = true;
            if (!takeEntry(SEntry(m_rest.mid(nFrom, nEnd - nFrom))))
                return false;
        }
        m_rest.remove(0, nFrom);
        return true;
    }

    bool hasAny() const { return m_bAny; }

private:
    bool takeEntry(const SEntry &entry)
    {
        // A file in conflict comes once for each of its versions, one after another. Links are not
        // followed.
        const bool bAgain = entry.cStage != '0' && entry.path == m_last;
        if (bAgain || entry.mode == "120000" || entry.path.startsWith("../"))
            return true;
        m_last = entry.path;
        const bool bRepository = entry.path.endsWith('/');
        const QByteArray path = bRepository ? entry.path.chopped(1) : entry.path;
        return m_onFile(Platform::pathOfBytes(path), bRepository || entry.mode == "160000");
    }

    const std::function<bool(const QString &, bool)> &m_onFile;
    QByteArray m_rest;
    QByteArray m_last;
    bool m_bAny = false;
};

} // namespace

bool gitKnowsFolder(const QString &strFolder, const std::atomic<bool> &bCancel)
{
    if (!isInRepository(strFolder))
        return false;
    QProcess process;
    if (!startGit(&process, strFolder,
                  {QStringLiteral("check-ignore"), QStringLiteral("-q"), QStringLiteral(".")}))
        return false;
    // 0 means "ignored"; for the root Git reports an error instead.
    return finish(&process, bCancel) != 0;
}

bool listGitFiles(const QString &strFolder, const std::atomic<bool> &bCancel,
                  const std::function<bool(const QString &strName, bool bFolder)> &onFile)
{
    QProcess process;
    if (!startGit(&process, strFolder,
                  {QStringLiteral("ls-files"), QStringLiteral("-z"), QStringLiteral("--stage"),
                   QStringLiteral("--cached"), QStringLiteral("--others"),
                   QStringLiteral("--exclude-standard")}))
        return false;
    CGitOutput output(onFile);
    bool bWanted = true;
    while (bWanted && !bCancel) {
        process.waitForReadyRead(50);
        const bool bEnded = process.state() == QProcess::NotRunning;
        bWanted = output.take(process.readAllStandardOutput());
        if (bEnded)
            break;
    }
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished();
        return true;
    }
    const bool bFine = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return bFine || output.hasAny();
}
