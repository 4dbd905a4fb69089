#include "editor/chighlightedit.h"
#include "editor/clinenumberarea.h"
#include "highlight/cthreadhighlighter.h"
#include "tests/editor/withsettings.h"

#include <QPaintEvent>
#include <QRandomGenerator>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

// Checks what each change repaints: as little as possible, and always enough.

// What a widget has been asked to paint.
class CPaintLog : public QObject
{
public:
    explicit CPaintLog(QWidget *pWidget) { pWidget->installEventFilter(this); }
    bool isPainted() const { return !m_region.isEmpty(); }
    QRegion take() { return std::exchange(m_region, QRegion()); }

protected:
    bool eventFilter(QObject *, QEvent *pEvent) override
    {
        if (pEvent->type() == QEvent::Paint)
            m_region += static_cast<QPaintEvent *>(pEvent)->region();
        return false;
    }

private:
    QRegion m_region;
};

class CEdit : public CHighlightEdit
{
public:
    CLineNumberArea *gutter() { return findChild<CLineNumberArea *>(); }

    // The strip of the lines, from the first to the last, in the view.
    QRegion strip(int nFirst, int nLast)
    {
        const auto rect = [this](int nLine) {
            return blockBoundingGeometry(document()->findBlockByNumber(nLine))
                .translated(contentOffset());
        };
        // Includes the pixels that it shares with its neighbours.
        return QRectF(0, rect(nFirst).top(), 10000, rect(nLast).bottom() - rect(nFirst).top())
            .toAlignedRect()
            .adjusted(0, -2, 0, 2);
    }
    // The numbers reach a little below their lines.
    QRegion gutterStrip(int nFirst, int nLast)
    {
        return strip(nFirst, nLast) + strip(nFirst, nLast).translated(0, 6);
    }
};

class tst_repaint : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void caretInItsLine_paintsNothingButTheCaret();
    void caretToAnotherLine_paintsTheTwoLines();
    void selectionOverLines_paintsItsNumbersOnly();
    void key_paintsItsLineOnly();
    void keyInAWrappedLine_paintsThatLineOnly();
    void bracketWithPartner_paintsTheirLinesOnly();
    void cursorBlinking_paintsTheCaretOnly();
    void severalCarets_paintTheirLinesOnly();
    void leavingSeveralCarets_paintsTheirLinesOnly();
    void lineScrolledIn_paintsItsNumberOnly();
    void screenAfterAnything_isThatOfAFreshPaint_data();
    void screenAfterAnything_isThatOfAFreshPaint();

private:
    void show(const QString &strText);
    void settle();
    void place(int nLine, int nInLine, QTextCursor::MoveMode mode = QTextCursor::MoveAnchor);
    void doAnything(QRandomGenerator *pRandom);
    QImage screen() const;

    std::unique_ptr<WithSettings> m_pSettings;
    std::unique_ptr<CEdit> m_pEdit;
    std::unique_ptr<CPaintLog> m_pView;
    std::unique_ptr<CPaintLog> m_pGutter;
};

void tst_repaint::init()
{
    QApplication::setCursorFlashTime(0); // A cursor that is on now and off then is no difference.
    m_pSettings = std::make_unique<WithSettings>();
    m_pEdit = std::make_unique<CEdit>();
    m_pEdit->resize(500, 400);
    m_pView = std::make_unique<CPaintLog>(m_pEdit->viewport());
    m_pGutter = std::make_unique<CPaintLog>(m_pEdit->gutter());
}

void tst_repaint::cleanup()
{
    m_pView.reset();
    m_pGutter.reset();
    m_pEdit.reset();
    m_pSettings.reset();
}

void tst_repaint::show(const QString &strText)
{
    m_pEdit->setPlainText(strText);
    m_pEdit->show();
    m_pEdit->activateWindow();
    m_pEdit->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_pEdit.get()));
    settle();
    m_pView->take();
    m_pGutter->take();
}

