#include "tuning-client/source/control/exposure-plot.h"

#include "tuning-client/source/control/curve-data.h"
#include "tuning-client/source/control/plot.h"

#include <qwt_legend.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_directpainter.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_map.h>

#include <QTimerEvent>

#include <algorithm>
#include <cmath>
#include <mutex>

namespace
{
constexpr int legendLine = 24;

CurveData& curveData(QwtPlotCurve& curve) { return static_cast<CurveData&>(*curve.data()); }

QPointF originOf(const QwtInterval& interval) { return {interval.minValue() + interval.width() / 2, 0.0}; }

QwtPlotCurve* curveMake(QwtPlot& plot, const QString& title, const QColor& color, int axis)
{
    auto pCurve = plot::curveAdd(plot, title, color);
    pCurve->setStyle(QwtPlotCurve::Lines);
    pCurve->setRenderHint(QwtPlotItem::RenderAntialiased, true);
    pCurve->setPaintAttribute(QwtPlotCurve::ClipPolygons, false);
    pCurve->setLegendAttribute(QwtPlotCurve::LegendShowLine);
    pCurve->setLegendIconSize({legendLine, legendLine / 3});
    pCurve->setYAxis(axis);
    pCurve->setData(new CurveData);
    return pCurve;
}

void prepareCanvas(QwtPlot& plot)
{
    auto pCanvas = static_cast<QwtPlotCanvas*>(plot.canvas());
    pCanvas->setPaintAttribute(QwtPlotCanvas::BackingStore, false);
    if (pCanvas->testPaintAttribute(QwtPlotCanvas::BackingStore))
    {
        pCanvas->setAttribute(Qt::WA_PaintOnScreen, true);
        pCanvas->setAttribute(Qt::WA_NoSystemBackground, true);
    }

    QLinearGradient gradient(0, 0, 1, 0);
    gradient.setCoordinateMode(QGradient::StretchToDeviceMode);
    gradient.setColorAt(0.0, QColor(0, 49, 110));
    gradient.setColorAt(1.0, QColor(0, 87, 174));
    auto palette = pCanvas->palette();
    palette.setBrush(QPalette::Window, gradient);
    pCanvas->setPalette(palette);
}

void addGrid(QwtPlot& plot) { plot::gridAdd(plot, Qt::gray, Qt::gray)->enableXMin(true); }
} // namespace

ExposurePlot::ExposurePlot(QWidget* parent) : QwtPlot(parent), m_directPainter(new QwtPlotDirectPainter(this))
{
    setAccessibleName(tr("Exposure"));
    plot::shrinkable(*this);
    plot::labelsFit(*this, yLeft);
    plot::labelsFit(*this, yRight);
    setToolTip(tr("Green: integration time. Red: gain."));
    setAutoReplot(false);
    prepareCanvas(*this);
    plotLayout()->setAlignCanvasToScales(true);

    enableAxis(yLeft);
    enableAxis(yRight);
    plot::setAxisTitle(*this, xBottom, tr("Time [s]"));
    plot::setAxisTitle(*this, yLeft, tr("Integration Time [s]"));
    plot::setAxisTitle(*this, yRight, tr("Gain"));
    setAxisScale(xBottom, m_interval.minValue(), m_interval.maxValue());
    setAxisAutoScale(yLeft);
    setAxisAutoScale(yRight);

    addGrid(*this);

    m_origin = new QwtPlotMarker;
    m_origin->setLineStyle(QwtPlotMarker::Cross);
    m_origin->setValue(originOf(m_interval));
    m_origin->setLabelAlignment(Qt::AlignRight | Qt::AlignBottom);
    m_origin->setLinePen(Qt::gray, 0, Qt::DashLine);
    m_origin->attach(this);

    m_itimeCurve = curveMake(*this, tr("Integration Time"), Qt::green, yLeft);
    m_gainCurve = curveMake(*this, tr("Gain"), Qt::red, yRight);
    insertLegend(new QwtLegend, TopLegend);
    plot::inspectable(*this);
}

void ExposurePlot::append(float gain, float itime)
{
    if (!std::isfinite(gain) || !std::isfinite(itime))
        return;
    const auto time = m_clock.elapsed() / 1000;
    curveData(*m_itimeCurve).append({time, itime});
    curveData(*m_gainCurve).append({time, gain});
}

void ExposurePlot::clear()
{
    curveData(*m_itimeCurve).clear();
    curveData(*m_gainCurve).clear();
}

