// The helper program, and what the preview does with its answers.
#include "webtest.h"

#include "editor/chighlightedit.h"
#include "support/madepictures.h"
#include "web/cimagewidget.h"
#include "web/cpreviewnotice.h"
#include "web/cpreviewwidget.h"
#include "web/ctaster.h"
#include "web/filekey.h"

#include <QProcess>
#include <QPushButton>
#include <QWebView>

#include <csignal>

Q_DECLARE_METATYPE(CTaster::Result)

using Result = CTaster::Result;

class tst_taster : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<CTaster::Result>(); }
    void init() { m_pCase = new CWebCase; }
    void cleanup() { delete m_pCase; }

    void file_isTasted_data();
    void file_isTasted();
    void result_isKeptForTheFileAsItIs();
    void missingHelper_answersNothing_data();
    void missingHelper_answersNothing();
    void helperThatSaysNothing_isNotWaitedForLong();
    void helper_isReadyForTheNextFile();
    void anotherFile_cancelsTheFirst();
    void helper_goesWithItsOwner();
    void helper_goesWithTheProgram();
    void helper_mayNotTakeMuch();
    void preview_showsWhatPasses();
    void preview_saysThatItTries();
    void preview_showsTheSourceOfWhatFails_data();
    void preview_showsTheSourceOfWhatFails();
    void preview_showsItAnyway();
    void preview_showsNoTextOfARefusedFile();
    void preview_withoutHelper_refusesWhatIsKnown();
    void preview_ofAnotherFile_dropsTheNotice();

private:
    Result taste(CTaster *pTaster, const QString &strPath)
    {
        QSignalSpy spy(pTaster, &CTaster::tasted);
        pTaster->taste(strPath, QSize(320, 600));
        if (spy.isEmpty() && !spy.wait(60000))
            return Result::Unknown;
        return spy.first().at(0).toString() == strPath ? spy.first().at(1).value<Result>()
                                                       : Result::Unknown;
    }
    // A helper of our own that reads a line and then does as it is told.
    QString helper(const QByteArray &script) const
    {
        const QString strPath = m_pCase->write(QStringLiteral("helper.sh"), "#!/bin/sh\n" + script);
        QFile::setPermissions(strPath, QFile::ReadOwner | QFile::ExeOwner);
        return strPath;
    }

    CWebCase *m_pCase = nullptr;
};

namespace {

QString program()
{
    return QStringLiteral(QUILLAN_BINARY_DIR "/quillan-taste");
}

// Takes the page engine minutes.
QByteArray slowPage()
{
    return "<!DOCTYPE html>"
        + QByteArray("<div style='display:flex;flex-direction:column'>").repeated(40) + "x";
}

QString visibleNotice(const CPreviewWidget &preview)
{
    return preview.notice();
}

// The running helpers that this process started.
QStringList helpers()
{
    QFile file(QStringLiteral("/proc/self/task/%1/children").arg(getpid()));
    if (!file.open(QIODevice::ReadOnly))
        return QStringList();
    return QString::fromLatin1(file.readAll()).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

void tst_taster::file_isTasted_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<Result>("result");
    QTest::newRow("page") << "a.html" << QByteArray("<p>text") << Result::Good;
    QTest::newRow("odd name") << QString::fromUtf8("a \n'%41 \u65e5.html") << QByteArray("x")
                              << Result::Good;
    QTest::newRow("drawing") << "a.svg" << QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>")
                             << Result::Good;
    QTest::newRow("no drawing") << "a.svg" << QByteArray("text") << Result::Good;
    QTest::newRow("nothing") << "a.html" << QByteArray() << Result::Good;
    QTest::newRow("slow page") << "a.html" << slowPage() << Result::TooSlow;
}

void tst_taster::file_isTasted()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(Result, result);
    CTaster taster;
    taster.setProgram(program());
    taster.setPatience(60000);
    QCOMPARE(taste(&taster, m_pCase->write(name, content)), result);
    QCOMPARE(taste(&taster, m_pCase->path(name)), result);
}

