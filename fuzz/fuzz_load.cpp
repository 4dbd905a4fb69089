// Opens any bytes as a text file: codec, characters and line ends. The first byte chooses the codec
// that the document has already.

#include "app/textcodecs.h"
#include "editor/cstandins.h"
#include "editor/lineendings.h"
#include "fuzz/fuzzing.h"

#include <QTextCodec>

namespace {

QString codecNameOf(uint8_t nChoice)
{
    const char *const arrNames[] = {"",          "UTF-8",       "UTF-16",       "UTF-32",
                                    "Shift_JIS", "GB18030",     "EUC-JP",       "ISO-8859-1",
                                    "Big5",      "ISO-2022-JP", "no such codec"};
    return QLatin1String(arrNames[nChoice % (sizeof arrNames / sizeof *arrNames)]);
}

void checkLineEnds(const QString &strText, int nFormat)
{
    for (int nStyle = ReturnFormatWindows; nStyle <= ReturnFormatOsx; ++nStyle) {
        const QString strOnce = withLineEnds(strText, nStyle);
        require(withLineEnds(strOnce, nStyle) == strOnce, "changing line ends twice changes once");
        require(withLineEnds(strOnce, nFormat) == withLineEnds(strText, nFormat),
                "no line is lost or made by changing line ends");
    }
}

void checkDetection(const QByteArray &data)
{
    const SDetectedCodec found = detectCodec(data);
    const QTextCodec *const pFound = codecForName(found.strName);
    require(found.strName.isEmpty() || pFound, "what is detected exists");
    require(pFound || !found.bSure, "nothing is not sure");
    const bool bWide = found.strName.startsWith(QLatin1String("UTF-"));
    if (found.bSure && !bWide && data.size() < 64)
        require(isWholeText(pFound, data), "what is sure is decoded whole");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    if (nSize == 0)
        return 0;
    const QByteArray data = bytesOf(pData + 1, nSize - 1);
    checkDetection(data);
    const QString strName = codecNameForData(codecNameOf(*pData), data);
    const QTextCodec *const pCodec = codecForName(strName);
    const QString strText = decodeText(pCodec, data);

    const int nFormat = detectReturnFormat(data, ReturnFormatUnix);
    require(nFormat >= ReturnFormatWindows && nFormat <= ReturnFormatOsx, "a known style");
    checkLineEnds(strText, nFormat);

    CStandIns standIns;
    const QString strHidden = standIns.hide(strText);
    require(standIns.restore(strHidden) == strText, "stand-ins give the text back");

    const bool bMark = data.startsWith("\xEF\xBB\xBF");
    if (strName == QLatin1String("UTF-8") && isMultiByteUtf8(data) && !bMark)
        require(pCodec->fromUnicode(strText) == data, "UTF-8 is saved as it was");
    if (pCodec && isWholeText(pCodec, data) && data.size() < 64)
        require(strText.isValidUtf16(), "a whole text can be written");
    return 0;
}
