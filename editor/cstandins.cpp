#include "editor/cstandins.h"

#include <QVector>

#include <algorithm>

namespace {

bool needsStandIn(ushort u)
{
    return u == 0x2029 || (u & 0xFFFE) == 0xFDD0;
}

bool holdsForbidden(const QString &strText)
{
    // Has no early exit, so that the compiler can vectorise the loop.
    bool bFound = false;
    for (const QChar c : strText)
        bFound |= needsStandIn(c.unicode());
    return bFound;
}

// Non-characters come first, because nobody types or pastes them. A text that holds all of them
// gets private-use characters, and finally none.
QChar unusedCharacter(const QVector<bool> &lstUsed)
{
    for (ushort u = 0xFDD2; u <= 0xFDEF; ++u)
        if (!lstUsed.at(u))
            return QChar(u);
    for (ushort u = 0xE000; u <= 0xF8FF; ++u)
        if (!lstUsed.at(u))
            return QChar(u);
    return QChar();
}

} // namespace

QString CStandIns::hide(const QString &strText)
{
    m_mapOriginals.clear();
    if (!holdsForbidden(strText))
        return strText;

    QVector<bool> lstUsed(0x10000, false);
    for (const QChar c : strText)
        lstUsed[c.unicode()] = true;
    QString strResult = strText;
    const QChar forbidden[] = {QChar(0x2029), QChar(0xFDD0), QChar(0xFDD1)};
    for (const QChar c : forbidden) {
        const QChar standIn = lstUsed.at(c.unicode()) ? unusedCharacter(lstUsed) : QChar();
        if (standIn.isNull())
            continue;
        lstUsed[standIn.unicode()] = true;
        m_mapOriginals.insert(standIn, c);
        strResult.replace(c, standIn);
    }
    return strResult;
}

QString CStandIns::restore(const QString &strText) const
{
    QString strResult = strText;
    for (auto it = m_mapOriginals.cbegin(); it != m_mapOriginals.cend(); ++it)
        strResult.replace(it.key(), it.value());
    return strResult;
}
