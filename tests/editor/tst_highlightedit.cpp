#include "app/csettings.h"
#include "editor/chighlightedit.h"
#include "editor/clinenumberarea.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"
#include "tests/editor/withsettings.h"
#include "tests/support/contrast.h"

#include <QClipboard>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QWheelEvent>

#include <cmath>
#include <ctime>

namespace {

// Gives access to protected functions.
class Editor : public CHighlightEdit
{
public:
    using CHighlightEdit::canInsertFromMimeData;
    using QPlainTextEdit::blockBoundingGeometry;
    using QPlainTextEdit::contentOffset;
    using QPlainTextEdit::viewportMargins;

    CLineNumberArea *gutter() { return findChild<CLineNumberArea *>(); }

    void showLines(int nCount)
    {
        QString strText;
        for (int n = 1; n < nCount; ++n)
            strText += QStringLiteral("some text of line %1\n").arg(n);
        setPlainText(strText);
        resize(400, 300);
        show();
        QVERIFY(QTest::qWaitForWindowExposed(this));
    }

    void selectLines(int nFirst, int nLast)
    {
        QTextCursor cursor = textCursor();
        cursor.setPosition(document()->findBlockByNumber(nFirst - 1).position() + 2);
        cursor.setPosition(document()->findBlockByNumber(nLast - 1).position() + 2,
                           QTextCursor::KeepAnchor);
        setTextCursor(cursor);
    }

