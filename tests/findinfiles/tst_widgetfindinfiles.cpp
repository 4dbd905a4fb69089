// The panel under real keys and clicks.
#include "app/csettings.h"
#include "browser/testtree.h"
#include "findinfiles/cfindresults.h"
#include "findinfiles/cwidgetfindinfiles.h"
#include "findinfiles/findquery.h"
#include "findinfiles/resulttext.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeView>
#include <QtTest>

// A panel on the screen, with helpers for the tests.
class CPanel : public CWidgetFindInFiles
{
public:
    explicit CPanel(const QString &strFolder)
        : m_spyMatch(this, &CWidgetFindInFiles::matchActivated),
          m_spyReplaced(this, &CWidgetFindInFiles::fileReplaced),
          m_spyMessage(this, &CWidgetFindInFiles::statusMessage),
          m_tester(tree()->model(), QAbstractItemModelTester::FailureReportingMode::QtTest)
    {
        resize(600, 400);
        setFolder(strFolder);
        show();
        prepare(QString());
        activateWindow();
    }

    QLineEdit *field(const char *szName) const
    {
        return findChild<QLineEdit *>(QLatin1String(szName));
    }
    QCheckBox *check(const char *szName) const
    {
        return findChild<QCheckBox *>(QLatin1String(szName));
    }
    QPushButton *button(const char *szName) const
    {
        return findChild<QPushButton *>(QLatin1String(szName));
    }
    QTreeView *tree() const { return findChild<QTreeView *>(); }

    // "file (count)" and, indented, its lines.
    QStringList rows() const
    {
        QStringList lst;
        const QAbstractItemModel *pModel = tree()->model();
        for (int n = 0; n < pModel->rowCount(); ++n) {
            const QModelIndex file = pModel->index(n, 0);
            lst.append(file.data().toString());
            for (int nRow = 0; nRow < pModel->rowCount(file); ++nRow)
                lst.append(' ' + pModel->index(nRow, 0, file).data().toString());
        }
        return lst;
    }

    QModelIndex match(int nFile, int nRow) const
    {
        return tree()->model()->index(nRow, 0, tree()->model()->index(nFile, 0));
    }

    bool find(const QString &strText)
    {
        m_spyMessage.clear();
        field("editText")->setFocus();
        field("editText")->selectAll();
        QTest::keyClicks(field("editText"), strText);
        QTest::keyClick(field("editText"), Qt::Key_Return);
        return QTest::qWaitFor([this] { return !m_spyMessage.isEmpty(); }, 20000);
    }

    bool replace(const QString &strText)
    {
        check("checkReplace")->setChecked(true);
        field("editReplace")->setText(strText);
        m_spyMessage.clear();
        QTest::mouseClick(button("btnReplace"), Qt::LeftButton);
        return QTest::qWaitFor([this] { return !m_spyMessage.isEmpty(); }, 20000);
    }

    QSignalSpy m_spyMatch;
    QSignalSpy m_spyReplaced;
    QSignalSpy m_spyMessage;
    QAbstractItemModelTester m_tester;
};

class tst_widgetfindinfiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void line_showsItsPartsAsTheyStand();
    void enter_searchesTheFolder();
    void options_areThoseOfTheFindDialog();
    void badInput_saysWhatIsMissing();
    void escape_endsTheSearch();
    void choosing_asksForTheMatch();
    void everyControl_hasANameAndIsReachedByTab();
    void typedFolder_stays();
    void replacement_isShownAndDone();
    void uncheckedMatches_stay();
    void clickOnACheckBox_opensNothing();
    void refusedFiles_sayWhy();
    void thousandsOfFiles_areListedInOrder();

private:
    std::unique_ptr<CSettings> m_pSettings;
};

