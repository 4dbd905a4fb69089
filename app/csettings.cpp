#include "app/csettings.h"

#include "app/cdescriptor.h"
#include "app/filewriter.h"
#include "app/platform.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <QVector>

#include <limits>
#include <variant>

CSettings *g_pSettings = nullptr;

namespace {

using Member = std::variant<QByteArray CSettings::*, QString CSettings::*, QStringList CSettings::*,
                            QColor CSettings::*, int CSettings::*, bool CSettings::*>;

struct SKey
{
    const char *szName;
    Member member;
    QVariant varDefault;
    // Only for numbers: a value outside the range counts as unreadable.
    int nMin = std::numeric_limits<int>::min();
    int nMax = std::numeric_limits<int>::max();
};

// The order is the order of reading and writing.
const QVector<SKey> &keys()
{
    static const QVector<SKey> s_keys = {
        {"m_arrFrameState", &CSettings::m_arrFrameState, QByteArray()},
        {"m_strLastPathFileName", &CSettings::m_strLastPathFileName, QString()},
        {"m_lstFavorFolders", &CSettings::m_lstFavorFolders, QStringList()},
        {"m_clrTextColor", &CSettings::m_clrTextColor, QStringLiteral("red")},
        {"m_clrBackColor", &CSettings::m_clrBackColor, QStringLiteral("transparent")},
        {"m_nTextFontSize", &CSettings::m_nTextFontSize, 12, 3, 100},
        {"m_bLineWrap", &CSettings::m_bLineWrap, false},
        {"m_lstRecentFiles", &CSettings::m_lstRecentFiles, QStringList()},
        {"m_bIsHtmlText", &CSettings::m_bIsHtmlText, false},
        {"m_bPageSpelling", &CSettings::m_bPageSpelling, true},
        {"m_bTextSpelling", &CSettings::m_bTextSpelling, false},
        {"m_bFindMatchWholeWord", &CSettings::m_bFindMatchWholeWord, false},
        {"m_bFindMatchCase", &CSettings::m_bFindMatchCase, false},
        {"m_bFindSearchUp", &CSettings::m_bFindSearchUp, false},
        {"m_bFindWrapSearch", &CSettings::m_bFindWrapSearch, true},
        {"m_bFindCloseAfterFindNext", &CSettings::m_bFindCloseAfterFindNext, false},
        {"m_bFindUseRegularExpression", &CSettings::m_bFindUseRegularExpression, false},
        {"m_nFindTransparent", &CSettings::m_nFindTransparent, 90, 20, 100},
    };
    return s_keys;
}

// Each returns false when the stored value cannot be read as the member's type.
bool convert(const QVariant &var, const SKey &, QByteArray *pOut)
{
    *pOut = var.toByteArray();
    return var.canConvert<QByteArray>();
}

bool convert(const QVariant &var, const SKey &, QString *pOut)
{
    *pOut = var.toString();
    return var.canConvert<QString>();
}

bool convert(const QVariant &var, const SKey &, QStringList *pOut)
{
    *pOut = var.toStringList();
    return var.canConvert<QStringList>();
}

bool convert(const QVariant &var, const SKey &, QColor *pOut)
{
    pOut->setNamedColor(var.toString());
    return pOut->isValid();
}

bool convert(const QVariant &var, const SKey &key, int *pOut)
{
    bool bOk = false;
    *pOut = var.toInt(&bOk);
    return bOk && *pOut >= key.nMin && *pOut <= key.nMax;
}

bool convert(const QVariant &var, const SKey &, bool *pOut)
{
    *pOut = var.toBool();
    return var.canConvert<bool>();
}

template<class T> QVariant stored(const T &val)
{
    return QVariant::fromValue(val);
}

QVariant stored(const QColor &clr)
{
    return clr.name();
}

// Only the user may read the file, because it holds paths. QSettings keeps the permissions of a
// file that it replaces, so an empty file is made before the first write.
void makePrivateFile(const QString &strPath)
{
    const QFileInfo info(strPath);
    if (info.exists())
        QFile::setPermissions(strPath, QFile::ReadOwner | QFile::WriteOwner);
    else if (QDir().mkpath(info.absolutePath()))
        const CDescriptor file(Platform::createFile(strPath, Platform::FilePrivacy::OnlyMe));
}

} // namespace

CSettings::CSettings(const QString &strOrganization, const QString &strApplication,
                     QObject *pParent)
    : QSettings(strOrganization, strApplication, pParent)
{
    if (QFileInfo(fileName()).isFile())
        makePrivateFile(fileName());
    read();
}

CSettings::~CSettings()
{
    write();
}

void CSettings::read()
{
    for (const SKey &key : keys()) {
        const QVariant var = value(QLatin1String(key.szName), key.varDefault);
        std::visit(
            [&](auto pMember) {
                if (!convert(var, key, &(this->*pMember)))
                    convert(key.varDefault, key, &(this->*pMember));
            },
            key.member);
    }
}

// On a full disk QSettings replaces a file by its beginning (see writeAll()). So this writes as
// much beside the file first, to see whether there is room.
bool CSettings::hasRoomOnDisk() const
{
    const QFileInfo info(fileName());
    if (!info.isFile()) // Nothing to lose, or the registry of Windows.
        return true;
    const int nMargin = 0x4000; // Bytes by which the settings may grow.
    QTemporaryFile probe(fileName() + QLatin1String(".XXXXXX"));
    return probe.open() && writeAll(&probe, QByteArray(int(info.size()) + nMargin, ' '));
}

void CSettings::write()
{
    if (!hasRoomOnDisk())
        return;
    if (Platform::keepsSettingsInFiles())
        makePrivateFile(fileName());
    for (const SKey &key : keys()) {
        std::visit(
            [&](auto pMember) { setValue(QLatin1String(key.szName), stored(this->*pMember)); },
            key.member);
    }
}

void CSettings::save()
{
    write();
    // A crash a moment later must not lose what was just remembered.
    sync();
}

void CSettings::setTextFontSize(int nVal)
{
    m_nTextFontSize = nVal;
    emit textFontSizeChanged(nVal);
}
