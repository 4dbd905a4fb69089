#pragma once

#include <QByteArray>
#include <QString>

// A text that takes one byte a character if all characters are of Latin-1, else two. Places and
// lengths count UTF-16 code units in either case. A value.
class CCompactText
{
public:
    int size() const { return m_bWide ? m_strWide.size() : m_arrNarrow.size(); }
    bool isWide() const { return m_bWide; }
    QString mid(int nFrom, int nLength) const;

    void insert(int nAt, const QString &strText);
    void remove(int nFrom, int nLength);
    CCompactText part(int nFrom) const; // Removes the text after that place and gives it back.
    void squeeze();

private:
    QByteArray m_arrNarrow; // One of the two is always empty.
    QString m_strWide;
    bool m_bWide = false;
};