    QRect lineRect(int nLine)
    {
        const QTextBlock block = document()->findBlockByNumber(nLine - 1);
        return blockBoundingGeometry(block).translated(contentOffset()).toRect();
    }
};

QFont gutterFont(const Editor &edit, bool bBold)
{
    QFont fnt = edit.font();
    fnt.setFamily(QStringLiteral("Courier New"));
    fnt.setPixelSize(qRound(g_pSettings->m_nTextFontSize * 0.8));
    fnt.setWeight(bBold ? 75 : 50);
    return fnt;
}

// Draws the expected gutter, number by number.
QImage expectedGutter(Editor &edit, int nFirstMarked, int nLastMarked)
{
    QImage image(edit.gutter()->size(), QImage::Format_RGB32);
    image.fill(QColor(0xF9, 0xF9, 0xF9));
    QPainter painter(&image);
    const int nWidth = edit.lineNumberAreaWidth() - 1 - g_pSettings->m_nTextFontSize / 2;
    for (int nLine = 1; nLine <= edit.blockCount(); ++nLine) {
        const QRect rect = edit.lineRect(nLine);
        if (rect.isEmpty())
            continue;
        const bool bMarked = nLine >= nFirstMarked && nLine <= nLastMarked;
        painter.setFont(gutterFont(edit, bMarked));
        painter.setPen(bMarked ? QColor(0x88, 0x88, 0x88) : QColor(0xCC, 0xCC, 0xCC));
        painter.drawText(QRect(0, rect.top() + 5, nWidth, rect.height()),
                         Qt::AlignRight | Qt::AlignTop, QString::number(nLine));
    }
    return image;
}

QImage shownGutter(Editor &edit)
{
    return edit.gutter()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

int darkest(const QImage &image, const QRect &rect)
{
    int nDarkest = 255;
    for (int y = rect.top(); y <= rect.bottom(); ++y)
        for (int x = rect.left(); x <= rect.right(); ++x)
            nDarkest = qMin(nDarkest, qGray(image.pixel(x, y)));
    return nDarkest;
}

void sendWheel(QWidget *pWidget, int nDelta, Qt::KeyboardModifiers modifiers)
{
    const QPointF pos(5, 5);
    QWheelEvent event(pos, pWidget->mapToGlobal(pos.toPoint()), QPoint(), QPoint(0, nDelta),
                      Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(pWidget, &event);
}

QMenu *openContextMenu(CHighlightEdit *pEdit)
{
    const QPoint pos(10, 10);
    QContextMenuEvent event(QContextMenuEvent::Mouse, pos, pEdit->viewport()->mapToGlobal(pos));
    QApplication::sendEvent(pEdit->viewport(), &event);
    return qobject_cast<QMenu *>(QApplication::activePopupWidget());
}

QAction *actionOf(QMenu *pMenu, const QString &strText)
{
    const QList<QAction *> lstActions = pMenu->actions();
    for (QAction *pAction : lstActions)
        if (pAction->text() == strText)
            return pAction;
    return nullptr;
}

QVariantMap definition(const QString &strSingle, const QString &strMultiStart)
{
    const auto comment = [](const char *szName, const QString &strStart) {
        return QVariantMap {{QStringLiteral("name"), QString::fromLatin1(szName)},
                            {QStringLiteral("start"), strStart},
                            {QStringLiteral("end"), QStringLiteral("end")}};
    };
    const QVariantMap general {
        {QStringLiteral("comments"),
         QVariantList {comment("singleline", strSingle), comment("multiline", strMultiStart)}}};
    return {{QStringLiteral("language"), QVariantMap {{QStringLiteral("name"), "Test"}}},
            {QStringLiteral("general"), general}};
}

void setDarkDesktop()
{
    QPalette pal;
    pal.setColor(QPalette::Window, QColor(0x30, 0x30, 0x30));
    pal.setColor(QPalette::WindowText, Qt::white);
    pal.setColor(QPalette::Base, QColor(0x20, 0x20, 0x20));
    pal.setColor(QPalette::Text, Qt::white);
    pal.setColor(QPalette::HighlightedText, Qt::white);
    QApplication::setPalette(pal);
}

// Contrast by the Web Content Accessibility Guidelines.
double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &clr) {
        const auto linear = [](double d) {
            return d <= 0.03928 ? d / 12.92 : std::pow((d + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(clr.redF()) + 0.7152 * linear(clr.greenF())
            + 0.0722 * linear(clr.blueF());
    };
    const double dA = luminance(a) + 0.05;
    const double dB = luminance(b) + 0.05;
    return qMax(dA, dB) / qMin(dA, dB);
}

} // namespace

class tst_highlightedit : public QObject
{
    Q_OBJECT

private slots:
    void newEditor_isEmptyUntitledAndUnwrapped();
    void title_isFileNameWithAStarWhenModified();
    void path_givesSuffixAndAsksForTheLanguage();

    void gutter_isAsWideAsItsDigits_data();
    void gutter_isAsWideAsItsDigits();
    void gutter_followsTheStoredSizeNotTheEditorsOwn();
    void gutter_standsLeftOfTheText();
    void emptyDocument_showsTheNumberOne();
    void gutter_showsTheCursorsLineBold();
    void selectionOverThreeLines_showsThreeBoldNumbers();
    void selectionMadeUpwards_showsTheSameNumbers();
    void gutter_showsWrappedLinesOnce();
    void gutter_followsScrolling();
    void gutter_isRepaintedWhenTheCursorMovesWithinAWrappedLine();
    void gutter_paintsOnlyWhatIsAsked();

    void band_liesBehindTheCursorsLine();
    void band_spansAllOfAWrappedLine();
    void band_isGoneWhenTheCursorIsOutOfSight();
    void manyLines_paintAsFastAsAFew();

    void statusText_atTheStart();
    void statusText_countsRowsFromOneAndColumnsFromZero();

    void zoom_staysWithinItsBounds_data();
    void zoom_staysWithinItsBounds();
    void zoom_reachesEveryEditorAndTheSettings();
    void zoom_keepsTabsFourLettersWide();
    void zoom_worksOverTheGutter();
    void plainWheel_scrolls();
    void lockedEditor_keepsItsFontSize();

    void contextMenu_hasItsEntriesInOrder();
    void contextMenu_enablesToggleCommentWithSelectionAndCommentStrings_data();
    void contextMenu_enablesToggleCommentWithSelectionAndCommentStrings();
    void openFilePosition_ofAnUnsavedDocument_doesNothing();

    void focus_isAnnounced();
    void shiftEnter_startsANewLine();
    void copy_keepsNoBreakSpaces();
    void droppedFiles_areLeftToTheWindow();
    void droppedText_isTaken();
    void darkDesktop_leavesTextReadable();
    void selectedWord_isMarked();
    void editorClosedWhileHighlighting_endsInOrder();
};

void tst_highlightedit::newEditor_isEmptyUntitledAndUnwrapped()
{
    WithSettings settings;
    CHighlightEdit edit;
    QCOMPARE(edit.getTitle(), QStringLiteral("Untitled"));
    QCOMPARE(edit.pathFileName(), QString());
    QCOMPARE(edit.suffix(), QString());
    QCOMPARE(edit.codecName(), QString());
    QVERIFY(!edit.isModified());
    QVERIFY(!edit.isPathChanged());
    QCOMPARE(edit.lineWrapMode(), QPlainTextEdit::NoWrap);
    QCOMPARE(edit.font().pixelSize(), 12);
    QCOMPARE(edit.languageName(), QString());
    QVERIFY(edit.pageEditor() == nullptr);
    QVERIFY(!edit.accessibleName().isEmpty());
    QCOMPARE(edit.document(), edit.textDocument());
    QVERIFY(edit.styleSheet().contains(QStringLiteral("selection-background-color: #90da90")));

    edit.setLineWrap(true);
    QCOMPARE(edit.lineWrapMode(), QPlainTextEdit::WidgetWidth);
    edit.setLineWrap(false);
    QCOMPARE(edit.lineWrapMode(), QPlainTextEdit::NoWrap);
}

void tst_highlightedit::title_isFileNameWithAStarWhenModified()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setModified(true);
    QCOMPARE(edit.getTitle(), QStringLiteral("Untitled*"));
    edit.setPathFileName(QStringLiteral("/some/folder/a & b.txt"));
    QCOMPARE(edit.getTitle(), QStringLiteral("a & b.txt*"));
    edit.setModified(false);
    QCOMPARE(edit.getTitle(), QStringLiteral("a & b.txt"));
}

void tst_highlightedit::path_givesSuffixAndAsksForTheLanguage()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setPathFileName(QStringLiteral("/no/such/archive.tar.GZ"));
    QCOMPARE(edit.pathFileName(), QStringLiteral("/no/such/archive.tar.GZ"));
    QCOMPARE(edit.suffix(), QStringLiteral("gz"));
    QVERIFY(edit.isPathChanged());
    edit.setPathChanged(false);
    edit.setPathFileName(edit.pathFileName());
    QVERIFY(edit.isPathChanged());
}

void tst_highlightedit::gutter_isAsWideAsItsDigits_data()
{
    QTest::addColumn<int>("nLines");
    QTest::addColumn<int>("nDigits");
    QTest::newRow("1") << 1 << 1;
    QTest::newRow("9") << 9 << 1;
    QTest::newRow("10") << 10 << 2;
    QTest::newRow("99") << 99 << 2;
    QTest::newRow("100") << 100 << 3;
    QTest::newRow("999") << 999 << 3;
    QTest::newRow("1000") << 1000 << 4;
    QTest::newRow("10000") << 10000 << 5;
}

void tst_highlightedit::gutter_isAsWideAsItsDigits()
{
    QFETCH(int, nLines);
    QFETCH(int, nDigits);
    WithSettings settings;
    Editor edit;
    for (const int nSize : {12, 13, 40}) {
        settings->setTextFontSize(nSize);
        edit.onTextFontSize(nSize);
        edit.setPlainText(QString(nLines - 1, QLatin1Char('\n')));
        const int nDigit =
            QFontMetrics(gutterFont(edit, false)).horizontalAdvance(QLatin1Char('9'));
        QCOMPARE(edit.lineNumberAreaWidth(), 2 * (nSize / 2) + nDigits * nDigit);
        QCOMPARE(edit.viewportMargins().left(), edit.lineNumberAreaWidth());
        QCOMPARE(edit.gutter()->sizeHint(), QSize(edit.lineNumberAreaWidth(), 0));
    }
}

void tst_highlightedit::gutter_followsTheStoredSizeNotTheEditorsOwn()
{
    WithSettings settings;
    Editor edit;
    const int nWidth = edit.lineNumberAreaWidth();
    edit.onTextFontSize(40);
    QCOMPARE(edit.lineNumberAreaWidth(), nWidth);
    settings->m_nTextFontSize = 40;
    QVERIFY(edit.lineNumberAreaWidth() > nWidth);
}

void tst_highlightedit::gutter_standsLeftOfTheText()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(120);
    const QRect rect = edit.contentsRect();
    const int nWidth = edit.lineNumberAreaWidth();
    QCOMPARE(edit.gutter()->geometry(), QRect(rect.left(), rect.top(), nWidth, rect.height()));
    QCOMPARE(edit.viewport()->geometry().left(), rect.left() + nWidth);
    edit.resize(500, 400);
    QTRY_COMPARE(edit.gutter()->height(), edit.contentsRect().height());
}

