// Verifies and formats any text as XML and as JSON.

#include "editor/contentformat.h"
#include "fuzz/fuzzing.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    const QString strText = textOf(bytesOf(pData, nSize));
    const SParseResult result = parseXml(strText);
    if (result.isGood())
        formattedXml(strText);
    else
        require(result.nLine >= 0 && result.nColumn >= 0, "an error has a place");
    require(!parseJson(strText).strMessage.isEmpty(), "JSON has an answer for every text");
    const QString strJson = formattedJson(strText);
    if (!strJson.isEmpty())
        require(formattedJson(strJson) == strJson, "laying out twice changes nothing");
    return 0;
}
