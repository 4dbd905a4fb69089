#pragma once

#include "editor/ccarets.h"
#include "editor/ctextlines.h"
#include "editor/textedits.h"

#include <QRandomGenerator>
#include <QStringList>

// A text as a plain list of strings.
class CListLines : public CTextLines
{
public:
    explicit CListLines(const QStringList &lst) : m_lst(lst) { }
    explicit CListLines(const QString &strText) : CListLines(strText.split('\n')) { }

    int count() const override { return m_lst.size(); }
    QString text(int nLine) const override { return m_lst.at(nLine); }
    int length(int nLine) const override { return m_lst.at(nLine).length(); }
    int start(int nLine) const override
    {
        int nStart = 0;
        for (int n = 0; n < nLine; ++n)
            nStart += m_lst.at(n).length() + 1;
        return nStart;
    }
    int lineAt(int nPosition) const override
    {
        return m_lst.join('\n').leftRef(nPosition).count('\n');
    }

private:
    QStringList m_lst;
};

inline QString applied(QString strText, const TextEdits &lstEdits)
{
    for (auto it = lstEdits.crbegin(); it != lstEdits.crend(); ++it)
        strText.replace(it->nStart, it->nLength, it->strText);
    return strText;
}

// A text with its carets: "|" is a caret, "^" the other end of its selection. The last caret is the
// main one.
struct SMarkedText
{
    QString strText;
    CCarets carets;
};

inline SMarkedText marked(const QString &strMarked)
{
    SMarkedText result;
    QVector<SCaret> lst;
    QString strMarks; // In order, each with its place.
    QVector<int> lstPlaces;
    for (const QChar c : strMarked) {
        if (c == '|' || c == '^') {
            strMarks += c;
            lstPlaces.append(result.strText.length());
        } else {
            result.strText += c;
        }
    }
    for (int n = 0; n < strMarks.length(); ++n) {
        // "^" opens a selection whose end follows. After "|" it closes one, unless another "|"
        // follows.
        const QString strNext = strMarks.mid(n, 3);
        const bool bPair =
            strNext.startsWith("^|") || (strNext.startsWith("|^") && strNext != "|^|");
        const int nSecond = bPair ? n + 1 : n;
        const bool bForward = strMarks.at(nSecond) == '|';
        lst.append({lstPlaces.at(bForward ? n : nSecond), lstPlaces.at(bForward ? nSecond : n)});
        n = nSecond;
    }
    result.carets = CCarets(lst, lst.size() - 1);
    return result;
}

inline QString withMarks(QString strText, const CCarets &carets)
{
    const QVector<SCaret> &lst = carets.list();
    for (int n = lst.size() - 1; n >= 0; --n) {
        const SCaret &caret = lst.at(n);
        const bool bForward = caret.nPosition >= caret.nAnchor;
        strText.insert(caret.end(), bForward ? '|' : '^');
        if (caret.hasSelection())
            strText.insert(caret.start(), bForward ? '^' : '|');
    }
    return strText;
}

// The same numbers in each run.
class CDice
{
public:
    explicit CDice(quint32 nSeed) : m_generator(nSeed) { }

    int upTo(int nMost) { return int(m_generator.bounded(nMost + 1)); }
    QString text(const QString &strAlphabet, int nLength)
    {
        QString str;
        for (int n = 0; n < nLength; ++n)
            str += strAlphabet.at(upTo(strAlphabet.length() - 1));
        return str;
    }
    CCarets carets(int nTextLength, int nCount)
    {
        QVector<SCaret> lst;
        for (int n = 0; n < nCount; ++n) {
            const int nPosition = upTo(nTextLength);
            lst.append({upTo(1) ? nPosition : upTo(nTextLength), nPosition});
        }
        return {lst, nCount - 1};
    }

private:
    QRandomGenerator m_generator;
};
