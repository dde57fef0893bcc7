#include "tuning-client/source/control/plot.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

#include <QEvent>

#include <cmath>

namespace
{
/// Adapts the number of an axis's labels to the size of its plot.
class LabelFilter : public QObject
{
public:
    LabelFilter(QwtPlot* pPlot_, int axis_, int most_) : QObject(pPlot_), pPlot(pPlot_), axis(axis_), most(most_)
    {
        pPlot->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pEvent->type() == QEvent::Resize)
        {
            pPlot->setAxisMaxMajor(axis, qBound(2, fitting(), most));
            // A plot that is drawn piece by piece would show them with its next page only.
            pPlot->replot();
        }
        return QObject::eventFilter(pWatched, pEvent);
    }

private:
    int fitting() const
    {
        const bool isHorizontal = axis == QwtPlot::xBottom || axis == QwtPlot::xTop;
        // The axis below takes the height of two lines.
        return isHorizontal ? plot::labelCount(*pPlot, "-0000.0")
                            : 2 * pPlot->height() / (3 * pPlot->fontMetrics().lineSpacing()) - 2;
    }

    QwtPlot* pPlot;
    int axis;
    int most;
};
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

void labelsFit(QwtPlot& plot, int axis, int most) { new LabelFilter(&plot, axis, most); }

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
