#include "pagecases.h"
#include "web/cpagemerge.h"
#include "web/realpages.h"

#include "pageedit/pagecommands.h"
#include "pageedit/tablecommands.h"
#include "web/cpagereader.h"
#include "web/xmlcheck.h"

#include <QRegularExpression>
#include <QUndoStack>

Q_DECLARE_METATYPE(SPageCase)

// Checks the result of each command, case by case, and that each is one step of undo.
// QUILLAN_PROMOTE=1 writes the results into the files of cases; look at the difference.
class tst_pagecommands : public CPageTest
{
    Q_OBJECT

private:
    QString m_strSource; // As the page was loaded.
    CPageReader m_reader;
    void open(const SPageCase &pageCase);
    QString shown(const SPageCase &pageCase) const;
    bool runCase(const SPageCase &pageCase);
    void checkSaving(const QString &strBefore);

private slots:
    void command_makesWhatAPersonWouldWrite_data();
    void command_makesWhatAPersonWouldWrite();
    void xhtml_staysWellFormed();
    void steps_standBetweenThoseOfTyping();
    void undoToTheFile_clearsTheFlag();
};

namespace {

bool isWhole(const SPageCase &pageCase)
{
    return pageCase.strBefore.startsWith(QLatin1String("<html"));
}

QString asXhtml(const SPageCase &pageCase)
{
    static const QRegularExpression s_regExpVoid(
        QStringLiteral("<(br|hr|img|col|meta|link|input)([^>]*?) ?/?>"));
    QString strHtml = isWhole(pageCase)
        ? pageCase.strBefore
        : QStringLiteral("<html><head><title>x</title></head><body>%1</body></html>")
              .arg(pageCase.strBefore);
    strHtml.replace(s_regExpVoid, QStringLiteral("<\\1\\2 />"));
    strHtml.replace(QLatin1String("&nbsp;"), QLatin1String("&#160;"));
    strHtml.replace(QLatin1String("<html"),
                    QLatin1String("<html xmlns=\"http://www.w3.org/1999/xhtml\""));
    return QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n") + strHtml;
}

// The file with another result for one case.
void promote(const SPageCase &pageCase, const QString &strAfter)
{
    const QString strPath =
        QStringLiteral(QUILLAN_SOURCE_DIR "/tests/pageedit/cases/%1.txt").arg(pageCase.strFile);
    QString strText = QString::fromUtf8(contentOf(strPath));
    const int nCase = strText.indexOf(QStringLiteral("== %1\n").arg(pageCase.strName));
    const QString strMark = QStringLiteral("-- after\n");
    const int nAfter = strText.indexOf(strMark, nCase) + strMark.size();
    int nEnd = strText.indexOf(QLatin1String("\n== "), nAfter - 1);
    nEnd = nEnd < 0 ? strText.size() : nEnd;
    strText.replace(nAfter, nEnd - nAfter, strAfter + QLatin1Char('\n'));
    QFile file(strPath);
    if (file.open(QIODevice::WriteOnly))
        file.write(strText.toUtf8());
}

} // namespace

void tst_pagecommands::open(const SPageCase &pageCase)
{
    const QString strHtml = isWhole(pageCase)
        ? pageCase.strBefore
        : QStringLiteral("<!DOCTYPE html><html><head></head><body>%1</body></html>")
              .arg(pageCase.strBefore);
    m_strSource = withoutMarks(strHtml);
    set(strHtml);
    const QString strPlaces = takeMarks(m_pView);
    set(m_strSource);
    selectPlaces(m_pView, strPlaces);
}

QString tst_pagecommands::shown(const SPageCase &pageCase) const
{
    return isWhole(pageCase) ? m_pView->toHtml() : body();
}

// A saved page reads back as the shown page, and has only those lines changed that the command
// changed.
void tst_pagecommands::checkSaving(const QString &strBefore)
{
    const QString strShown = m_pView->toHtml();
    const QString strSource = asLines(m_strSource);
    const QString strSaved = QString::fromUtf8(m_pView->htmlForSaving());
    QCOMPARE(comparablePage(m_reader.serialised(strSaved)), comparablePage(strShown));
    QVERIFY2(changedLines(strSource, asLines(strSaved)) <= changedLines(strBefore, strShown),
             qPrintable(strSaved));
}

void tst_pagecommands::command_makesWhatAPersonWouldWrite_data()
{
    QTest::addColumn<SPageCase>("pageCase");
    for (const SPageCase &pageCase : allPageCases())
        QTest::newRow(qPrintable(pageCase.strFile + QLatin1String(": ") + pageCase.strName))
            << pageCase;
}

