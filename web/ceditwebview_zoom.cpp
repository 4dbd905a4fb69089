// The size at which a page is shown. It is no part of the page.
#include "web/ceditwebview.h"

#include "widgets/typedkeys.h"

#include <QKeyEvent>
#include <QWheelEvent>

#include <algorithm>

namespace {

const double g_dZoomStep = 1.1;
const double g_dMinZoom = 0.3;
const double g_dMaxZoom = 5;

} // namespace

void CEditWebView::zoomBy(int nSteps)
{
    double dZoom = zoomFactor();
    for (int n = 0; n < qAbs(nSteps); ++n)
        dZoom *= nSteps > 0 ? g_dZoomStep : 1 / g_dZoomStep;
    if (qAbs(dZoom - 1) < 0.01)
        dZoom = 1; // Returns to the beginning, even if rounding lost something in between.
    setZoomFactor(std::clamp(dZoom, g_dMinZoom, g_dMaxZoom));
}

void CEditWebView::wheelEvent(QWheelEvent *pEvent)
{
    if (!pEvent->modifiers().testFlag(Qt::ControlModifier)) {
        QWebView::wheelEvent(pEvent);
        return;
    }
    const int nDelta = pEvent->angleDelta().y();
    zoomBy(nDelta > 0 ? qMax(1, nDelta / 120) : nDelta < 0 ? qMin(-1, nDelta / 120) : 0);
    pEvent->accept();
}

bool CEditWebView::zoomByKey(const QKeyEvent *pEvent)
{
    switch (zoomKey(pEvent)) {
    case ZoomKey::Larger:
        zoomBy(1);
        return true;
    case ZoomKey::Smaller:
        zoomBy(-1);
        return true;
    case ZoomKey::Usual:
        setZoomFactor(1);
        return true;
    case ZoomKey::None:
        break;
    }
    return false;
}