// Waits until the colours have come and nothing is left to paint.
void tst_repaint::settle()
{
    for (int nQuiet = 0; nQuiet < 5;) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents();
        nQuiet = m_pEdit->highlighter()->isRunning() ? 0 : nQuiet + 1;
    }
}

void tst_repaint::place(int nLine, int nInLine, QTextCursor::MoveMode mode)
{
    QTextCursor cursor = m_pEdit->textCursor();
    cursor.setPosition(m_pEdit->document()->findBlockByNumber(nLine).position() + nInLine, mode);
    m_pEdit->setTextCursor(cursor);
}

static QString lines(int nCount)
{
    QString strText;
    for (int n = 0; n < nCount; ++n)
        strText += QStringLiteral("some text of line %1\n").arg(n);
    return strText;
}

static QString told(const QRegion &region)
{
    const QRect rect = region.boundingRect();
    return QStringLiteral("%1,%2 %3x%4")
        .arg(rect.x())
        .arg(rect.y())
        .arg(rect.width())
        .arg(rect.height());
}

#define VERIFY_WITHIN(region, limit)                                                               \
    do {                                                                                           \
        const QRegion regionPainted = region;                                                      \
        const QRegion allowed = limit;                                                             \
        QVERIFY2(regionPainted.subtracted(allowed).isEmpty(),                                      \
                 qPrintable(told(regionPainted) + " is more than " + told(allowed)));              \
    } while (false)

void tst_repaint::caretInItsLine_paintsNothingButTheCaret()
{
    show(lines(50));
    place(3, 4);
    settle();
    m_pView->take();
    QTest::keyClick(m_pEdit.get(), Qt::Key_Right);
    settle();
    const QRegion painted = m_pView->take();
    QVERIFY(!painted.isEmpty());
    VERIFY_WITHIN(painted, m_pEdit->strip(3, 3));
    const int nLetter = m_pEdit->fontMetrics().horizontalAdvance(QLatin1Char('x'));
    QVERIFY2(painted.boundingRect().width() <= 4 * nLetter, qPrintable(told(painted)));
}

void tst_repaint::caretToAnotherLine_paintsTheTwoLines()
{
    show(lines(50));
    place(3, 4);
    settle();
    m_pView->take();
    m_pGutter->take();
    place(7, 4);
    settle();
    const QRegion painted = m_pView->take();
    QVERIFY(painted.contains(m_pEdit->strip(3, 3).boundingRect().topLeft() + QPoint(200, 5)));
    QVERIFY(painted.contains(m_pEdit->strip(7, 7).boundingRect().topLeft() + QPoint(200, 5)));
    VERIFY_WITHIN(painted, m_pEdit->strip(3, 3) + m_pEdit->strip(7, 7));
    VERIFY_WITHIN(m_pGutter->take(), m_pEdit->gutterStrip(3, 3) + m_pEdit->gutterStrip(7, 7));
}

void tst_repaint::selectionOverLines_paintsItsNumbersOnly()
{
    show(lines(50));
    place(3, 4);
    place(6, 4, QTextCursor::KeepAnchor);
    settle();
    m_pView->take();
    m_pGutter->take();
    place(9, 4, QTextCursor::KeepAnchor);
    settle();
    VERIFY_WITHIN(m_pView->take(), m_pEdit->strip(6, 9));
    VERIFY_WITHIN(m_pGutter->take(), m_pEdit->gutterStrip(6, 9));
}

void tst_repaint::key_paintsItsLineOnly()
{
    show(lines(50));
    place(5, 4);
    settle();
    QTest::keyClick(m_pEdit.get(), Qt::Key_A);
    settle();
    m_pView->take();
    m_pGutter->take();
    for (const char key : {'b', '1', '=', '"', 'c'}) {
        QTest::keyClick(m_pEdit.get(), key);
        settle();
        const QRegion painted = m_pView->take();
        QVERIFY(!painted.isEmpty());
        VERIFY_WITHIN(painted, m_pEdit->strip(5, 5));
        VERIFY_WITHIN(m_pGutter->take(), m_pEdit->gutterStrip(5, 5));
    }
}