void tst_highlightedit::emptyDocument_showsTheNumberOne()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(1);
    QVERIFY(edit.toPlainText().isEmpty());
    QCOMPARE(shownGutter(edit), expectedGutter(edit, 1, 1));
    QVERIFY(darkest(shownGutter(edit), edit.gutter()->rect()) < 0xCC);
}

void tst_highlightedit::gutter_showsTheCursorsLineBold()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(12);
    edit.selectLines(4, 4);
    edit.moveCursor(QTextCursor::Down);
    QCOMPARE(shownGutter(edit), expectedGutter(edit, 5, 5));
}

void tst_highlightedit::selectionOverThreeLines_showsThreeBoldNumbers()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(12);
    edit.selectLines(3, 5);
    const QImage image = shownGutter(edit);
    QCOMPARE(image, expectedGutter(edit, 3, 5));
    for (int nLine = 1; nLine <= 12; ++nLine) {
        // The numbers stand 5 pixels lower than their lines.
        const QRect rect(0, edit.lineRect(nLine).top() + 6, image.width(), 8);
        const int nGray = darkest(image, rect);
        QVERIFY(nLine >= 3 && nLine <= 5 ? nGray >= 0x88 && nGray < 0xA0 : nGray >= 0xCC);
    }
}

void tst_highlightedit::selectionMadeUpwards_showsTheSameNumbers()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(12);
    edit.selectLines(7, 4);
    QCOMPARE(shownGutter(edit), expectedGutter(edit, 4, 7));
}

