#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <vector>

// A large text, to be taken slice by slice. What is ASCII stays bytes until it is taken, which is
// all that is left of decoding it. Reentrant.
class CTextSlices
{
public:
    CTextSlices() = default;
    // Slices from nFrom on; lstEnds tells where each ends.
    CTextSlices(QString strText, int nFrom, std::vector<int> lstEnds);
    // The same for a text that is nothing but these characters.
    CTextSlices(QByteArray ascii, int nFrom, std::vector<int> lstEnds);

    bool isEmpty() const { return m_nTaken == m_lstEnds.size(); }
    // Of those that are left.
    int count() const { return int(m_lstEnds.size() - m_nTaken); }
    QString take();

private:
    QString m_strText; // Or m_ascii.
    QByteArray m_ascii;
    std::vector<int> m_lstEnds;
    size_t m_nTaken = 0;
    int m_nAt = 0;
};
