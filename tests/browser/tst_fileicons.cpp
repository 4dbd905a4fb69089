// Icons on a desktop with an icon theme, where they depend on MIME types and so on contents.
#include "app/platform.h"
#include "browser/cfilesystemmodel.h"
#include "browser/testtree.h"

#include <QApplication>
#include <QFileIconProvider>
#include <QPixmap>
#include <QtTest>

class tst_fileicons : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void eachFile_hasTheProvidersIcon_data();
    void eachFile_hasTheProvidersIcon();
    void sameNameWithOtherContent_hasItsOwnIcon();

private:
    void addIcon(const char *szName, Qt::GlobalColor color) const
    {
        QPixmap pixmap(16, 16);
        pixmap.fill(color);
        QVERIFY(pixmap.save(m_theme.path(
            QStringLiteral("mimes/16x16/mimetypes/%1.png").arg(QLatin1String(szName)))));
    }
    static QImage image(const QIcon &icon) { return icon.pixmap(16, 16).toImage(); }

    CTestTree m_theme;
};

void tst_fileicons::initTestCase()
{
    m_theme.addFolder(QStringLiteral("mimes/16x16/mimetypes"));
    m_theme.addFile(QStringLiteral("mimes/index.theme"),
                    "[Icon Theme]\nName=mimes\nDirectories=16x16/mimetypes\n"
                    "[16x16/mimetypes]\nSize=16\nContext=MimeTypes\nType=Fixed\n");
    addIcon("text-plain", Qt::red);
    addIcon("image-png", Qt::green);
    addIcon("text-x-c++src", Qt::blue);
    addIcon("application-x-shellscript", Qt::yellow);
    addIcon("inode-directory", Qt::cyan);
    QIcon::setThemeSearchPaths({m_theme.path()});
    QIcon::setThemeName(QStringLiteral("mimes"));
    const QString strText = m_theme.addFile(QStringLiteral("check.txt"), "text");
    const QImage shown = image(QFileIconProvider().icon(QFileInfo(strText)));
    QCOMPARE(shown.pixelColor(8, 8), QColor(Qt::red)); // The desktop's theme is in use.
}

void tst_fileicons::eachFile_hasTheProvidersIcon_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("text") << "a.txt" << QByteArray("text");
    QTest::newRow("second text") << "b.txt" << QByteArray("\x89PNG\r\n\x1a\n");
    QTest::newRow("upper case") << "C.TXT" << QByteArray("text");
    QTest::newRow("picture") << "a.png" << QByteArray("no picture");
    QTest::newRow("source") << "a.cpp" << QByteArray("int a;");
    QTest::newRow("no suffix, text") << "plain" << QByteArray("text");
    QTest::newRow("no suffix, script") << "script" << QByteArray("#!/bin/sh\necho\n");
    QTest::newRow("no suffix, picture") << "picture" << QByteArray("\x89PNG\r\n\x1a\n");
    QTest::newRow("empty") << "empty" << QByteArray();
    QTest::newRow("two types claim it") << "a.ts" << QByteArray("text");
    QTest::newRow("build file") << "CMakeLists.txt" << QByteArray("text");
    QTest::newRow("unknown suffix") << "a.unheardof" << QByteArray("text");
}

void tst_fileicons::eachFile_hasTheProvidersIcon()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    const CTestTree tree;
    tree.addFile(QStringLiteral("other.txt"), "text");
    tree.addFile(QStringLiteral("other.png"));
    tree.addFile(QStringLiteral("other"),
                 "\x7f"
                 "ELF");
    const QString strFile = tree.addFile(name, content);
    const CFileSystemModel model;
    for (const char *szOther : {"other.txt", "other.png", "other"})
        model.iconOf(QFileInfo(tree.path(QLatin1String(szOther))));
    const QStringList lstPaths {strFile, tree.addLink(QStringLiteral("link.txt"), strFile),
                                tree.addFolder(QStringLiteral("folder.txt")), strFile};
    for (const QString &strPath : lstPaths) {
        const QFileInfo info(strPath);
        QCOMPARE(image(model.iconOf(info)), image(QFileIconProvider().icon(info)));
    }
}

void tst_fileicons::sameNameWithOtherContent_hasItsOwnIcon()
{
    const CTestTree first;
    const CTestTree second;
    const QFileInfo script(first.addFile(QStringLiteral("file"), "#!/bin/sh\necho\n"));
    const QFileInfo text(second.addFile(QStringLiteral("file"), "text"));
    const CFileSystemModel model;
    QCOMPARE(image(model.iconOf(script)), image(QFileIconProvider().icon(script)));
    QCOMPARE(image(model.iconOf(text)), image(QFileIconProvider().icon(text)));
    QVERIFY(image(model.iconOf(script)) != image(model.iconOf(text)));
}

int main(int argc, char *argv[])
{
    qputenv("XDG_CURRENT_DESKTOP", "GNOME");
    qunsetenv("QT_QPA_PLATFORMTHEME");
    QApplication app(argc, argv);
    tst_fileicons test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_fileicons.moc"
