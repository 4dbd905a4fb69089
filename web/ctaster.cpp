#include "web/ctaster.h"

#include "app/platformfiles.h"
#include "web/filekey.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <utility>

namespace {

constexpr int g_nPatience = 10000;
constexpr int g_nIdle = 300000; // A helper without work ends after so many milliseconds.
constexpr int g_nFilesOfAHelper = 50; // After so many files a new helper replaces it.
constexpr int g_nResults = 2000;
constexpr int g_nEnding = 1000; // Milliseconds.
constexpr int g_nOutOfMemory = 77; // See taster/limits.h.
constexpr int g_nSignalOfTimer = 27; // SIGPROF, and SIGXCPU of the kernel's own limit.
constexpr int g_nSignalOfLimit = 24;

QString besideThisProgram()
{
#ifdef Q_OS_WIN
    const QString strName = QStringLiteral("quillan-taste.exe");
#else
    const QString strName = QStringLiteral("quillan-taste");
#endif
    return QDir(QCoreApplication::applicationDirPath()).filePath(strName);
}

// A process that ended by a signal gives its number instead of a code.
CTaster::Result resultOf(const QProcess &helper)
{
    const int nCode = helper.exitCode();
    if (helper.exitStatus() == QProcess::NormalExit)
        return nCode == g_nOutOfMemory ? CTaster::Result::TooLarge : CTaster::Result::Fails;
    return nCode == g_nSignalOfTimer || nCode == g_nSignalOfLimit ? CTaster::Result::TooSlow
                                                                  : CTaster::Result::Fails;
}

} // namespace

CTaster::CTaster(QObject *pParent)
    : QObject(pParent), m_strProgram(besideThisProgram()), m_cacheResults(g_nResults)
{
    m_timerPatience.setSingleShot(true);
    m_timerPatience.setInterval(g_nPatience);
    connect(&m_timerPatience, &QTimer::timeout, this, &CTaster::onPatienceLost);
    m_timerIdle.setSingleShot(true);
    m_timerIdle.setInterval(g_nIdle);
    connect(&m_timerIdle, &QTimer::timeout, this, &CTaster::drop);
}

CTaster::~CTaster()
{
    drop();
    // QProcess warns if it is destroyed before its process has ended, and killed processes end at
    // once.
    const QList<QProcess *> lstEnding = findChildren<QProcess *>();
    for (QProcess *pEnding : lstEnding)
        pEnding->waitForFinished(g_nEnding);
}

void CTaster::setProgram(const QString &strProgram)
{
    drop();
    m_strProgram = strProgram;
}

bool CTaster::isAvailable() const
{
    return QFileInfo(m_strProgram).isExecutable();
}

void CTaster::warmUp()
{
    if (!m_pHelper && isAvailable())
        start();
}

void CTaster::taste(const QString &strPath, const QSize &size)
{
    cancel();
    const Result result = known(strPath);
    if (result != Result::Unknown || !isAvailable()) {
        emit tasted(strPath, result);
        return;
    }
    m_strPath = strPath;
    m_key = fileKey(strPath);
    m_size = size;
    warmUp();
    send();
}

void CTaster::cancel()
{
    if (!m_strPath.isEmpty())
        drop(); // It is busy with a file that nobody waits for.
}

CTaster::Result CTaster::known(const QString &strPath) const
{
    const Result *pResult = m_cacheResults.object(fileKey(strPath));
    return pResult ? *pResult : Result::Unknown;
}

void CTaster::setKnown(const QString &strPath, Result result)
{
    m_cacheResults.insert(fileKey(strPath), new Result(result));
}

void CTaster::start()
{
    m_nTasted = 0;
    m_pHelper = new QProcess(this);
    m_pHelper->setStandardErrorFile(QProcess::nullDevice());
    connect(m_pHelper, &QProcess::readyReadStandardOutput, this, &CTaster::onAnswer);
    connect(m_pHelper, &QProcess::errorOccurred, this, &CTaster::onEnded);
    connect(m_pHelper, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            &CTaster::onEnded);
    m_pHelper->start(m_strProgram, QStringList());
    m_timerIdle.start();
}

// Does not wait for the end of the process; the system cleans it up.
void CTaster::drop()
{
    m_strPath.clear();
    m_timerPatience.stop();
    m_timerIdle.stop();
    QProcess *pHelper = std::exchange(m_pHelper, nullptr);
    if (!pHelper)
        return;
    pHelper->disconnect(this);
    connect(pHelper, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), pHelper,
            &QObject::deleteLater);
    if (pHelper->state() == QProcess::NotRunning)
        pHelper->deleteLater();
    else
        pHelper->kill();
}

void CTaster::send()
{
    if (!m_pHelper)
        return;
    m_timerIdle.start();
    m_timerPatience.start();
    m_pHelper->write(QByteArray::number(m_size.width()) + ' ' + QByteArray::number(m_size.height())
                     + ' ' + Platform::bytesOfPath(m_strPath).toHex() + '\n');
}

void CTaster::onAnswer()
{
    if (m_pHelper->readAllStandardOutput().contains("shown"))
        finish(Result::Good);
}

void CTaster::onEnded()
{
    if (!m_pHelper)
        return;
    const bool bStarted = m_pHelper->error() != QProcess::FailedToStart;
    const bool bEnded = m_pHelper->state() == QProcess::NotRunning;
    if (!bEnded)
        return; // Its result will follow.
    const Result result = bStarted ? resultOf(*m_pHelper) : Result::Unknown;
    if (m_strPath.isEmpty())
        drop();
    else
        finish(result);
}

void CTaster::onPatienceLost()
{
    finish(Result::TooSlow);
}

void CTaster::finish(Result result)
{
    const QString strPath = std::exchange(m_strPath, QString());
    if (strPath.isEmpty())
        return;
    m_timerPatience.stop();
    // The file has changed meanwhile, so the result may not be for its present content.
    if (result != Result::Unknown && m_key == fileKey(strPath))
        m_cacheResults.insert(m_key, new Result(result));
    if (result != Result::Good || ++m_nTasted >= g_nFilesOfAHelper) {
        drop();
        if (result != Result::Unknown)
            warmUp();
    }
    emit tasted(strPath, result);
}