void tst_taster::result_isKeptForTheFileAsItIs()
{
    CTaster taster;
    taster.setProgram(helper("read w h p; echo shown; read w h p; exit 1"));
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "one");
    QCOMPARE(taster.known(strPath), Result::Unknown);
    QCOMPARE(taste(&taster, strPath), Result::Good);
    QCOMPARE(taster.known(strPath), Result::Good);
    QCOMPARE(taste(&taster, strPath), Result::Good); // The helper is not asked.
    m_pCase->write(QStringLiteral("a.html"), "another");
    QCOMPARE(taster.known(strPath), Result::Unknown);
    QCOMPARE(taste(&taster, strPath), Result::Fails);
    taster.setKnown(strPath, Result::Good);
    QCOMPARE(taste(&taster, strPath), Result::Good);
    QVERIFY(fileKey(m_pCase->path(QStringLiteral("none"))).isEmpty());
}

void tst_taster::missingHelper_answersNothing_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("none") << QByteArray();
    QTest::newRow("no program") << QByteArray("\x7f ELF, but no program");
}

void tst_taster::missingHelper_answersNothing()
{
    QFETCH(QByteArray, script);
    CTaster taster;
    taster.setProgram(script.isEmpty() ? m_pCase->path(QStringLiteral("none"))
                                       : m_pCase->write(QStringLiteral("bad"), script));
    QFile::setPermissions(m_pCase->path(QStringLiteral("bad")), QFile::ReadOwner | QFile::ExeOwner);
    QCOMPARE(taster.isAvailable(), !script.isEmpty());
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "x");
    QSignalSpy spy(&taster, &CTaster::tasted);
    taster.taste(strPath, QSize(9, 9));
    QTRY_COMPARE(spy.size(), 1);
    QCOMPARE(spy.first().at(1).value<Result>(), Result::Unknown);
}

void tst_taster::helperThatSaysNothing_isNotWaitedForLong()
{
    CTaster taster;
    taster.setProgram(helper("exec sleep 1000"));
    taster.setPatience(50);
    QCOMPARE(taste(&taster, m_pCase->write(QStringLiteral("a.html"), "x")), Result::TooSlow);
}

void tst_taster::helper_isReadyForTheNextFile()
{
    CTaster taster;
    taster.setProgram(program());
    for (int n = 0; n < 5; ++n) {
        const QString strPath = m_pCase->write(QStringLiteral("%1.html").arg(n), "<p>x");
        QCOMPARE(taste(&taster, strPath), Result::Good);
        QCOMPARE(helpers().size(), 1);
    }
    const QStringList lstBefore = helpers();
    QCOMPARE(taste(&taster, m_pCase->write(QStringLiteral("slow.html"), slowPage())),
             Result::TooSlow);
    QCOMPARE(taste(&taster, m_pCase->write(QStringLiteral("b.html"), "<p>x")), Result::Good);
    QVERIFY(helpers() != lstBefore);
}

void tst_taster::anotherFile_cancelsTheFirst()
{
    CTaster taster;
    taster.setProgram(program());
    QSignalSpy spy(&taster, &CTaster::tasted);
    const QString strGood = m_pCase->write(QStringLiteral("a.html"), "x");
    taster.taste(m_pCase->write(QStringLiteral("slow.html"), slowPage()), QSize(320, 600));
    taster.taste(strGood, QSize(320, 600));
    QVERIFY(spy.wait(60000));
    QCOMPARE(spy.first().at(0).toString(), strGood);
    QTRY_COMPARE(helpers().size(), 1);
    QCOMPARE(spy.size(), 1);
    taster.taste(m_pCase->path(QStringLiteral("slow.html")), QSize(320, 600));
    taster.cancel();
    QTRY_COMPARE(helpers().size(), 0);
    QCOMPARE(spy.size(), 1);
}

void tst_taster::helper_goesWithItsOwner()
{
    {
        CTaster taster;
        taster.setProgram(program());
        taster.warmUp();
        QTRY_COMPARE(helpers().size(), 1);
    }
    QTRY_COMPARE(helpers().size(), 0);
}

