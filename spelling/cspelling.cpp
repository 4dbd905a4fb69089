#include "spelling/cspelling.h"

#include "app/filereader.h"
#include "app/filewriter.h"
#include "spelling/cspelldictionary.h"
#include "spelling/dictionaryname.h"
#include "spelling/spellwords.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

CSpelling *g_pSpelling = nullptr;

CSpelling::CSpelling(const QStringList &lstFolders, const QString &strOwnWords,
                     const QString &strLocale, QObject *pParent)
    : QObject(pParent), m_strOwnWords(strOwnWords), m_strLocale(strLocale)
{
    const QVector<SDictionaryFile> lstFiles = dictionaryFiles(lstFolders);
    for (const SDictionaryFile &file : lstFiles)
        m_bases.insert(file.strName, file.strBase);
    const QStringList lstWords = readOwnWords();
    m_ownWords = QSet<QString>(lstWords.cbegin(), lstWords.cend());
    m_pool.setMaxThreadCount(1);
}

CSpelling::~CSpelling()
{
    m_pool.waitForDone();
}

QStringList CSpelling::systemFolders()
{
    QStringList lst;
    for (const char *szName : {"hunspell", "myspell/dicts"}) {
        lst += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QLatin1String(szName),
                                         QStandardPaths::LocateDirectory);
    }
    return lst;
}

QString CSpelling::ownWordsFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
        + QLatin1String("/dictionary.txt");
}

QString CSpelling::nameFor(const QString &strLanguage) const
{
    if (!m_names.contains(strLanguage))
        m_names.insert(strLanguage, dictionaryName(m_bases.keys(), strLanguage, m_strLocale));
    return m_names.value(strLanguage);
}

bool CSpelling::hasDictionary(const QString &strLanguage) const
{
    const QString strName = nameFor(strLanguage);
    const auto it = m_dictionaries.constFind(strName);
    return it != m_dictionaries.constEnd() && *it;
}

// Null until the dictionary is read.
CSpellDictionary *CSpelling::dictionary(const QString &strLanguage)
{
    const QString strName = nameFor(strLanguage);
    if (strName.isEmpty())
        return nullptr;
    const auto it = m_dictionaries.constFind(strName);
    if (it != m_dictionaries.constEnd())
        return it->get();
    m_dictionaries.insert(strName, nullptr);
    const QString strBase = m_bases.value(strName);
    // The destructor waits for the job, so this object lives as long as the job runs.
    m_pool.start([this, strName, strBase] {
        std::shared_ptr<CSpellDictionary> pRead = CSpellDictionary::load(strBase, strName);
        const auto take = [this, strName, pRead] {
            m_dictionaries.insert(strName, pRead);
            emit changed();
        };
        QMetaObject::invokeMethod(this, take, Qt::QueuedConnection);
    });
    return nullptr;
}

bool CSpelling::prepare(const QString &strLanguage)
{
    dictionary(strLanguage);
    m_pool.waitForDone();
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return hasDictionary(strLanguage);
}

bool CSpelling::isOwnWord(const QString &strWord) const
{
    const QString strForm = dictionaryForm(strWord);
    return m_ownWords.contains(strForm) || m_ownWords.contains(strForm.toLower());
}

bool CSpelling::isCorrect(const QString &strLanguage, const QString &strWord)
{
    CSpellDictionary *pDictionary = dictionary(strLanguage);
    return !pDictionary || pDictionary->isCorrect(strWord) || isOwnWord(strWord);
}

QStringList CSpelling::suggestions(const QString &strLanguage, const QString &strWord)
{
    CSpellDictionary *pDictionary = dictionary(strLanguage);
    return pDictionary ? pDictionary->suggestions(strWord) : QStringList();
}

QStringList CSpelling::readOwnWords() const
{
    static const QRegularExpression s_lineEnds(QStringLiteral("[\r\n]+"));
    return QString::fromUtf8(readFile(m_strOwnWords).bytes).split(s_lineEnds, Qt::SkipEmptyParts);
}

bool CSpelling::addWord(const QString &strWord, QString *pError)
{
    const QString strForm = dictionaryForm(strWord);
    m_ownWords.insert(strForm);
    emit changed();
    // The file may have been edited meanwhile; what cannot be read is not written over.
    const SFileContent content = readFile(m_strOwnWords);
    if (!content.isWhole() && QFileInfo::exists(m_strOwnWords)) {
        *pError = content.strError;
        return false;
    }
    QByteArray arrWords = content.bytes;
    if (!arrWords.isEmpty() && !arrWords.endsWith('\n'))
        arrWords += '\n';
    QDir().mkpath(QFileInfo(m_strOwnWords).path());
    return writeFile(m_strOwnWords, arrWords + strForm.toUtf8() + '\n', pError);
}
