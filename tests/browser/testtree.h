#pragma once

#include "app/platform.h"
#include "support/manyfiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// A path in the form of this system, which the panels show and store.
inline QString native(const QString &strPath)
{
    return QDir::toNativeSeparators(strPath);
}

// A path from the root, whole: Windows puts the current drive before it.
inline QString fromRoot(const char *szPath)
{
    return native(QFileInfo(QLatin1String(szPath)).absoluteFilePath());
}

// A name with a sign that cannot be seen: a new line, where the system takes it in a name.
inline QString nameWithSign()
{
    const QString strName = QStringLiteral("new\nline");
    return Platform::isFileName(strName) ? strName : QStringLiteral("new\u202eline");
}

// The same name as the panels show it.
inline QString shownNameWithSign()
{
    const bool bNewLine = nameWithSign().contains(QLatin1Char('\n'));
    return bNewLine ? QStringLiteral("new<U+000A>line") : QStringLiteral("new<U+202E>line");
}

// A name that HTML would read as something else: tags, where the system takes them in a name.
inline QString nameWithMarkup()
{
    const QString strName = QStringLiteral("<img src='x'><b>bold");
    return Platform::isFileName(strName) ? strName : QStringLiteral("&lt;b&gt;bold &amp;");
}

// A link's name: links that anybody may make are shortcuts on Windows, known by their suffix.
inline QString linkName(const char *szName)
{
#ifdef Q_OS_WIN
    return QLatin1String(szName) + QLatin1String(".lnk");
#else
    return QLatin1String(szName);
#endif
}

// A temporary folder with what a test puts into it, removed with it. Its paths are native.
class CTestTree
{
public:
    QString path(const QString &strName = QString()) const
    {
        return native(strName.isEmpty() ? m_dir.path() : m_dir.filePath(strName));
    }

    QString addFile(const QString &strName, const QByteArray &data = QByteArray()) const
    {
        QFile file(path(strName));
        if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
            qFatal("cannot write %s", qPrintable(file.fileName()));
        return path(strName);
    }

    QString addFolder(const QString &strName) const
    {
        if (!QDir(m_dir.path()).mkpath(strName))
            qFatal("cannot make %s", qPrintable(strName));
        return path(strName);
    }

    void addFiles(int nCount) const { makeFiles(path(), nCount); }

    // The name is one of linkName().
    QString addLink(const QString &strName, const QString &strTarget) const
    {
        if (!QFile::link(strTarget, path(strName)))
            qFatal("cannot link %s", qPrintable(strName));
        return path(strName);
    }

private:
    QTemporaryDir m_dir;
};