void tst_pagecommands::command_makesWhatAPersonWouldWrite()
{
    QFETCH(SPageCase, pageCase);
    open(pageCase);
    const QString strSource = m_pView->toHtml();
    const QString strBefore = shown(pageCase);
    const bool bChanged = runCase(pageCase);
    const QString strAfter = shown(pageCase);
    QCOMPARE(bChanged, strAfter != strBefore);
    QCOMPARE(m_pView->page()->undoStack()->count(), bChanged ? 1 : 0);
    if (bChanged) {
        m_pView->triggerEdit(QWebPage::Undo);
        QCOMPARE(shown(pageCase), strBefore);
        m_pView->triggerEdit(QWebPage::Redo);
        QCOMPARE(shown(pageCase), strAfter);
    }
    checkSaving(strSource);
    markSelected(m_pView);
    const QString strMarked = shown(pageCase);
    if (qEnvironmentVariableIsSet("QUILLAN_PROMOTE") && strMarked != pageCase.strAfter) {
        promote(pageCase, strMarked);
        return;
    }
    const bool bMarks = pageCase.strAfter != withoutMarks(pageCase.strAfter);
    QCOMPARE(bMarks ? strMarked : strAfter, pageCase.strAfter);
}

bool tst_pagecommands::runCase(const SPageCase &pageCase)
{
    const QString strTable = QStringLiteral("table.");
    return pageCase.strCommand.startsWith(strTable)
        ? runTableCommand(m_pView, pageCase.strCommand.mid(strTable.size()))
        : runPageCommand(m_pView, pageCase.strCommand, pageCase.arguments);
}

// All cases that a page in XML can hold, in one.
void tst_pagecommands::xhtml_staysWellFormed()
{
    int nTried = 0;
    for (SPageCase pageCase : allPageCases()) {
        pageCase.strBefore = asXhtml(pageCase);
        m_strSource = withoutMarks(pageCase.strBefore);
        if (!isWellFormedXml(m_strSource))
            continue;
        set(pageCase.strBefore);
        const QString strPlaces = takeMarks(m_pView);
        set(m_strSource);
        selectPlaces(m_pView, strPlaces);
        if (!runCase(pageCase))
            continue;
        ++nTried;
        const QString strSaved = QString::fromUtf8(m_pView->htmlForSaving());
        QVERIFY2(isWellFormedXml(strSaved),
                 qPrintable(pageCase.strName + QLatin1Char('\n') + strSaved));
        QCOMPARE(comparablePage(m_reader.serialised(strSaved)), comparablePage(m_pView->toHtml()));
    }
    QVERIFY2(nTried > 100, qPrintable(QString::number(nTried)));
}

void tst_pagecommands::steps_standBetweenThoseOfTyping()
{
    set(QStringLiteral("<p>one</p>"));
    m_pView->setFocus();
    run(m_pView,
        QStringLiteral("getSelection().collapse(document.querySelector('p').firstChild, 3)"));
    QStringList lstStates {body()};
    const auto type = [&](const QString &strText) {
        QTest::keyClicks(m_pView, strText);
        lstStates.append(body());
    };
    const auto style = [&](const char *szStyle) {
        QVERIFY(runPageCommand(m_pView, QStringLiteral("style"),
                               {{QStringLiteral("style"), QLatin1String(szStyle)}}));
        lstStates.append(body());
    };
    type(QStringLiteral("a"));
    style("h2");
    type(QStringLiteral("b"));
    style("blockquote");
    style("p");
    type(QStringLiteral("c"));
    QCOMPARE(lstStates.constLast(), QStringLiteral("<p>oneabc</p>"));
    for (int nRound = 0; nRound < 2; ++nRound) {
        for (int n = lstStates.size() - 2; n >= 0; --n) {
            m_pView->triggerEdit(QWebPage::Undo);
            QCOMPARE(body(), lstStates.at(n));
        }
        for (int n = 1; n < lstStates.size(); ++n) {
            m_pView->triggerEdit(QWebPage::Redo);
            QCOMPARE(body(), lstStates.at(n));
        }
    }
}

void tst_pagecommands::undoToTheFile_clearsTheFlag()
{
    set(QStringLiteral("<p>one</p>"));
    followChanges(m_pView);
    selectElement(m_pView, QStringLiteral("p"));
    QVERIFY(runPageCommand(m_pView, QStringLiteral("style"),
                           {{QStringLiteral("style"), QStringLiteral("h1")}}));
    QVERIFY(m_pView->isModified());
    m_pView->triggerEdit(QWebPage::Undo);
    QVERIFY(!m_pView->isModified());
    m_pView->triggerEdit(QWebPage::Redo);
    QVERIFY(m_pView->isModified());
}

QTEST_MAIN(tst_pagecommands)
#include "tst_pagecommands.moc"
