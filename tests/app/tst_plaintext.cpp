#include "app/plaintext.h"

#include <QApplication>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

class tst_PlainText : public QObject
{
    Q_OBJECT

private slots:
    void menuText_doublesTheSign()
    {
        QCOMPARE(withoutMnemonic("a&b&&c"), QString("a&&b&&&&c"));
        QCOMPARE(withoutMnemonic("plain"), QString("plain"));
    }

    void windowTitle_keepsTheMark()
    {
        QCOMPARE(plainWindowTitle("a[*]b"), QString("a[*][*]b"));
        QCOMPARE(plainWindowTitle("plain"), QString("plain"));
    }

    void toolTip_isNoMarkup()
    {
        QCOMPARE(plainToolTip("/tmp/a.txt"), QString("/tmp/a.txt"));
        const QString strTip = plainToolTip("<b>a</b>");
        QVERIFY(Qt::mightBeRichText(strTip));
        QVERIFY(strTip.contains("&lt;b&gt;a&lt;/b&gt;"));
    }

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

QTEST_MAIN(tst_PlainText)
#include "tst_plaintext.moc"
