#include "support/gzipped.h"
#include "web/gunzip.h"

#include <QtTest>

namespace {

QByteArray noise(int nBytes)
{
    QRandomGenerator random {7};
    QByteArray data(nBytes, '\0');
    for (char &c : data)
        c = char(random.generate());
    return data;
}

constexpr int g_nMegabyte = 1024 * 1024;

} // namespace

class tst_gunzip : public QObject
{
    Q_OBJECT

private slots:
    void content_comesBack_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::newRow("a line") << QByteArray("text\n");
        QTest::newRow("zero bytes") << QByteArray(1000, '\0');
        QTest::newRow("noise") << noise(200000);
        QTest::newRow("as much as is allowed") << QByteArray(g_nMegabyte, 'x');
        QTest::newRow("one chunk") << noise(64 * 1024);
    }
    void content_comesBack()
    {
        QFETCH(QByteArray, data);
        const QByteArray file = gzipped(data);
        QVERIFY(isGzip(file));
        QCOMPARE(gunzip(file, g_nMegabyte), data);
    }

    void tooMuch_isRefused()
    {
        QCOMPARE(gunzip(gzipped(QByteArray(g_nMegabyte + 1, 'x')), g_nMegabyte), QByteArray());
        QCOMPARE(gunzip(gzipped(QByteArray(20 * g_nMegabyte, 'x')), g_nMegabyte), QByteArray());
    }

    void whatIsNoGzip_isRefused()
    {
        QVERIFY(!isGzip("<svg/>"));
        QVERIFY(!isGzip(QByteArray()));
        QVERIFY(!isGzip("\x1f"));
        QCOMPARE(gunzip("<svg/>", g_nMegabyte), QByteArray());
        QCOMPARE(gunzip(QByteArray(), g_nMegabyte), QByteArray());
        QCOMPARE(gunzip(qCompress("text").mid(4), g_nMegabyte), QByteArray()); // zlib's own format.
    }

    void cutFile_isRefused()
    {
        const QByteArray file = gzipped(noise(300));
        for (int nLength = 0; nLength < file.size(); ++nLength)
            QCOMPARE(gunzip(file.left(nLength), g_nMegabyte), QByteArray());
    }

    void damagedFile_isRefused()
    {
        const QByteArray file = gzipped(noise(300));
        const int nHeader = 10; // Most of its bytes change nothing.
        for (int nAt = nHeader; nAt < file.size(); ++nAt) {
            QByteArray damaged = file;
            damaged[nAt] = char(damaged.at(nAt) ^ 0x55);
            QCOMPARE(gunzip(damaged, g_nMegabyte), QByteArray());
        }
    }
};

QTEST_GUILESS_MAIN(tst_gunzip)
#include "tst_gunzip.moc"