void tst_highlightedit::gutter_showsWrappedLinesOnce()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    edit.setPlainText(QString(400, QLatin1Char('x')) + QStringLiteral("\nsecond"));
    edit.setLineWrap(true);
    QVERIFY(edit.lineRect(1).height() > 3 * edit.lineRect(2).height());
    QCOMPARE(shownGutter(edit), expectedGutter(edit, 1, 1));
}

void tst_highlightedit::gutter_followsScrolling()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(300);
    edit.verticalScrollBar()->setValue(150);
    edit.selectLines(155, 156);
    QCOMPARE(shownGutter(edit), expectedGutter(edit, 155, 156));
    QVERIFY(darkest(shownGutter(edit), edit.gutter()->rect()) < 0xCC);
}

void tst_highlightedit::gutter_isRepaintedWhenTheCursorMovesWithinAWrappedLine()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    edit.setPlainText(QString(400, QLatin1Char('x')) + QStringLiteral("\nsecond"));
    edit.setLineWrap(true);
    edit.moveCursor(QTextCursor::End);
    QApplication::processEvents();

    class PaintWatch : public QObject
    {
    public:
        QRegion m_region;
        bool eventFilter(QObject *, QEvent *pEvent) override
        {
            if (pEvent->type() == QEvent::Paint)
                m_region += static_cast<QPaintEvent *>(pEvent)->region();
            return false;
        }
    } watch;
    edit.gutter()->installEventFilter(&watch);
    edit.moveCursor(QTextCursor::Up);
    QTRY_VERIFY(watch.m_region.contains(QPoint(5, edit.lineRect(1).top() + 6)));
}

void tst_highlightedit::gutter_paintsOnlyWhatIsAsked()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(12);
    QImage image(edit.gutter()->size(), QImage::Format_RGB32);
    image.fill(Qt::red);
    const QRect rect(0, edit.lineRect(3).top(), image.width(), edit.lineRect(3).height());
    edit.gutter()->render(&image, rect.topLeft(), rect, QWidget::RenderFlags());
    QCOMPARE(image.pixelColor(0, rect.top() - 1), QColor(Qt::red));
    QCOMPARE(image.pixelColor(0, rect.top()), QColor(0xF9, 0xF9, 0xF9));
    QCOMPARE(image.pixelColor(0, rect.bottom()), QColor(0xF9, 0xF9, 0xF9));
    QCOMPARE(image.pixelColor(0, rect.bottom() + 1), QColor(Qt::red));
}

