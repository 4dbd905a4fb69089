#include "app/cdraftstore.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace {

const char g_szFormat[] = "quillan-draft-1";

// The order is that of SDraft::Reason.
const char *const g_arrReasons[] = {"unsaved",   "closed", "refreshed", "codec",
                                    "formatted", "loaded", "deleted"};

SDraft::Reason reasonOfName(const QString &strName)
{
    const auto itEnd = std::end(g_arrReasons);
    const auto it = std::find(std::begin(g_arrReasons), itEnd, strName);
    return it == itEnd ? SDraft::Reason::Unsaved : SDraft::Reason(it - std::begin(g_arrReasons));
}

// False for text that UTF-8 cannot hold (a lone surrogate) or would take for a mark (a leading
// U+FEFF). False, too, if its UTF-8 might be larger than a QByteArray; the UTF-16 units never are.
bool survivesUtf8(const QString &strText)
{
    return strText.size() < 0x7fffffff / 3 - 0x10000 && strText.isValidUtf16()
        && !strText.startsWith(QChar(QChar::ByteOrderMark));
}

QByteArray unitsOf(const QString &strText)
{
    return QByteArray(reinterpret_cast<const char *>(strText.utf16()),
                      strText.size() * int(sizeof(QChar)));
}

QString textFromUnits(const QByteArray &units)
{
    QString strText(units.size() / int(sizeof(QChar)), Qt::Uninitialized);
    std::memcpy(strText.data(), units.constData(), size_t(strText.size()) * sizeof(QChar));
    return strText;
}

// Older drafts do not have this.
void readOrigin(const QJsonObject &header, SDraft *pDraft)
{
    pDraft->reason = reasonOfName(header.value(QStringLiteral("reason")).toString());
    pDraft->nTime = qint64(qBound(0.0, header.value(QStringLiteral("time")).toDouble(), 1e15));
    pDraft->began = fileStateFromJson(header.value(QStringLiteral("began")).toObject());
    pDraft->codec = header.value(QStringLiteral("codec")).toString().toLatin1();
    pDraft->bNotWhole = header.value(QStringLiteral("notWhole")).toBool();
    pDraft->nCaret = qMax(0, header.value(QStringLiteral("caret")).toInt());
}

// Empty if the bytes are no draft.
QJsonObject readHead(const QByteArray &bytes, SDraft *pDraft)
{
    QJsonObject header = QJsonDocument::fromJson(bytes.left(qMax(0, bytes.indexOf('\n')))).object();
    if (header.value(QStringLiteral("format")).toString() != QLatin1String(g_szFormat))
        return {};
    const int nFormat = header.value(QStringLiteral("returnFormat")).toInt(-1);
    pDraft->strPath = header.value(QStringLiteral("path")).toString();
    pDraft->bPage = header.value(QStringLiteral("page")).toBool();
    pDraft->nReturnFormat = nFormat >= 0 && nFormat <= 2 ? nFormat : 1;
    readOrigin(header, pDraft);
    return header;
}

} // namespace

QByteArray draftToBytes(const SDraft &draft)
{
    const bool bUtf8 = survivesUtf8(draft.strText);
    const QJsonObject header = {
        {QStringLiteral("format"), QLatin1String(g_szFormat)},
        {QStringLiteral("path"), draft.strPath},
        {QStringLiteral("page"), draft.bPage},
        {QStringLiteral("returnFormat"), draft.nReturnFormat},
        {QStringLiteral("units"), !bUtf8},
        {QStringLiteral("reason"), QLatin1String(g_arrReasons[int(draft.reason)])},
        {QStringLiteral("time"), double(draft.nTime)},
        {QStringLiteral("began"), toJson(draft.began)},
        {QStringLiteral("codec"), QString::fromLatin1(draft.codec)},
        {QStringLiteral("notWhole"), draft.bNotWhole},
        {QStringLiteral("caret"), draft.nCaret},
    };
    return QJsonDocument(header).toJson(QJsonDocument::Compact) + '\n'
        + (bUtf8 ? draft.strText.toUtf8() : unitsOf(draft.strText));
}

bool draftHeadFromBytes(const QByteArray &bytes, SDraft *pDraft)
{
    return !readHead(bytes, pDraft).isEmpty();
}

bool draftFromBytes(const QByteArray &bytes, SDraft *pDraft)
{
    const QJsonObject header = readHead(bytes, pDraft);
    if (header.isEmpty())
        return false;
    const QByteArray text = bytes.mid(bytes.indexOf('\n') + 1);
    pDraft->strText = header.value(QStringLiteral("units")).toBool()
        ? textFromUnits(text)
        : QString::fromUtf8(text.constData(), text.size()); // A text may hold zero characters.
    return true;
}
