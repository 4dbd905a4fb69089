// Reads any bytes as a definition file, and applies its rules to the text after the first zero
// byte.

#include "fuzz/samerules.h"
#include "highlight/chighlightmgt.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pData, size_t nSize)
{
    const QByteArray input = bytesOf(pData, nSize);
    const int nZero = input.indexOf('\0');
    const QVariantMap mapDefinition = CHighlightMgt::parseBytes(input.left(nZero));
    if (mapDefinition.isEmpty())
        return 0;
    QStringList lstLines = {QStringLiteral("int main() { /* \"x\" */ return 0x1F; } // end"),
                            QStringLiteral("'a' <b c=\"d\">"), QString()};
    if (nZero >= 0)
        lstLines += textOf(input.mid(nZero + 1)).split(QLatin1Char('\n'));
    CSameRules(mapDefinition).check(lstLines);
    return 0;
}