void tst_taster::helper_goesWithTheProgram()
{
    // The program between is killed and can clear nothing away.
    const QByteArray path = m_pCase->write(QStringLiteral("a.html"), "x").toUtf8().toHex();
    QProcess owner;
    owner.start(
        QStringLiteral("sh"),
        {QStringLiteral("-c"),
         QStringLiteral("(echo 320 600 %1; exec sleep 1000) | %2 & echo $!; exec sleep 1000")
             .arg(QString::fromLatin1(path), program())});
    QVERIFY(owner.waitForReadyRead());
    const int nHelper = owner.readLine().trimmed().toInt();
    QVERIFY(nHelper > 0);
    const auto command = [nHelper] {
        return contentOf(QStringLiteral("/proc/%1/cmdline").arg(nHelper));
    };
    QTRY_VERIFY(command().contains("quillan-taste"));
    // Past its start, in which it asks the system for this.
    QTRY_VERIFY_WITH_TIMEOUT(owner.canReadLine(), 60000);
    QCOMPARE(owner.readLine().trimmed(), QByteArray("shown"));
    owner.kill();
    owner.waitForFinished();
    QTRY_VERIFY(!command().contains("quillan-taste"));
}

void tst_taster::helper_mayNotTakeMuch()
{
    CTaster taster;
    taster.setProgram(program());
    QCOMPARE(taste(&taster, m_pCase->write(QStringLiteral("a.html"), "x")), Result::Good);
    const QByteArray limits = contentOf(QStringLiteral("/proc/%1/limits").arg(helpers().value(0)));
    if (!limits.isEmpty()) { // Readable for root alone, since it leaves no memory behind.
        QVERIFY(limits.contains("Max core file size        0 "));
        QVERIFY(limits.contains("Max stack size            4194304 "));
#ifndef QUILLAN_ADDRESS_SANITIZER // Which reserves more than any limit.
        QVERIFY(!limits.contains("Max address space         unlimited "));
#endif
    }
}

void tst_taster::preview_showsWhatPasses()
{
    CPreviewWidget preview;
    preview.taster()->setProgram(program());
    preview.resize(320, 400);
    preview.show();
    preview.previewFile(m_pCase->write(QStringLiteral("a.html"), "<p>shown"));
    QTRY_VERIFY(preview.findChild<QWebView *>());
    auto *pWeb = preview.findChild<QWebView *>();
    QTRY_COMPARE(pWeb->page()->mainFrame()->toPlainText(), QStringLiteral("shown"));
    QVERIFY(pWeb->isVisible() && visibleNotice(preview).isEmpty());
    preview.previewFile(m_pCase->write(
        QStringLiteral("a.svg"), "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='8'/>"));
    QTRY_VERIFY(preview.findChild<CImageWidget *>());
    QTRY_COMPARE(preview.findChild<CImageWidget *>()->imageSize(), QSize(9, 8));
    QVERIFY(!pWeb->isVisible());
    // A picture is shown at once.
    preview.previewFile(m_pCase->write(QStringLiteral("a.png"), savedPicture("PNG")));
    QCOMPARE(preview.findChild<CImageWidget *>()->imageSize(), QSize(5, 4));
}

void tst_taster::preview_saysThatItTries()
{
    CPreviewWidget preview;
    preview.taster()->setProgram(helper("exec sleep 1000"));
    preview.show();
    preview.previewFile(m_pCase->write(QStringLiteral("a.html"), "<p>x"));
    QCOMPARE(visibleNotice(preview), QString());
    QTRY_COMPARE(visibleNotice(preview),
                 QStringLiteral("Trying out whether this file can be shown..."));
    QVERIFY(!preview.findChild<QPushButton *>()->isVisible());
    preview.clearPreview();
    QCOMPARE(visibleNotice(preview), QString());
    QTRY_COMPARE(helpers().size(), 0);
}

void tst_taster::preview_showsTheSourceOfWhatFails_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("reason");
    QTest::newRow("crash") << QByteArray("kill -SEGV $$")
                           << "This file is not drawn here: it would crash the program.";
    QTest::newRow("end") << QByteArray("exit 0")
                         << "This file is not drawn here: it would crash the program.";
    QTest::newRow("time") << QByteArray("kill -PROF $$")
                          << "This file is not drawn here: that takes too long.";
    QTest::newRow("memory") << QByteArray("exit 77")
                            << "This file is not drawn here: that takes too much memory.";
}