void tst_highlightedit::band_liesBehindTheCursorsLine()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(12);
    edit.selectLines(4, 4);
    const QImage image = edit.viewport()->grab().toImage();
    const int nRight = image.width() - 2;
    for (int nLine = 1; nLine <= 12; ++nLine) {
        const QRect rect = edit.lineRect(nLine);
        const QColor clr = nLine == 4 ? QColor(0xF9, 0xF9, 0xF9) : QColor(Qt::white);
        QCOMPARE(image.pixelColor(nRight, rect.top()), clr);
        QCOMPARE(image.pixelColor(nRight, rect.bottom()), clr);
    }
}

void tst_highlightedit::band_spansAllOfAWrappedLine()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    edit.setPlainText(QString(400, QLatin1Char('x')) + QStringLiteral("\nsecond"));
    edit.setLineWrap(true);
    const QImage image = edit.viewport()->grab().toImage();
    const QRect rect = edit.lineRect(1);
    const int nRight = image.width() - 2;
    QCOMPARE(image.pixelColor(nRight, rect.top()), QColor(0xF9, 0xF9, 0xF9));
    QCOMPARE(image.pixelColor(nRight, rect.bottom()), QColor(0xF9, 0xF9, 0xF9));
    QCOMPARE(image.pixelColor(nRight, rect.bottom() + 1), QColor(Qt::white));
}

void tst_highlightedit::band_isGoneWhenTheCursorIsOutOfSight()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(300);
    edit.verticalScrollBar()->setValue(150);
    const QImage image = edit.viewport()->grab().toImage();
    for (int y = 0; y < image.height(); ++y)
        QCOMPARE(image.pixelColor(image.width() - 2, y), QColor(Qt::white));
}

void tst_highlightedit::manyLines_paintAsFastAsAFew()
{
    WithSettings settings;
    Editor edit;
    edit.resize(400, 300);
    edit.setPlainText(QString(300000, QLatin1Char('\n')));
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    const auto paintTimes = [&edit](int nFirstLine) {
        edit.verticalScrollBar()->setValue(nFirstLine);
        edit.gutter()->grab();
        // Processes of others on the machine do not count.
        const std::clock_t nBefore = std::clock();
        for (int n = 0; n < 20; ++n) {
            edit.gutter()->grab();
            edit.viewport()->grab();
        }
        return std::clock() - nBefore;
    };
    // The cursor stays at the top: the band is many lines away.
    const std::clock_t nTop = paintTimes(0);
    const std::clock_t nBottom = paintTimes(299000);
    QVERIFY2(nBottom < 3 * nTop + CLOCKS_PER_SEC / 50,
             qPrintable(QStringLiteral("%1 at the top, %2 at the bottom").arg(nTop).arg(nBottom)));
}

void tst_highlightedit::statusText_atTheStart()
{
    WithSettings settings;
    CHighlightEdit edit;
    QCOMPARE(edit.getStatusText(), QStringLiteral("row: 1, col: 0, sel: 0"));
}

void tst_highlightedit::statusText_countsRowsFromOneAndColumnsFromZero()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setPlainText(QStringLiteral("first\nsecond\nthird"));
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(8);
    edit.setTextCursor(cursor);
    QCOMPARE(edit.getStatusText(), QStringLiteral("row: 2, col: 2, sel: 0"));
    cursor.setPosition(3, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    QCOMPARE(edit.getStatusText(), QStringLiteral("row: 1, col: 3, sel: 5"));
    QCOMPARE(edit.textCursor().selectedText().size(), 5);
    edit.selectAll();
    QCOMPARE(edit.getStatusText(), QStringLiteral("row: 3, col: 5, sel: 18"));
}

