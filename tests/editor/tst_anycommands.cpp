// Random commands in an editor whose text counts as very large, so that blocks get their colours
// when they are laid out: nothing crashes, the highlighter's copy is the text, and the colours are
// those of the same text in a new editor. QUILLAN_SEED: another session.
#include "editor/creplaceall.h"
#include "editorcase.h"
#include "highlight/chighlightmgt.h"
#include "highlight/clinestore.h"
#include "highlight/cstoredtext.h"
#include "highlight/ctextdocument.h"
#include "highlight/cthreadhighlighter.h"
#include "randomtext.h"
#include "tests/support/awaitcolours.h"

#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>

namespace {

QString textOf(const QTextDocument *pDocument)
{
    QString strText = pDocument->toRawText();
    return strText.replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

bool settle(const CHighlightEdit &edit)
{
    return awaitColours(*edit.textDocument(), *edit.highlighter());
}

} // namespace

class tst_anycommands : public QObject, private CEditorCase
{
    Q_OBJECT

private slots:
    void init()
    {
        makeEditor();
        m_lstNotes.clear();
    }
    void cleanup()
    {
        if (QTest::currentTestFailed())
            fprintf(stderr, "the last steps: %s\n",
                    qPrintable(QStringList(m_lstNotes.mid(m_lstNotes.size() - 30)).join(", ")));
        removeEditor();
    }

    void textAndColours_areRight_data()
    {
        QTest::addColumn<uint>("seed");
        const int nGiven = qEnvironmentVariableIntValue("QUILLAN_SEED");
        for (uint nSeed = 1; nSeed <= (nGiven ? 1 : 4); ++nSeed)
            QTest::addRow("seed %u", nGiven ? uint(nGiven) : nSeed)
                << (nGiven ? uint(nGiven) : nSeed);
    }

