#include "spelling/spellwords.h"

#include <QtTest>

class tst_spellwords : public QObject
{
    Q_OBJECT

private slots:
    void words_areCutAndChosen_data();
    void words_areCutAndChosen();
    void wordAtAPlace_isTheOneThatTouchesIt_data();
    void wordAtAPlace_isTheOneThatTouchesIt();
    void dictionaryForm_isPlain();
    void anyText_givesWordsInOrderWithinIt();
};

void tst_spellwords::words_areCutAndChosen_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("words"); // With "|" between them.
    const auto row = [](const char *szName, const QString &strText, const QString &strWords) {
        QTest::newRow(szName) << strText << strWords;
    };
    row("nothing", QString(), QString());
    row("a sentence", "Two words, one end.", "Two|words|one|end");
    row("apostrophes", QStringLiteral("don't don\u2019t"), QStringLiteral("don't|don\u2019t"));
    row("quoted", "'quoted' \"text\"", "quoted|text");
    row("a hyphen", "well-known", "well|known");
    row("a single letter", "a word", "word");
    row("umlauts", QStringLiteral("Gr\u00fc\u00dfe u\u0308ber"),
        QStringLiteral("Gr\u00fc\u00dfe|u\u0308ber"));
    row("a soft hyphen", QStringLiteral("so\u00adft"), QStringLiteral("so\u00adft"));
    row("other scripts", QStringLiteral("\u0441\u043b\u043e\u0432\u043e"),
        QStringLiteral("\u0441\u043b\u043e\u0432\u043e"));
    row("no blanks", QStringLiteral("\u65e5\u672c\u8a9e word \u0e44\u0e17\u0e22"), "word");
    row("digits", "x86 3rd 42 word", "word");
    row("names of programs", "snake_case camelCase HtmlText word", "word");
    row("capitals", "HTML and Html", "and|Html");
    row("capitals behind an apostrophe", "O'Neill", "O'Neill");
    row("a file's name", "open page.html now", "open|now");
    row("points that end sentences", "one... two. (three.)", "one|two|three");
    row("a part of a program", "call std::sort or list.sort now", "call|or|now");
    row("an address", "see https://example.org/some-page for more", "see|for|more");
    row("mail", "write me@example.org soon", "write|soon");
    row("paths", "in /usr/share/some or ~/folder", "in|or");
    row("either of two", "and/or", "and|or");
    row("an option", "with --some-option set", "with|set");
    row("lines", "one\ntwo", "one|two");
}

void tst_spellwords::words_areCutAndChosen()
{
    QFETCH(QString, text);
    QFETCH(QString, words);
    QStringList lst;
    for (const SSpellWord &word : spellWords(text))
        lst.append(text.mid(word.nStart, word.nLength));
    QCOMPARE(lst.join(QLatin1Char('|')), words);
}

void tst_spellwords::wordAtAPlace_isTheOneThatTouchesIt_data()
{
    QTest::addColumn<int>("place");
    QTest::addColumn<QString>("word");
    QTest::newRow("before it") << 1 << QString();
    QTest::newRow("at its start") << 2 << "one";
    QTest::newRow("within") << 3 << "one";
    QTest::newRow("at its end") << 5 << "one";
    QTest::newRow("at the next one's start") << 6 << "two";
    QTest::newRow("at the end") << 9 << "two";
    QTest::newRow("beyond") << 30 << QString();
}

void tst_spellwords::wordAtAPlace_isTheOneThatTouchesIt()
{
    QFETCH(int, place);
    const QString strText = QStringLiteral(", one two");
    const SSpellWord word = spellWordAt(strText, place);
    QTEST(strText.mid(word.nStart, word.nLength), "word");
}

void tst_spellwords::dictionaryForm_isPlain()
{
    QCOMPARE(dictionaryForm(QStringLiteral("do\u00adn\u2019t")), QStringLiteral("don't"));
}

void tst_spellwords::anyText_givesWordsInOrderWithinIt()
{
    const QString strAlphabet = QStringLiteral("abA \n'\u2019-./:@_1\u00ad\u0308\u65e5\U0001f600");
    QRandomGenerator random(18);
    for (int nRound = 0; nRound < 3000; ++nRound) {
        QString strText;
        for (int n = int(random.bounded(30)); n > 0; --n)
            strText += strAlphabet.at(int(random.bounded(strAlphabet.size())));
        int nEnd = 0;
        for (const SSpellWord &word : spellWords(strText)) {
            QVERIFY2(word.nStart >= nEnd && word.nLength > 1, qPrintable(strText));
            nEnd = word.end();
        }
        QVERIFY2(nEnd <= strText.size(), qPrintable(strText));
    }
}

QTEST_GUILESS_MAIN(tst_spellwords)
#include "tst_spellwords.moc"
