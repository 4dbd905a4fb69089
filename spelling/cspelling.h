#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QThreadPool>

#include <memory>

class CSpellDictionary;

// The spelling of words by the system's dictionaries and by the user's own words. A dictionary is
// read on a thread when a word of its language is first asked about; until then, and where there is
// none, every word is right. GUI thread only.
class CSpelling : public QObject
{
    Q_OBJECT

public:
    // Looks for dictionaries in the folders; earlier folders come first. A word without a language
    // has that of the locale. The user's own words are in a file, one a line, in UTF-8; the file
    // need not exist.
    CSpelling(const QStringList &lstFolders, const QString &strOwnWords, const QString &strLocale,
              QObject *pParent = nullptr);
    // Waits for a dictionary that is being read.
    ~CSpelling() override;

    // The system's folders of dictionaries, and the file in the settings' folder with the user's
    // words.
    static QStringList systemFolders();
    static QString ownWordsFile();

    // strLanguage is a name as pages use it; empty for the locale's language.
    bool hasDictionary(const QString &strLanguage) const;
    // The same, but waits until the dictionary is read.
    bool prepare(const QString &strLanguage);
    bool isCorrect(const QString &strLanguage, const QString &strWord);
    // May take some tenths of a second.
    QStringList suggestions(const QString &strLanguage, const QString &strWord);
    // Accepts the word in all languages from now on. If it could not be written, gives false with
    // the reason; the word then counts until the program ends.
    bool addWord(const QString &strWord, QString *pError);

signals:
    // Some words may be judged otherwise now.
    void changed();

private:
    QString nameFor(const QString &strLanguage) const;
    CSpellDictionary *dictionary(const QString &strLanguage);
    QStringList readOwnWords() const;
    bool isOwnWord(const QString &strWord) const;

    QString m_strOwnWords;
    QString m_strLocale;
    QHash<QString, QString> m_bases; // By name.
    // Null while a dictionary is read, and if it cannot be read.
    QHash<QString, std::shared_ptr<CSpellDictionary>> m_dictionaries;
    mutable QHash<QString, QString> m_names; // By language.
    QSet<QString> m_ownWords;
    QThreadPool m_pool;
};

// Set in main.cpp only. Null if nothing is checked.
extern CSpelling *g_pSpelling;
