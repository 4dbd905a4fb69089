#include "highlight/fixedrules.h"

#include "highlight/characterclasses.h"
#include "highlight/symbols.h"

using namespace CharacterClass;

namespace {

const QChar *skip(const QChar *pch, const QChar *pchEnd, Flag flag)
{
    while (pch < pchEnd && is(*pch, flag))
        ++pch;
    return pch;
}

bool isSign(QChar ch)
{
    return ch == QLatin1Char('+') || ch == QLatin1Char('-');
}

bool isEither(const QChar *pch, const QChar *pchEnd, char chFirst, char chSecond)
{
    return pch < pchEnd && (*pch == QLatin1Char(chFirst) || *pch == QLatin1Char(chSecond));
}

// The end of the number that begins here; pch itself when none does.
const QChar *endOfNumber(const QChar *pch, const QChar *pchEnd)
{
    const bool bHash = *pch == QLatin1Char('#');
    if (bHash || (*pch == QLatin1Char('0') && isEither(pch + 1, pchEnd, 'x', 'X'))) {
        const QChar *pchDigits = pch + (bHash ? 1 : 2);
        const QChar *pchAfter = skip(pchDigits, pchEnd, HexDigit);
        if (pchAfter > pchDigits || bHash)
            return pchAfter > pchDigits ? pchAfter : pch;
    }
    const QChar *pchDigits = pch + (isSign(*pch) ? 1 : 0);
    const QChar *pchAfter = skip(pchDigits, pchEnd, Digit);
    if (pchAfter == pchDigits)
        return pch;
    if (pchAfter < pchEnd && *pchAfter == QLatin1Char('.'))
        pchAfter = skip(pchAfter + 1, pchEnd, Digit);
    if (isEither(pchAfter, pchEnd, 'e', 'E')) {
        ++pchAfter;
        pchAfter += isEither(pchAfter, pchEnd, '+', '-') ? 1 : 0;
        pchAfter = skip(pchAfter, pchEnd, Digit);
    }
    return pchAfter;
}

// The end of the operator that begins here; pch itself when none does.
const QChar *endOfOperator(const QChar *pch, const QChar *pchEnd)
{
    const QChar *pchSigns = pch;
    if (is(*pch, Operator))
        pchSigns += pch + 1 < pchEnd && is(pch[1], Operator) ? 2 : 1;
    const QChar *pchEquals = pch + (is(*pch, BeforeEquals) ? 1 : 0);
    const QChar *pchAfter = pchEquals;
    while (pchAfter < pchEnd && pchAfter < pchEquals + 3 && *pchAfter == QLatin1Char('='))
        ++pchAfter;
    return pchAfter > pchEquals ? qMax(pchSigns, pchAfter) : pchSigns;
}

} // namespace

int endOfNumber(const QString &strText, int nAt, int nTo)
{
    const QChar *const pchBegin = strText.constData();
    return int(endOfNumber(pchBegin + nAt, pchBegin + nTo) - pchBegin);
}

int endOfOperator(const QString &strText, int nAt, int nTo)
{
    const QChar *const pchBegin = strText.constData();
    return int(endOfOperator(pchBegin + nAt, pchBegin + nTo) - pchBegin);
}

bool mayStartNumber(int nSymbol)
{
    return nSymbol == OtherDigit || (nSymbol < 128 && is(QChar(nSymbol), NumberStart));
}

bool mayStartOperator(int nSymbol)
{
    return nSymbol < 128
        && ((g_arrAsciiFlags[size_t(nSymbol)] & (Operator | BeforeEquals)) || nSymbol == '=');
}
