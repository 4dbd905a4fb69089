#include "app/platform.h"
#include "editor/chighlightedit.h"
#include "support/boxanswer.h"
#include "tests/editor/withsettings.h"

#include <QFile>
#include <QMessageBox>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

namespace {

void writeFile(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(data), qint64(data.size()));
}

QByteArray numberedLines(int nCount)
{
    QByteArray data;
    for (int n = 1; n <= nCount; ++n)
        data += "line " + QByteArray::number(n) + '\n';
    return data;
}

} // namespace

class tst_reload : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void reload_withoutAPath_doesNothing();
    void reload_readsTheFileAgain();
    void reload_keepsCursorLineAndScrollPosition();
    void reload_ofAFileThatHasBecomeShorter_goesToItsLastLine();
    void reload_takesTheEditorsCodec();
    void reload_startsUndoAgain();
    void reload_ofAMissingFile_showsItsBoxAndKeepsTheText();
    void reload_ofAFolder_showsItsBoxAndKeepsTheText();

    void refresh_withoutAPath_doesNothing();
    void refresh_isUtf8WhateverTheCodec();
    void refresh_leavesLineEndStyleAlone();
    void refresh_endsAtTheFirstZeroByte();
    void refresh_ofAMissingFile_showsItsBoxAndKeepsTheText();

    void keepModified_comesBackBehindTheEventLoop_data();
    void keepModified_comesBackBehindTheEventLoop();
    void withoutKeepModified_theTextIsUnmodified();

private:
    QScopedPointer<WithSettings> m_pSettings;
    QScopedPointer<QTemporaryDir> m_pFolder;
    QScopedPointer<CHighlightEdit> m_pEdit;
    QString m_strPath;
};

void tst_reload::init()
{
    m_pSettings.reset(new WithSettings);
    m_pFolder.reset(new QTemporaryDir);
    // Markup, as far as the system has it in names.
    const QString strTags = QStringLiteral("some <b>file<b>.txt");
    const bool bTags = Platform::isFileName(strTags);
    m_strPath = m_pFolder->filePath(bTags ? strTags : QStringLiteral("some &lt;file.txt"));
    m_pEdit.reset(new CHighlightEdit);
    m_pEdit->resize(400, 200);
    m_pEdit->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_pEdit.data()));
}

void tst_reload::cleanup()
{
    m_pEdit.reset();
    m_pFolder.reset();
    m_pSettings.reset();
}

void tst_reload::reload_withoutAPath_doesNothing()
{
    m_pEdit->setPlainText(QStringLiteral("text"));
    m_pEdit->insertPlainText(QStringLiteral("x"));
    m_pEdit->reload();
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("xtext"));
    QVERIFY(m_pEdit->isModified());
}

void tst_reload::reload_readsTheFileAgain()
{
    writeFile(m_strPath, "new\r\ntext");
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->setPlainText(QStringLiteral("old"));
    m_pEdit->setModified(true);
    m_pEdit->reload();
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("new\ntext"));
    QCOMPARE(m_pEdit->returnFormat(), 0);
    QVERIFY(!m_pEdit->isModified());
}

void tst_reload::reload_keepsCursorLineAndScrollPosition()
{
    writeFile(m_strPath, numberedLines(500));
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->reload();
    QTextCursor cursor = m_pEdit->textCursor();
    cursor.setPosition(m_pEdit->document()->findBlockByNumber(299).position() + 3);
    m_pEdit->setTextCursor(cursor);
    m_pEdit->verticalScrollBar()->setValue(290);

    m_pEdit->reload();
    QCOMPARE(m_pEdit->textCursor().blockNumber(), 299);
    QCOMPARE(m_pEdit->textCursor().positionInBlock(), 0);
    QVERIFY(!m_pEdit->textCursor().hasSelection());
    QCOMPARE(m_pEdit->verticalScrollBar()->value(), 290);
}

void tst_reload::reload_ofAFileThatHasBecomeShorter_goesToItsLastLine()
{
    writeFile(m_strPath, numberedLines(500));
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->reload();
    m_pEdit->moveCursor(QTextCursor::End);
    writeFile(m_strPath, "a\nb");
    m_pEdit->reload();
    QCOMPARE(m_pEdit->textCursor().blockNumber(), 1);
    QCOMPARE(m_pEdit->textCursor().positionInBlock(), 0);
}

void tst_reload::reload_takesTheEditorsCodec()
{
    writeFile(m_strPath, "caf\xE9");
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->setCodecName(QStringLiteral("ISO-8859-1"));
    m_pEdit->reload();
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("caf\u00E9"));
    QCOMPARE(m_pEdit->codecName(), QStringLiteral("ISO-8859-1"));
}

void tst_reload::reload_startsUndoAgain()
{
    writeFile(m_strPath, "text");
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->insertPlainText(QStringLiteral("x"));
    QVERIFY(m_pEdit->document()->isUndoAvailable());
    m_pEdit->reload();
    QVERIFY(!m_pEdit->document()->isUndoAvailable());
}

