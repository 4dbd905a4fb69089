#include "app/commonhelpers.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

#include <algorithm>

class tst_commonhelpers : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale::c()); }
    void size_hasItsText_data();
    void size_hasItsText();
    void size_isGroupedAsTheLocaleDoes();
    void date_isInTheSystemLocalesFormat();
    void entries_areOrdered_data();
    void entries_areOrdered();
    void order_isStrict();
    void buttonStyle_hasItsColors_data();
    void buttonStyle_hasItsColors();
    void stepStyle_isTheSameInEveryState();
    void unknownStyle_changesNothing_data();
    void unknownStyle_changesNothing();
    void everyStyle_isUnderstood_data();
    void everyStyle_isUnderstood();
    void showAndActivate_showsOnlyOnDemand();
};

void tst_commonhelpers::size_hasItsText_data()
{
    QTest::addColumn<qint64>("size");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *szName, qint64 nSize, const char *szText) {
        QTest::newRow(szName) << nSize << QString(QLatin1String(szText));
    };
    row("none", 0, "0 B");
    row("last of the bytes", 1023, "1,023 B");
    row("first of the kilobytes", 1024, "1 KB");
    row("kilobytes are cut", 2047, "1 KB");
    row("last of the kilobytes", 1048575, "1,023 KB");
    row("first of the megabytes", 1048576, "1.0 MB");
    row("megabytes have one decimal", 1572864, "1.5 MB");
    row("last of the megabytes", 1073741823, "1,024.0 MB"); // Single precision.
    row("first of the gigabytes", 1073741824, "1.00 GB");
    row("gigabytes have two decimals", 1342177280, "1.25 GB");
    row("first of the terabytes", 1099511627776, "1.000 TB");
    row("terabytes have three decimals", 1236950581248, "1.125 TB");
    row("largest", std::numeric_limits<qint64>::max(), "8,388,608.000 TB");
    row("negative", -1, "-1 B");
    row("very negative", -5000, "-5,000 B");
}

void tst_commonhelpers::size_hasItsText()
{
    QFETCH(qint64, size);
    QFETCH(QString, text);
    QLocale locale = QLocale::c();
    locale.setNumberOptions(QLocale::DefaultNumberOptions); // "C" leaves the grouping out.
    QLocale::setDefault(locale);
    QCOMPARE(getSizeText(size), text);
}

void tst_commonhelpers::size_isGroupedAsTheLocaleDoes()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(getSizeText(1023), QStringLiteral("1.023 B"));
    QCOMPARE(getSizeText(1572864), QStringLiteral("1,5 MB"));
    QLocale::setDefault(QLocale::c());
}

void tst_commonhelpers::date_isInTheSystemLocalesFormat()
{
    const QDateTime date(QDate(2026, 3, 14), QTime(15, 9, 26));
    QCOMPARE(getDateText(date), QLocale::system().toString(date, QLocale::ShortFormat));
    QVERIFY(getDateText(date).contains(QLatin1String("26")));
    QCOMPARE(getDateText(QDateTime()), QString());
}

void tst_commonhelpers::entries_areOrdered_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<bool>("less");
    const auto row = [](const char *szName, const char *szFirst, const char *szSecond, bool bLess) {
        QTest::newRow(szName) << QString(QLatin1String(szFirst)) << QString(QLatin1String(szSecond))
                              << bLess;
    };
    row("folder before file", "z/", "a", true);
    row("file not before folder", "a", "z/", false);
    row("files by name", "a", "b", true);
    row("files by name, reversed", "b", "a", false);
    row("case does not count", "B", "a", false);
    row("nor here", "a", "B", true);
    row("equal but for case", "a", "A", false);
    row("the same", "a", "a", false);
    row("folders by name", "B/", "c/", true);
    row("plain, not natural", "10", "9", true);
    row("root before folder", "/", "a/", true);
    row("folder not before root", "a/", "/", false);
    row("root before file", "/", "a", true);
    row("root not before itself", "/", "/", false);
}

void tst_commonhelpers::entries_areOrdered()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(bool, less);
    const QTemporaryDir dir;
    const auto entry = [&dir](const QString &strName) {
        if (strName == QLatin1String("/"))
            return QFileInfo(QDir::rootPath());
        if (strName.endsWith(QLatin1Char('/')))
            QDir(dir.path()).mkdir(strName.chopped(1));
        return QFileInfo(dir.filePath(strName.split(QLatin1Char('/')).first()));
    };
    QCOMPARE(lessFileInfo(entry(first), entry(second)), less);
}

void tst_commonhelpers::order_isStrict()
{
    const QFileInfoList lst = QDir(QDir::rootPath()).entryInfoList() + QDir::drives();
    for (const QFileInfo &a : lst)
        for (const QFileInfo &b : lst)
            QVERIFY(!(lessFileInfo(a, b) && lessFileInfo(b, a)));
}

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

void tst_commonhelpers::buttonStyle_hasItsColors_data()
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

void tst_commonhelpers::buttonStyle_hasItsColors()
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

void tst_commonhelpers::stepStyle_isTheSameInEveryState()
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

void tst_commonhelpers::unknownStyle_changesNothing_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("unknown") << QStringLiteral("red");
    QTest::newRow("another case") << QStringLiteral("Green");
    QTest::newRow("empty") << QString();
}

void tst_commonhelpers::unknownStyle_changesNothing()
{
    QFETCH(QString, name);
    QPushButton button;
    button.setStyleSheet(QStringLiteral("QPushButton{color:red;}"));
    setButtonStyle(&button, name);
    QCOMPARE(button.styleSheet(), QStringLiteral("QPushButton{color:red;}"));
}

void tst_commonhelpers::everyStyle_isUnderstood_data()
{
    QTest::addColumn<QString>("name");
    for (const char *szName : {"green", "blue", "yellow", "step_blue", "step_yellow"})
        QTest::newRow(szName) << QString(QLatin1String(szName));
}

// Qt warns of a sheet that it cannot parse.
void tst_commonhelpers::everyStyle_isUnderstood()
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

void tst_commonhelpers::showAndActivate_showsOnlyOnDemand()
{
    QWidget widget;
    showAndActivate(&widget, false);
    QVERIFY(!widget.isVisible());
    showAndActivate(&widget, true);
    QVERIFY(widget.isVisible());
    QVERIFY(QTest::qWaitForWindowActive(&widget));
}

QTEST_MAIN(tst_commonhelpers)
#include "tst_commonhelpers.moc"
