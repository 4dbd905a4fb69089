#include "pageedit/specialcharacters.h"

#include <QFile>

#include <algorithm>

static void initCharacters()
{
    Q_INIT_RESOURCE(pageedit);
}

namespace {

QVector<SSpecialCharacter> readCharacters()
{
    initCharacters();
    QVector<SSpecialCharacter> lstCharacters;
    QFile file(QStringLiteral(":/pageedit/characters.txt"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The list of characters is missing");
    while (!file.atEnd()) {
        const QString strLine = QString::fromLatin1(file.readLine()).trimmed();
        SSpecialCharacter character;
        character.nCode = strLine.section(QLatin1Char(' '), 0, 0).toUInt(nullptr, 16);
        character.strName = strLine.section(QLatin1Char(' '), 1);
        lstCharacters.append(character);
    }
    return lstCharacters;
}

bool hasWord(const SSpecialCharacter &character, const QString &strBegin)
{
    const QString strNames = QLatin1Char(' ') + character.strName;
    return strNames.contains(QLatin1Char(' ') + strBegin)
        || strNames.contains(QLatin1Char('-') + strBegin);
}

QString codeOf(const SSpecialCharacter &character)
{
    return QStringLiteral("%1").arg(character.nCode, 4, 16, QLatin1Char('0'));
}

} // namespace

QString SSpecialCharacter::shown() const
{
    if (!QChar::isSpace(nCode) && QChar::category(nCode) != QChar::Other_Format)
        return text();
    QString strLetters;
    for (const QString &strWord : strName.split(QLatin1Char(' ')))
        strLetters += strWord.at(0);
    return strLetters;
}

const QVector<SSpecialCharacter> &specialCharacters()
{
    static const QVector<SSpecialCharacter> s_lstCharacters = readCharacters();
    return s_lstCharacters;
}

QVector<SSpecialCharacter> findCharacters(const QString &strText)
{
    const QString strWanted = strText.simplified().toLower();
    const QStringList lstWords = strWanted.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QVector<SSpecialCharacter> lstFound;
    for (const SSpecialCharacter &character : specialCharacters()) {
        const bool bNamed =
            std::all_of(lstWords.cbegin(), lstWords.cend(),
                        [&](const QString &strWord) { return hasWord(character, strWord); });
        const QString strCode = codeOf(character);
        if (bNamed || strWanted == strCode || strWanted == QLatin1String("u+") + strCode
            || strText.trimmed() == character.text())
            lstFound.append(character);
    }
    return lstFound;
}
