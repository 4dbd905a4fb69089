#include "widgets/messagebox.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

class tst_messagebox : public QObject
{
    Q_OBJECT

private slots:
    void box_takesNoMarkupAndHasRoomForItsTitle()
    {
        const QString strTitle = QString("a title that is longer than what it stands for");
        bool bSeen = false;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            auto *pBox = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
            if (!pBox || !pBox->isVisible())
                return;
            bSeen = pBox->text() == "<b>x</b>" && pBox->textFormat() == Qt::PlainText
                && pBox->windowTitle() == strTitle && pBox->icon() == QMessageBox::Warning
                && pBox->width() > pBox->fontMetrics().horizontalAdvance(strTitle);
            pBox->button(QMessageBox::No)->click();
        });
        timer.start(5);
        const auto answer = showMessage(nullptr, QMessageBox::Warning, strTitle, "<b>x</b>",
                                        QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes);
        QVERIFY(bSeen);
        QCOMPARE(answer, QMessageBox::No);
    }
};

QTEST_MAIN(tst_messagebox)
#include "tst_messagebox.moc"
