#include "browser/cmenulistview.h"
#include "browser/cmenulistwidget.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QSignalSpy>
#include <QtTest>

class tst_menulists : public QObject
{
    Q_OBJECT

private slots:
    void separator_standsBetweenTheActions() { runOnBoth(&checkSeparator); }
    void emptyList_hasNoMenu() { runOnBoth(&checkEmpty); }
    void secondList_replacesTheFirst() { runOnBoth(&checkReplaced); }
    void chosenEntry_tellsItsText() { runOnBoth(&checkChosen); }

private:
    // The menu as it pops up on a right click.
    struct SList
    {
        QWidget *pWidget;
        std::function<void(const QStringList &)> setActions;
        std::function<QStringList(const QString &)> choose;
    };

    void runOnBoth(void (*pCheck)(const SList &))
    {
        CMenuListView view;
        pCheck(describe(&view));
        CMenuListWidget widget;
        pCheck(describe(&widget));
    }

    template<class T> static SList describe(T *pList)
    {
        pList->show();
        return {pList->viewport(), [pList](const QStringList &lst) { pList->setActions(lst); },
                [pList](const QString &strText) {
                    QSignalSpy spy(pList, &T::clickAction);
                    const QMenu *pMenu = popUp(pList->viewport());
                    for (QAction *pAction : pMenu ? pMenu->actions() : QList<QAction *>())
                        if (pAction->text() == strText)
                            pAction->trigger();
                    closePopup();
                    QStringList lst;
                    for (const QList<QVariant> &lstArguments : spy)
                        lst.append(lstArguments.first().toString());
                    return lst;
                }};
    }

    static QMenu *popUp(QWidget *pWidget)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5),
                                pWidget->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(pWidget, &event);
        return qobject_cast<QMenu *>(QApplication::activePopupWidget());
    }

    static void closePopup()
    {
        if (QWidget *pPopup = QApplication::activePopupWidget())
            pPopup->close();
    }

    static QStringList entries(const QMenu *pMenu)
    {
        QStringList lst;
        for (const QAction *pAction : pMenu->actions())
            lst.append(pAction->isSeparator() ? QStringLiteral("|") : pAction->text());
        return lst;
    }

    static void checkSeparator(const SList &list)
    {
        list.setActions({QStringLiteral("A"), QStringLiteral("separator"), QStringLiteral("B"),
                         QStringLiteral("Separator")});
        const QMenu *pMenu = popUp(list.pWidget);
        QVERIFY(pMenu);
        QCOMPARE(entries(pMenu),
                 QStringList({QStringLiteral("A"), QStringLiteral("|"), QStringLiteral("B"),
                              QStringLiteral("Separator")}));
        closePopup();
    }

    static void checkEmpty(const SList &list)
    {
        QVERIFY(!popUp(list.pWidget));
        list.setActions({QStringLiteral("A")});
        list.setActions({});
        QVERIFY(!popUp(list.pWidget));
    }

    static void checkReplaced(const SList &list)
    {
        list.setActions({QStringLiteral("A"), QStringLiteral("B")});
        list.setActions({QStringLiteral("C")});
        const QMenu *pMenu = popUp(list.pWidget);
        QVERIFY(pMenu);
        QCOMPARE(entries(pMenu), QStringList(QStringLiteral("C")));
        closePopup();
    }

    // Two entries of one text cannot be told apart.
    static void checkChosen(const SList &list)
    {
        list.setActions({QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("B")});
        QCOMPARE(list.choose(QStringLiteral("A")), QStringList(QStringLiteral("A")));
        QCOMPARE(list.choose(QStringLiteral("B")),
                 QStringList({QStringLiteral("B"), QStringLiteral("B")}));
    }
};

QTEST_MAIN(tst_menulists)
#include "tst_menulists.moc"
