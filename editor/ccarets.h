#pragma once

#include <QVector>

// A place to type at, with its selection: one end stays, the other moves. Positions are those of a
// document, in UTF-16 units.
struct SCaret
{
    int nAnchor = 0;
    int nPosition = 0;

    int start() const { return qMin(nAnchor, nPosition); }
    int end() const { return qMax(nAnchor, nPosition); }
    bool hasSelection() const { return nAnchor != nPosition; }
    bool operator==(const SCaret &other) const
    {
        return nAnchor == other.nAnchor && nPosition == other.nPosition;
    }
};

// One or more carets, in the order of the text; none overlaps another. One of them is the main one:
// the view follows it, and input methods compose there. A value.
class CCarets
{
public:
    // A caret at the text's start.
    CCarets() : CCarets(SCaret()) { }
    explicit CCarets(const SCaret &caret) : m_lst {caret} { }
    // Takes carets in any order and joins those that overlap. lst must not be empty; nMain is an
    // index in it.
    CCarets(const QVector<SCaret> &lst, int nMain);

    const QVector<SCaret> &list() const { return m_lst; }
    int count() const { return m_lst.size(); }
    bool isSingle() const { return m_lst.size() == 1; }
    int mainIndex() const { return m_nMain; }
    const SCaret &main() const { return m_lst.at(m_nMain); }

    bool operator==(const CCarets &other) const
    {
        return m_nMain == other.m_nMain && m_lst == other.m_lst;
    }
    bool operator!=(const CCarets &other) const { return !(*this == other); }

private:
    QVector<SCaret> m_lst;
    int m_nMain = 0;
};