void ExposurePlot::replot()
{
    const std::lock_guard itimeLocker(curveData(*m_itimeCurve));
    const std::lock_guard gainLocker(curveData(*m_gainCurve));
    QwtPlot::replot();
    m_paintedPoints = static_cast<int>(curveData(*m_itimeCurve).size());
}

void ExposurePlot::setIntervalLength(int interval)
{
    if (interval > 0 && interval != static_cast<int>(m_interval.width()))
    {
        m_interval.setMaxValue(m_interval.minValue() + interval);
        setAxisScale(xBottom, m_interval.minValue(), m_interval.maxValue());
        replot();
    }
}

void ExposurePlot::showEvent(QShowEvent* pEvent)
{
    QwtPlot::showEvent(pEvent);
    if (m_timerId == -1)
    {
        m_interval.setInterval(0.0, m_interval.width());
        setAxisScale(xBottom, m_interval.minValue(), m_interval.maxValue());
        m_origin->setValue(originOf(m_interval));
        clear();
        replot();
        m_timerId = startTimer(10, Qt::CoarseTimer);
        m_clock.start();
    }
}

void ExposurePlot::hideEvent(QHideEvent* pEvent)
{
    QwtPlot::hideEvent(pEvent);
    if (m_timerId != -1)
    {
        killTimer(m_timerId);
        m_timerId = -1;
    }
}

void ExposurePlot::resizeEvent(QResizeEvent* pEvent)
{
    m_directPainter->reset();
    QwtPlot::resizeEvent(pEvent);
}

void ExposurePlot::timerEvent(QTimerEvent* pEvent)
{
    if (pEvent->timerId() != m_timerId)
    {
        QwtPlot::timerEvent(pEvent);
        return;
    }
    updateCurve();
    if (m_clock.elapsed() / 1000 > m_interval.maxValue())
        incrementInterval();
}

void ExposurePlot::updateCurve()
{
    if (!drawNewPoints())
    {
        // What stands on the canvas was drawn to another scale.
        replot();
    }
}

bool ExposurePlot::drawNewPoints()
{
    auto& itimeData = curveData(*m_itimeCurve);
    const std::lock_guard itimeLocker(itimeData);
    const std::lock_guard gainLocker(curveData(*m_gainCurve));

    const auto numPoints = static_cast<int>(itimeData.size());
    if (numPoints <= m_paintedPoints)
        return true;
    const auto left = axisScaleDiv(yLeft);
    const auto right = axisScaleDiv(yRight);
    updateAxes();
    if (axisScaleDiv(yLeft) != left || axisScaleDiv(yRight) != right)
        return false;

    const auto from = std::max(m_paintedPoints - 1, 0);
    const auto to = numPoints - 1;
    if (!canvas()->testAttribute(Qt::WA_PaintOnScreen))
    {
        QRegion clip;
        for (auto pCurve : {m_itimeCurve, m_gainCurve})
        {
            const auto bounds = qwtBoundingRect(*pCurve->data(), from, to);
            const auto xMap = canvasMap(pCurve->xAxis());
            const auto yMap = canvasMap(pCurve->yAxis());
            // The stretch of a constant value has no height, its line has.
            clip |= QwtScaleMap::transform(xMap, yMap, bounds).toAlignedRect().adjusted(-1, -1, 1, 1);
        }
        m_directPainter->setClipRegion(clip);
    }
    m_directPainter->drawSeries(m_itimeCurve, from, to);
    m_directPainter->drawSeries(m_gainCurve, from, to);
    m_paintedPoints = numPoints;
    return true;
}

void ExposurePlot::incrementInterval()
{
    const auto width = m_interval.width();
    m_interval.setInterval(m_interval.maxValue(), m_interval.maxValue() + width);
    curveData(*m_itimeCurve).clear(m_interval.minValue());
    curveData(*m_gainCurve).clear(m_interval.minValue());

    // The ticks move with the window; computing them anew would make them jump.
    auto scale = axisScaleDiv(xBottom);
    scale.setInterval(m_interval);
    for (int type = 0; type < QwtScaleDiv::NTickTypes; ++type)
    {
        auto ticks = scale.ticks(type);
        for (auto& tick : ticks)
            tick += width;
        scale.setTicks(type, ticks);
    }
    setAxisScaleDiv(xBottom, scale);

    m_origin->setValue(originOf(m_interval));
    m_paintedPoints = 0;
    replot();
}
