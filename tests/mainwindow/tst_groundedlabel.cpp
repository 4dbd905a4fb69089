#include "mainwindow/cgroundedlabel.h"

#include <QTest>

// The label looks exactly like any label on that background.
class tst_groundedlabel : public QObject
{
    Q_OBJECT

private slots:
    void texts_lookAsInAnyLabel_data();
    void texts_lookAsInAnyLabel();
};

static QImage shown(QLabel *pLabel, const QString &strText, Qt::LayoutDirection direction)
{
    pLabel->setTextFormat(Qt::PlainText);
    pLabel->setMargin(2);
    pLabel->setFrameShape(QFrame::StyledPanel);
    pLabel->setFrameShadow(QFrame::Sunken);
    pLabel->setStyleSheet(QStringLiteral("QLabel{color:#444;font-size:11px}"));
    pLabel->setLayoutDirection(direction);
    pLabel->setText(QStringLiteral("another one"));
    pLabel->setFixedSize(150, 22);
    pLabel->grab(); // What it keeps for the next time.
    pLabel->setText(strText);
    return pLabel->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void tst_groundedlabel::texts_lookAsInAnyLabel_data()
{
    QTest::addColumn<QString>("strText");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("place") << "row: 12, col: 34, sel: 0" << Qt::LeftToRight;
    QTest::newRow("in a window from the right") << "row: 12, col: 34, sel: 0" << Qt::RightToLeft;
    QTest::newRow("text from the right") << QString(5, QChar(0x5d0)) << Qt::LeftToRight;
    QTest::newRow("none") << "" << Qt::LeftToRight;
    QTest::newRow("too long") << "row: 1234567, col: 1234567, sel: 1234567" << Qt::LeftToRight;
}

void tst_groundedlabel::texts_lookAsInAnyLabel()
{
    QFETCH(QString, strText);
    QFETCH(Qt::LayoutDirection, direction);
    QLabel usual;
    CGroundedLabel grounded(usual.palette().color(QPalette::Window), nullptr);
    const QImage expected = shown(&usual, strText, direction);
    QCOMPARE(shown(&grounded, strText, direction), expected);
}

QTEST_MAIN(tst_groundedlabel)
#include "tst_groundedlabel.moc"
