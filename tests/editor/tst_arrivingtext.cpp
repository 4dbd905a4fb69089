// A text that arrives in slices is the text that is shown at once.
#include "editor/arrivingtext.h"
#include "editor/chighlightedit.h"
#include "editor/textreading.h"
#include "highlight/clinestore.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"
#include "tests/editor/definitions.h"
#include "tests/editor/randomtext.h"
#include "tests/editor/withsettings.h"
#ifdef Q_OS_LINUX
#include "tests/support/memorylimit.h"
#endif

#include <QFile>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextCodec>
#include <QThreadPool>

namespace {

SFileContent contentOf(const QByteArray &bytes)
{
    SFileContent content;
    content.bytes = bytes;
    return content;
}

// The parts that make decoding, line ends and stand-ins difficult.
QString randomText(QRandomGenerator *pRandom, int nLength)
{
    static const QStringList s_lstParts = {"int n = 42; ",
                                           "/* ",
                                           "*/ ",
                                           "\"text\" ",
                                           "// end",
                                           "\n",
                                           "\n",
                                           "\r\n",
                                           "\r",
                                           QString::fromUtf8("größer "),
                                           QString::fromUtf8("漢字"),
                                           QString::fromUtf8("🙂"),
                                           QString(QChar(0x2029)),
                                           QString(QChar(0xFDD0)),
                                           QString(QChar(0xA0)),
                                           QString(QChar(0x2028))};
    // Most texts have none of the strange ones.
    const int nParts = pRandom->bounded(2) ? s_lstParts.size() : s_lstParts.size() - 7;
    return randomText(pRandom, s_lstParts.mid(0, nParts), nLength);
}

QByteArray randomBytes(QRandomGenerator *pRandom, int nLength)
{
    static const char *const s_arrCodecs[] = {"UTF-8",   "UTF-8",     "UTF-16",
                                              "GB18030", "Shift_JIS", "windows-1252"};
    const QString strText = randomText(pRandom, nLength);
    QByteArray bytes =
        QTextCodec::codecForName(s_arrCodecs[pRandom->bounded(6)])->fromUnicode(strText);
    if (pRandom->bounded(4) == 0 && !bytes.isEmpty()) // Broken somewhere.
        bytes[pRandom->bounded(bytes.size())] =
            char(pRandom->bounded(3) ? pRandom->bounded(256) : 0);
    return bytes;
}

void writeFile(const QString &strPath, const QByteArray &data)
{
    QFile file(strPath);
    if (!file.open(QIODevice::WriteOnly) || file.write(data) != data.size())
        qFatal("cannot write %s", qPrintable(strPath));
}

void loadAll(CHighlightEdit *pEdit, const QString &strPath)
{
    QSignalSpy spy(pEdit, &CHighlightEdit::loadFinished);
    pEdit->setPathFileName(strPath);
    pEdit->loadInSlices(LongLines::Ask, false);
    QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60000);
}

QVector<int> states(const CHighlightEdit &edit)
{
    QVector<int> lst;
    for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next())
        lst.append(block.userState());
    return lst;
}

QVector<QVector<QTextLayout::FormatRange>> colours(const CHighlightEdit &edit)
{
    QVector<QVector<QTextLayout::FormatRange>> lst;
    for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next())
        lst.append(block.layout()->formats());
    return lst;
}

bool isColoured(const CHighlightEdit &edit)
{
    return edit.textDocument()->lines()->isComplete();
}

} // namespace

