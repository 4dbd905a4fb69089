// The pattern engine against QRegExp.
#include "highlight/clinepattern.h"

#include "highlight/csymbolline.h"
#include "highlight/symbols.h"

#include <QRandomGenerator>
#include <QRegExp>
#include <QTest>
#include <algorithm>

class tst_linepattern : public QObject
{
    Q_OBJECT
private slots:
    void pattern_findsWhatQRegExpFinds_data();
    void pattern_findsWhatQRegExpFinds();
    void randomPatterns_findWhatQRegExpFinds();
    void plainText_isToldFromSyntax_data();
    void plainText_isToldFromSyntax();
    void invalidPattern_isFoundNowhere();
    void emptyPattern_isFoundNowhere();
};

namespace {

bool lacksRequired(const CLinePattern &pattern, const QString &strText)
{
    const std::vector<SymbolSet> &lstSets = pattern.required().sets();
    return std::any_of(lstSets.begin(), lstSets.end(), [&strText](const SymbolSet &set) {
        return std::none_of(strText.begin(), strText.end(),
                            [&set](QChar ch) { return set[size_t(symbolOf(ch))]; });
    });
}

// Whether the machine says that no match goes on as this one does.
bool deniesSecond(const CLinePattern &pattern, const QString &strText, int nStart)
{
    const CSymbolLine line(strText);
    const CAnchoredPattern *const pMachine = pattern.isValid() ? pattern.machineFor(line) : nullptr;
    const int nSecond = nStart + 1;
    return pMachine && nSecond < strText.size()
        && !pMachine->mayGoOnWith()[line.symbols()[nSecond]];
}

// Every search from every position; the first that differs, empty when none does.
QString compare(const CLinePattern &pattern, const QRegExp &rx, const QString &strText)
{
    for (int n = 0; n <= strText.size(); ++n) {
        const int nExpected = rx.indexIn(strText, n);
        const int nActual = pattern.indexIn(strText, n);
        const bool bMissed = nExpected >= 0
            && (lacksRequired(pattern, strText)
                || (rx.matchedLength() > 0 && deniesSecond(pattern, strText, nExpected)));
        if (nActual != nExpected || bMissed
            || (nExpected >= 0 && pattern.matchedLength() != rx.matchedLength())) {
            return QString("/%1/ in \"%2\" from %3: %4+%5 instead of %6+%7, missed %8")
                .arg(rx.pattern(), strText)
                .arg(n)
                .arg(nActual)
                .arg(pattern.matchedLength())
                .arg(nExpected)
                .arg(rx.matchedLength())
                .arg(bMissed);
        }
    }
    return QString();
}

QString pick(QRandomGenerator *pRandom, const QStringList &lst)
{
    return lst.at(int(pRandom->bounded(quint32(lst.size()))));
}

QString randomPattern(QRandomGenerator *pRandom, int nDepth)
{
    static const QStringList lstAtoms {"a",      "b",      "A",   "1",    "-",    "\\w",
                                       "\\d",    "\\s",    "\\W", "[ab]", "[^a]", "[a-c1]",
                                       "[^\\w]", "[\\s-]", "\\.", ".",    "_",    " "};
    static const QStringList lstQuantifiers {"",  "",    "",      "",     "*",   "+",
                                             "?", "{2}", "{1,2}", "{,2}", "{2,}"};
    static const QStringList lstAnchors {"\\b", "\\B", "^", "$"};
    QString str;
    const int nParts = 1 + int(pRandom->bounded(3));
    for (int n = 0; n < nParts; ++n) {
        const int nKind = int(pRandom->bounded(10));
        if (nKind == 0) {
            str += pick(pRandom, lstAnchors);
        } else if (nKind <= 2 && nDepth > 0) {
            str += QLatin1Char('(') % randomPattern(pRandom, nDepth - 1) % QLatin1Char('|')
                % randomPattern(pRandom, nDepth - 1) % QLatin1Char(')')
                % pick(pRandom, lstQuantifiers);
        } else {
            str += pick(pRandom, lstAtoms) % pick(pRandom, lstQuantifiers);
        }
    }
    return str;
}

} // namespace