void tst_taster::preview_showsTheSourceOfWhatFails()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, reason);
    CPreviewWidget preview;
    preview.taster()->setProgram(helper("read w h p; " + script));
    preview.resize(320, 400);
    preview.show();
    preview.previewFile(m_pCase->write(QStringLiteral("a.html"), "<p>the source"));
    QTRY_COMPARE(visibleNotice(preview), reason);
    QCOMPARE(preview.findChild<CHighlightEdit *>()->toPlainText(), QStringLiteral("<p>the source"));
    QVERIFY(!preview.findChild<QWebView *>());
    QVERIFY(preview.findChild<QPushButton *>()->isVisible());
    // The text makes room.
    const auto *pNotice = preview.findChild<CPreviewNotice *>();
    QVERIFY(preview.findChild<CHighlightEdit *>()->y() >= pNotice->geometry().bottom());
}

void tst_taster::preview_showsItAnyway()
{
    CPreviewWidget preview;
    preview.taster()->setProgram(helper("read w h p; exit 1"));
    preview.show();
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "<p>the source");
    preview.previewFile(strPath);
    QTRY_VERIFY(!visibleNotice(preview).isEmpty());
    QCOMPARE(preview.findChild<QPushButton *>()->text(), QStringLiteral("Show the page anyway"));
    preview.findChild<QPushButton *>()->click();
    QCOMPARE(visibleNotice(preview), QString());
    QVERIFY(!preview.findChild<CHighlightEdit *>());
    QTRY_COMPARE(preview.findChild<QWebView *>()->page()->mainFrame()->toPlainText(),
                 QStringLiteral("the source"));
    // The word holds until the file changes.
    preview.previewFile(strPath);
    QCOMPARE(visibleNotice(preview), QString());
    m_pCase->write(QStringLiteral("a.html"), "<p>another source");
    preview.previewFile(strPath);
    QTRY_VERIFY(!visibleNotice(preview).isEmpty());
}

void tst_taster::preview_showsNoTextOfARefusedFile()
{
    CPreviewWidget preview;
    preview.show();
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "<p>the source");
    preview.taster()->setKnown(strPath, Result::Fails);
    preview.previewHtml(QStringLiteral("<p>typed"), QUrl::fromLocalFile(strPath));
    QVERIFY(!visibleNotice(preview).isEmpty());
    QVERIFY(!preview.findChild<CEditWebView *>()->isVisible());
    QCOMPARE(textOf(preview.findChild<CEditWebView *>()), QString());
    preview.findChild<QPushButton *>()->click();
    QCOMPARE(textOf(preview.findChild<CEditWebView *>()), QStringLiteral("typed"));
    QCOMPARE(visibleNotice(preview), QString());
}

void tst_taster::preview_withoutHelper_refusesWhatIsKnown()
{
    CPreviewWidget preview;
    preview.taster()->setProgram(m_pCase->path(QStringLiteral("none")));
    preview.show();
    const QString strPath = m_pCase->write(QStringLiteral("a.html"), "<p>x");
    preview.taster()->setKnown(strPath, Result::Fails);
    preview.previewFile(strPath);
    QVERIFY(!visibleNotice(preview).isEmpty());
    QCOMPARE(preview.findChild<CHighlightEdit *>()->toPlainText(), QStringLiteral("<p>x"));
}

void tst_taster::preview_ofAnotherFile_dropsTheNotice()
{
    CPreviewWidget preview;
    preview.taster()->setProgram(helper("read w h p; exit 1"));
    preview.show();
    preview.previewFile(m_pCase->write(QStringLiteral("a.html"), "x"));
    QTRY_VERIFY(!visibleNotice(preview).isEmpty());
    preview.previewFile(m_pCase->write(QStringLiteral("a.txt"), "y"));
    QCOMPARE(visibleNotice(preview), QString());
    QCOMPARE(preview.findChild<CHighlightEdit *>()->toPlainText(), QStringLiteral("y"));
    QCOMPARE(preview.findChild<CHighlightEdit *>()->y(), 0);
}

QTEST_MAIN(tst_taster)
#include "tst_taster.moc"
