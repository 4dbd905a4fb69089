#include "app/arguments.h"
#include "app/cfilenamecodec.h"
#include "app/mailbox.h"

#include <QRandomGenerator>
#include <QtTest>

class tst_mailbox : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_memory.fill('\0', Mailbox::g_nSize); }
    void size_isSixtyFourKilobytes() { QCOMPARE(Mailbox::g_nSize, 65536); }
    void oneMessage_liesAtTheStart();
    void messages_queueBehindEachOther();
    void emptyMessage_isSentAsABlank();
    void emptyMailbox_holdsNoMessages();
    void noEnd_overwritesFromTheStart();
    void endInTheLastTwoBytes_isFound();
    void messageThatDoesNotFit_isDropped();
    void messageThatJustFits_isTaken();
    void nameThatIsNoUtf8_arrivesAsItsBytes();
    void manyPaths_becomeSeveralMessagesThatFit_data();
    void manyPaths_becomeSeveralMessagesThatFit();
    void noPaths_areOneMessage();
    void pathThatFitsNoMailbox_isLeftOut();
    void arbitraryBytes_areRead();
    void arbitraryBytes_areWrittenWithinTheMemory();

private:
    bool append(const QString &strMessage)
    {
        return Mailbox::append(m_memory.data(), m_memory.size(), strMessage);
    }

    QByteArray m_memory;
};

void tst_mailbox::oneMessage_liesAtTheStart()
{
    QVERIFY(append(QStringLiteral("\"/tmp/ä\"")));
    const QByteArray expected = "\"/tmp/\xc3\xa4\"";
    QCOMPARE(m_memory.left(expected.size()), expected);
    QCOMPARE(m_memory.mid(expected.size()), QByteArray(65536 - expected.size(), '\0'));
    QCOMPARE(Mailbox::messages(m_memory), QStringList(QStringLiteral("\"/tmp/ä\"")));
}

void tst_mailbox::messages_queueBehindEachOther()
{
    for (const char *szText : {"one", "two", "three"})
        QVERIFY(append(QLatin1String(szText)));
    const QByteArray expected("one\0two\0three", 13);
    QCOMPARE(m_memory.left(13), expected);
    QCOMPARE(m_memory.mid(13), QByteArray(65536 - 13, '\0'));
    QCOMPARE(Mailbox::messages(m_memory),
             QStringList({QStringLiteral("one"), QStringLiteral("two"), QStringLiteral("three")}));
}

void tst_mailbox::emptyMessage_isSentAsABlank()
{
    QVERIFY(append(QString()));
    QCOMPARE(m_memory.left(2), QByteArray(" \0", 2));
    QCOMPARE(Mailbox::messages(m_memory), QStringList(QStringLiteral(" ")));
}

void tst_mailbox::emptyMailbox_holdsNoMessages()
{
    QVERIFY(Mailbox::messages(m_memory).isEmpty());
    QVERIFY(Mailbox::messages(QByteArray()).isEmpty());
}

void tst_mailbox::noEnd_overwritesFromTheStart()
{
    m_memory.fill('x');
    QVERIFY(append(QStringLiteral("new")));
    QCOMPARE(m_memory.left(5), QByteArray("newxx"));
    QCOMPARE(Mailbox::messages(m_memory).size(), 1);
}

void tst_mailbox::endInTheLastTwoBytes_isFound()
{
    m_memory.fill('x');
    m_memory[65534] = m_memory[65535] = '\0';
    QVERIFY(append(QStringLiteral("y"))); // One byte is left.
    QCOMPARE(m_memory.right(3), QByteArray("x\0y", 3));
    // The end of the queue is gone.
    QVERIFY(append(QStringLiteral("z")));
    QCOMPARE(m_memory.left(2), QByteArray("zx"));
}

void tst_mailbox::messageThatDoesNotFit_isDropped()
{
    QVERIFY(append(QStringLiteral("first")));
    const QByteArray before = m_memory;
    QVERIFY(!append(QString(65536 - 6 + 1, QLatin1Char('a'))));
    QCOMPARE(m_memory, before);
    QVERIFY(!append(QString(40000, QChar(0xe4)))); // Two bytes each.
    QCOMPARE(m_memory, before);
}

