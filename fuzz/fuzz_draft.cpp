// Reads files in the recovery folder that anybody may have written, and our own drafts.

#include "app/cdraftstore.h"
#include "fuzz/fuzzing.h"

namespace {

bool isSame(const SDraft &one, const SDraft &two)
{
    return one.strPath == two.strPath && one.bPage == two.bPage
        && one.nReturnFormat == two.nReturnFormat && one.strText == two.strText
        && one.reason == two.reason && one.nTime == two.nTime && one.began == two.began
        && one.codec == two.codec && one.bNotWhole == two.bNotWhole && one.nCaret == two.nCaret;
}

void checkRoundTrip(const SDraft &draft)
{
    SDraft read;
    require(draftFromBytes(draftToBytes(draft), &read), "our own drafts are drafts");
    require(isSame(read, draft), "a draft comes back as it was");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    SDraft draft;
    if (draftFromBytes(bytesOf(pData, nSize), &draft)) {
        require(draft.nReturnFormat >= 0 && draft.nReturnFormat <= 2, "a known line-ending style");
        checkRoundTrip(draft);
        SDraft head;
        require(draftHeadFromBytes(bytesOf(pData, nSize), &head), "a draft has a head");
        head.strText = draft.strText;
        require(isSame(head, draft), "a head says what its draft says");
    }
    draft = SDraft();
    draft.strText = unitsOf(pData, nSize);
    draft.strPath = textOf(bytesOf(pData, qMin(nSize, size_t(200))));
    draft.bPage = nSize % 2;
    draft.nReturnFormat = int(nSize % 3);
    checkRoundTrip(draft);
    return 0;
}