class tst_arrivingtext : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qRegisterMetaType<SFileContent>("SFileContent");
        setHeaviestLineUnasked(100000);
    }

    void anyText_inAnySlices_isTheTextShownAtOnce_data()
    {
        QTest::addColumn<uint>("seed");
        for (uint n = 1; n <= 20; ++n)
            QTest::newRow(qPrintable(QString::number(n))) << n;
    }

    void anyText_inAnySlices_isTheTextShownAtOnce()
    {
        QFETCH(uint, seed);
        QRandomGenerator random(seed);
        const WithSettings settings;
        for (int n = 0; n < 25; ++n) {
            const QByteArray bytes = randomBytes(&random, random.bounded(3000));
            CHighlightEdit direct;
            direct.setReturnFormat(2);
            direct.setTextData(bytes, false);

            STextRequest request;
            request.nReturnFormat = 2;
            request.slices = {1 + random.bounded(500), 1 + random.bounded(20)};
            QString strText;
            SArrivalSteps steps;
            steps.firstSlice = [&strText](const QString &strSlice) { strText = strSlice; };
            SArrivedText text = slicesOf(contentOf(bytes), request, steps);
            if (text.bBeginsOtherwise)
                strText.clear();
            while (!text.slices.isEmpty())
                strText += text.slices.take();

            QTextDocument document;
            document.setPlainText(strText);
            QCOMPARE(document.toRawText(), direct.document()->toRawText());
            QCOMPARE(text.strCodec, direct.codecName());
            QCOMPARE(text.bCodecSure, direct.isCodecSure());
            QCOMPARE(text.bWhole, direct.isWhole());
            QCOMPARE(text.nReturnFormat, direct.returnFormat());
            const QString strRaw = document.toRawText().replace(QChar(0x2029), '\n');
            QCOMPARE(text.standIns.restore(strRaw), direct.rawText());
        }
    }

    void chosenCodec_isKeptWhateverTheDataLookLike()
    {
        STextRequest request;
        request.reading = STextRequest::Reading::InCodec;
        request.strCodec = "KOI8-R";
        request.nReturnFormat = 2;
        const QByteArray bytes = QByteArray("gr\xc3\xb6\xc3\x9f"
                                            "er\r\nline\n");
        SArrivedText text = slicesOf(contentOf(bytes), request, {});
        QCOMPARE(text.strCodec, QString("KOI8-R"));
        QCOMPARE(text.nReturnFormat, 2);
        QVERIFY(text.bWhole && text.bCodecSure);
        QCOMPARE(text.slices.take(), QTextCodec::codecForName("KOI8-R")->toUnicode(bytes));
        QVERIFY(text.slices.isEmpty());
    }

    void firstLines_areGivenBeforeTheFileIsRead_whereTheyAreNotDoubtful_data()
    {
        QTest::addColumn<QByteArray>("beginning");
        QTest::addColumn<QString>("codec");
        QTest::addColumn<bool>("early");
        QTest::newRow("ASCII") << QByteArray("one\n") << QString() << true;
        QTest::newRow("ASCII in a codec") << QByteArray("one\n") << "ISO-8859-1" << true;
        QTest::newRow("ASCII in a wide codec") << QByteArray("one\n") << "UTF-16LE" << false;
        QTest::newRow("UTF-8") << QByteArray("\xc3\xa9\n") << QString() << true;
        QTest::newRow("UTF-8 in a codec") << QByteArray("\xc3\xa9\n") << "windows-1252" << false;
        QTest::newRow("Latin-1") << QByteArray("\xe9\n") << QString() << false;
        QTest::newRow("zero byte") << QByteArray("a\0b\n", 4) << QString() << false;
        QTest::newRow("escapes") << QByteArray("\x1b$B$\"\x1b(B\n") << QString() << false;
    }

    void firstLines_areGivenBeforeTheFileIsRead_whereTheyAreNotDoubtful()
    {
        QFETCH(QByteArray, beginning);
        QFETCH(QString, codec);
        QFETCH(bool, early);
        const QTemporaryDir folder;
        writeFile(folder.filePath("large"), beginning + QByteArray("line\n").repeated(500000));
        STextRequest request;
        request.strPath = folder.filePath("large");
        request.strCodec = codec;
        request.bFirstLinesEarly = true;
        int nFirst = 0;
        qint64 nRead = 0;
        bool bEarly = false;
        SArrivalSteps steps;
        steps.progress = [&nRead](qint64 nDone, qint64) {
            nRead = qMax(nRead, nDone);
            return true;
        };
        steps.firstSlice = [&](const QString &strSlice) {
            ++nFirst;
            bEarly = nRead == 0;
            QVERIFY(!strSlice.isEmpty());
        };
        const SArrivedText text = readInSlices(request, steps);
        QVERIFY(nFirst < 2 && !text.bBeginsOtherwise);
        QCOMPARE(bEarly, early);
        nRead = nFirst = 0;
        bEarly = false;
        request.bFirstLinesEarly = false;
        readInSlices(request, steps);
        QVERIFY(!bEarly);
    }

    // Text that begins as UTF-8 and turns out to be none.
    void firstLinesThatWereWrong_areReplaced()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        const QByteArray bytes = QByteArray("caf\xc3\xa9 au lait\n").repeated(20000)
            + QByteArray("d\xe9j\xe0 vu, c'est tr\xe8s int\xe9ressant\n").repeated(20000);
        writeFile(folder.filePath("large"), bytes);
        CHighlightEdit direct;
        direct.setTextData(bytes, false);
        CHighlightEdit edit;
        edit.show();
        QStringList lstFirst;
        connect(&edit, &CHighlightEdit::firstTextShown, this,
                [&] { lstFirst.append(edit.document()->firstBlock().text()); });
        loadAll(&edit, folder.filePath("large"));
        QCOMPARE(lstFirst.size(), 2);
        QVERIFY(lstFirst.first() != lstFirst.last());
        QCOMPARE(edit.getText(), direct.getText());
        QCOMPARE(edit.codecName(), direct.codecName());
        QVERIFY(!edit.document()->isUndoAvailable());
    }

    void editor_afterTheArrival_isAsAfterSettingTheText_data()
    {
        QTest::addColumn<uint>("seed");
        for (uint n = 1; n <= 12; ++n)
            QTest::newRow(qPrintable(QString::number(n))) << n;
    }

    void editor_afterTheArrival_isAsAfterSettingTheText()
    {
        QFETCH(uint, seed);
        QRandomGenerator random(seed);
        const QTemporaryDir folder;
        const WithSettings settings;
        // More than one slice of the usual size.
        const QByteArray bytes = randomBytes(&random, 150000 + random.bounded(50000));
        writeFile(folder.filePath("large"), bytes);
        CHighlightEdit direct;
        CHighlightEdit sliced;
        for (CHighlightEdit *pEdit : {&direct, &sliced}) {
            pEdit->resize(400, 300);
            pEdit->show();
            pEdit->setDefinition(languageDefinition("Sample", "//", "/*", "*/"));
        }
        direct.setTextData(bytes, false);
        loadAll(&sliced, folder.filePath("large"));

        QCOMPARE(sliced.document()->toRawText(), direct.document()->toRawText());
        QCOMPARE(sliced.blockCount(), direct.blockCount());
        QCOMPARE(sliced.getText(), direct.getText());
        QCOMPARE(sliced.codecName(), direct.codecName());
        QCOMPARE(sliced.isWhole(), direct.isWhole());
        QCOMPARE(sliced.returnFormat(), direct.returnFormat());
        QCOMPARE(sliced.lineNumberAreaWidth(), direct.lineNumberAreaWidth());
        QVERIFY(!sliced.isModified() && !sliced.document()->isModified());
        QVERIFY(!sliced.document()->isUndoAvailable() && !sliced.document()->isRedoAvailable());
        QVERIFY(sliced.document()->isUndoRedoEnabled());
        QVERIFY(!sliced.isReadOnly());
        QCOMPARE(sliced.textInteractionFlags(), direct.textInteractionFlags());
        QCOMPARE(sliced.textCursor().position(), direct.textCursor().position());
        QTRY_VERIFY_WITH_TIMEOUT(isColoured(direct) && isColoured(sliced), 60000);
        QCOMPARE(states(sliced), states(direct));
        QVERIFY(colours(sliced) == colours(direct));

        sliced.insertPlainText("x");
        QVERIFY(sliced.isModified());
        sliced.undo();
        QVERIFY(!sliced.isModified());
        QCOMPARE(sliced.document()->toRawText(), direct.document()->toRawText());
    }

    void whileItArrives_nothingCanBeChanged_butTextCanBeSelected()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        writeFile(folder.filePath("large"), QByteArray("one two three\n").repeated(200000));
        CHighlightEdit edit;
        edit.show();
        edit.setPathFileName(folder.filePath("large"));
        QSignalSpy spyFirst(&edit, &CHighlightEdit::firstTextShown);
        edit.loadInSlices(LongLines::Ask, false);
        QTRY_COMPARE_WITH_TIMEOUT(spyFirst.size(), 1, 60000);
        QVERIFY(edit.isLoading());
        const QString strBefore = edit.document()->firstBlock().text();
        QTest::keyClicks(&edit, "x");
        QTest::keyClick(&edit, Qt::Key_Return);
        QTest::keyClick(&edit, Qt::Key_Delete);
        QTest::keyClick(&edit, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
        edit.selectAll();
        edit.cut();
        edit.undo();
        edit.toggleComment();
        QCOMPARE(edit.document()->firstBlock().text(), strBefore);
        QVERIFY(!edit.isModified());
        QVERIFY(edit.textCursor().hasSelection());
        QTRY_VERIFY_WITH_TIMEOUT(!edit.isLoading(), 60000);
        QCOMPARE(edit.blockCount(), 200001);
        // The selection did not grow with the text behind it.
        QVERIFY(edit.textCursor().selectionEnd() < edit.document()->characterCount() - 1);
    }

    void goal_isReachedWhenTheTextIsThere_andForgottenWhereTheUserGoesElsewhere()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        writeFile(folder.filePath("large"), QByteArray("line\n").repeated(300000));
        for (const bool bUserMoves : {false, true}) {
            CHighlightEdit edit;
            edit.show();
            edit.setPathFileName(folder.filePath("large"));
            QSignalSpy spyFirst(&edit, &CHighlightEdit::firstTextShown);
            edit.loadInSlices(LongLines::Ask, false);
            edit.whenArrived(0, 290000, [&edit] { edit.goToLine(290000); });
            QTRY_COMPARE_WITH_TIMEOUT(spyFirst.size(), 1, 60000);
            QCOMPARE(edit.textCursor().blockNumber(), 0);
            if (bUserMoves)
                QTest::keyClick(&edit, Qt::Key_Down);
            QTRY_VERIFY_WITH_TIMEOUT(!edit.isLoading(), 60000);
            QCOMPARE(edit.textCursor().blockNumber(), bUserMoves ? 1 : 289999);
        }
    }

    void readingAgain_keepsLineAndScroll_andTheOldTextUntilTheNewIsThere()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        writeFile(folder.filePath("large"), QByteArray("old\n").repeated(100000));
        CHighlightEdit edit;
        edit.resize(300, 200);
        edit.show();
        loadAll(&edit, folder.filePath("large"));
        edit.goToLine(50000);
        const int nScroll = edit.verticalScrollBar()->value();
        writeFile(folder.filePath("large"), QByteArray("new\n").repeated(100000));
        QSignalSpy spy(&edit, &CHighlightEdit::loadFinished);
        edit.loadInSlices(LongLines::Ask, true);
        QCOMPARE(edit.document()->firstBlock().text(), QString("old"));
        QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60000);
        QCOMPARE(edit.document()->firstBlock().text(), QString("new"));
        QCOMPARE(edit.textCursor().blockNumber(), 49999);
        QCOMPARE(edit.verticalScrollBar()->value(), nScroll);
    }

    void stopBeforeTheNewText_leavesTheOldOneEditable()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        writeFile(folder.filePath("large"), QByteArray("old\n").repeated(1000));
        CHighlightEdit edit;
        loadAll(&edit, folder.filePath("large"));
        edit.insertPlainText("typed ");
        edit.loadInSlices(LongLines::Ask, true);
        QVERIFY(!edit.isModified());
        edit.stopLoading();
        QVERIFY(edit.isModified() && !edit.isReadOnly());
        QCOMPARE(edit.document()->firstBlock().text(), QString("typed old"));
        edit.undo();
        QCOMPARE(edit.document()->firstBlock().text(), QString("old"));
    }

    void failure_leavesTheOldTextEditable()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        writeFile(folder.filePath("large"), QByteArray("old\n").repeated(1000));
        CHighlightEdit edit;
        loadAll(&edit, folder.filePath("large"));
        QVERIFY(QFile::remove(folder.filePath("large")));
        QSignalSpy spy(&edit, &CHighlightEdit::loadFailed);
        edit.loadInSlices(LongLines::Ask, true);
        QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60000);
        QVERIFY(!edit.isLoading() && !edit.isReadOnly());
        QCOMPARE(edit.blockCount(), 1001);
    }

    void fileOfAnySizeWithAHeavyLine_isShownInSlices_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("slices");
        const int nMost = heaviestLineUnasked() / 30;
        const QString strThai = QString(QChar(0x0e01)).repeated(nMost);
        const QString strMore = strThai + QChar(0x0e0a);
        QTest::newRow("short") << QByteArray("text") << false;
        QTest::newRow("light line") << QByteArray(heaviestLineUnasked(), 'x') << false;
        QTest::newRow("heavy line") << QByteArray(heaviestLineUnasked() + 1, 'x') << true;
        QTest::newRow("Thai") << "a\n" + strThai.toUtf8() + "\n" << false;
        QTest::newRow("more Thai") << "a\n" + strMore.toUtf8() + "\n" << true;
        QTest::newRow("in lines") << (strThai + "\r" + strThai + "\n" + strThai).toUtf8() << false;
        QTest::newRow("two bytes each")
            << QTextCodec::codecForName("UTF-16")->fromUnicode(strMore.mid(1) + strMore) << true;
    }

    void fileOfAnySizeWithAHeavyLine_isShownInSlices()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, slices);
        const QTemporaryDir folder;
        writeFile(folder.filePath("file"), bytes);
        QCOMPARE(isShownInSlices(folder.filePath("file")), slices);
    }

    void longLine_isAskedAbout_andShownInPiecesOrWhole()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        const QByteArray line(heaviestLineUnasked() + 1, 'x');
        writeFile(folder.filePath("large"), "first\n" + line + "\nlast");
        CHighlightEdit edit;
        edit.setPathFileName(folder.filePath("large"));
        QSignalSpy spyAsked(&edit, &CHighlightEdit::longLineFound);
        edit.loadInSlices(LongLines::Ask, false);
        QTRY_COMPARE_WITH_TIMEOUT(spyAsked.size(), 1, 60000);
        QCOMPARE(spyAsked.first().first().toInt(), line.size());
        QVERIFY(edit.isLoading() && edit.blockCount() < 3);

        QSignalSpy spy(&edit, &CHighlightEdit::loadFinished);
        edit.loadInSlices(LongLines::InPieces, false);
        QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60000);
        QVERIFY(edit.isInPieces() && edit.isReadOnly() && !edit.isModified());
        QVERIFY(edit.blockCount() > 100);
        QCOMPARE(edit.toPlainText().remove('\n'), QString::fromLatin1("first" + line + "last"));

        edit.loadInSlices(LongLines::Whole, false);
        QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 2, 60000);
        QVERIFY(!edit.isInPieces() && !edit.isReadOnly());
        QCOMPARE(edit.blockCount(), 3);
    }

    void secondTryThatFails_leavesAPartialTextReadOnly()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        const QByteArray line(heaviestLineUnasked() + 1, 'x');
        writeFile(folder.filePath("large"), QByteArray("first\n").repeated(20000) + line);
        CHighlightEdit edit;
        edit.setPathFileName(folder.filePath("large"));
        QSignalSpy spyAsked(&edit, &CHighlightEdit::longLineFound);
        edit.loadInSlices(LongLines::Ask, false);
        QTRY_COMPARE_WITH_TIMEOUT(spyAsked.size(), 1, 60000);
        QVERIFY(edit.isTextPartial());
        QVERIFY(QFile::remove(folder.filePath("large")));
        QSignalSpy spy(&edit, &CHighlightEdit::loadFailed);
        edit.loadInSlices(LongLines::Whole, false);
        QTRY_COMPARE_WITH_TIMEOUT(spy.size(), 1, 60000);
        QVERIFY(spy.first().at(1).toBool());
        QVERIFY(edit.isReadOnly() && !edit.isModified());
    }

    void readOnlyEditor_staysSoWhenItsTextIsSet()
    {
        const WithSettings settings;
        CHighlightEdit edit;
        edit.setReadOnly(true);
        edit.setTextData("text", false);
        QVERIFY(edit.isReadOnly());
    }