void tst_mailbox::messageThatJustFits_isTaken()
{
    QVERIFY(append(QStringLiteral("first")));
    const QString strLong(65536 - 6, QLatin1Char('a'));
    QVERIFY(append(strLong));
    QCOMPARE(Mailbox::messages(m_memory), QStringList({QStringLiteral("first"), strLong}));
}

void tst_mailbox::nameThatIsNoUtf8_arrivesAsItsBytes()
{
    const QByteArray name = "/tmp/caf\xE9";
    QVERIFY(append(CFileNameCodec::textOf(name)));
    QCOMPARE(m_memory.left(name.size() + 1), name + '\0');
    QCOMPARE(CFileNameCodec::bytesOf(Mailbox::messages(m_memory).value(0)), name);
}

void tst_mailbox::manyPaths_becomeSeveralMessagesThatFit_data()
{
    QTest::addColumn<int>("nCount");
    QTest::addColumn<int>("nLength");
    QTest::addColumn<int>("nMessages");
    QTest::newRow("one") << 1 << 100 << 1;
    QTest::newRow("seven hundred") << 700 << 100 << 2;
    QTest::newRow("as many as fit") << 636 << 100 << 1;
    QTest::newRow("one more") << 637 << 100 << 2;
    QTest::newRow("longest paths") << 100 << 4095 << 7;
}

void tst_mailbox::manyPaths_becomeSeveralMessagesThatFit()
{
    QFETCH(int, nCount);
    QFETCH(int, nLength);
    QStringList lstPaths;
    for (int n = 0; n < nCount; ++n)
        lstPaths.append(QStringLiteral("/%1").arg(n, 1 - nLength, 10, QLatin1Char('x')));
    const QStringList lstMessages = Mailbox::messagesFromPaths(lstPaths, Mailbox::g_nSize);
    QTEST(lstMessages.size(), "nMessages");
    QStringList lstGot;
    for (const QString &strMessage : lstMessages) {
        m_memory.fill('\0');
        QVERIFY(append(strMessage));
        QCOMPARE(Mailbox::messages(m_memory), QStringList(strMessage));
        QVERIFY(m_memory.endsWith(QByteArray("\0\0", 2)));
        lstGot += pathsFromMessage(strMessage);
    }
    lstGot.removeAll(QString());
    QCOMPARE(lstGot, lstPaths);
}

void tst_mailbox::noPaths_areOneMessage()
{
    QCOMPARE(Mailbox::messagesFromPaths({}, Mailbox::g_nSize), QStringList(QString()));
}

void tst_mailbox::pathThatFitsNoMailbox_isLeftOut()
{
    QCOMPARE(Mailbox::messagesFromPaths({QString(70000, 'x'), "/a"}, Mailbox::g_nSize),
             QStringList("\"/a\""));
}

// The segment may hold anything, whoever made it.
void tst_mailbox::arbitraryBytes_areRead()
{
    QRandomGenerator random(11);
    for (int nRound = 0; nRound < 200; ++nRound) {
        QByteArray bytes(random.bounded(300), '\0');
        for (char &c : bytes)
            c = char(random.bounded(4) == 0 ? 0 : random.bounded(256));
        QStringList lstExpected;
        const QByteArray queue = bytes.indexOf(QByteArray("\0\0", 2)) < 0
            ? bytes
            : bytes.left(bytes.indexOf(QByteArray("\0\0", 2)));
        if (!bytes.isEmpty() && bytes.at(0) != 0) {
            QList<QByteArray> lstParts = queue.split('\0');
            if (lstParts.last().isEmpty())
                lstParts.removeLast();
            for (const QByteArray &part : qAsConst(lstParts))
                lstExpected.append(CFileNameCodec::textOf(part));
        }
        QCOMPARE(Mailbox::messages(bytes), lstExpected);
    }
}

void tst_mailbox::arbitraryBytes_areWrittenWithinTheMemory()
{
    QRandomGenerator random(12);
    for (int nSize = 0; nSize < 40; ++nSize) {
        for (int nRound = 0; nRound < 20; ++nRound) {
            QByteArray bytes(nSize + 8, '\x55');
            for (int n = 0; n < nSize; ++n)
                bytes[n] = char(random.bounded(2));
            Mailbox::append(bytes.data(), nSize, QStringLiteral("a message"));
            QCOMPARE(bytes.mid(nSize), QByteArray(8, '\x55'));
        }
    }
}

QTEST_GUILESS_MAIN(tst_mailbox)
#include "tst_mailbox.moc"