static QByteArray content(const QString &strPath)
{
    QFile file(strPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no such file");
}

void tst_widgetfindinfiles::init()
{
    m_pSettings = std::make_unique<CSettings>(QStringLiteral("Test"), QStringLiteral("panel"));
    g_pSettings = m_pSettings.get();
}

void tst_widgetfindinfiles::cleanup()
{
    g_pSettings = nullptr;
    m_pSettings.reset();
    QSettings(QStringLiteral("Test"), QStringLiteral("panel")).clear();
}

void tst_widgetfindinfiles::line_showsItsPartsAsTheyStand()
{
    SFileMatch match;
    match.nLine = 12;
    match.nLength = 5;
    match.strExcerpt = QStringLiteral("\t a\t<b>ne\u202el</b>");
    match.nExcerptColumn = 7;
    const SResultText plain = resultText(match, nullptr);
    QCOMPARE(plain.strText, QStringLiteral("12: a <b>ne<U+202E>l</b>"));
    QCOMPARE(plain.strText.mid(plain.match.nStart, plain.match.nLength),
             QStringLiteral("ne<U+202E>l<"));
    QVERIFY(!plain.replacement.isValid());
    const QString strReplace = QStringLiteral("new");
    const SResultText both = resultText(match, &strReplace);
    QCOMPARE(both.strText.mid(both.replacement.nStart, both.replacement.nLength), strReplace);
    QCOMPARE(both.match.end(), both.replacement.nStart);
    QCOMPARE(both.strText, QStringLiteral("12: a <b>ne<U+202E>l<new/b>"));
}

void tst_widgetfindinfiles::enter_searchesTheFolder()
{
    const CTestTree tree;
    tree.addFolder(QStringLiteral("sub"));
    tree.addFile(QStringLiteral("b.txt"), "x\n  a needle\nNeedle\n");
    tree.addFile(QStringLiteral("sub/a.txt"), "needle\n");
    CPanel panel(tree.path());
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    QVERIFY(panel.find(QStringLiteral("needle")));
    QCOMPARE(
        panel.rows(),
        QStringList({"b.txt (2)", " 2: a needle", " 3: Needle", "sub/a.txt (1)", " 1: needle"}));
    QVERIFY(panel.tree()->isExpanded(panel.tree()->model()->index(1, 0)));
    QVERIFY(panel.m_spyMessage.last().first().toString().contains('3'));
    QVERIFY(!panel.button("btnCancel")->isEnabled());
    QVERIFY(panel.find(QStringLiteral("nothing of the kind")));
    QCOMPARE(panel.rows(), QStringList());
}

void tst_widgetfindinfiles::options_areThoseOfTheFindDialog()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"), "needle Needles need.e\n");
    g_pSettings->m_bFindMatchCase = true;
    g_pSettings->m_bFindMatchWholeWord = true;
    CPanel panel(tree.path());
    QVERIFY(panel.find(QStringLiteral("Needle")));
    QCOMPARE(panel.rows(), QStringList());
    panel.check("checkWord")->setChecked(false);
    QVERIFY(panel.find(QStringLiteral("Needle")));
    QCOMPARE(panel.rows().size(), 2);
    panel.check("checkCase")->setChecked(false);
    panel.check("checkRegExp")->setChecked(true);
    QVERIFY(panel.find(QStringLiteral("need.e")));
    QCOMPARE(panel.rows().size(), 4);
    QVERIFY(g_pSettings->m_bFindMatchCase); // The find dialog keeps its own.
}

void tst_widgetfindinfiles::badInput_saysWhatIsMissing()
{
    const CTestTree tree;
    CPanel panel(tree.path());
    QVERIFY(panel.find(QString()));
    panel.check("checkRegExp")->setChecked(true);
    QVERIFY(panel.find(QStringLiteral("(")));
    panel.check("checkRegExp")->setChecked(false);
    panel.field("editFolder")->setText(QStringLiteral("/nowhere/at/all"));
    QVERIFY(panel.find(QStringLiteral("a")));
    QCOMPARE(panel.rows(), QStringList());
}

void tst_widgetfindinfiles::escape_endsTheSearch()
{
    const CTestTree tree;
    for (int n = 0; n < 500; ++n)
        tree.addFile(QString::number(n), QByteArray("needle\n").repeated(100));
    CPanel panel(tree.path());
    panel.field("editText")->setText(QStringLiteral("needle"));
    panel.m_spyMessage.clear();
    QTest::keyClick(panel.field("editText"), Qt::Key_Return);
    QVERIFY(panel.button("btnCancel")->isEnabled());
    QTest::keyClick(panel.field("editText"), Qt::Key_Escape);
    QCOMPARE(panel.m_spyMessage.size(), 1);
    QVERIFY(!panel.button("btnCancel")->isEnabled());
}