#ifdef Q_OS_LINUX
    void textThatMemoryCannotShow_isRefused_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::newRow("many characters") << QByteArray(QByteArray(999, 'x') + '\n').repeated(30000);
        QTest::newRow("many lines") << QByteArray(500000, '\n');
    }
    void textThatMemoryCannotShow_isRefused()
    {
#ifdef QUILLAN_ADDRESS_SANITIZER
        QSKIP("The address sanitizer takes terabytes of address space.");
#endif
        QFETCH(QByteArray, text);
        const SArrivedText shown = slicesOf(contentOf(text), STextRequest(), SArrivalSteps());
        QCOMPARE(shown.content.fault, SFileContent::Fault::None);
        const CMemoryLimit limit(100 << 20);
        const SArrivedText refused = slicesOf(contentOf(text), STextRequest(), SArrivalSteps());
        QCOMPARE(refused.content.fault, SFileContent::Fault::NoMemory);
        QVERIFY(refused.slices.isEmpty());
    }
#endif

    void editorThatGoesMeanwhile_isClean()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        writeFile(folder.filePath("large"), QByteArray("int n; // text\n").repeated(200000));
        for (int n = 0; n < 20; ++n) {
            CHighlightEdit edit;
            edit.show();
            edit.setPathFileName(folder.filePath("large"));
            edit.loadInSlices(LongLines::Ask, false);
            for (int nTurn = 0; nTurn < n; ++nTurn)
                QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
    }

    void textSetMeanwhile_isTheOneThatStays()
    {
        const QTemporaryDir folder;
        const WithSettings settings;
        writeFile(folder.filePath("large"), QByteArray("int n; // text\n").repeated(200000));
        CHighlightEdit edit;
        edit.setPathFileName(folder.filePath("large"));
        QSignalSpy spyFirst(&edit, &CHighlightEdit::firstTextShown);
        edit.loadInSlices(LongLines::Ask, false);
        QTRY_COMPARE_WITH_TIMEOUT(spyFirst.size(), 1, 60000);
        edit.setTextData("other", false);
        QVERIFY(!edit.isLoading() && !edit.isReadOnly());
        QThreadPool::globalInstance()->waitForDone();
        QCoreApplication::processEvents(); // What comes late, if anything.
        QCOMPARE(edit.toPlainText(), QString("other"));
        QVERIFY(!edit.isModified());
    }
};

QTEST_MAIN(tst_arrivingtext)
#include "tst_arrivingtext.moc"
