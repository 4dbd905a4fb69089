#pragma once

#include <QTextCodec>

// File names are bytes to the system, and nearly always UTF-8. A name that is not UTF-8 must come
// back from a QString as the same bytes. Otherwise the wrong file opens, or none.
//
// Qt converts file names by the codec of the locale, and this class stands in for it. It reads
// UTF-8 and turns each byte that is not UTF-8 into a lone low surrogate, U+DC80 to U+DCFF, and
// back. Nothing else becomes such a surrogate, because UTF-8 has no form for them. So names,
// arguments and listings keep every byte on their whole way through QString, QFile, QFileInfo and
// QDir; a font shows a box for the byte. QString::toUtf8() destroys such a name: where names leave
// the program as bytes, use QFile::encodeName() or bytesOf().
//
// Streams of text (QTextStream), which give the codec a state, get plain UTF-8.
class CFileNameCodec : public QTextCodec
{
public:
    // Call it first in main(), before the application object and any thread. Does nothing if the
    // locale has a character set other than UTF-8, or if the system's names are no bytes.
    static void install();

    // The bytes of a name that the program hands on itself, whatever the locale.
    static QString textOf(const QByteArray &bytes);
    static QByteArray bytesOf(const QString &strText);

    QByteArray name() const override;
    int mibEnum() const override;

protected:
    QString convertToUnicode(const char *pBytes, int nSize, ConverterState *pState) const override;
    QByteArray convertFromUnicode(const QChar *pText, int nSize,
                                  ConverterState *pState) const override;

private:
    CFileNameCodec() = default;
};