void tst_widgetfindinfiles::choosing_asksForTheMatch()
{
    const CTestTree tree;
    const QString strPath = tree.addFile(QStringLiteral("a"), "one\ntwo needle\n");
    CPanel panel(tree.path());
    QVERIFY(panel.find(QStringLiteral("needle")));
    const QVariantList lstExpected {strPath, 2, 4, 6};
    const QPoint pos = panel.tree()->visualRect(panel.match(0, 0)).center();
    QTest::mouseClick(panel.tree()->viewport(), Qt::LeftButton, {}, pos);
    QCOMPARE(panel.m_spyMatch.size(), 1);
    QCOMPARE(panel.m_spyMatch.first(), lstExpected);
    panel.tree()->setFocus();
    panel.tree()->setCurrentIndex(panel.tree()->model()->index(0, 0));
    QTest::keyClick(panel.tree(), Qt::Key_Return); // A file's row is no match.
    QCOMPARE(panel.m_spyMatch.size(), 1);
    QTest::keyClick(panel.tree(), Qt::Key_Down);
    QTest::keyClick(panel.tree(), Qt::Key_Return);
    QCOMPARE(panel.m_spyMatch.size(), 2);
    QCOMPARE(panel.m_spyMatch.last(), lstExpected);
}

void tst_widgetfindinfiles::everyControl_hasANameAndIsReachedByTab()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"), "needle\n");
    CPanel panel(tree.path());
    QVERIFY(QTest::qWaitForWindowActive(&panel));
    QVERIFY(panel.find(QStringLiteral("needle")));
    panel.check("checkReplace")->setChecked(true);
    panel.field("editText")->setFocus();
    QSet<QWidget *> reached;
    for (int n = 0; n < 20; ++n) {
        QWidget *pFocus = panel.focusWidget();
        reached.insert(pFocus);
        QTest::keyClick(pFocus, Qt::Key_Tab);
    }
    for (const char *szName : {"editText", "editReplace", "editFolder", "editNames"}) {
        QVERIFY(reached.contains(panel.field(szName)));
        QVERIFY(!panel.field(szName)->accessibleName().isEmpty());
    }
    for (const char *szName : {"checkReplace", "checkCase", "checkWord", "checkRegExp"})
        QVERIFY(reached.contains(panel.check(szName)));
    for (const char *szName : {"btnFind", "btnReplace"})
        QVERIFY(reached.contains(panel.button(szName)));
    QVERIFY(reached.contains(panel.tree()));
    QVERIFY(!panel.tree()->accessibleName().isEmpty());
}

void tst_widgetfindinfiles::typedFolder_stays()
{
    const CTestTree tree;
    CPanel panel(tree.path());
    panel.setFolder(QStringLiteral("/tmp"));
    QCOMPARE(panel.field("editFolder")->text(), QStringLiteral("/tmp"));
    panel.field("editFolder")->selectAll();
    QTest::keyClicks(panel.field("editFolder"), tree.path());
    panel.setFolder(QStringLiteral("/"));
    QCOMPARE(panel.field("editFolder")->text(), tree.path());
}

void tst_widgetfindinfiles::replacement_isShownAndDone()
{
    const CTestTree tree;
    const QString strA = tree.addFile(QStringLiteral("a"), "old old\n");
    const QString strB = tree.addFile(QStringLiteral("b"), "an old b\r\n");
    CPanel panel(tree.path());
    QVERIFY(panel.find(QStringLiteral("old")));
    QVERIFY(!panel.button("btnReplace")->isEnabled());
    QVERIFY(!panel.match(0, 0).data(Qt::CheckStateRole).isValid());
    QVERIFY(panel.replace(QStringLiteral("new")));
    QCOMPARE(panel.rows(), QStringList());
    QCOMPARE(content(strA), QByteArray("new new\n"));
    QCOMPARE(content(strB), QByteArray("an new b\r\n"));
    QCOMPARE(panel.m_spyReplaced.size(), 2);
    QVERIFY(!panel.button("btnReplace")->isEnabled());
}

