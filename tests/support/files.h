#pragma once

#include <QFile>
#include <QTest>

inline QByteArray contents(const QString &strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(unreadable)");
}

inline void put(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(data), qint64(data.size()));
}
