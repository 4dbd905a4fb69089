#pragma once

#include <QByteArray>
#include <QProcess>

// The bytes as the program gzip packs them.
inline QByteArray gzipped(const QByteArray &data)
{
    QProcess gzip;
    gzip.start(QStringLiteral("gzip"), {QStringLiteral("-c")});
    gzip.write(data);
    gzip.closeWriteChannel();
    if (!gzip.waitForFinished() || gzip.exitCode() != 0)
        qFatal("cannot compress");
    return gzip.readAllStandardOutput();
}