void tst_widgetfindinfiles::uncheckedMatches_stay()
{
    const CTestTree tree;
    const QString strA = tree.addFile(QStringLiteral("a"), "old old\n");
    const QString strB = tree.addFile(QStringLiteral("b"), "old\n");
    CPanel panel(tree.path());
    QVERIFY(panel.find(QStringLiteral("old")));
    panel.check("checkReplace")->setChecked(true);
    panel.field("editReplace")->setText(QStringLiteral("new"));
    QCOMPARE(panel.rows().at(1), QStringLiteral(" 1: oldnew old"));
    panel.tree()->setFocus();
    panel.tree()->setCurrentIndex(panel.match(0, 1));
    QTest::keyClick(panel.tree(), Qt::Key_Space);
    QCOMPARE(panel.match(0, 1).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(panel.match(0, 1).parent().data(Qt::CheckStateRole).toInt(),
             int(Qt::PartiallyChecked));
    panel.tree()->setCurrentIndex(panel.tree()->model()->index(1, 0)); // A whole file.
    QTest::keyClick(panel.tree(), Qt::Key_Space);
    QCOMPARE(panel.match(1, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QVERIFY(panel.replace(QStringLiteral("new")));
    QCOMPARE(content(strA), QByteArray("new old\n"));
    QCOMPARE(content(strB), QByteArray("old\n"));
}

void tst_widgetfindinfiles::clickOnACheckBox_opensNothing()
{
    const CTestTree tree;
    tree.addFile(QStringLiteral("a"), "old\n");
    CPanel panel(tree.path());
    QVERIFY(panel.find(QStringLiteral("old")));
    panel.check("checkReplace")->setChecked(true);
    const QRect rect = panel.tree()->visualRect(panel.match(0, 0));
    QTest::mouseClick(panel.tree()->viewport(), Qt::LeftButton, {},
                      QPoint(rect.left() + 10, rect.center().y()));
    QCOMPARE(panel.match(0, 0).data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    QCOMPARE(panel.m_spyMatch.size(), 0);
    QTest::mouseClick(panel.tree()->viewport(), Qt::LeftButton, {},
                      QPoint(rect.left() + 60, rect.center().y()));
    QCOMPARE(panel.m_spyMatch.size(), 1);
}

void tst_widgetfindinfiles::refusedFiles_sayWhy()
{
    const CTestTree tree;
    const QString strOpen = tree.addFile(QStringLiteral("a"), "old\n");
    const QString strChanged = tree.addFile(QStringLiteral("b"), "old\n");
    const QString strFine = tree.addFile(QStringLiteral("c"), "old\n");
    CPanel panel(tree.path());
    panel.setGuard([&](const QString &strPath) {
        return strPath == strOpen ? QStringLiteral("open elsewhere") : QString();
    });
    QVERIFY(panel.find(QStringLiteral("old")));
    tree.addFile(QStringLiteral("b"), "an old one\n");
    QVERIFY(panel.replace(QStringLiteral("new")));
    QCOMPARE(content(strOpen), QByteArray("old\n"));
    QCOMPARE(content(strChanged), QByteArray("an old one\n"));
    QCOMPARE(content(strFine), QByteArray("new\n"));
    QCOMPARE(panel.rows().size(), 4);
    QVERIFY(panel.rows().at(0).contains("open elsewhere"));
    QVERIFY(panel.rows().at(2).length() > QString("b (1)").length());
    QCOMPARE(panel.m_spyReplaced.size(), 1);
}

void tst_widgetfindinfiles::thousandsOfFiles_areListedInOrder()
{
    CFindResults results;
    QStringList lstPaths;
    QVector<SFileMatches> lstFiles;
    for (int n = 0; n < 3000; ++n) {
        SFileMatches file;
        file.strPath = QStringLiteral("/x/%1").arg((n * 7919) % 3000, 4, 10, QLatin1Char('0'));
        file.lstMatches.resize(1);
        lstFiles.append(file);
        lstPaths.append(file.strPath);
    }
    results.start(QStringLiteral("/x"));
    results.add(lstFiles);
    lstPaths.sort();
    for (int n = 0; n < 3000; ++n) {
        const QModelIndex file = results.index(n, 0);
        QCOMPARE(results.pathOf(file), lstPaths.at(n));
        QCOMPARE(results.index(0, 0, file).parent(), file);
    }
}

QTEST_MAIN(tst_widgetfindinfiles)
#include "tst_widgetfindinfiles.moc"
