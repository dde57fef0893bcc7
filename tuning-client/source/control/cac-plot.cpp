#include "tuning-client/source/control/cac-plot.h"

#include "tuning-client/source/control/plot.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>
#include <qwt_text_label.h>

#include <array>
#include <cmath>

namespace
{
constexpr int half = 256; ///< samples on each side of the middle
constexpr int sum = 2 * half + 1;
constexpr int symbolSize = 1;

struct Polynomial
{
    double operator()(double x) const
    {
        return x * linear + std::abs(x) * (x * square) + std::abs(x * x) * (x * cubical);
    }

    double linear, square, cubical;
};
} // namespace

CacPlot::CacPlot(QWidget* parent) : QwtPlot(parent), curve(new QwtPlotCurve), curve1(new QwtPlotCurve)
{
    setAccessibleName(tr("Displacement"));
    setToolTip(tr("Red and blue: the displacement of that plane."));
    setTitle(tr("Horizontal Chromatic Aberration Correction curve"));
    plot::shrinkable(*this);
    plot::inspectable(*this);
    setMinimumHeight(minimumHeight() + titleLabel()->sizeHint().height());
    plot::labelsFit(*this, xBottom);
    plot::labelsFit(*this, yLeft);
    setCanvasBackground(Qt::white);
    plot::gridAdd(*this, Qt::gray, Qt::gray)->enableXMin(true);
    plot::setAxisTitle(*this, xBottom, tr("Distance from the Middle [half Width]"));
    plot::setAxisTitle(*this, yLeft, tr("Displacement [Pixel]"));
    setAxisMaxMinor(xBottom, 10);
    setAxisScale(xBottom, -1, 1);
    setAxisScale(yLeft, -4.5, 4.5);
    auto* pScaleDraw = axisScaleDraw(yLeft);
    pScaleDraw->setMinimumExtent(pScaleDraw->extent(axisWidget(yLeft)->font()));
    plotLayout()->setAlignCanvasToScales(true);
    insertCurve(Qt::Vertical, Qt::blue, 30, 0);
    insertCurve(Qt::Vertical, Qt::red, 30, 1);
    replot();
    canvas()->installEventFilter(this);
}

void CacPlot::insertCurve(Qt::Orientation, const QColor& color, double, int lineId)
{
    constexpr std::array<double, 11> x = {-1, -0.8, -0.6, -0.4, -0.2, 0, 0.2, 0.4, 0.6, 0.8, 1};
    constexpr std::array<double, 11> y = {-0.1, -0.3, -0.5, -0.3, -0.1, 0, 0.1, 0.3, 0.5, 0.3, 0.1};
    constexpr std::array<double, 11> y1 = {0.8, 0.9, 0.8, 0.6, 0.3, 0, -0.3, -0.6, -0.8, -0.9, -0.8};
    auto& line = lineId == 0 ? *curve : *curve1;
    plot::curveDress(line, color, symbolSize);
    plot::samplesSet(line, x.data(), lineId == 0 ? y.data() : y1.data(), x.size());
    line.attach(this);
}

void CacPlot::plot(double red_lin, double red_sqr, double red_cub, double blue_lin, double blue_sqr, double blue_cub,
                   int width, int center_h_offs)
{
    const Polynomial red{red_lin, red_sqr, red_cub};
    const Polynomial blue{blue_lin, blue_sqr, blue_cub};
    const double shift = width == 0 ? 0 : center_h_offs * 513.0 / width / half;
    std::array<double, sum> px, ry, by;
    for (size_t at = 0; at < px.size(); ++at)
    {
        px[at] = (double(at) - half) / half;
        ry[at] = red(px[at] + shift);
        by[at] = blue(px[at] + shift);
    }
    plot::curveDress(*curve, Qt::red, symbolSize);
    plot::curveDress(*curve1, Qt::blue, symbolSize);
    plot::samplesSet(*curve, px.data(), ry.data(), sum);
    plot::samplesSet(*curve1, px.data(), by.data(), sum);
    replot();
}

/// The place for what the canvas should do besides; today nothing.
bool CacPlot::eventFilter(QObject* pWatched, QEvent* pEvent) { return QwtPlot::eventFilter(pWatched, pEvent); }
