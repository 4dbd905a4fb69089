// How texts in the encodings of many languages are opened, row by row, and whether the manual tells
// the same.

#include "app/codecdetection.h"
#include "app/textcodecs.h"

#include "encodingtexts.h"

#include <QFile>
#include <QTest>
#include <QTextCodec>

namespace {

QByteArray encoded(const QString &strCodec, const QString &strText)
{
    const QTextCodec *pCodec = QTextCodec::codecForName(strCodec.toLatin1());
    if (!pCodec || !pCodec->canEncode(strText))
        qFatal("%s cannot encode its text", qPrintable(strCodec));
    return pCodec->fromUnicode(strText);
}

struct SOpened
{
    bool bRight = false;
    bool bSure = false;
    QString strText;
};

SOpened opened(const QString &strCodec, const QString &strText)
{
    const QByteArray data = encoded(strCodec, strText);
    const SDetectedCodec detected = detectCodec(data);
    const QString strShown = decodeText(codecForName(detected.strName), data);
    return {strShown == strText, detected.bSure, strShown};
}

QString verdict(const SOpened &opening)
{
    return opening.bRight ? QStringLiteral("right") : QStringLiteral("**wrong**");
}

int highBytes(const QByteArray &data)
{
    return int(std::count_if(
        data.cbegin(), data.cend(), [](char c) { return uchar(c) >= 0x80; }));
}

bool hasIdeographs(const QString &strText)
{
    return std::any_of(
        strText.cbegin(), strText.cend(), [](QChar c) { return c.script() == QChar::Script_Han; });
}

} // namespace

class tst_encodings : public QObject
{
    Q_OBJECT

private slots:
    void prose_isOpenedRight_data() { rows(); }
    void prose_isOpenedRight();
    void source_withThreeForeignLetters_isOpenedRightOrUnsure_data() { rows(); }
    void source_withThreeForeignLetters_isOpenedRightOrUnsure();
    void wrongTexts_areFew();
    void manual_saysWhatIsSo();

private:
    void rows();
};

void tst_encodings::rows()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("codec");
    QTest::addColumn<QString>("prose");
    QTest::addColumn<QString>("source");
    for (const SEncodingText &text : encodingTexts()) {
        for (const QString &strCodec : text.lstCodecs) {
            QTest::addRow("%s in %s", qPrintable(text.strLanguage), qPrintable(strCodec))
                << text.strLanguage << strCodec << text.strProse << text.source();
        }
    }
}

void tst_encodings::prose_isOpenedRight()
{
    QFETCH(QString, codec);
    QFETCH(QString, prose);
    QVERIFY(prose.size() >= 110);
    QCOMPARE(opened(codec, prose).strText, prose);
}

void tst_encodings::source_withThreeForeignLetters_isOpenedRightOrUnsure()
{
    QFETCH(QString, codec);
    QFETCH(QString, source);
    QCOMPARE(
        std::count_if(source.cbegin(), source.cend(), [](QChar c) { return c.unicode() > 127; }),
        3);
    const SOpened opening = opened(codec, source);
    QVERIFY2(opening.bRight || !opening.bSure, qPrintable(opening.strText));
    const bool bEastAsian = hasIdeographs(source) || codec == "EUC-KR" || codec == "windows-949";
    QVERIFY2(bEastAsian || !hasIdeographs(opening.strText), qPrintable(opening.strText));
    QVERIFY(codec == "ISO-2022-JP" || highBytes(encoded(codec, source)) > 0);
}

void tst_encodings::wrongTexts_areFew()
{
    int nTexts = 0;
    int nWrong = 0;
    for (const SEncodingText &text : encodingTexts()) {
        for (const QString &strCodec : text.lstCodecs) {
            ++nTexts;
            nWrong += !opened(strCodec, text.source()).bRight;
        }
    }
    QVERIFY(nTexts > 40);
    QVERIFY2(nWrong <= 5, qPrintable(QString::number(nWrong)));
}

void tst_encodings::manual_saysWhatIsSo()
{
    QFile file(QStringLiteral(QUILLAN_SOURCE_DIR "/docs/encodings.md"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QString strManual = QString::fromUtf8(file.readAll());
    QStringList lstMissing;
    for (const SEncodingText &text : encodingTexts()) {
        for (const QString &strCodec : text.lstCodecs) {
            const QString strRow =
                QStringLiteral("| %1 | %2 | %3 | %4 |")
                    .arg(text.strLanguage, strCodec, verdict(opened(strCodec, text.strProse)),
                         verdict(opened(strCodec, text.source())));
            if (!strManual.contains(strRow))
                lstMissing.append(strRow);
        }
    }
    QVERIFY2(lstMissing.isEmpty(), qPrintable(lstMissing.join('\n')));
}

QTEST_GUILESS_MAIN(tst_encodings)
#include "tst_encodings.moc"
