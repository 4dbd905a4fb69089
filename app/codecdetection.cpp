#include "app/codecdetection.h"

#include "app/codecranking.h"
#include "app/textcodecs.h"

#include <QTextCodec>

#include <uchardet.h>

#include <algorithm>
#include <bitset>
#include <memory>

namespace {

constexpr int g_nCutBytes = 64; // In shorter data half a character is a sign of a wrong guess.
constexpr int g_nDetectorBytes = 0x10000;
constexpr int g_nRankedBytes = 0x800;
// The detector needs at least this many foreign bytes to be believed about encodings that the
// ranking does not know.
constexpr int g_nBelievedBytes = 20;
constexpr double g_nSureLead = 5; // A likelihood of more than 100 to 1.
constexpr double g_nUsualByte = -4.5;
constexpr double g_nWorstByte = -6; // A reading below this is no text.

bool isForeignByte(char c)
{
    return uchar(c) >= 0x80 || c == '\x1B';
}

// Remembers which foreign bytes were seen.
class CSeenBytes
{
public:
    bool addNew(const char *pStart, const char *pEnd)
    {
        const size_t nBefore = m_seen.count();
        for (const char *p = pStart; p != pEnd; ++p)
            m_seen.set(uchar(*p), isForeignByte(*p) || m_seen.test(uchar(*p)));
        return m_seen.count() > nBefore;
    }

private:
    std::bitset<256> m_seen;
};

// Picks lines with foreign bytes, because all others read the same in nearly every encoding. Takes
// the first of them, and later ones if they hold a byte not seen before, which may tell two
// encodings apart.
QByteArray foreignLines(const QByteArray &data, int nLimit)
{
    const auto isLineEnd = [](char c) { return c == '\n' || c == '\r'; };
    CSeenBytes seen;
    QByteArray lines;
    const char *pAt = data.cbegin();
    while (lines.size() < nLimit) {
        const char *pForeign = std::find_if(pAt, data.cend(), isForeignByte);
        if (pForeign == data.cend())
            break;
        const char *pStart = std::find_if(std::make_reverse_iterator(pForeign),
                                          std::make_reverse_iterator(pAt), isLineEnd)
                                 .base();
        pAt = std::find_if(pForeign, data.cend(), isLineEnd);
        if (seen.addNew(pForeign, pAt) || lines.size() < nLimit / 2)
            lines.append(pStart, int(pAt - pStart) + (pAt == data.cend() ? 0 : 1));
    }
    lines.truncate(nLimit);
    return lines;
}

QString askDetector(const QByteArray &sample)
{
    const std::unique_ptr<struct uchardet, decltype(&uchardet_delete)> pDetector(uchardet_new(),
                                                                                 uchardet_delete);
    if (uchardet_handle_data(pDetector.get(), sample.constData(), size_t(sample.size())) != 0)
        return QString();
    uchardet_data_end(pDetector.get());
    QByteArray name = uchardet_get_charset(pDetector.get());
    if (name == "UHC") // The codec library has another name for it.
        name = "windows-949";
    const QTextCodec *pCodec = QTextCodec::codecForName(name);
    return pCodec ? QString::fromLatin1(pCodec->name()) : QString();
}

// The last bytes of a file that was cut off may be the beginning of a character.
bool givesBytesBack(const QTextCodec *pCodec, const QByteArray &data)
{
    const int nAllowed = data.size() < g_nCutBytes ? 0 : 3;
    const QByteArray encoded = pCodec->fromUnicode(pCodec->toUnicode(data));
    return data.startsWith(encoded) && data.size() - encoded.size() <= nAllowed;
}

bool isSound(const QString &strCodec, const QByteArray &data)
{
    QTextCodec *pCodec = codecForName(strCodec);
    return isValidDecoding(pCodec, data, FullWidthSigns::Allowed) && givesBytesBack(pCodec, data);
}

int highBytes(const QByteArray &data)
{
    return int(std::count_if(
        data.cbegin(), data.cend(), [](char c) { return uchar(c) >= 0x80; }));
}

// How much better the first reading is than any that gives another text.
double leadOfFirst(const QVector<SReading> &lstReadings)
{
    const SReading &first = lstReadings.constFirst();
    for (const SReading &reading : lstReadings)
        if (reading.strText != first.strText)
            return first.nScore - reading.nScore;
    return -first.nScore;
}

bool ranksCodec(const QVector<SReading> &lstReadings, const QString &strCodec,
                const QByteArray &sample)
{
    const QTextCodec *pCodec = codecForName(strCodec);
    const QString strText = pCodec ? pCodec->toUnicode(sample) : QString();
    return std::any_of(lstReadings.cbegin(), lstReadings.cend(),
                       [&](const SReading &reading) { return reading.strText == strText; });
}

} // namespace

SDetectedCodec detectLegacyCodec(const QByteArray &data, const QString &strLocale)
{
    const QString strDetected = askDetector(foreignLines(data, g_nDetectorBytes));
    const QByteArray sample = foreignLines(data, g_nRankedBytes);
    const int nForeign = highBytes(sample);
    const QVector<SReading> lstReadings = readings(sample, strLocale);
    const bool bBelieved =
        nForeign >= g_nBelievedBytes && !ranksCodec(lstReadings, strDetected, sample);
    if (bBelieved && isSound(strDetected, data))
        return {strDetected, true};
    if (nForeign == 0)
        return isSound(strDetected, data) ? SDetectedCodec {strDetected, true} : SDetectedCodec();
    for (const SReading &reading : lstReadings) {
        if (reading.nScore < g_nWorstByte * nForeign)
            break;
        if (isSound(reading.strCodec, data)) {
            const bool bSure = !data.contains('\0') && reading.nScore >= g_nUsualByte * nForeign
                && reading.strText == lstReadings.constFirst().strText
                && leadOfFirst(lstReadings) >= g_nSureLead;
            return {reading.strCodec, bSure};
        }
    }
    return isSound(strDetected, data) ? SDetectedCodec {strDetected, false} : SDetectedCodec();
}
