#include "editor/textedits.h"

#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

CPositionMap::CPositionMap(const TextEdits &lstEdits) : m_lstEdits(lstEdits)
{
    m_lstGrowth.reserve(lstEdits.size());
    int nGrowth = 0;
    for (const STextEdit &edit : lstEdits) {
        m_lstGrowth.append(nGrowth);
        nGrowth += edit.strText.length() - edit.nLength;
    }
}

int CPositionMap::map(int nPosition) const
{
    const auto behind =
        std::lower_bound(m_lstEdits.cbegin(), m_lstEdits.cend(), nPosition,
                         [](const STextEdit &edit, int nWanted) { return edit.nStart < nWanted; });
    if (behind == m_lstEdits.cbegin())
        return nPosition;
    const int nEdit = int(behind - m_lstEdits.cbegin()) - 1;
    const STextEdit &edit = m_lstEdits.at(nEdit);
    const int nOffset = nPosition - edit.nStart;
    const int nText = edit.strText.length();
    const int nNew = nOffset < edit.nLength ? qMin(nOffset, nText) : nOffset - edit.nLength + nText;
    return edit.nStart + m_lstGrowth.at(nEdit) + nNew;
}

CCarets CPositionMap::map(const CCarets &carets) const
{
    QVector<SCaret> lst;
    lst.reserve(carets.count());
    for (const SCaret &caret : carets.list())
        lst.append(map(caret));
    return {lst, carets.mainIndex()};
}

namespace {

// Qt adds typed text to the last insertion, even to that of a command. A removal in between keeps
// them apart.
void keepFromGrowing(QTextCursor *pEdit)
{
    pEdit->insertText(QStringLiteral(" "));
    pEdit->deletePreviousChar();
}

} // namespace

void applyEdits(QTextDocument *pDocument, const TextEdits &lstEdits, int nCursor, bool bJoinLast)
{
    QTextCursor edit(pDocument);
    edit.setPosition(nCursor);
    if (bJoinLast)
        edit.joinPreviousEditBlock();
    else
        edit.beginEditBlock();
    // Edits from the end, so that the places of later edits stay the same.
    for (auto it = lstEdits.crbegin(); it != lstEdits.crend(); ++it) {
        edit.setPosition(it->nStart);
        edit.setPosition(it->nStart + it->nLength, QTextCursor::KeepAnchor);
        edit.insertText(it->strText);
    }
    keepFromGrowing(&edit);
    edit.endEditBlock();
}
