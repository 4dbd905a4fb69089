#include "web/pagesource.h"

#include "app/textcodecs.h"
#include "editor/textreading.h"
#include "web/pagecodec.h"

#include <QUrl>

SPageSource SPageSource::ofFile(const SFileContent &content, const QString &strCodec)
{
    SPageSource source;
    source.bFile = true;
    source.content = content;
    source.bChosen = codecForName(strCodec);
    source.strCodec = source.bChosen ? strCodec : pageCodecName(content.bytes);
    source.strText = decodePage(content.bytes, source.strCodec);
    return source;
}

// A byte-order mark overrules whatever the page declares.
SFileContent SPageSource::contentToShow() const
{
    SFileContent shown = content;
    if (bChosen)
        shown.bytes = "\xEF\xBB\xBF" + strText.toUtf8();
    return shown;
}

QString SPageSource::undeclaredCodecName() const
{
    return bFile ? ::undeclaredCodecName(content.bytes) : QStringLiteral("UTF-8");
}

SPageSource readPageSource(const QUrl &url)
{
    return url.isLocalFile() ? SPageSource::ofFile(readForEditor(url.toLocalFile()), QString())
                             : SPageSource::ofText();
}
