#pragma once

#include "support/manyfiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// A path in the form of this system, which the panels show and store.
inline QString native(const QString &strPath)
{
    return QDir::toNativeSeparators(strPath);
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

    QString addLink(const QString &strName, const QString &strTarget) const
    {
        if (!QFile::link(strTarget, path(strName)))
            qFatal("cannot link %s", qPrintable(strName));
        return path(strName);
    }

private:
    QTemporaryDir m_dir;
};
