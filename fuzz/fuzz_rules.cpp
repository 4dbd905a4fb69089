// Colours any text by the rules of our own definitions. The first byte chooses one.

#include "fuzz/samerules.h"
#include "highlight/chighlightmgt.h"

#include <map>

namespace {

const CSameRules &rulesOf(int nChoice)
{
    static const CHighlightMgt s_registry(QStringLiteral(QUILLAN_SOURCE_DIR "/highlighter"),
                                          nullptr);
    static std::map<int, CSameRules> s_mapRules; // Made when first asked for; some take long.
    const QList<QVariant> lstEntries = s_registry.table().values();
    require(!lstEntries.isEmpty(), "there are definitions");
    const int nEntry = nChoice % lstEntries.size();
    const QString strName = lstEntries.at(nEntry).toMap().value(QStringLiteral("name")).toString();
    if (s_mapRules.find(nEntry) == s_mapRules.end())
        s_mapRules.emplace(nEntry, s_registry.definitionForName(strName));
    return s_mapRules.at(nEntry);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    if (nSize > 0)
        rulesOf(*pData).check(textOf(bytesOf(pData + 1, nSize - 1)).split(QLatin1Char('\n')));
    return 0;
}