void tst_highlightedit::zoom_staysWithinItsBounds_data()
{
    QTest::addColumn<int>("nSize");
    QTest::addColumn<int>("nDelta");
    QTest::addColumn<int>("nNewSize");
    QTest::newRow("a notch up") << 12 << 120 << 16;
    QTest::newRow("a notch down") << 12 << -120 << 8;
    QTest::newRow("down at 4") << 4 << -120 << 3;
    QTest::newRow("down at 3") << 3 << -120 << 3;
    QTest::newRow("down at 7") << 7 << -120 << 3;
    QTest::newRow("down at 8") << 8 << -120 << 4;
    QTest::newRow("up at 96") << 96 << 120 << 100;
    QTest::newRow("up at 97") << 97 << 120 << 100;
    QTest::newRow("up at 100") << 100 << 120 << 100;
    QTest::newRow("three notches") << 12 << 360 << 24;
    QTest::newRow("less than a pixel up") << 12 << 29 << 12;
    QTest::newRow("less than a pixel down") << 12 << -29 << 12;
    QTest::newRow("a little more than a pixel down") << 12 << -31 << 11;
}

void tst_highlightedit::zoom_staysWithinItsBounds()
{
    QFETCH(int, nSize);
    QFETCH(int, nDelta);
    QFETCH(int, nNewSize);
    WithSettings settings;
    settings->m_nTextFontSize = nSize;
    CHighlightEdit edit;
    QCOMPARE(edit.font().pixelSize(), nSize);
    sendWheel(edit.viewport(), nDelta, Qt::ControlModifier);
    QCOMPARE(edit.font().pixelSize(), nNewSize);
    QCOMPARE(settings->m_nTextFontSize, nNewSize);
}

void tst_highlightedit::zoom_reachesEveryEditorAndTheSettings()
{
    WithSettings settings;
    Editor first;
    Editor second;
    for (CHighlightEdit *pEdit : {&first, &second}) {
        connect(settings.get(), &CSettings::textFontSizeChanged, pEdit,
                &CHighlightEdit::onTextFontSize);
    }
    QSignalSpy spy(settings.get(), &CSettings::textFontSizeChanged);
    sendWheel(first.viewport(), 120, Qt::ControlModifier);
    QCOMPARE(spy.count(), 1);
    QCOMPARE(second.font().pixelSize(), 16);
    QCOMPARE(first.viewportMargins().left(), first.lineNumberAreaWidth());
    QCOMPARE(second.viewportMargins().left(), second.lineNumberAreaWidth());
    // On the disk, not only in memory.
    const QSettings stored(settings->organizationName(), settings->applicationName());
    QCOMPARE(stored.value(QStringLiteral("m_nTextFontSize")).toInt(), 16);
}

void tst_highlightedit::zoom_keepsTabsFourLettersWide()
{
    WithSettings settings;
    CHighlightEdit edit;
    for (const int nSize : {3, 12, 33}) {
        edit.onTextFontSize(nSize);
        QCOMPARE(edit.tabStopDistance(),
                 4.0 * QFontMetrics(edit.font()).horizontalAdvance(QLatin1Char('X')));
    }
}

void tst_highlightedit::zoom_worksOverTheGutter()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(20);
    sendWheel(edit.gutter(), 120, Qt::ControlModifier);
    QCOMPARE(edit.font().pixelSize(), 16);
}

void tst_highlightedit::plainWheel_scrolls()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(300);
    sendWheel(edit.viewport(), -240, Qt::NoModifier);
    QVERIFY(edit.verticalScrollBar()->value() > 0);
    QCOMPARE(edit.font().pixelSize(), 12);
}

void tst_highlightedit::lockedEditor_keepsItsFontSize()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setFontSizeLocked(true);
    edit.onTextFontSize(30);
    QCOMPARE(edit.font().pixelSize(), 12);
    sendWheel(edit.viewport(), 120, Qt::ControlModifier);
    QCOMPARE(edit.font().pixelSize(), 12);
    QCOMPARE(settings->m_nTextFontSize, 16); // The others still follow.
    edit.setFontSizeLocked(false);
    edit.onTextFontSize(30);
    QCOMPARE(edit.font().pixelSize(), 30);
}

