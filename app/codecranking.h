#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

// How data reads in one encoding, as one language.
struct SReading
{
    QString strCodec;
    QString strLanguage;
    QString strText;
    double nScore = 0; // The logarithm of a likelihood; the larger, the better.
};

// Every readable reading of the data, the best first. For data too short for a statistical
// detector, such as a source file with three foreign letters: it knows which letters the languages
// use, how often, and how words are written. The language of the locale (its name in lower case,
// may be empty) counts more than others that read as well. Reentrant. Give it a few kilobytes at
// most.
QVector<SReading> readings(const QByteArray &data, const QString &strLocale);
