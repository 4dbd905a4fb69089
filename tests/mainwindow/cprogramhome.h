#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>
#include <vector>

const char g_szProgram[] = QUILLAN_BINARY_DIR "/quillan";

// Starts of the program, with a settings folder and a mailbox that the cases do not share.
class CProgramHome
{
public:
    CProgramHome()
    {
        m_environment = QProcessEnvironment::systemEnvironment();
        m_environment.insert("HOME", m_folder.path());
        m_environment.insert("XDG_CONFIG_HOME", m_folder.filePath("config"));
        m_environment.insert("XDG_DATA_HOME", m_folder.filePath("data"));
        m_environment.insert("TMPDIR", m_folder.path());
    }

    ~CProgramHome()
    {
        for (const auto &pProcess : m_lstProcesses) {
            // In order, so that no segment stays behind in the system.
            pProcess->terminate();
            if (!pProcess->waitForFinished(5000))
                pProcess->kill();
            pProcess->waitForFinished();
        }
    }

    // For later starts: a home, and none of the variables that lead elsewhere.
    void setHome(const QString &strHome)
    {
        m_environment.insert("HOME", strHome);
        m_environment.remove("XDG_CONFIG_HOME");
        m_environment.remove("XDG_DATA_HOME");
    }

    // From the given folder, or from that of the test.
    QProcess *start(const QStringList &lstArguments, const QString &strFolder = QString())
    {
        m_lstProcesses.push_back(std::make_unique<QProcess>());
        QProcess *pProcess = m_lstProcesses.back().get();
        pProcess->setProcessEnvironment(m_environment);
        pProcess->setProcessChannelMode(QProcess::MergedChannels);
        pProcess->setWorkingDirectory(strFolder);
        pProcess->start(QString::fromLatin1(g_szProgram), lstArguments);
        return pProcess;
    }

    QString path(const QString &strName) const { return m_folder.filePath(strName); }

    QString file(const QString &strName, const QByteArray &data = "text\n") const
    {
        QFile file(m_folder.filePath(strName));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot make %s", qPrintable(file.fileName()));
        return file.fileName();
    }

    // For starts to come: the settings file as it shall lie there.
    void writeSettings(const QByteArray &ini) const
    {
        QDir(m_folder.path()).mkpath("config/Tavrel Software");
        file("config/Tavrel Software/quillan.conf", ini);
    }

    QStringList recentFiles() const
    {
        const QString strConf = m_folder.filePath("config/Tavrel Software/quillan.conf");
        return QSettings(strConf, QSettings::IniFormat).value("m_lstRecentFiles").toStringList();
    }

    QVariant setting(const char *szKey) const
    {
        const QString strConf = m_folder.filePath("config/Tavrel Software/quillan.conf");
        return QSettings(strConf, QSettings::IniFormat).value(QLatin1String(szKey));
    }

private:
    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    std::vector<std::unique_ptr<QProcess>> m_lstProcesses;
};

inline QString run(const QString &strProgram, const QStringList &lstArguments)
{
    QProcess process;
    process.start(strProgram, lstArguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

// The titles of the process's visible windows.
inline QStringList windowTitles(const QProcess *pProcess)
{
    QStringList lstTitles;
    const QString strPid = QString::number(pProcess->processId());
    const QStringList lstIds =
        run("xdotool", {"search", "--onlyvisible", "--all", "--pid", strPid, "--name", "Quillan"})
            .split('\n', Qt::SkipEmptyParts);
    for (const QString &strId : lstIds)
        lstTitles.append(run("xdotool", {"getwindowname", strId}));
    return lstTitles;
}
