#pragma once

#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "mainwindow/ctabwidget.h"
#include "mainwindow/mainwindow.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

// A main window with settings and a folder of its own, as one test case needs it.
class CWindowFixture
{
public:
    CWindowFixture()
    {
        // What an earlier case stored must not reach this one.
        QSettings(QStringLiteral("Tavrel Software"), QStringLiteral("quillan-test")).clear();
        m_pSettings = std::make_unique<CSettings>(QStringLiteral("Tavrel Software"),
                                                  QStringLiteral("quillan-test"));
        g_pSettings = m_pSettings.get();
        m_pSettings->setLastPathFileName(m_folder.path());
        m_pWindow = std::make_unique<MainWindow>();
        m_pWindow->show();
    }

    ~CWindowFixture()
    {
        m_pWindow.reset();
        m_pSettings.reset();
        g_pSettings = nullptr;
    }

    MainWindow &window() { return *m_pWindow; }
    CSettings &settings() { return *m_pSettings; }
    CTabWidget &tabs() { return *m_pWindow->findChild<CTabWidget *>(); }
    CHighlightEdit *editor() { return m_pWindow->currentDocument().editor(); }

    QAction *action(const char *szName)
    {
        return m_pWindow->findChild<QAction *>(QLatin1String(szName));
    }

    QString label(const char *szName)
    {
        return m_pWindow->findChild<QLabel *>(QLatin1String(szName))->text();
    }

    QString path(const QString &strName) const
    {
        // The message that the window shows.
        return QDir::toNativeSeparators(m_folder.filePath(strName));
    }

    // Makes a file in the case's folder and gives its path.
    QString file(const QString &strName, const QByteArray &data = "text\n") const
    {
        QFile file(path(strName));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot make %s", qPrintable(file.fileName()));
        return path(strName);
    }

    // The same with a picture.
    QString image(const QString &strName) const
    {
        QImage image(3, 3, QImage::Format_RGB32);
        image.fill(Qt::red);
        if (!image.save(path(strName)))
            qFatal("cannot make %s", qPrintable(strName));
        return path(strName);
    }

    static QByteArray content(const QString &strPath)
    {
        QFile file(strPath);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<unreadable>");
    }

    // Where drafts of unsaved documents lie.
    static QString draftFolder()
    {
        return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation)
            + QStringLiteral("/recovery");
    }

private:
    QTemporaryDir m_folder;
    std::unique_ptr<CSettings> m_pSettings;
    std::unique_ptr<MainWindow> m_pWindow;
};
