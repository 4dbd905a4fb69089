#pragma once

#include <QByteArray>
#include <QString>

#include <cstddef>
#include <vector>

// A large text that is taken slice by slice. ASCII stays bytes until then, which makes decoding it
// almost free. Reentrant.
class CTextSlices
{
public:
    CTextSlices() = default;
    // The slices begin at nFrom, and lstEnds tells where each ends.
    CTextSlices(QString strText, int nFrom, std::vector<int> lstEnds);
    // The same for ASCII.
    CTextSlices(QByteArray ascii, int nFrom, std::vector<int> lstEnds);

    bool isEmpty() const { return m_nTaken == m_lstEnds.size(); }
    // The number of slices that are left.
    int count() const { return int(m_lstEnds.size() - m_nTaken); }
    QString take();

private:
    QString m_strText; // Empty if m_ascii has the text.
    QByteArray m_ascii;
    std::vector<int> m_lstEnds;
    size_t m_nTaken = 0;
    int m_nAt = 0;
};
