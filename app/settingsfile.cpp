#include "app/settingsfile.h"

#include "app/filereader.h"
#include "app/filewriter.h"

#include <QRegularExpression>
#include <QStandardPaths>

namespace {

bool isDigit(const QByteArray &bytes, int n, int nBase)
{
    const char c = n < bytes.size() ? bytes.at(n) : ' ';
    return (c >= '0' && c < '0' + qMin(nBase, 10))
        || (nBase == 16 && ((c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F')));
}

// The character of the escape whose digits begin at *pPosition, which is moved past them.
char numberedCharacter(const QByteArray &bytes, int *pPosition, int nBase)
{
    const int nStart = *pPosition;
    while (isDigit(bytes, *pPosition, nBase))
        ++*pPosition;
    return char(bytes.mid(nStart, *pPosition - nStart).right(4).toUInt(nullptr, nBase));
}

// Gives the bytes as QSettings will read the values: escapes resolved, quotes removed.
QByteArray unescaped(const QByteArray &bytes)
{
    QByteArray result;
    for (int n = 0; n < bytes.size();) {
        const char c = bytes.at(n++);
        if (c == '"')
            continue;
        if (c != '\\' || n == bytes.size()) {
            result.append(c);
        } else if (bytes.at(n) == 'x') {
            result.append(numberedCharacter(bytes, &++n, 16));
        } else if (isDigit(bytes, n, 8)) {
            result.append(numberedCharacter(bytes, &n, 8));
        } else {
            // A blank or a sign, none of which occurs in the text that is looked for. All other
            // escapes are dropped.
            if (QByteArray("abfnrtv\"?'\\").contains(bytes.at(n)))
                result.append('\\');
            ++n;
        }
    }
    return result;
}

bool holdsStream(const QByteArray &ini)
{
    static const QRegularExpression s_start(
        QStringLiteral("(?:^|[=,\\s])@(?:Variant|DateTime)\\("));
    const QByteArray text = unescaped(ini);
    return s_start.match(QString::fromLatin1(text.constData(), text.size())).hasMatch();
}

} // namespace

QByteArray withoutStreamedValues(const QByteArray &ini)
{
    if (!holdsStream(ini))
        return ini;
    QByteArrayList lstKept;
    const QList<QByteArray> lstLines = ini.split('\n');
    for (const QByteArray &line : lstLines)
        if (!holdsStream(line))
            lstKept.append(line);
    const QByteArray kept = lstKept.join('\n');
    return holdsStream(kept) ? QByteArray() : kept;
}

void dropStreamedValues(const QString &strOrganization, const QString &strApplication)
{
    const QString strPath = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QLatin1Char('/') + strOrganization + QLatin1Char('/') + strApplication
        + QLatin1String(".conf");
    SReadLimits limits;
    limits.nMaxSize = g_nMaxReadable;
    const SFileContent content = readFile(strPath, limits);
    if (!content.isWhole())
        return;
    const QByteArray kept = withoutStreamedValues(content.bytes);
    if (kept != content.bytes)
        writeFile(strPath, kept);
}