void tst_highlightedit::contextMenu_hasItsEntriesInOrder()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    QMenu *pMenu = openContextMenu(&edit);
    QVERIFY(pMenu);
    QStringList lstTexts;
    const QList<QAction *> lstActions = pMenu->actions();
    for (const QAction *pAction : lstActions)
        lstTexts.append(pAction->isSeparator() ? QStringLiteral("-") : pAction->text());
    QCOMPARE(lstTexts,
             QStringList({"Copy", "Cut", "Paste", "-", "Toggle Comment", "-", "Refresh", "-",
                          "Open file position"}));
    const QAction *pComment = actionOf(pMenu, QStringLiteral("Toggle Comment"));
    QCOMPARE(pComment->shortcut(), QKeySequence(QStringLiteral("Ctrl+/")));
    QVERIFY(pComment->isShortcutVisibleInContextMenu());
    pMenu->close();

    edit.selectAll();
    pMenu = openContextMenu(&edit);
    actionOf(pMenu, QStringLiteral("Cut"))->trigger();
    pMenu->close();
    QCOMPARE(edit.toPlainText(), QString());
    pMenu = openContextMenu(&edit);
    QVERIFY(!actionOf(pMenu, QStringLiteral("Copy"))->isEnabled());
    actionOf(pMenu, QStringLiteral("Paste"))->trigger();
    pMenu->close();
    QVERIFY(edit.toPlainText().startsWith(QStringLiteral("some text of line 1\n")));
}

void tst_highlightedit::contextMenu_enablesToggleCommentWithSelectionAndCommentStrings_data()
{
    QTest::addColumn<QString>("strSingle");
    QTest::addColumn<QString>("strMultiStart");
    QTest::addColumn<bool>("bSelection");
    QTest::addColumn<bool>("bEnabled");
    QTest::newRow("nothing selected") << "//"
                                      << "/*" << false << false;
    QTest::newRow("selection") << "//"
                               << "/*" << true << true;
    QTest::newRow("selection, single line only") << "#"
                                                 << "" << true << true;
    QTest::newRow("selection, multi line only") << ""
                                                << "<!--" << true << true;
    QTest::newRow("selection, no comments") << ""
                                            << "" << true << false;
}

void tst_highlightedit::contextMenu_enablesToggleCommentWithSelectionAndCommentStrings()
{
    QFETCH(QString, strSingle);
    QFETCH(QString, strMultiStart);
    QFETCH(bool, bSelection);
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    edit.setDefinition(definition(strSingle, strMultiStart));
    if (bSelection)
        edit.selectLines(1, 2);
    QTEST(edit.canToggleComment(), "bEnabled");
    QMenu *pMenu = openContextMenu(&edit);
    QVERIFY(pMenu);
    QTEST(actionOf(pMenu, QStringLiteral("Toggle Comment"))->isEnabled(), "bEnabled");
    pMenu->close();
}

void tst_highlightedit::openFilePosition_ofAnUnsavedDocument_doesNothing()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    edit.onOpenFilePosition();
    QMenu *pMenu = openContextMenu(&edit);
    actionOf(pMenu, QStringLiteral("Open file position"))->trigger();
    pMenu->close();
    QVERIFY(!QApplication::activeModalWidget());
    QVERIFY(!edit.isModified());
}

void tst_highlightedit::focus_isAnnounced()
{
    WithSettings settings;
    Editor edit;
    QSignalSpy spy(&edit, &CHighlightEdit::focusIn);
    QFocusEvent event(QEvent::FocusIn);
    QApplication::sendEvent(&edit, &event);
    QCOMPARE(spy.count(), 1);
}

void tst_highlightedit::shiftEnter_startsANewLine()
{
    WithSettings settings;
    Editor edit;
    edit.setReturnFormat(1);
    QTest::keyClicks(&edit, QStringLiteral("a"));
    QTest::keyClick(&edit, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(&edit, QStringLiteral("b"));
    QCOMPARE(edit.blockCount(), 2);
    QCOMPARE(edit.getText(), QStringLiteral("a\nb"));
}

void tst_highlightedit::copy_keepsNoBreakSpaces()
{
    WithSettings settings;
    Editor edit;
    edit.setTextData("10\u00A0000\u2029\nnext\u00A0line", false);
    edit.selectAll();
    edit.copy();
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("10\u00A0000\u2029\nnext\u00A0line"));
}

