#include "tuning-client/source/control/plot.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

#include <QEvent>

#include <cmath>
#include <functional>

namespace
{
/// Runs `fFit` whenever the plot gets another size.
class SizeFilter : public QObject
{
public:
    SizeFilter(QwtPlot* pPlot_, std::function<void()> fFit_) : QObject(pPlot_), pPlot(pPlot_), fFit(std::move(fFit_))
    {
        pPlot->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::Resize)
        {
            fFit();
            // A plot that is drawn piece by piece would show it with its next page only.
            pPlot->replot();
        }
        return QObject::eventFilter(pWatched, pEvent);
    }

private:
    QwtPlot* pPlot;
    std::function<void()> fFit;
};

/// How many labels such as `widest` have room on an axis.
int fitting(const QwtPlot& plot, int axis, const QString& widest)
{
    const bool isHorizontal = axis == QwtPlot::xBottom || axis == QwtPlot::xTop;
    // The axis below takes the height of two lines.
    return isHorizontal ? plot::labelCount(plot, widest)
                        : 2 * plot.height() / (3 * plot.fontMetrics().lineSpacing()) - 2;
}
} // namespace

namespace plot
{
void setAxisTitle(QwtPlot& plot, int axis, const QString& text)
{
    QwtText title(text, QwtText::PlainText);
    title.setFont(plot.font());
    plot.setAxisTitle(axis, title);
    plot.setAxisFont(axis, plot.font());
}

void shrinkable(QwtPlot& plot)
{
    const auto metrics = plot.fontMetrics();
    plot.setMinimumSize(24 * metrics.averageCharWidth(), 14 * metrics.lineSpacing());
}

void labelsFit(QwtPlot& plot, int axis, int most)
{
    new SizeFilter(&plot, [=, &plot] { plot.setAxisMaxMajor(axis, qBound(2, fitting(plot, axis, "-0000.0"), most)); });
}

void stepsFit(QwtPlot& plot, int axis, double min, double max, double step, const QString& widest)
{
    plot.setAxisScale(axis, min, max, step);
    new SizeFilter(&plot,
                   [=, &plot]
                   {
                       double wide = step;
                       while (wide < max - min && qRound((max - min) / wide) + 1 > fitting(plot, axis, widest))
                           wide *= 2;
                       plot.setAxisScale(axis, min, max, wide);
                   });
}

int labelCount(const QwtPlot& plot, const QString& widest)
{
    int width = plot.width();
    for (int axis : {QwtPlot::yLeft, QwtPlot::yRight})
        if (plot.axisEnabled(axis))
            width -= plot.axisWidget(axis)->sizeHint().width();
    return width / plot.fontMetrics().horizontalAdvance(widest + "  ");
}

QwtPlotGrid* gridAdd(QwtPlot& plot, const QColor& major, const QColor& minor)
{
    auto* pGrid = new QwtPlotGrid;
    pGrid->setMajorPen(major, 0, Qt::DotLine);
    pGrid->setMinorPen(minor, 0, Qt::DotLine);
    pGrid->attach(&plot);
    return pGrid;
}

void curveDress(QwtPlotCurve& curve, const QColor& color, int symbolSize)
{
    curve.setPen(color);
    if (symbolSize > 0)
        curve.setSymbol(
            new QwtSymbol(QwtSymbol::Ellipse, QBrush(Qt::gray), QPen(color), QSize(symbolSize, symbolSize)));
}

QwtPlotCurve* curveAdd(QwtPlot& plot, const QString& title, const QColor& color, int symbolSize)
{
    auto* pCurve = new QwtPlotCurve(title);
    curveDress(*pCurve, color, symbolSize);
    pCurve->attach(&plot);
    return pCurve;
}

void samplesSet(QwtPlotCurve& curve, const double* x, const double* y, size_t count)
{
    QVector<QPointF> points;
    for (size_t i = 0; i < count; ++i)
        if (std::isfinite(x[i]) && std::isfinite(y[i]))
            points.append({x[i], y[i]});
    curve.setSamples(points);
}
} // namespace plot