    void textAndColours_areRight()
    {
        QFETCH(uint, seed);
        m_random.seed(seed);
        m_definition =
            CHighlightMgt::parse(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter/cpp.xml"));
        QVERIFY(!m_definition.isEmpty());
        m_pEdit->resize(500, 300);
        m_pEdit->show();
        m_pEdit->setDefinition(m_definition);
        m_pEdit->textDocument()->setLargeFrom(below(2) ? 2 : 3000);
        m_pEdit->setTextData(anyText(8000).toUtf8(), false);
        for (int nRound = 0; nRound < 8; ++nRound) {
            for (int n = 0; n < 60; ++n) {
                step();
                QCOMPARE(m_pEdit->textDocument()->lines()->snapshot().text(),
                         textOf(m_pEdit->document()));
            }
            m_pEdit->finishReplaceAll();
            QVERIFY(settle(*m_pEdit));
            compareColours();
            if (QTest::currentTestFailed())
                return;
            undoAndRedoAll();
        }
    }

private:
    int below(int nEnd) { return int(m_random.bounded(nEnd)); }

    QString anyText(int nLength)
    {
        static const QStringList s_lstParts = {"int value = 42; ",
                                               "/* ",
                                               "*/ ",
                                               "\"text\" ",
                                               "\n",
                                               "\n",
                                               "\n",
                                               "\n",
                                               "(",
                                               ")",
                                               "{",
                                               "}",
                                               "// end\n",
                                               "R\"x(",
                                               ")x\"",
                                               QString::fromUtf8("größer "),
                                               QString::fromUtf8("漢🙂 "),
                                               "\t"};
        return randomText(&m_random, s_lstParts, 1 + below(nLength));
    }

    void step()
    {
        switch (below(8)) {
        case 0:
            replaceText();
            break;
        case 1:
            changeView();
            break;
        case 2:
        case 3:
            moveCaret();
            break;
        default:
            pressKeys();
        }
        if (below(4) == 0)
            QCoreApplication::processEvents();
    }

    void note(const QString &strStep) { m_lstNotes.append(strStep); }

    void pressKeys()
    {
        static const char *const s_arrKeys[] = {"x",
                                                "(",
                                                "\"",
                                                "Return",
                                                "Backspace",
                                                "Delete",
                                                "Tab",
                                                "Shift+Tab",
                                                "Home",
                                                "End",
                                                "Down",
                                                "Shift+Down",
                                                "PgDown",
                                                "Ctrl+Home",
                                                "Ctrl+End",
                                                "Ctrl+A",
                                                "Ctrl+C",
                                                "Ctrl+X",
                                                "Ctrl+V",
                                                "Ctrl+Z",
                                                "Ctrl+Z",
                                                "Ctrl+Y",
                                                "Alt+Up",
                                                "Alt+Down",
                                                "Ctrl+D",
                                                "Ctrl+Shift+K",
                                                "Ctrl+J",
                                                "Ctrl+Return",
                                                "Ctrl+Shift+Return",
                                                "Ctrl+Shift+U",
                                                "Ctrl+Alt+U",
                                                "Ctrl+Shift+F9",
                                                "Ctrl+Alt+Up",
                                                "Ctrl+Alt+Down",
                                                "Ctrl+M",
                                                "Ctrl+Shift+M",
                                                "Alt+F3",
                                                "Alt+Shift+Right",
                                                "Alt+Shift+Down",
                                                "Escape",
                                                "Ctrl+Space"};
        const char *szKey = s_arrKeys[below(int(std::size(s_arrKeys)))];
        note(QLatin1String(szKey));
        const int nKey = QKeySequence(QLatin1String(szKey))[0];
        const auto modifiers = Qt::KeyboardModifiers(nKey & int(Qt::KeyboardModifierMask));
        const auto key = Qt::Key(nKey & ~int(Qt::KeyboardModifierMask));
        const QString strText = qstrlen(szKey) == 1 ? QString(QLatin1String(szKey)) : QString();
        QTest::sendKeyEvent(QTest::Click, m_pEdit.get(), key, strText, modifiers);
    }

    void moveCaret()
    {
        const int nEnd = m_pEdit->document()->characterCount();
        const int nAnchor = below(nEnd);
        const int nPosition = below(3) ? nAnchor : qMin(nAnchor + below(200), nEnd - 1);
        note(QStringLiteral("caret %1 %2").arg(nAnchor).arg(nPosition));
        place(nAnchor, nPosition);
    }

    void replaceText()
    {
        const int nCommand = below(9);
        note(QStringLiteral("replace %1").arg(nCommand));
        m_pEdit->finishReplaceAll();
        if (nCommand == 0)
            m_pEdit->setTextData(anyText(8000).toUtf8(), false);
        else if (nCommand == 1)
            m_pEdit->setCodecName(below(2) ? QStringLiteral("UTF-16") : QStringLiteral("UTF-8"));
        else if (nCommand == 2)
            m_pEdit->setRestoredText(anyText(2000), QStringLiteral("UTF-8"));
        else if (nCommand == 3)
            m_pEdit->setTextData(anyText(10).toUtf8(), false);
        else if (nCommand == 4)
            m_pEdit->startReplaceAll(QStringLiteral("value"), QStringLiteral("v\\nw"));
        else if (nCommand == 5)
            m_pEdit->replaceAll(QStringLiteral("42"), QStringLiteral("430"));
        else if (nCommand == 6)
            m_pEdit->insertPlainText(anyText(1500));
        else if (nCommand == 7)
            m_pEdit->reloadData(m_pEdit->getText().toUtf8());
        else
            m_pEdit->toggleComment();
    }

    void changeView()
    {
        const int nChange = below(7);
        note(QStringLiteral("view %1").arg(nChange));
        if (nChange == 0)
            m_pEdit->setLineWrap(below(2));
        else if (nChange == 1)
            m_pEdit->onTextFontSize(8 + below(20));
        else if (nChange == 2)
            m_pEdit->resize(200 + below(600), 100 + below(500));
        else if (nChange == 3)
            m_pEdit->verticalScrollBar()->setValue(below(m_pEdit->blockCount()));
        else if (nChange == 4)
            m_pEdit->setDefinition(below(3) ? m_definition : QVariantMap());
        else if (nChange == 5)
            m_pEdit->textDocument()->setLargeFrom(below(2) ? 2 : 3000);
        else
            m_pEdit->grab();
    }

    void compareColours() const
    {
        CHighlightEdit fresh;
        fresh.setDefinition(m_pEdit->languageName().isEmpty() ? QVariantMap() : m_definition);
        fresh.setRestoredText(m_pEdit->rawText(), QStringLiteral("UTF-8"));
        QVERIFY(settle(fresh));
        fresh.highlighter()->setSelectedWord(QString());
        m_pEdit->highlighter()->setSelectedWord(QString());
        QVERIFY(settle(fresh));
        QVERIFY(settle(*m_pEdit));
        QTextBlock wanted = fresh.document()->begin();
        for (QTextBlock block = m_pEdit->document()->begin(); block.isValid();
             block = block.next(), wanted = wanted.next()) {
            QVERIFY2(m_pEdit->textDocument()->formats(block)
                         == fresh.textDocument()->formats(wanted),
                     qPrintable(
                         QStringLiteral("line %1: %2").arg(block.blockNumber()).arg(block.text())));
        }
    }

    void undoAndRedoAll()
    {
        const QString strText = textOf(m_pEdit->document());
        int nSteps = 0;
        for (; m_pEdit->document()->isUndoAvailable(); ++nSteps)
            m_pEdit->undo();
        for (; nSteps > 0; --nSteps)
            m_pEdit->redo();
        QCOMPARE(textOf(m_pEdit->document()), strText);
        QCOMPARE(m_pEdit->textDocument()->lines()->snapshot().text(), strText);
    }

    QRandomGenerator m_random;
    QVariantMap m_definition;
    QStringList m_lstNotes;
};

QTEST_MAIN(tst_anycommands)
#include "tst_anycommands.moc"
