#pragma once

#include <QByteArray>
#include <QString>

// Data addresses ("data:image/png;base64,…", RFC 2397) in the text of a page, a style sheet or a
// drawing. The page engine decodes them itself and asks nobody, so that they must be looked at
// before it gets the text. They are found however they are spelled: with character references,
// with the escapes of style sheets, with line ends within.

// The text, in which addresses that hold what no page may show (see pageresources.h) have another
// scheme, which leads nowhere; so have all of icons (see dataicons.h).
QString refuseHarmfulData(const QString &strText);
// The same for the bytes of a file, whatever its encoding.
QByteArray refuseHarmfulData(const QByteArray &bytes);

// Such addresses as they were before.
QString restoreRefusedData(const QString &strText);
