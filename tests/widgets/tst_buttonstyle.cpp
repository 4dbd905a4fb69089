#include "widgets/buttonstyle.h"

#include <QPushButton>
#include <QToolButton>
#include <QtTest>

class tst_buttonstyle : public QObject
{
    Q_OBJECT

private slots:
    void buttonStyle_hasItsColors_data();
    void buttonStyle_hasItsColors();
    void stepStyle_isTheSameInEveryState();
    void unknownStyle_changesNothing_data();
    void unknownStyle_changesNothing();
    void everyStyle_isUnderstood_data();
    void everyStyle_isUnderstood();
    void showAndActivate_showsOnlyOnDemand();
};

// The declarations of one state, without blanks.
static QString declarations(const QString &strStyle, const QString &strState)
{
    QString strPlain = strStyle;
    strPlain.remove(QLatin1Char(' ')).remove(QLatin1Char('\n'));
    for (const char *szWidget : {"QPushButton", "QToolButton"})
        if (!strPlain.contains(QLatin1String(szWidget) + strState))
            return QString();
    const int nStart =
        strPlain.indexOf(QString(QLatin1String("QToolButton") + strState + QLatin1Char('{')));
    return strPlain.mid(nStart, strPlain.indexOf(QLatin1Char('}'), nStart) - nStart);
}

void tst_buttonstyle::buttonStyle_hasItsColors_data()
{
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("parts");
    const auto row = [](const char *szStyle, const char *szState, const QStringList &lstParts) {
        QTest::addRow("%s%s", szStyle, szState)
            << QString(QLatin1String(szStyle)) << QString(QLatin1String(szState)) << lstParts;
    };
    const auto gradient = [](const char *szFrom, const char *szTo, const char *szBorder,
                             const char *szText) {
        return QStringList {
            QStringLiteral("background:qlineargradient(x1:0,y1:0,x2:0,y2:1,"
                           "stop:0%1,stop:1.0%2)")
                .arg(QLatin1String(szFrom), QLatin1String(szTo)),
            QStringLiteral("border-color:%1;").arg(QLatin1String(szBorder)),
            QStringLiteral(";color:%1;").arg(QLatin1String(szText)),
            QStringLiteral("border-style:outset;border-width:1px;border-radius:5px;"),
            QStringLiteral("padding:1px;")};
    };
    row("green", "", gradient("#90dfa2", "#84d494", "#64c878", "#fff"));
    row("green", ":hover", gradient("#aaebb9", "#82d392", "#11505C", "#fff"));
    row("green", ":pressed", gradient("#5eac6e", "#72b37e", "#4d7254", "#fff"));
    row("green", ":disabled", gradient("#f2f3f7", "#e4e8ec", "#dce1e6", "#8c96a0"));
    row("yellow", "", gradient("#fece34", "#d8a605", "#fedd71", "#fff"));
    row("yellow", ":hover", gradient("#ffd859", "#e3bb38", "#11505C", "#fff"));
    row("yellow", ":pressed", gradient("#d3a203", "#dba907", "#816b1f", "#fff"));
    row("yellow", ":disabled", gradient("#f2f3f7", "#e4e8ec", "#dce1e6", "#8c96a0"));
    row("blue", "", {QStringLiteral("border-width:0px;padding:1px;")});
    row("blue", ":hover",
        {QStringLiteral("border-style:outset;border-width:1px;"),
         QStringLiteral("border-color:#9911505C;"), QStringLiteral("background-color:#4097ce77;")});
    row("blue", ":pressed",
        {QStringLiteral("background-color:#1197ce77;"), QStringLiteral("border-color:#991e7db9;")});
}

void tst_buttonstyle::buttonStyle_hasItsColors()
{
    QFETCH(QString, style);
    QFETCH(QString, state);
    QFETCH(QStringList, parts);
    QPushButton button;
    setButtonStyle(&button, style);
    const QString strDeclarations = declarations(button.styleSheet(), state);
    for (const QString &strPart : parts)
        QVERIFY2(strDeclarations.contains(strPart),
                 qPrintable(strPart + QLatin1String(" in ") + strDeclarations));
}

