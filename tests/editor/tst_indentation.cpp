#include "editor/indentation.h"

#include <QRandomGenerator>
#include <QRegExp>
#include <QtTest>

class tst_indentation : public QObject
{
    Q_OBJECT

private slots:
    void outdent_removesOneTabOrUpToFourSpaces_data();
    void outdent_removesOneTabOrUpToFourSpaces();
    void leadingWhiteSpace_isWhatThePatternMatches_data();
    void leadingWhiteSpace_isWhatThePatternMatches();
    void openingBraceAtTheEnd_mayHaveWhiteSpaceBehindIt_data();
    void openingBraceAtTheEnd_mayHaveWhiteSpaceBehindIt();
    void typedOpener_hasItsCloser_data();
    void typedOpener_hasItsCloser();
    void randomLines_agreeWithTheExpressions();
};

void tst_indentation::outdent_removesOneTabOrUpToFourSpaces_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("length");
    QTest::newRow("two spaces") << "  x" << 2;
    QTest::newRow("one tab") << "\tx" << 1;
    QTest::newRow("six spaces") << "      x" << 4;
    QTest::newRow("two tabs") << "\t\tx" << 1;
    QTest::newRow("space, then tab") << " \tx" << 1;
    QTest::newRow("tab, then spaces") << "\t  x" << 1;
    QTest::newRow("no indentation") << "x" << 0;
    QTest::newRow("empty line") << "" << 0;
    QTest::newRow("only spaces") << "   " << 3;
    QTest::newRow("no-break space") << QString(QChar(QChar::Nbsp)) << 0;
}

void tst_indentation::outdent_removesOneTabOrUpToFourSpaces()
{
    QFETCH(QString, line);
    QFETCH(int, length);
    QCOMPARE(outdentLength(line), length);
}

void tst_indentation::leadingWhiteSpace_isWhatThePatternMatches_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("blanks");
    QTest::newRow("spaces") << "    x y"
                            << "    ";
    QTest::newRow("mixed") << " \t x"
                           << " \t ";
    QTest::newRow("none") << "x "
                          << "";
    QTest::newRow("only") << "  "
                          << "  ";
    QTest::newRow("empty") << ""
                           << "";
}

void tst_indentation::leadingWhiteSpace_isWhatThePatternMatches()
{
    QFETCH(QString, line);
    QFETCH(QString, blanks);
    QCOMPARE(leadingBlanks(line), blanks);
}

void tst_indentation::openingBraceAtTheEnd_mayHaveWhiteSpaceBehindIt_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("opens");
    QTest::newRow("brace") << "if (a) {" << true;
    QTest::newRow("brace and blanks") << "{ \t " << true;
    QTest::newRow("something behind it") << "{ x" << false;
    QTest::newRow("closing brace behind it") << "{}" << false;
    QTest::newRow("none") << "x" << false;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("blanks") << "  " << false;
}

void tst_indentation::openingBraceAtTheEnd_mayHaveWhiteSpaceBehindIt()
{
    QFETCH(QString, line);
    QFETCH(bool, opens);
    QCOMPARE(endsWithOpeningBrace(line), opens);
}

void tst_indentation::typedOpener_hasItsCloser_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("closer");
    QTest::newRow("brace") << "{"
                           << "}";
    QTest::newRow("square bracket") << "["
                                    << "]";
    QTest::newRow("parenthesis") << "("
                                 << ")";
    QTest::newRow("double quote") << "\""
                                  << "\"";
    QTest::newRow("single quote") << "'"
                                  << "'";
    QTest::newRow("closing brace") << "}"
                                   << "";
    QTest::newRow("letter") << "a"
                            << "";
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("angle bracket") << "<"
                                   << "";
}

void tst_indentation::typedOpener_hasItsCloser()
{
    QFETCH(QString, typed);
    QFETCH(QString, closer);
    const QChar c = closingCharacter(typed);
    QCOMPARE(c.isNull() ? QString() : QString(c), closer.isEmpty() ? QString() : closer);
}

void tst_indentation::randomLines_agreeWithTheExpressions()
{
    const QRegExp outdent("^((\\t{0,1})|([ ]{1,4}))");
    const QRegExp leading("^\\s+");
    const QRegExp brace("\\{\\s*$");
    const QString strAlphabet = QString::fromUtf8("   \t\t{}x\u00a0\u3000");
    QRandomGenerator random(5);
    for (int i = 0; i < 20000; ++i) {
        QString strLine;
        for (int n = random.bounded(9); n > 0; --n)
            strLine.append(strAlphabet.at(random.bounded(strAlphabet.length())));
        QCOMPARE(outdent.indexIn(strLine), 0);
        QCOMPARE(outdentLength(strLine), outdent.matchedLength());
        QCOMPARE(leadingBlanks(strLine).length(),
                 leading.indexIn(strLine) < 0 ? 0 : leading.matchedLength());
        QCOMPARE(endsWithOpeningBrace(strLine), brace.indexIn(strLine) >= 0);
    }
}

QTEST_GUILESS_MAIN(tst_indentation)
#include "tst_indentation.moc"
