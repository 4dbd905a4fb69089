#include "pageedit/cpagestep.h"

#include "pageedit/pagelibrary.h"
#include "web/ceditwebview.h"

CPageStep::CPageStep(CEditWebView *pPage, int nId) : m_pPage(pPage), m_nId(nId) { }

void CPageStep::undo()
{
    step(QStringLiteral("undo"));
}

void CPageStep::redo()
{
    if (!m_bMade)
        step(QStringLiteral("redo"));
    m_bMade = false;
}

void CPageStep::step(const QString &strFunction)
{
    if (m_pPage && callPageLibrary(m_pPage, strFunction, QString::number(m_nId)).toBool())
        emit m_pPage->page()->contentsChanged();
}
