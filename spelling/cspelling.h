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
    // Looks for dictionaries in the folders, first ones first; a language that is not named is that
    // of the locale. The user's own words stand in a file, one a line, in UTF-8; none need be
    // there.
    CSpelling(const QStringList &lstFolders, const QString &strOwnWords, const QString &strLocale,
              QObject *pParent = nullptr);
    // Waits for a dictionary that is being read.
    ~CSpelling() override;

    // The system's folders of dictionaries, and the file in the settings' folder with the user's
    // words.
    static QStringList systemFolders();
    static QString ownWordsFile();

    // strLanguage as a page names it; empty: the locale's.
    bool hasDictionary(const QString &strLanguage) const;
    // The same after the dictionary was read, which is waited for.
    bool prepare(const QString &strLanguage);
    bool isCorrect(const QString &strLanguage, const QString &strWord);
    // May take some tenths of a second.
    QStringList suggestions(const QString &strLanguage, const QString &strWord);
    // A word of all languages from now on. False when it could not be written, with the reason:
    // then it counts until the program ends.
    bool addWord(const QString &strWord, QString *pError);

signals:
    // Words may be right now that were not, or the other way round.
    void changed();

private:
    QString nameFor(const QString &strLanguage) const;
    CSpellDictionary *dictionary(const QString &strLanguage);
    QStringList readOwnWords() const;
    bool isOwnWord(const QString &strWord) const;

    QString m_strOwnWords;
    QString m_strLocale;
    QHash<QString, QString> m_bases; // By name.
    // Null while one is read, and for one that cannot be.
    QHash<QString, std::shared_ptr<CSpellDictionary>> m_dictionaries;
    mutable QHash<QString, QString> m_names; // By language.
    QSet<QString> m_ownWords;
    QThreadPool m_pool;
};

// Set in main.cpp only. Null where nothing is checked.
extern CSpelling *g_pSpelling;