void tst_linepattern::pattern_findsWhatQRegExpFinds_data()
{
    QTest::addColumn<QString>("pattern");
    const QStringList lst {"//",
                           "/\\*",
                           "^\\s*#\\s*(include\\s*<[^>]*>|[a-z_]+)",
                           "\\[\\[[^\\[\\]]*\\]\\]",
                           "\\b[A-Za-z_][\\w:.-]*(?=\\s*=)",
                           "<(?=[A-Za-z_:/?]|!\\w)",
                           "[/?]?>|<[/!]?",
                           "a|ab|abc",
                           "(a|ab)(c|bcd)",
                           "a*(?=ab)",
                           "'[a-z_]\\w*\\b(?!')",
                           "\\bx\\b",
                           "x\\b",
                           "\\Bx",
                           "$",
                           "^",
                           "a$",
                           "a+(?=b)|aa",
                           "a(?=b)c",
                           "(a)\\1",
                           "\\x0061",
                           "a{0}",
                           "a{2,3}b",
                           "a{,2}b",
                           "[^a]+",
                           "\\w+(?=\\()",
                           "\\w+(?!\\()",
                           "-?\\d+",
                           "a.*b",
                           ".*",
                           "x*",
                           "(x*)*",
                           "(a*b*)+c",
                           "\\ba\\w*(?=$)",
                           "\\S+",
                           "\\D\\d",
                           "[a-]",
                           "[-a]",
                           "[a\\]b]+",
                           "k",
                           "s+",
                           "\u00e9+",
                           "(?:a|b){2}",
                           "\\ta",
                           "a\\",
                           "[",
                           "--[[",
                           "]",
                           "(?=a)",
                           "(?!a)",
                           "\\b(if|int)\\b",
                           "(^|[^:]):[a-z]\\w*",
                           "@@?[A-Za-z_]\\w*",
                           "\\$\\{|=>",
                           "[Z-a]",
                           "[a-\\-]",
                           "i",
                           "[i-k]+"};
    for (const QString &str : lst)
        QTest::newRow(qPrintable(str)) << str;
}

void tst_linepattern::pattern_findsWhatQRegExpFinds()
{
    QFETCH(QString, pattern);
    const QStringList lstTexts {"",
                                "a",
                                "aaab",
                                "abcd abc",
                                "#include <a>  # if",
                                "  # define x",
                                "[[nodiscard]] x[[]]",
                                "<a href = \"x\" b:c=1/><!-- x --><!DOCTYPE>",
                                "'static 'a' 'b",
                                "foo(bar) baz (",
                                "x x_x x1",
                                "a.b.ab -12 --5 3",
                                "@a @@b :c ::d a:e",
                                "${x} => ]",
                                "A AB Int IF int",
                                "\t a\ta",
                                "\u00e9a\u00e9 \u4e2d\u6587 a\u0301b \u0663\u0664 \u00a0x",
                                "k K \u212a kk ss \u017fs",
                                "i \u0130 \u0131 I ik",
                                "aab aabb aaa",
                                "x:y",
                                "\\a\\",
                                "xxxx",
                                "cabab"};
    for (const QString &strText : lstTexts) {
        for (const auto sensitivity : {Qt::CaseSensitive, Qt::CaseInsensitive}) {
            if (!QRegExp(pattern).isValid()) {
                QCOMPARE(CLinePattern(pattern, sensitivity).indexIn(strText, 0), -1);
                continue;
            }
            const QString strDifference =
                compare(CLinePattern(pattern, sensitivity), QRegExp(pattern, sensitivity), strText);
            QVERIFY2(strDifference.isEmpty(), qPrintable(strDifference));
        }
    }
}

void tst_linepattern::randomPatterns_findWhatQRegExpFinds()
{
    QRandomGenerator random(7);
    static const QStringList lstPieces {"a", "b", "c",      "A",      "1",  "-", " ",
                                        "_", ".", "\u00e9", "\u0663", "ab", "a1"};
    for (int n = 0; n < 2500; ++n) {
        const QString strPattern = randomPattern(&random, 2);
        if (!QRegExp(strPattern).isValid())
            continue;
        const auto sensitivity = n % 3 ? Qt::CaseSensitive : Qt::CaseInsensitive;
        const CLinePattern pattern(strPattern, sensitivity);
        const QRegExp rx(strPattern, sensitivity);
        for (int nText = 0; nText < 4; ++nText) {
            QString strText;
            for (int nLeft = int(random.bounded(12u)); nLeft > 0; --nLeft)
                strText += pick(&random, lstPieces);
            const QString strDifference = compare(pattern, rx, strText);
            QVERIFY2(strDifference.isEmpty(), qPrintable(strDifference));
        }
    }
}

void tst_linepattern::plainText_isToldFromSyntax_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("plain");
    QTest::newRow("slashes") << "//"
                             << "//";
    QTest::newRow("escaped stars") << "/\\*"
                                   << "/*";
    QTest::newRow("escaped bracket") << "\\[\\["
                                     << "[[";
    QTest::newRow("class") << "\\s#" << QString();
    QTest::newRow("star") << "/*" << QString();
    QTest::newRow("dot") << "a.b" << QString();
    QTest::newRow("backslash at the end") << "a\\" << QString();
}

void tst_linepattern::plainText_isToldFromSyntax()
{
    QFETCH(QString, pattern);
    QFETCH(QString, plain);
    QCOMPARE(CLinePattern::plainText(pattern), plain);
}

void tst_linepattern::invalidPattern_isFoundNowhere()
{
    const CLinePattern pattern("--[[");
    QVERIFY(!pattern.isEmpty());
    QVERIFY(!pattern.isValid());
    QCOMPARE(pattern.indexIn(QString("--[["), 0), -1);
}

void tst_linepattern::emptyPattern_isFoundNowhere()
{
    const CLinePattern pattern;
    QVERIFY(pattern.isEmpty());
    QCOMPARE(pattern.indexIn(QString("a"), 0), -1);
    QVERIFY(CLinePattern(QString()).isEmpty());
}

QTEST_GUILESS_MAIN(tst_linepattern)
#include "tst_linepattern.moc"
