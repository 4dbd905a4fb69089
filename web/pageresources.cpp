#include "web/pageresources.h"

#include "web/gunzip.h"
#include "web/pictureheader.h"

#include <QRegularExpression>

#include <algorithm>

namespace {

using Kind = SPictureHeader::Kind;

constexpr int g_nLookedAt = 512;

bool isFont(const QByteArray &data)
{
    static const QByteArray arrStarts[] = {
        QByteArray("\0\1\0\0", 4), "OTTO", "true", "ttcf", "wOFF", "wOF2"};
    return std::any_of(std::begin(arrStarts), std::end(arrStarts),
                       [&](const QByteArray &start) { return data.startsWith(start); });
}

// Pictures that plug-ins know have control characters in their first bytes, or begin with one of
// these.
bool isText(const QByteArray &data)
{
    if (data.startsWith("\xff\xfe") || data.startsWith("\xfe\xff"))
        return true;
    if (data.startsWith("%!") || data.startsWith("#?"))
        return false;
    const QByteArray start = data.left(g_nLookedAt);
    return std::none_of(start.cbegin(), start.cend(), [](char c) {
        return uchar(c) < ' ' && c != '\t' && c != '\n' && c != '\r' && c != '\f' && c != '\x1b';
    });
}

// Text that Qt's SVG plug-in would take for a drawing, wherever it begins.
bool holdsDrawing(const QByteArray &data)
{
    static const QRegularExpression regExp(
        QStringLiteral("<([\\w.-]+:)?(svg|g|defs|switch)\\b|<!ENTITY"),
        QRegularExpression::CaseInsensitiveOption);
    return regExp.match(QString::fromLatin1(data)).hasMatch();
}

} // namespace

bool isHarmlessResource(const QByteArray &data, bool bDrawing)
{
    const SPictureHeader header = pictureHeader(data);
    if (header.kind == Kind::Svg)
        return !isGzip(data) && (bDrawing || !holdsDrawing(data));
    if (header.kind == Kind::Other)
        return isFont(data) || isText(data);
    return isReasonable(header, true);
}

bool isHarmlessDocument(const QByteArray &data)
{
    const SPictureHeader header = pictureHeader(data);
    return header.kind == Kind::Svg || header.kind == Kind::Other || isReasonable(header, true);
}
