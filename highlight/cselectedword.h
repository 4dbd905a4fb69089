#pragma once

#include <QList>
#include <QRegExp>
#include <QString>
#include <QTextLayout>
#include <functional>

// The word whose occurrences are marked. Blanks around it count, letter case does not. A copy
// belongs to one thread at a time.
class CSelectedWord
{
public:
    explicit CSelectedWord(const QString &strWord = QString());

    const QString &text() const { return m_strWord; }
    // Appends a mark for each occurrence in one line; an empty word has none. False when isAborted,
    // which is called before each search, gave true.
    bool findMarks(const QString &strLine, QList<QTextLayout::FormatRange> *pMarks,
                   const std::function<bool()> &isAborted) const;

private:
    QString m_strWord;
    QRegExp m_rx;
    QTextCharFormat m_format;
};