void tst_repaint::keyInAWrappedLine_paintsThatLineOnly()
{
    m_pEdit->setLineWrap(true);
    show(lines(3) + QStringLiteral("word ").repeated(60) + QLatin1Char('\n') + lines(20));
    place(3, 250);
    settle();
    m_pView->take();
    m_pGutter->take();
    QTest::keyClick(m_pEdit.get(), 'x');
    settle();
    VERIFY_WITHIN(m_pView->take(), m_pEdit->strip(3, 3));
    VERIFY_WITHIN(m_pGutter->take(), m_pEdit->gutterStrip(3, 3));
}

void tst_repaint::bracketWithPartner_paintsTheirLinesOnly()
{
    show(lines(3) + QStringLiteral("one (\n") + lines(5) + QStringLiteral(")\n") + lines(20));
    place(3, 3);
    settle();
    m_pView->take();
    place(3, 5); // Behind the bracket.
    settle();
    const QRegion painted = m_pView->take();
    const QRect partner = m_pEdit->strip(9, 9).boundingRect();
    QVERIFY(painted.contains(partner.topLeft() + QPoint(6, 5)));
    VERIFY_WITHIN(painted, m_pEdit->strip(3, 3) + m_pEdit->strip(9, 9));
}

void tst_repaint::cursorBlinking_paintsTheCaretOnly()
{
    QApplication::setCursorFlashTime(20);
    show(lines(3) + QStringLiteral("one (\n") + lines(5) + QStringLiteral(")\n"));
    place(3, 5);
    settle();
    m_pView->take();
    for (int n = 0; n < 3; ++n) {
        QTRY_VERIFY(m_pView->isPainted());
        const QRegion painted = m_pView->take();
        VERIFY_WITHIN(painted, m_pEdit->strip(3, 3));
        QVERIFY2(painted.boundingRect().width() < 20, qPrintable(told(painted)));
    }
}

void tst_repaint::severalCarets_paintTheirLinesOnly()
{
    show(lines(50));
    place(3, 4);
    settle();
    m_pView->take();
    m_pEdit->addCaretBelow();
    m_pEdit->addCaretBelow();
    settle();
    const QRegion painted = m_pView->take();
    QVERIFY(!painted.isEmpty());
    VERIFY_WITHIN(painted, m_pEdit->strip(3, 5));
    for (const char key : {'b', '1', '=', 'c'}) {
        QTest::keyClick(m_pEdit.get(), key);
        settle();
        VERIFY_WITHIN(m_pView->take(), m_pEdit->strip(3, 5));
    }
    QTest::keyClick(m_pEdit.get(), Qt::Key_Down);
    settle();
    VERIFY_WITHIN(m_pView->take(), m_pEdit->strip(3, 6));
}

void tst_repaint::leavingSeveralCarets_paintsTheirLinesOnly()
{
    show(lines(50));
    place(3, 4);
    m_pEdit->addCaretBelow();
    m_pEdit->addCaretBelow();
    settle();
    m_pView->take();
    QTest::keyClick(m_pEdit.get(), Qt::Key_Escape);
    settle();
    const QRegion painted = m_pView->take();
    QVERIFY(!painted.isEmpty());
    VERIFY_WITHIN(painted, m_pEdit->strip(3, 5));
}

void tst_repaint::lineScrolledIn_paintsItsNumberOnly()
{
    show(lines(50));
    place(20, 0);
    settle();
    m_pGutter->take();
    QScrollBar *pBar = m_pEdit->verticalScrollBar();
    pBar->setValue(pBar->value() + 1);
    settle();
    const QRegion painted = m_pGutter->take();
    QVERIFY(!painted.isEmpty());
    int nHeight = 0;
    for (const QRect &rect : painted)
        nHeight += rect.height();
    QVERIFY2(nHeight <= 3 * m_pEdit->fontMetrics().height(), qPrintable(told(painted)));
}