void tst_reload::reload_ofAMissingFile_showsItsBoxAndKeepsTheText()
{
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->insertPlainText(QStringLiteral("kept"));
    const CBoxAnswer answer;
    m_pEdit->reload();
    QCOMPARE(answer.boxes().size(), 1);
    QCOMPARE(answer.boxes().first().icon, QMessageBox::Critical);
    QCOMPARE(answer.boxes().first().format, Qt::PlainText); // A file's name is no markup.
    QCOMPARE(answer.boxes().first().strTitle, QStringLiteral("Fail to open file"));
    QCOMPARE(answer.boxes().first().strText,
             QStringLiteral("Fail to open file(%1).").arg(m_strPath));
    QCOMPARE(answer.boxes().first().buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("kept"));
    QVERIFY(m_pEdit->isModified());
}

void tst_reload::reload_ofAFolder_showsItsBoxAndKeepsTheText()
{
    m_pEdit->setPathFileName(m_pFolder->path());
    m_pEdit->insertPlainText(QStringLiteral("kept"));
    const CBoxAnswer answer;
    m_pEdit->reload();
    QCOMPARE(answer.boxes().size(), 1);
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("kept"));
}

void tst_reload::refresh_withoutAPath_doesNothing()
{
    m_pEdit->setPlainText(QStringLiteral("text"));
    m_pEdit->insertPlainText(QStringLiteral("x"));
    m_pEdit->onRefresh();
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("xtext"));
}

void tst_reload::refresh_isUtf8WhateverTheCodec()
{
    writeFile(m_strPath, "café\u00A0\u2029x");
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->setCodecName(QStringLiteral("ISO-8859-1"));
    m_pEdit->setReturnFormat(1);
    m_pEdit->onRefresh();
    QCOMPARE(m_pEdit->getText(), QStringLiteral("café\u00A0\u2029x"));
    QCOMPARE(m_pEdit->codecName(), QStringLiteral("ISO-8859-1"));
    QVERIFY(!m_pEdit->isModified());
}

void tst_reload::refresh_leavesLineEndStyleAlone()
{
    writeFile(m_strPath, "a\r\nb\r\n");
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->setReturnFormat(2);
    m_pEdit->onRefresh();
    QCOMPARE(m_pEdit->returnFormat(), 2);
    QCOMPARE(m_pEdit->getText(), QStringLiteral("a\rb\r"));
}

void tst_reload::refresh_endsAtTheFirstZeroByte()
{
    writeFile(m_strPath, QByteArray("ab\0cd", 5));
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->onRefresh();
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("ab"));
}

void tst_reload::refresh_ofAMissingFile_showsItsBoxAndKeepsTheText()
{
    m_pEdit->setPathFileName(m_strPath);
    m_pEdit->insertPlainText(QStringLiteral("kept"));
    const CBoxAnswer answer;
    m_pEdit->onRefresh();
    QCOMPARE(answer.boxes().size(), 1);
    QCOMPARE(answer.boxes().first().icon, QMessageBox::Critical);
    QCOMPARE(answer.boxes().first().format, Qt::PlainText); // A file's name is no markup.
    QCOMPARE(answer.boxes().first().strTitle, QStringLiteral("Fail to open file"));
    QCOMPARE(answer.boxes().first().strText,
             QStringLiteral("Cannot open file(%1).").arg(m_strPath));
    QCOMPARE(m_pEdit->toPlainText(), QStringLiteral("kept"));
}

void tst_reload::keepModified_comesBackBehindTheEventLoop_data()
{
    QTest::addColumn<bool>("bModified");
    QTest::newRow("modified") << true;
    QTest::newRow("unmodified") << false;
}

void tst_reload::keepModified_comesBackBehindTheEventLoop()
{
    QFETCH(bool, bModified);
    m_pEdit->setPlainText(QStringLiteral("text"));
    m_pEdit->setModified(bModified);
    m_pEdit->setTextData("other", true);
    QVERIFY(!m_pEdit->isModified());
    m_pEdit->setModified(!bModified); // Whatever it is meanwhile.
    QTRY_COMPARE(m_pEdit->isModified(), bModified);
}

void tst_reload::withoutKeepModified_theTextIsUnmodified()
{
    m_pEdit->setPlainText(QStringLiteral("text"));
    m_pEdit->setModified(true);
    m_pEdit->setTextData("other", false);
    QVERIFY(!m_pEdit->isModified());
    // Longer than the flag would take to come back.
    QTimer timer;
    timer.setSingleShot(true);
    QSignalSpy spyTimer(&timer, &QTimer::timeout);
    timer.start(30);
    QVERIFY(spyTimer.wait());
    QVERIFY(!m_pEdit->isModified());
}

QTEST_MAIN(tst_reload)
#include "tst_reload.moc"
