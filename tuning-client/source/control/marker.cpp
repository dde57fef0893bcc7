#include "tuning-client/source/control/marker.h"

#include "tuning-client/source/control/plot.h"

#include <qwt_plot.h>
#include <qwt_scale_map.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

namespace
{
/// In whole numbers, as the record takes them.
QwtText valueText(const Marker& marker)
{
    return plot::note(QString("%1, %2").arg(int(marker.xValue())).arg(int(marker.yValue())), marker.plot()->font());
}
} // namespace

QRectF Marker::symbolRect(const QwtScaleMap& xMap, const QwtScaleMap& yMap) const
{
    const QPointF middle(xMap.transform(xValue()), yMap.transform(yValue()));
    return QRectF(symbol()->boundingRect()).translated(middle);
}

QRectF Marker::valueRect(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const
{
    const auto symbolAt = symbolRect(xMap, yMap);
    QRectF rect({}, valueText(*this).textSize());
    // The coordinates of the mouse stand above it.
    rect.moveTopLeft(symbolAt.bottomRight());
    if (rect.right() > canvasRect.right())
        rect.moveRight(symbolAt.left());
    if (rect.bottom() > canvasRect.bottom())
        rect.moveBottom(symbolAt.top());
    return rect;
}

void Marker::draw(QPainter* pPainter, const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const
{
    QwtPlotMarker::draw(pPainter, xMap, yMap, canvasRect);
    if (isChosen)
        valueText(*this).draw(pPainter, valueRect(xMap, yMap, canvasRect));
}