void tst_highlightedit::droppedFiles_areLeftToTheWindow()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    QMimeData mimeData;
    mimeData.setUrls({QUrl::fromLocalFile(QStringLiteral("/some/file"))});
    QVERIFY(!edit.canInsertFromMimeData(&mimeData));
    QDragEnterEvent event(QPoint(5, 5), Qt::CopyAction, &mimeData, Qt::LeftButton, Qt::NoModifier);
    event.ignore();
    QApplication::sendEvent(edit.viewport(), &event);
    QVERIFY(!event.isAccepted());

    mimeData.setUrls({QUrl(QStringLiteral("https://example.org/"))});
    QVERIFY(edit.canInsertFromMimeData(&mimeData));
}

void tst_highlightedit::droppedText_isTaken()
{
    WithSettings settings;
    Editor edit;
    edit.showLines(3);
    QMimeData mimeData;
    mimeData.setText(QStringLiteral("dropped"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mimeData, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(edit.viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(0, 0), Qt::CopyAction, &mimeData, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(edit.viewport(), &drop);
    QVERIFY(edit.toPlainText().contains(QStringLiteral("dropped")));
}

void tst_highlightedit::darkDesktop_leavesTextReadable()
{
    WithSettings settings;
    const QPalette palBefore = QApplication::palette();
    Editor edit;
    edit.showLines(12);
    setDarkDesktop();
    Editor later;
    later.showLines(12);
    for (Editor *pEdit : {&edit, &later}) {
        pEdit->selectLines(4, 4);
        pEdit->ensurePolished();
        const QImage image = pEdit->viewport()->grab().toImage();
        QCOMPARE(image.pixelColor(image.width() - 2, pEdit->lineRect(2).top()), QColor(Qt::white));
        QVERIFY(darkest(image, pEdit->lineRect(2).adjusted(0, 0, -300, 0)) < 0x40);
        const QPalette pal = pEdit->palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const QColor clrText = pal.color(group, QPalette::Text);
            QVERIFY(contrast(clrText, pal.color(group, QPalette::Base)) >= 4.5);
            QVERIFY(contrast(clrText, QColor(0xF9, 0xF9, 0xF9)) >= 4.5);
            QVERIFY(contrast(pal.color(group, QPalette::HighlightedText), QColor(0x90, 0xDA, 0x90))
                    >= 4.5);
        }
    }
    QApplication::setPalette(palBefore);
}

void tst_highlightedit::selectedWord_isMarked()
{
    WithSettings settings;
    CHighlightEdit edit;
    edit.setPlainText(QStringLiteral("word other\nWORD\n"));
    QTextCursor cursor = edit.textCursor();
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    edit.setTextCursor(cursor);
    const auto marks = [&edit](int nBlock) {
        const auto lst = edit.document()->findBlockByNumber(nBlock).layout()->formats();
        return std::count_if(lst.cbegin(), lst.cend(), [](const QTextLayout::FormatRange &range) {
            return range.format.intProperty(QTextFormat::UserProperty) == 1;
        });
    };
    QTRY_COMPARE(marks(0), 1);
    QTRY_COMPARE(marks(1), 1);
    // A text over several lines occurs in no line.
    edit.selectAll();
    QTRY_COMPARE(marks(0), 0);
    QTRY_COMPARE(marks(1), 0);
}

void tst_highlightedit::editorClosedWhileHighlighting_endsInOrder()
{
    WithSettings settings;
    QString strText;
    for (int n = 0; n < 20000; ++n)
        strText += QStringLiteral("int value = 0x%1; // some comment \"text\"\n").arg(n);
    for (int n = 0; n < 5; ++n) {
        CHighlightEdit edit;
        edit.setDefinition(definition(QStringLiteral("//"), QStringLiteral("/*")));
        edit.setPlainText(strText);
        QTRY_VERIFY(edit.highlighter()->isRunning());
    }
}

QTEST_MAIN(tst_highlightedit)
#include "tst_highlightedit.moc"
