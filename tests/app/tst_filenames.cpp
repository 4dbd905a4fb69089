// Names of files that are not UTF-8: each opens as itself and saves to itself.

#include "app/cdraftstore.h"
#include "app/cfilenamecodec.h"
#include "app/filereader.h"
#include "app/filewriter.h"
#include "app/textcodecs.h"

#include <QDir>
#include <QDirIterator>
#include <QProcess>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Asks the system without Qt.
bool putBytes(const QByteArray &path, const QByteArray &data)
{
    const int nHandle = open(path.constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const bool bDone = nHandle >= 0 && write(nHandle, data.constData(), size_t(data.size())) > 0;
    close(nHandle);
    return bDone;
}

QByteArray bytesAt(const QByteArray &path)
{
    char arrBytes[100];
    const int nHandle = open(path.constData(), O_RDONLY);
    const ssize_t nRead = nHandle < 0 ? -1 : read(nHandle, arrBytes, sizeof arrBytes);
    close(nHandle);
    return nRead < 0 ? QByteArray("(unreadable)") : QByteArray(arrBytes, int(nRead));
}

} // namespace

class tst_filenames : public QObject
{
    Q_OBJECT

    static void names()
    {
        QTest::addColumn<QByteArray>("name");
        QTest::newRow("Latin-1") << QByteArray("caf\xE9.txt");
        QTest::newRow("GBK") << QByteArray("\xD6\xD0\xCE\xC4.txt");
        QTest::newRow("Shift-JIS") << QByteArray("\x93\xFA\x96\x7B");
        QTest::newRow("cut off") << QByteArray("a\xE6\x97");
        QTest::newRow("too long a form") << QByteArray("\xC0\xAE\xC0\xAE");
        QTest::newRow("surrogate in UTF-8") << QByteArray("\xED\xB2\x80");
        QTest::newRow("beyond Unicode") << QByteArray("\xF4\x90\x80\x80");
        QTest::newRow("mixed") << QByteArray("\xE6\x97\xA5\xFF\xE6\x9C\xAC\x80");
        QTest::newRow("UTF-8") << QByteArray("\xE6\x97\xA5\xF0\x9F\x98\x80");
        QTest::newRow("mark in front") << QByteArray("\xEF\xBB\xBFname");
        QTest::newRow("ASCII") << QByteArray("name");
    }

private slots:
    void name_comesBackAsItsBytes_data() { names(); }
    void name_comesBackAsItsBytes()
    {
        QFETCH(QByteArray, name);
        QCOMPARE(QFile::encodeName(QFile::decodeName(name)), name);
        QCOMPARE(QString::fromLocal8Bit(name).toLocal8Bit(), name);
    }

    void anyBytes_comeBack()
    {
        QRandomGenerator random(5);
        for (int n = 0; n < 20000; ++n) {
            QByteArray bytes(random.bounded(12), '\0');
            for (char &c : bytes)
                c = char(random.bounded(2) ? 0x80 + random.bounded(128) : 1 + random.bounded(255));
            const QString strName = QFile::decodeName(bytes);
            QCOMPARE(QFile::encodeName(strName), bytes);
            // Names in UTF-8 read as usual.
            if (QString::fromUtf8(bytes).toUtf8() == bytes
                && !QString::fromUtf8(bytes).contains(QChar(QChar::ReplacementCharacter))
                && !bytes.startsWith("\xEF\xBB\xBF"))
                QCOMPARE(strName, QString::fromUtf8(bytes));
        }
    }

    void differentNames_stayDifferent()
    {
        QVERIFY(QFile::decodeName("a\xE9") != QFile::decodeName("a\xE8"));
        QVERIFY(QFile::decodeName("a\xE9") != QFile::decodeName("a\xEF\xBF\xBD"));
    }

    void file_isReadAndWrittenUnderItsName_data() { names(); }
    void file_isReadAndWrittenUnderItsName()
    {
        QFETCH(QByteArray, name);
        QTemporaryDir folder;
        const QByteArray path = QFile::encodeName(folder.path()) + '/' + name;
        // The neighbour has the name that remains when bytes are lost.
        const QByteArray neighbour = QFile::encodeName(folder.path()) + '/'
            + QString::fromUtf8(name).toUtf8()
            + (QString::fromUtf8(name).toUtf8() == name ? "x" : "");
        QVERIFY(putBytes(neighbour, "neighbour"));
        QVERIFY(putBytes(path, "old"));
        const QString strPath = QFile::decodeName(path);
        QCOMPARE(readFile(strPath).bytes, QByteArray("old"));
        QVERIFY(writeFile(strPath, "new"));
        QCOMPARE(bytesAt(path), QByteArray("new"));
        QCOMPARE(bytesAt(neighbour), QByteArray("neighbour"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    }

    void listing_givesTheName_data() { names(); }
    void listing_givesTheName()
    {
        QFETCH(QByteArray, name);
        QTemporaryDir folder;
        QVERIFY(putBytes(QFile::encodeName(folder.path()) + '/' + name, "x"));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList(QFile::decodeName(name)));
        QDirIterator it(folder.path(), QDir::Files);
        QVERIFY(it.hasNext());
        QVERIFY(QFileInfo::exists(it.next()));
    }

    void draft_keepsTheName_data() { names(); }
    void draft_keepsTheName()
    {
        QFETCH(QByteArray, name);
        SDraft before;
        before.strPath = "/folder/" + QFile::decodeName(name);
        SDraft after;
        QVERIFY(draftFromBytes(draftToBytes(before), &after));
        QCOMPARE(after.strPath, before.strPath);
    }

    void settings_keepTheName_data() { names(); }
    void settings_keepTheName()
    {
        QFETCH(QByteArray, name);
        QTemporaryDir folder;
        const QString strFile = folder.filePath("settings.ini");
        const QString strName = QFile::decodeName(name);
        QSettings(strFile, QSettings::IniFormat).setValue("files", QStringList {strName, "b"});
        QCOMPARE(QSettings(strFile, QSettings::IniFormat).value("files").toStringList(),
                 QStringList({strName, "b"}));
    }

    void anotherProgram_getsTheBytes()
    {
        QProcess process;
        process.start("printf", {"%s", QFile::decodeName("caf\xE9")});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardOutput(), QByteArray("caf\xE9"));
    }

    void codec_isNoneToChoose()
    {
        QVERIFY(
            !getCodecList().contains(QString::fromLatin1(QTextCodec::codecForLocale()->name())));
        QCOMPARE(QTextCodec::codecForName("UTF-8")->toUnicode("\xE9"), QString(QChar(0xFFFD)));
    }

    // Its codec is that of the locale, and it reads in pieces.
    void textStream_readsUtf8()
    {
        const QString strText = QString(20000, QChar(0x65E5)) + "\n";
        QByteArray bytes = strText.toUtf8();
        QTextStream stream(&bytes);
        QCOMPARE(stream.readAll(), strText);
    }
};

int main(int nArgc, char **ppArgv)
{
    CFileNameCodec::install();
    QCoreApplication app(nArgc, ppArgv);
    tst_filenames test;
    return QTest::qExec(&test, nArgc, ppArgv);
}

#include "tst_filenames.moc"
