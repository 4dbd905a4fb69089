// Makes thousands of random edits, definition changes and selections while passes run. When all is
// quiet, every block must equal a fresh pass, and no result of an older text may ever have been
// shown.
#include "highlight/chighlightrules.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"
#include "highlight/definitions.h"
#include "highlight/highlightededitor.h"
#include "tests/highlight/cliteralrules.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextCursor>

class tst_editstorm : public QObject
{
    Q_OBJECT
private slots:
    void settledDocument_equalsAFreshPass_data();
    void settledDocument_equalsAFreshPass();
};

namespace {

class CStorm
{
public:
    CStorm(quint32 nSeed, bool bDeclared)
        : m_random(nSeed),
          m_lstDefinitions(bDeclared ? declaredDefinitions() : nastyDefinitions().values())
    {
        m_lstDefinitions.append(QVariantMap());
    }

    void step();

    SHighlightedEditor m_editor;
    QVariantMap m_mapDefinition;
    bool m_bDefined = false;

private:
    int below(int nBound) { return int(m_random.bounded(quint32(nBound))); }
    QString text(int nPieces);
    QTextCursor randomCursor();
    void editBlock();

    QRandomGenerator m_random;
    QList<QVariantMap> m_lstDefinitions;
};

QString CStorm::text(int nPieces)
{
    static const QStringList lst = {
        "/*",     "*/", "//",       "\"",        "\\",    "\n",   "\n",  "\n\n",
        "<",      ">",  "int ",     "if",        " x1 ",  "0x1f", "=",   "<!--",
        "-->",    "#",  "\u00e9",   "end if",    "value", "--",   "'",   "<<E",
        "\nE\n",  "$(", ")",        "`",         "{",     "}",    "=",   "q(",
        "<?php ", "?>", "<script>", "</script>", "```",   "  ",   "|\n", "=begin\n"};
    QString str;
    for (int n = 0; n < nPieces; ++n)
        str += lst.at(below(lst.size()));
    return str;
}

QTextCursor CStorm::randomCursor()
{
    QTextCursor cursor(&m_editor.document);
    cursor.setPosition(below(m_editor.document.characterCount()));
    return cursor;
}

void CStorm::editBlock()
{
    QTextCursor cursor = randomCursor();
    cursor.beginEditBlock();
    cursor.insertText(text(5));
    cursor.setPosition(below(m_editor.document.characterCount()));
    cursor.insertText(text(5));
    cursor.movePosition(QTextCursor::Start);
    cursor.insertText("\n");
    cursor.endEditBlock();
}

void CStorm::step()
{
    CTextDocument &document = m_editor.document;
    const int nKind = below(100);
    if (nKind < 35) {
        randomCursor().insertText(text(1 + below(6)));
    } else if (nKind < 55) {
        QTextCursor cursor = randomCursor();
        const int nEnd = qMin(cursor.position() + below(40), document.characterCount() - 1);
        cursor.setPosition(nEnd, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    } else if (nKind < 65) {
        document.undo();
    } else if (nKind < 72) {
        document.redo();
    } else if (nKind < 80) {
        QTextCursor(&document).insertText("\n");
    } else if (nKind < 86) {
        editBlock();
    } else if (nKind < 87) {
        document.setPlainText(text(600));
    } else if (nKind < 88) {
        document.clear();
    } else if (nKind < 90) {
        m_mapDefinition = m_lstDefinitions.at(below(m_lstDefinitions.size()));
        m_bDefined = true;
        m_editor.pHighlighter->setDefinition(m_mapDefinition);
    } else if (nKind < 95) {
        m_editor.pHighlighter->setSelectedWord(below(2) ? "value" : "int ");
    } else if (nKind < 96) {
        m_editor.pHighlighter->rehighlight();
    } else if (nKind < 98) {
        const int nFirst = below(document.blockCount());
        m_editor.pHighlighter->setVisibleLines(nFirst, nFirst + below(60));
    } else {
        QCoreApplication::processEvents();
    }
}

} // namespace

void tst_editstorm::settledDocument_equalsAFreshPass_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<bool>("declared");
    for (quint32 nSeed = 1; nSeed <= 6; ++nSeed) {
        QTest::addRow("seed %u", nSeed) << nSeed << false;
        QTest::addRow("seed %u, declared regions", nSeed) << nSeed << true;
    }
}

void tst_editstorm::settledDocument_equalsAFreshPass()
{
    QFETCH(quint32, seed);
    QFETCH(bool, declared);
    CStorm storm(seed, declared);
    bool bOld = false;
    connect(storm.m_editor.pHighlighter, &CThreadHighlighter::blockFormatChanged, this,
            [&](uint nVersion) { bOld = bOld || nVersion != storm.m_editor.document.version(); });
    storm.m_editor.document.setPlainText(QString("int value = 1; // a\n").repeated(400));
    for (int nRound = 0; nRound < 5; ++nRound) {
        for (int n = 0; n < 120; ++n) {
            storm.step();
            if (n % 3 == 0)
                QCoreApplication::processEvents();
        }
        QVERIFY(storm.m_editor.settle());
        if (storm.m_mapDefinition.contains("regions")) {
            const CHighlightRules rules(storm.m_mapDefinition);
            QCOMPARE(firstDifference(storm.m_editor.document, rules), QString());
        } else {
            const CLiteralRules rules =
                storm.m_bDefined ? CLiteralRules(storm.m_mapDefinition) : CLiteralRules();
            QCOMPARE(firstDifference(storm.m_editor.document, rules), QString());
        }
        QVERIFY(!bOld);
    }
}

QTEST_MAIN(tst_editstorm)
#include "tst_editstorm.moc"