void tst_buttonstyle::stepStyle_isTheSameInEveryState()
{
    const QStringList lstBorders {QStringLiteral("border-top:1pxsolid#abbbcc;"),
                                  QStringLiteral("border-left:1pxsolid#a7b6c7;"),
                                  QStringLiteral("border-bottom:1pxsolid#a1afbf;"),
                                  QStringLiteral("border-right:1pxsolid#a7b6c7;"),
                                  QStringLiteral("padding:1px;")};
    const QMap<QString, QStringList> mapOwn {
        {QStringLiteral("step_blue"),
         {QStringLiteral("background-color:#d7e5f5;"),
          QStringLiteral("border-radius:12px12px5px5px;"),
          QStringLiteral("background-image:-webkit-linear-gradient(top,#d7e5f5,#cbe0f5);")}},
        {QStringLiteral("step_yellow"),
         {QStringLiteral("background-color:#fece34;"), QStringLiteral("border-radius:12px;"),
          QStringLiteral("background-image:-webkit-linear-gradient(top,#fece34,#d8a605);")}}};
    for (auto it = mapOwn.cbegin(); it != mapOwn.cend(); ++it) {
        QToolButton button;
        setButtonStyle(&button, it.key());
        for (const char *szState : {"", ":hover", ":pressed", ":disabled"}) {
            const QString strText = declarations(button.styleSheet(), QLatin1String(szState));
            const QStringList lstParts = it.value() + lstBorders;
            for (const QString &strPart : lstParts)
                QVERIFY2(strText.contains(strPart), qPrintable(strPart));
            const bool bDisabled = qstrcmp(szState, ":disabled") == 0;
            QVERIFY(strText.contains(bDisabled ? QStringLiteral(";color:#8c96a0;")
                                               : QStringLiteral(";color:#1a3e66;")));
        }
    }
}

void tst_buttonstyle::unknownStyle_changesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << QStringLiteral("red");
    QTest::newRow("another case") << QStringLiteral("Green");
    QTest::newRow("empty") << QString();
}

void tst_buttonstyle::unknownStyle_changesNothing()
{
    QFETCH(QString, name);
    QPushButton button;
    button.setStyleSheet(QStringLiteral("QPushButton{color:red;}"));
    setButtonStyle(&button, name);
    QCOMPARE(button.styleSheet(), QStringLiteral("QPushButton{color:red;}"));
}

void tst_buttonstyle::everyStyle_isUnderstood_data()
{
    QTest::addColumn<QString>("name");
    for (const char *szName : {"green", "blue", "yellow", "step_blue", "step_yellow"})
        QTest::newRow(szName) << QString(QLatin1String(szName));
}

// Qt warns of a sheet that it cannot parse.
void tst_buttonstyle::everyStyle_isUnderstood()
{
    QFETCH(QString, name);
    static int s_nWarnings;
    s_nWarnings = 0;
    const QtMessageHandler pOld = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &) { ++s_nWarnings; });
    QPushButton button(QStringLiteral("text"));
    setButtonStyle(&button, name);
    button.show();
    button.grab();
    qInstallMessageHandler(pOld);
    QVERIFY(!button.styleSheet().isEmpty());
    QCOMPARE(s_nWarnings, 0);
}

void tst_buttonstyle::showAndActivate_showsOnlyOnDemand()
{
    QWidget widget;
    showAndActivate(&widget, false);
    QVERIFY(!widget.isVisible());
    showAndActivate(&widget, true);
    QVERIFY(widget.isVisible());
    QVERIFY(QTest::qWaitForWindowActive(&widget));
}

QTEST_MAIN(tst_buttonstyle)
#include "tst_buttonstyle.moc"
