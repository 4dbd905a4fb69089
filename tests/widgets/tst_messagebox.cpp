#include "support/boxanswer.h"
#include "widgets/messagebox.h"

#include <QtTest>

class tst_messagebox : public QObject
{
    Q_OBJECT

private slots:
    void box_takesNoMarkupAndHasRoomForItsTitle()
    {
        const QString strTitle = QString("a title that is longer than what it stands for");
        bool bHasRoom = false;
        const CBoxAnswer boxes({QMessageBox::No}, [&] {
            const auto *pBox = QApplication::activeModalWidget();
            bHasRoom = pBox->width() > pBox->fontMetrics().horizontalAdvance(strTitle);
        });
        const auto answer = showMessage(nullptr, QMessageBox::Warning, strTitle, "<b>x</b>",
                                        QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
        QCOMPARE(answer, QMessageBox::No);
        QCOMPARE(boxes.boxes().size(), 1);
        const SBox &box = boxes.boxes().first();
        QCOMPARE(box.strText, QString("<b>x</b>"));
        QCOMPARE(box.format, Qt::PlainText);
        QCOMPARE(box.strTitle, strTitle);
        QCOMPARE(box.icon, QMessageBox::Warning);
        QVERIFY(bHasRoom);
    }
};

QTEST_MAIN(tst_messagebox)
#include "tst_messagebox.moc"
