#pragma once

#include <qwt_plot.h>

class QwtPlotCurve;

/// The horizontal displacement of the red and the blue plane over the width of the picture. Until the first `plot` it
/// shows samples.
class CacPlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit CacPlot(QWidget* parent);

    /// Makes line 0 or 1 a sample in that colour. Only the colour and the line count.
    void insertCurve(Qt::Orientation orientation, const QColor& color, double base, int lineId);

    /// Draws both polynomials, which are odd. The centre is `center_h_offs` pixels off in a picture of `width` pixels;
    /// a width of 0 is not known, and draws as if it were not.
    void plot(double red_lin, double red_sqr, double red_cub, double blue_lin, double blue_sqr, double blue_cub,
              int width, int center_h_offs);

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override;

    QwtPlotCurve* curve;  ///< blue as a sample, red from the first `plot` on
    QwtPlotCurve* curve1; ///< the other way round
};
