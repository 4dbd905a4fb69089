#pragma once

#include <QChar>
#include <QHash>
#include <QString>
#include <QStringList>

#include <memory>

class Hunspell;
class QTextCodec;

// One dictionary of the system. Remembers its answers, because a text asks for the same words again
// and again. Any thread, but one at a time.
class CSpellDictionary
{
public:
    // strBase is the path without ".aff" and ".dic". Reads both files, which may take half a
    // second; null where they cannot be used.
    static std::unique_ptr<CSpellDictionary> load(const QString &strBase, const QString &strName);
    ~CSpellDictionary();

    // Also true for a word in another script than the language's.
    bool isCorrect(const QString &strWord);
    // Gives as many words as a list shows at a glance, the likeliest first.
    QStringList suggestions(const QString &strWord) const;

private:
    CSpellDictionary(const QString &strBase, const QString &strName);
    bool isUsable() const;
    bool isOtherScript(const QString &strWord) const;

    std::unique_ptr<Hunspell> m_pHunspell;
    QTextCodec *m_pCodec = nullptr; // The codec of the dictionary's files; Qt owns it.
    QChar::Script m_script;
    QHash<QString, bool> m_known;
};
