#pragma once

#include <qwt_plot_marker.h>

#include <QRectF>

/// A point on a plot that the user moves with a MarkerPicker.
class Marker : public QwtPlotMarker
{
public:
    Marker() = default;

    /// Where its symbol stands on the canvas.
    QRectF symbolRect(const QwtScaleMap& xMap, const QwtScaleMap& yMap) const;

    /// Where its value stands beside the symbol, on the side that has room.
    QRectF valueRect(const QwtScaleMap& xMap, const QwtScaleMap& yMap, const QRectF& canvasRect) const;

    void draw(QPainter* pPainter, const QwtScaleMap& xMap, const QwtScaleMap& yMap,
              const QRectF& canvasRect) const override;

    QRectF constrain;      ///< in plot coordinates; the value does not leave it
    bool isChosen = false; ///< the value is shown
};
