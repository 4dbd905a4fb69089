// Checks that links, commands, keys and settings in the documents exist.

#include <QDir>
#include <QDomDocument>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

namespace {

QString source(const QString &strPath)
{
    return QStringLiteral(QUILLAN_SOURCE_DIR "/") + strPath;
}

QString content(const QString &strPath)
{
    QFile file(source(strPath));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList documents()
{
    QStringList lstDocuments;
    for (const QString &strFolder : {QString(), QStringLiteral("docs/")}) {
        const QStringList lstNames = QDir(source(strFolder)).entryList({"*.md"}, QDir::Files);
        for (const QString &strName : lstNames)
            lstDocuments.append(strFolder + strName);
    }
    return lstDocuments;
}

QStringList captures(const QString &strText, const QString &strPattern)
{
    QStringList lstFound;
    auto it = QRegularExpression(strPattern).globalMatch(strText);
    while (it.hasNext())
        lstFound.append(it.next().captured(1));
    return lstFound;
}

// The first cells of the table below a heading of the README.
QStringList firstColumn(const QString &strHeading)
{
    const QString strSection = content(QStringLiteral("README.md"))
                                   .section("\n## " + strHeading + '\n', 1)
                                   .section("\n## ", 0, 0);
    QStringList lstCells = captures(strSection, QStringLiteral("\n\\| ([^|]+) \\|"));
    lstCells.removeFirst(); // The head; the ruler below it does not match.
    return lstCells;
}

// The keys of the form's actions.
QSet<QString> formKeys()
{
    QDomDocument dom;
    dom.setContent(content(QStringLiteral("mainwindow/mainwindow.ui")));
    QSet<QString> keys;
    const QDomNodeList lstProperties = dom.elementsByTagName(QStringLiteral("property"));
    for (int n = 0; n < lstProperties.size(); ++n) {
        const QDomElement property = lstProperties.at(n).toElement();
        if (property.attribute(QStringLiteral("name")) == QLatin1String("shortcut"))
            keys.insert(property.text().trimmed());
    }
    return keys;
}

// Keys without a shortcut, and the place in the code that handles them.
const QHash<QString, QPair<QString, QString>> &handledKeys()
{
    static const QHash<QString, QPair<QString, QString>> s_keys = {
        {"Tab", {"widgets/typedkeys.h", "Qt::Key_Tab"}},
        {"Shift+Tab", {"widgets/typedkeys.h", "Qt::Key_Backtab"}},
        {"Alt+drag", {"editor/chighlightedit_mouse.cpp", "Qt::AltModifier"}},
        {"Escape", {"editor/chighlightedit_caretkeys.cpp", "Qt::Key_Escape"}},
        {"Alt+letter", {"editor/chighlightedit_commands.cpp", "openMenuOfLetter"}},
        {"Ctrl+wheel", {"editor/chighlightedit.cpp", "CHighlightEdit::wheelEvent"}},
        {"Ctrl held", {"web/ceditwebview_events.cpp", "Qt::Key_Control"}},
        {"Enter", {"widgets/typedkeys.h", "Qt::Key_Return"}},
        {"F2", {"browser/cwidgetfilelist_keys.cpp", "Qt::Key_F2"}},
        {"Delete", {"browser/cwidgetfilelist_keys.cpp", "Qt::Key_Delete"}},
        {"Ctrl+Alt+N", {"browser/cwidgetfilelist_keys.cpp", "Qt::AltModifier, Qt::Key_N"}},
        {"Ctrl+Page Down", {"mainwindow/mainwindow_keys.cpp", "Ctrl+PgDown"}},
        {"Ctrl+Page Up", {"mainwindow/mainwindow_keys.cpp", "Ctrl+PgUp"}},
        {"Alt+1 … Alt+9", {"mainwindow/mainwindow_keys.cpp", "Alt+%1"}},
        {"Ctrl+plus", {"widgets/typedkeys.h", "Qt::Key_Plus"}},
        {"Ctrl+minus", {"widgets/typedkeys.h", "Qt::Key_Minus"}},
        {"Ctrl+0", {"widgets/typedkeys.h", "Qt::Key_0"}},
        {"Backspace", {"browser/cwidgetfilelist_keys.cpp", "Qt::Key_Backspace"}},
        {"middle button", {"mainwindow/ctabwidget.cpp", "Qt::MiddleButton"}},
        {"double click beside the tabs", {"mainwindow/ctabwidget.cpp", "mouseDoubleClickEvent"}},
    };
    return s_keys;
}

} // namespace

class tst_documents_truth : public QObject
{
    Q_OBJECT

private slots:
    void everyLink_leadsToAFile();
    void everyNamedScript_isThereAndRuns();
    void everyNamedPreset_exists();
    void setup_isSilentWhenNothingIsMissing();
    void everyKeyOfTheReadme_isInTheCode();
    void everyKeyOfTheForm_isInTheReadme();
    void settingsOfTheReadme_areThoseOfTheProgram();
    void manualPage_namesTheOptionsOfTheLauncher();
};

void tst_documents_truth::everyLink_leadsToAFile()
{
    int nLinks = 0;
    const QStringList lstDocuments = documents();
    for (const QString &strDocument : lstDocuments) {
        const QStringList lstLinks =
            captures(content(strDocument), QStringLiteral("\\]\\(([^)#\\s]+)[^)]*\\)"));
        for (const QString &strLink : lstLinks) {
            ++nLinks;
            if (strLink.contains(QLatin1String("://")))
                continue;
            const QDir folder = QFileInfo(source(strDocument)).dir();
            QVERIFY2(folder.exists(strLink), qPrintable(strDocument + ": " + strLink));
        }
    }
    QVERIFY(nLinks >= 8);
}

void tst_documents_truth::everyNamedScript_isThereAndRuns()
{
    int nScripts = 0;
    const QStringList lstDocuments = documents();
    for (const QString &strDocument : lstDocuments) {
        const QStringList lstScripts =
            captures(content(strDocument),
                     QStringLiteral("((?:\\./|scripts/|\\.ci/)[\\w-]+(?:\\.(?:sh|py))?)\\b"));
        for (const QString &strScript : lstScripts) {
            ++nScripts;
            const QFileInfo info(source(strScript));
            // packages.sh is only a list that other scripts read.
            const bool bRuns = info.isExecutable() || info.fileName() == "packages.sh";
            QVERIFY2(info.isFile() && bRuns, qPrintable(strDocument + ": " + strScript));
        }
    }
    QVERIFY(nScripts >= 8);
}

void tst_documents_truth::everyNamedPreset_exists()
{
    QSet<QString> presets;
    const QJsonObject json =
        QJsonDocument::fromJson(content(QStringLiteral("CMakePresets.json")).toUtf8()).object();
    for (const char *szKind : {"configurePresets", "buildPresets", "testPresets"}) {
        const QJsonArray arrPresets = json[QLatin1String(szKind)].toArray();
        for (const QJsonValue preset : arrPresets)
            presets.insert(preset["name"].toString());
    }
    int nPresets = 0;
    const QStringList lstDocuments = documents();
    for (const QString &strDocument : lstDocuments) {
        const QStringList lstPresets =
            captures(content(strDocument), QStringLiteral("--preset[ =]([a-z]+)"));
        for (const QString &strPreset : lstPresets) {
            ++nPresets;
            QVERIFY2(presets.contains(strPreset), qPrintable(strDocument + ": " + strPreset));
        }
    }
    QVERIFY(nPresets >= 6);
}

// The packages that built this test are installed, so nothing may be printed or fetched.
void tst_documents_truth::setup_isSilentWhenNothingIsMissing()
{
    const QTemporaryDir folder;
    for (const char *szTool : {"apt-get", "sudo"}) {
        QFile tool(folder.filePath(QLatin1String(szTool)));
        QVERIFY(tool.open(QIODevice::WriteOnly));
        tool.write("#!/bin/sh\necho \"$0 was called\"\nexit 1\n");
        tool.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert("PATH", folder.path() + ':' + env.value("PATH"));
    QProcess process;
    process.setProcessEnvironment(env);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(source("scripts/setup.sh"), {"run"});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAll(), QByteArray());
    QCOMPARE(process.exitCode(), 0);
}

void tst_documents_truth::everyKeyOfTheReadme_isInTheCode()
{
    const QSet<QString> keys = formKeys();
    const QString strCode = content("mainwindow/mainwindow_keys.cpp")
        + content("mainwindow/chtmltoolbar.cpp") + content("pageedit/cpagetoolbar.cpp")
        + content("browser/cwidgetfilelist_keys.cpp")
        + content("editor/chighlightedit_commands.cpp");
    int nKeys = 0;
    const QStringList lstCells = firstColumn(QStringLiteral("Keys"));
    for (const QString &strCell : lstCells) {
        const QStringList lstKeys = strCell.split(QRegularExpression(", |; | or "));
        for (const QString &strKey : lstKeys) {
            ++nKeys;
            const auto handled = handledKeys().value(strKey);
            const bool bHandled =
                !handled.first.isEmpty() && content(handled.first).contains(handled.second);
            QVERIFY2(bHandled || keys.contains(strKey) || strCode.contains('"' + strKey + '"'),
                     qPrintable(strKey));
        }
    }
    QVERIFY(nKeys >= 40);
}

void tst_documents_truth::everyKeyOfTheForm_isInTheReadme()
{
    QSet<QString> told;
    const QStringList lstCells = firstColumn(QStringLiteral("Keys"));
    for (const QString &strCell : lstCells) {
        const QStringList lstKeys = strCell.split(QRegularExpression(", |; | or "));
        for (const QString &strKey : lstKeys)
            told.insert(strKey);
    }
    const QSet<QString> keys = formKeys();
    QVERIFY(keys.size() > 20);
    for (const QString &strKey : keys)
        QVERIFY2(told.contains(strKey), qPrintable(strKey));
}

void tst_documents_truth::settingsOfTheReadme_areThoseOfTheProgram()
{
    const QStringList lstTold =
        captures(firstColumn(QStringLiteral("Settings")).join(' '), QStringLiteral("`(m_\\w+)`"));
    const QStringList lstKeys =
        captures(content(QStringLiteral("app/csettings.cpp")), QStringLiteral("\\{\"(m_\\w+)\""));
    const QSet<QString> told(lstTold.begin(), lstTold.end());
    const QSet<QString> keys(lstKeys.begin(), lstKeys.end());
    QCOMPARE(keys.size(), 18);
    QCOMPARE(told, keys);
}

void tst_documents_truth::manualPage_namesTheOptionsOfTheLauncher()
{
    const QString strPage =
        content(QStringLiteral("packaging/linux/quillan.1.in")).replace("\\-", "-");
    const QStringList lstTold = captures(strPage, QStringLiteral("\n\\.TP\n\\.B (--[a-z]*)(?=\n)"));
    const QStringList lstKnown = captures(content(QStringLiteral("packaging/linux/quillan.sh.in")),
                                          QStringLiteral("\n +(--[a-z]*)\\)"));
    const QSet<QString> told(lstTold.begin(), lstTold.end());
    const QSet<QString> known(lstKnown.begin(), lstKnown.end());
    QCOMPARE(known.size(), 3);
    QCOMPARE(told, known);
}

QTEST_GUILESS_MAIN(tst_documents_truth)
#include "tst_documents_truth.moc"
