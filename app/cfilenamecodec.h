#pragma once

#include <QTextCodec>

// Names of files are bytes to the system and nearly always UTF-8. Those that are not have to come
// back from a QString as the bytes they were, or a file opens as its neighbour or not at all.
//
// As the codec of the locale, through which Qt makes names of bytes and bytes of names, this one
// reads UTF-8 and turns each byte that is none into a lone low surrogate, U+DC80 to U+DCFF, and
// back. Nothing else becomes such a surrogate: UTF-8 has no form for them. So names, arguments and
// listings keep every byte on their whole way through QString, QFile, QFileInfo and QDir; a font
// shows a box for the byte. What such a name does not survive is QString::toUtf8(): wherever names
// leave the program as bytes, QFile::encodeName() or bytesOf() is the way.
//
// Streams of text (QTextStream), which give the codec a state, get plain UTF-8.
class CFileNameCodec : public QTextCodec
{
public:
    // Call it first in main(), before the application object and any thread. Does nothing where the
    // locale has a character set of its own, and where the system's names are no bytes.
    static void install();

    // The same for names that leave the program by themselves, whatever the locale.
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