static QRegion differing(const QImage &one, const QImage &other)
{
    QRegion region;
    for (int nY = 0; nY < one.height(); ++nY)
        for (int nX = 0; nX < one.width(); ++nX)
            if (one.pixel(nX, nY) != other.pixel(nX, nY))
                region += QRect(nX, nY, 1, 1);
    return region;
}

QImage tst_repaint::screen() const
{
    return m_pEdit->screen()
        ->grabWindow(m_pEdit->winId())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
}

void tst_repaint::screenAfterAnything_isThatOfAFreshPaint_data()
{
    QTest::addColumn<int>("nSeed");
    QTest::addColumn<bool>("bWrap");
    for (int n = 1; n <= 6; ++n)
        QTest::addRow("%d", n) << n << (n % 2 == 0);
}

void tst_repaint::doAnything(QRandomGenerator *pRandom)
{
    static const QString s_strTyped = QStringLiteral("ab(){}[]\"1 = + // /* */ x\t");
    static const int s_arrKeys[] = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,
                                    Qt::Key_Down,   Qt::Key_Home,     Qt::Key_End,
                                    Qt::Key_PageUp, Qt::Key_Return,   Qt::Key_PageDown,
                                    Qt::Key_Delete, Qt::Key_Backspace};
    const int nKind = pRandom->bounded(14);
    if (nKind < 4) {
        const QChar c = s_strTyped.at(pRandom->bounded(s_strTyped.size()));
        QKeyEvent press(QEvent::KeyPress, c.toUpper().unicode(), Qt::NoModifier, c);
        QCoreApplication::sendEvent(m_pEdit.get(), &press);
    } else if (nKind < 9) {
        const int nKey = s_arrKeys[pRandom->bounded(int(std::size(s_arrKeys)))];
        const bool bShift = nKey < Qt::Key_Shift && pRandom->bounded(4) == 0;
        QTest::keyClick(m_pEdit.get(), Qt::Key(nKey), bShift ? Qt::ShiftModifier : Qt::NoModifier);
    } else if (nKind == 9) {
        m_pEdit->undo();
    } else if (nKind == 10) {
        QScrollBar *pBar = m_pEdit->verticalScrollBar();
        pBar->setValue(pRandom->bounded(pBar->maximum() + 1));
    } else if (nKind == 11) {
        if (pRandom->bounded(3) == 0)
            m_pEdit->selectOccurrences();
        else
            m_pEdit->addCaretBelow();
    } else if (nKind == 12) {
        QTest::keyClick(m_pEdit.get(), Qt::Key_Escape);
    } else {
        const int nLines = m_pEdit->blockCount();
        place(pRandom->bounded(nLines), 0,
              pRandom->bounded(3) == 0 ? QTextCursor::KeepAnchor : QTextCursor::MoveAnchor);
    }
}

void tst_repaint::screenAfterAnything_isThatOfAFreshPaint()
{
    QFETCH(int, nSeed);
    QFETCH(bool, bWrap);
    QRandomGenerator random(static_cast<quint32>(nSeed));
    m_pEdit->setLineWrap(bWrap);
    QString strText;
    for (int n = 0; n < 40; ++n) {
        strText += QStringLiteral("int f%1(int a) { return (a[%1] + 2); } // about it\n").arg(n);
        strText += n % 7 == 0 ? QStringLiteral("if (x) {\n/* a\n b */ }\n\n") : QString();
    }
    show(strText);
    for (int n = 0; n < 150; ++n) {
        doAnything(&random);
        settle();
        if (n % 3 == 0)
            continue; // The result of two changes together.
        const QImage shown = screen();
        const QImage fresh = m_pEdit->grab().toImage().convertToFormat(QImage::Format_RGB32);
        if (shown != fresh)
            QFAIL(qPrintable(QStringLiteral("after step %1: %2 looks otherwise")
                                 .arg(n)
                                 .arg(told(differing(shown, fresh)))));
    }
}

QTEST_MAIN(tst_repaint)
#include "tst_repaint.moc"
