#include "tuning-client/source/control/wdr-plot.h"

#include "tuning-client/source/control/plot.h"

#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_draw.h>
#include <qwt_scale_widget.h>

#include <algorithm>

namespace
{
constexpr int symbolSize = 8;
}

void WdrCurveData::append(const double* x, const double* y, int count)
{
    const int end = m_count + count;
    if (end > m_x.size())
    {
        m_x.resize(end);
        m_y.resize(end);
    }
    for (int i = 0; i < count; ++i)
    {
        m_x[m_count + i] = x[i];
        m_y[m_count + i] = y[i];
    }
    m_count = end;
}

WdrCurve::WdrCurve(const QString& name_, const QString& title_, const rest::CamEngineWdrCurve_t& curve)
    : name(name_), title(title_), wdrCurve(curve)
{
    double x = 0;
    for (size_t i = 0; i < std::size(curve.Ym); ++i)
    {
        dxes.append(1 << std::min(curve.dY[i] + 3, 30));
        x += dxes.last();
        const double y = curve.Ym[i];
        append(&x, &y, 1);
    }
}

WdrPlot::WdrPlot(const QString& title, QWidget* parent)
    : QwtPlot(title, parent), m_CurvePlot(plot::transferDress(*this, tr("Tone Mapping Curve"), symbolSize))
{
    static_cast<QwtPlotGrid*>(itemList(QwtPlotItem::Rtti_PlotGrid).first())->enableXMin(true);
    setAxisScale(xBottom, 0, 4500);
    setAxisMaxMinor(xBottom, 10);
    setAxisScale(yLeft, -10, 4500);
    // The canvas keeps its place whatever the numbers.
    auto* pScaleDraw = axisScaleDraw(yLeft);
    pScaleDraw->setMinimumExtent(pScaleDraw->extent(axisWidget(yLeft)->font()));
    plotLayout()->setAlignCanvasToScales(true);
    setAutoReplot(true);
    m_CurvePlot->setRenderHint(QwtPlotItem::RenderAntialiased);
    replot();
}

void WdrPlot::insertCurve(Qt::Orientation, const QColor& color, const QString& title, WdrCurveData* pData)
{
    setTitle(title);
    plot::curveDress(*m_CurvePlot, color, symbolSize);
    // A thin line is lost on the dark canvas.
    m_CurvePlot->setPen(color, 3);
    plot::samplesSet(*m_CurvePlot, pData->x(), pData->y(), size_t(pData->count()));
    replot();
}
