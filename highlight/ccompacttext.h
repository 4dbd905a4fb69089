#pragma once

#include <QByteArray>
#include <QString>

// A text that takes one byte a character as long as every character is of Latin-1, else two. Places
// and lengths count UTF-16 code units in either case. A value.
class CCompactText
{
public:
    int size() const { return m_bWide ? m_strWide.size() : m_arrNarrow.size(); }
    bool isWide() const { return m_bWide; }
    QString mid(int nFrom, int nLength) const;

    void insert(int nAt, const QString &strText);
    void remove(int nFrom, int nLength);
    CCompactText part(int nFrom) const; // What stands behind that place.
    void squeeze();

private:
    QByteArray m_arrNarrow; // Only one of the two holds anything.
    QString m_strWide;
    bool m_bWide = false;
};
