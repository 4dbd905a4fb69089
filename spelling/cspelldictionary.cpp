#include "spelling/cspelldictionary.h"

#include "app/platformfiles.h"
#include "spelling/spellwords.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTextCodec>

#include <hunspell.hxx>

namespace {

const int g_nMostSuggestions = 10;
const int g_nMostKnown = 50000; // Words; a long book has fewer.

// Unknown if the language's script is not known; then every word counts.
QChar::Script scriptOf(const QString &strName)
{
    switch (QLocale(strName).script()) {
    case QLocale::LatinScript:
        return QChar::Script_Latin;
    case QLocale::CyrillicScript:
        return QChar::Script_Cyrillic;
    case QLocale::GreekScript:
        return QChar::Script_Greek;
    case QLocale::ArabicScript:
        return QChar::Script_Arabic;
    case QLocale::HebrewScript:
        return QChar::Script_Hebrew;
    case QLocale::ArmenianScript:
        return QChar::Script_Armenian;
    case QLocale::GeorgianScript:
        return QChar::Script_Georgian;
    case QLocale::DevanagariScript:
        return QChar::Script_Devanagari;
    case QLocale::KoreanScript:
        return QChar::Script_Hangul;
    default:
        return QChar::Script_Unknown;
    }
}

} // namespace

CSpellDictionary::CSpellDictionary(const QString &strBase, const QString &strName)
    : m_script(scriptOf(strName))
{
    const QString strPath = QFileInfo(strBase).absoluteFilePath();
    const QByteArray arrAffixes = Platform::pathForLibrary(strPath + QLatin1String(".aff"));
    const QByteArray arrWords = Platform::pathForLibrary(strPath + QLatin1String(".dic"));
    m_pHunspell = std::make_unique<Hunspell>(arrAffixes.constData(), arrWords.constData());
    m_pCodec = QTextCodec::codecForName(m_pHunspell->get_dict_encoding().c_str());
}

CSpellDictionary::~CSpellDictionary() = default;

// The library does not report files that it cannot read; it then knows no encoding and no word.
bool CSpellDictionary::isUsable() const
{
    return m_pCodec != nullptr;
}

std::unique_ptr<CSpellDictionary> CSpellDictionary::load(const QString &strBase,
                                                         const QString &strName)
{
    for (const char *szSuffix : {".aff", ".dic"}) {
        QFile file(strBase + QLatin1String(szSuffix));
        if (!QFileInfo(file).isFile() || !file.open(QFile::ReadOnly))
            return nullptr;
    }
    std::unique_ptr<CSpellDictionary> pDictionary(new CSpellDictionary(strBase, strName));
    return pDictionary->isUsable() ? std::move(pDictionary) : nullptr;
}

bool CSpellDictionary::isOtherScript(const QString &strWord) const
{
    for (const QChar c : strWord) {
        const QChar::Script script = c.script();
        if (c.isLetter() && m_script != QChar::Script_Unknown && script != m_script
            && script != QChar::Script_Common && script != QChar::Script_Inherited)
            return true;
    }
    return false;
}

bool CSpellDictionary::isCorrect(const QString &strWord)
{
    const auto it = m_known.constFind(strWord);
    if (it != m_known.constEnd())
        return *it;
    const QString strForm = dictionaryForm(strWord);
    const bool bCorrect = isOtherScript(strForm) || !m_pCodec->canEncode(strForm)
        || m_pHunspell->spell(m_pCodec->fromUnicode(strForm).toStdString());
    if (m_known.size() >= g_nMostKnown)
        m_known.clear();
    m_known.insert(strWord, bCorrect);
    return bCorrect;
}

QStringList CSpellDictionary::suggestions(const QString &strWord) const
{
    QStringList lst;
    const QString strForm = dictionaryForm(strWord);
    if (!m_pCodec->canEncode(strForm))
        return lst;
    const bool bCurved = strWord.contains(QChar(0x2019));
    for (const std::string &word :
         m_pHunspell->suggest(m_pCodec->fromUnicode(strForm).toStdString())) {
        QString strSuggestion = m_pCodec->toUnicode(word.c_str());
        if (bCurved)
            strSuggestion.replace(QLatin1Char('\''), QChar(0x2019));
        if (lst.size() < g_nMostSuggestions && !lst.contains(strSuggestion))
            lst.append(strSuggestion);
    }
    return lst;
}
