// The program under the locales of its languages, and under others, where it speaks English.

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QProcessEnvironment environment(const QString &strLocale, const QTemporaryDir &home)
{
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    // What QLocale::system() asks; it needs no locale data of the system.
    for (const char *szName : {"LC_ALL", "LC_MESSAGES", "LANG"})
        env.insert(QLatin1String(szName), strLocale + QLatin1String(".UTF-8"));
    env.remove("LANGUAGE");
    env.insert("XDG_CONFIG_HOME", home.filePath("config"));
    env.insert("XDG_DATA_HOME", home.filePath("data"));
    env.insert("TMPDIR", home.path());
    return env;
}

QString output(const QString &strProgram, const QStringList &lstArguments)
{
    QProcess process;
    process.start(strProgram, lstArguments);
    process.waitForFinished();
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

QString windowTitle(const QProcess &process)
{
    const QString strId = output("xdotool",
                                 {"search", "--onlyvisible", "--all", "--pid",
                                  QString::number(process.processId()), "--name", "Quillan"})
                              .section('\n', 0, 0);
    return strId.isEmpty() ? QString() : output("xdotool", {"getwindowname", strId});
}

} // namespace

class tst_languages : public QObject
{
    Q_OBJECT

private slots:
    void texts_areOfTheLanguage_data();
    void texts_areOfTheLanguage();
    void startedProgram_speaksTheLanguage_data();
    void startedProgram_speaksTheLanguage();
};

void tst_languages::texts_areOfTheLanguage_data()
{
    QTest::addColumn<QString>("strLocale");
    QTest::addColumn<QStringList>("lstMenus");
    QTest::addColumn<QStringList>("lstActions"); // Open, Undo, Find Next, Redo
    QTest::addColumn<QStringList>("lstDocks"); // Folder Browser, Preview
    QTest::addColumn<QStringList>("lstFind"); // title, tabs, label, button, option
    QTest::addColumn<QStringList>("lstGo"); // title, label, buttons
    QTest::addColumn<QStringList>("lstBox"); // title, text
    QTest::addColumn<QStringList>("lstButtons"); // Yes, No, Cancel: Qt's own texts

    const QStringList lstEnglish[] = {
        {"File", "Edit", "Format", "View", "Help"},
        {"Open...", "Undo", "Find Next", "Redo"},
        {"Folder Browser", "Preview"},
        {"Find", "Find", "Replace", "Find what:", "Find Next", "Match case"},
        {"Go to Line", "Line:", "Go", "Close"},
        {"File modified", "Do you save the modified file?"},
        {"&Yes", "&No", "Cancel"}};
    const auto english = [&lstEnglish](const char *szLocale) {
        QTest::newRow(szLocale) << szLocale << lstEnglish[0] << lstEnglish[1] << lstEnglish[2]
                                << lstEnglish[3] << lstEnglish[4] << lstEnglish[5] << lstEnglish[6];
    };
    english("zh_TW");
    english("de_DE");
    english("en_US");
    QTest::newRow("zh_CN") << "zh_CN" << QStringList {"文件", "编辑", "格式", "视图", "帮助"}
                           << QStringList {"打开...", "撤销", "查找下一个", "重做"}
                           << QStringList {"文件夹浏览器", "预览"}
                           << QStringList {"查找",       "查找",       "替换",
                                           "查找内容：", "查找下一个", "区分大小写"}
                           << QStringList {"转到行", "行号：", "转到", "关闭"}
                           << QStringList {"文件已修改", "是否保存已修改的文件？"}
                           << QStringList {"是(&Y)", "否(&N)", "取消"};
    // Qt's own buttons stay English on a Japanese desktop.
    QTest::newRow("ja_JP") << "ja_JP" << QStringList {"ファイル", "編集", "書式", "表示", "ヘルプ"}
                           << QStringList {"開く...", "元に戻す", "次を検索", "やり直し"}
                           << QStringList {"フォルダー ブラウザー", "プレビュー"}
                           << QStringList {"検索",     "検索",
                                           "置換",     "検索する文字列:",
                                           "次を検索", "大文字と小文字を区別する"}
                           << QStringList {"指定行へ移動", "行番号:", "移動", "閉じる"}
                           << QStringList {"ファイルの変更", "変更したファイルを保存しますか?"}
                           << lstEnglish[6];
}

void tst_languages::texts_areOfTheLanguage()
{
    QFETCH(QString, strLocale);
    const QTemporaryDir home;
    QProcess process;
    process.setProcessEnvironment(environment(strLocale, home));
    process.start(QStringLiteral(QUILLAN_BINARY_DIR "/tests/mainwindow/windowtexts"),
                  QStringList());
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);
    const QJsonObject texts = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    QCOMPARE(texts["locale"].toString(), strLocale.toLower());

    const auto pick = [&texts](const char *szPart, const QStringList &lstNames) {
        QStringList lstTexts;
        for (const QString &strName : lstNames)
            lstTexts.append(texts[QLatin1String(szPart)].toObject()[strName].toString());
        return lstTexts;
    };
    QStringList lstMenus;
    const QJsonArray arrMenus = texts["menus"].toArray();
    for (const QJsonValue menu : arrMenus)
        lstMenus.append(menu.toString());
    QTEST(lstMenus, "lstMenus");
    QTEST(pick("actions", {"actionOpen", "actionUndo", "actionFind_Next", "actionRedo"}),
          "lstActions");
    QTEST(pick("docks", {"Folder Browser", "Preview"}), "lstDocks");
    QTEST(
        pick("find", {"title", "tab0", "tab1", "label_3", "btn_find_next", "checkBox_match_case"}),
        "lstFind");
    QTEST(pick("go", {"title", "label", "btnGo", "btnClose"}), "lstGo");
    QTEST(pick("close", {"title", "text"}), "lstBox");
    QTEST(pick("close", {"yes", "no", "cancel"}), "lstButtons");
}

void tst_languages::startedProgram_speaksTheLanguage_data()
{
    QTest::addColumn<QString>("strTitle");
    QTest::newRow("zh_CN") << "Quillan(未命名)";
    QTest::newRow("ja_JP") << "Quillan(無題)";
    QTest::newRow("zh_TW") << "Quillan(Untitled)";
    QTest::newRow("de_DE") << "Quillan(Untitled)";
}

// The window's title is what other programs can read of it: a new document's name.
void tst_languages::startedProgram_speaksTheLanguage()
{
    QFETCH(QString, strTitle);
    const QTemporaryDir home;
    QProcess process;
    process.setProcessEnvironment(environment(QLatin1String(QTest::currentDataTag()), home));
    process.start(QStringLiteral(QUILLAN_BINARY_DIR "/quillan"), QStringList());
    QTRY_COMPARE_WITH_TIMEOUT(windowTitle(process), QStringLiteral("Quillan"), 20000);
    output("xdotool",
           {"search", "--sync", "--onlyvisible", "--pid", QString::number(process.processId()),
            "--name", "Quillan", "windowfocus", "--sync", "key", "ctrl+n"});
    QTRY_COMPARE_WITH_TIMEOUT(windowTitle(process), strTitle, 20000);
    process.terminate();
    QVERIFY(process.waitForFinished(20000));
}

QTEST_GUILESS_MAIN(tst_languages)
#include "tst_languages.moc"
