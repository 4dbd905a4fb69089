#pragma once

#include <QByteArray>
#include <QString>

// Data addresses ("data:image/png;base64,…", RFC 2397) in the text of a page, a style sheet or a
// drawing. The page engine decodes them itself and asks nobody, so they must be checked before it
// gets the text. They are found however they are spelled: with character references, with the
// escapes of style sheets, with line ends within.

// The text with harmful addresses disabled: addresses whose data no page may show (see
// pageresources.h), and those of icons (see dataicons.h), get another scheme, which leads nowhere.
QString refuseHarmfulData(const QString &strText);
// The same for the bytes of a file, whatever its encoding.
QByteArray refuseHarmfulData(const QByteArray &bytes);

// Restores such addresses.
QString restoreRefusedData(const QString &strText);
