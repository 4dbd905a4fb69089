#include "pageedit/cpagetables.h"

#include "pageedit/pagecommands.h"
#include "pageedit/tablecommands.h"
#include "web/ceditwebview.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

const int g_nNarrowest = 8; // Pixels of a column.
const char g_szEdgeColor[] = "#2a7fd4";

} // namespace

CPageTables::CPageTables(CEditWebView *pView) : QObject(pView), m_pView(pView), m_cursor(pView)
{
    connect(pView, &CEditWebView::painted, this, &CPageTables::paint);
    pView->installEventFilter(this);
}

bool CPageTables::eventFilter(QObject *pObject, QEvent *pEvent)
{
    switch (pEvent->type()) {
    case QEvent::KeyPress: {
        const auto *pKey = static_cast<QKeyEvent *>(pEvent);
        const bool bBack = pKey->key() == Qt::Key_Backtab;
        const bool bTab = pKey->key() == Qt::Key_Tab && pKey->modifiers() == Qt::NoModifier;
        return (bTab || bBack) && m_pView->page()->isContentEditable()
            && goToNextCell(m_pView, bBack);
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        return handleMouse(static_cast<QMouseEvent *>(pEvent));
    default:
        return QObject::eventFilter(pObject, pEvent);
    }
}

// Empty if no column ends there.
QVariantMap CPageTables::edgeAt(const QPoint &point) const
{
    const QVariantMap edge =
        askPage(m_pView, QStringLiteral("columnEdge"), pagePoint(m_pView, point)).toMap();
    return edge.value(QStringLiteral("present")).toBool() ? edge : QVariantMap();
}

bool CPageTables::handleMouse(const QMouseEvent *pEvent)
{
    const bool bMove = pEvent->type() == QEvent::MouseMove;
    if (!m_edge.isEmpty()) {
        m_nNow = pEvent->pos().x();
        if (pEvent->type() == QEvent::MouseButtonRelease)
            finishDrawing();
        m_pView->update();
        return true;
    }
    if (!m_pView->isBodyEdited() || !m_pView->page()->isContentEditable()
        || pEvent->type() == QEvent::MouseButtonRelease || (bMove && pEvent->buttons())
        || (!bMove && pEvent->button() != Qt::LeftButton))
        return false;
    const QVariantMap edge = edgeAt(pEvent->pos());
    if (edge.isEmpty()) {
        m_cursor.giveBack();
        return false;
    }
    m_cursor.show(Qt::SplitHCursor);
    if (!bMove) {
        m_edge = edge;
        m_nPressed = m_nNow = pEvent->pos().x();
    }
    return true;
}

void CPageTables::finishDrawing()
{
    const qreal dZoom = m_pView->zoomFactor();
    const int nWidth =
        qRound(m_edge.value(QStringLiteral("width")).toReal() + (m_nNow - m_nPressed) / dZoom);
    const QVariantMap edge = m_edge;
    m_edge.clear();
    if (m_nNow != m_nPressed)
        runPageCommand(m_pView, QStringLiteral("columnWidth"),
                       {{QStringLiteral("table"), edge.value(QStringLiteral("table"))},
                        {QStringLiteral("column"), edge.value(QStringLiteral("column"))},
                        {QStringLiteral("width"), qMax(g_nNarrowest, nWidth)}});
}

void CPageTables::paint(QPainter *pPainter) const
{
    if (m_edge.isEmpty())
        return;
    const qreal dZoom = m_pView->zoomFactor();
    pPainter->setPen(QPen(QColor(QLatin1String(g_szEdgeColor)), 1, Qt::DashLine));
    pPainter->drawLine(m_nNow, qRound(m_edge.value(QStringLiteral("top")).toReal() * dZoom), m_nNow,
                       qRound(m_edge.value(QStringLiteral("bottom")).toReal() * dZoom));
}
