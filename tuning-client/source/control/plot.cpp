#include "tuning-client/source/control/plot.h"

#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_histogram.h>
#include <qwt_plot_picker.h>
#include <qwt_scale_widget.h>
#include <qwt_symbol.h>
#include <qwt_text.h>

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>

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
constexpr int valueAxes[] = {QwtPlot::yLeft, QwtPlot::yRight};

/// The points of a curve, the bars of a histogram; of any other item nothing.
QVector<QPointF> pointsOf(const QwtPlotItem* pItem)
{
    QVector<QPointF> points;
    const auto append = [&](double x, double y)
    {
        if (std::isfinite(x) && std::isfinite(y))
            points.append({x, y});
    };
    if (const auto* pCurve = dynamic_cast<const QwtPlotCurve*>(pItem))
        for (size_t i = 0; i < pCurve->dataSize(); ++i)
            append(pCurve->sample(int(i)).x(), pCurve->sample(int(i)).y());
    if (const auto* pHistogram = dynamic_cast<const QwtPlotHistogram*>(pItem))
        for (size_t i = 0; i < pHistogram->dataSize(); ++i)
            append(pHistogram->sample(int(i)).interval.minValue(), pHistogram->sample(int(i)).value);
    return points;
}

/// Tables for a spreadsheet, one for each curve, under the titles of its axes.
QString valuesOf(const QwtPlot& plot)
{
    QStringList tables;
    for (const auto* pItem : plot.itemList())
    {
        const auto points = pointsOf(pItem);
        if (points.isEmpty() || !pItem->isVisible())
            continue;
        auto table = plot.axisTitle(pItem->xAxis()).text() + "\t" + plot.axisTitle(pItem->yAxis()).text() + "\n";
        for (const auto& point : points)
            table += QString("%1\t%2\n").arg(point.x(), 0, 'g', 10).arg(point.y(), 0, 'g', 10);
        tables.append(table);
    }
    return tables.join("\n");
}

/// Coordinates and context menu. They serve a disabled plot as well: what a running module shows may be read.
class Inspector : public QwtPlotPicker
{
public:
    explicit Inspector(QwtPlot& plot) : QwtPlotPicker(plot.canvas())
    {
        // A picker takes the focus, for keys that move the mouse.
        canvas()->setFocusPolicy(Qt::NoFocus);
        setTrackerMode(AlwaysOn);
        plot.installEventFilter(this);
    }

    bool eventFilter(QObject* pWatched, QEvent* pEvent) override
    {
        if (pWatched != plot() || pEvent->type() != QEvent::ContextMenu)
            return QwtPlotPicker::eventFilter(pWatched, pEvent);
        // Not in the middle of a drag.
        if (!isHeld())
            menuShow(static_cast<QContextMenuEvent*>(pEvent)->globalPos());
        return true;
    }

protected:
    QwtText trackerText(const QPoint& position) const override
    {
        // What a held button moves shows its own value.
        if (isHeld())
            return {};
        auto text = line(QwtPlot::xBottom, position.x());
        for (const int axis : valueAxes)
            if (plot()->axisEnabled(axis))
                text += "\n" + line(axis, position.y());
        return plot::note(text, plot()->font());
    }

    void widgetKeyPressEvent(QKeyEvent*) override {}

private:
    static bool isHeld() { return QGuiApplication::mouseButtons() & Qt::LeftButton; }

    /// The coordinate with as many digits as a pixel tells.
    QString line(int axis, int pixel) const
    {
        const auto map = plot()->canvasMap(axis);
        const double perPixel = std::fabs(map.sDist() / map.pDist());
        const int decimals = perPixel > 0 ? qBound(0, int(std::ceil(-std::log10(perPixel))), 9) : 0;
        return plot()->axisTitle(axis).text() + QString(" %1").arg(map.invTransform(pixel), 0, 'f', decimals);
    }

    void menuShow(const QPoint& position)
    {
        QMenu menu;
        menu.addAction(QObject::tr("Copy picture"), this,
                       [this]
                       {
                           setEnabled(false);
                           QGuiApplication::clipboard()->setPixmap(plot()->grab());
                           setEnabled(true);
                       });
        const auto values = valuesOf(*plot());
        menu.addAction(QObject::tr("Copy values"), this, [=] { QGuiApplication::clipboard()->setText(values); })
            ->setEnabled(!values.isEmpty());
        menu.exec(position);
    }
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
    for (int axis : valueAxes)
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
        points.append({x[i], y[i]});
    samplesSet(curve, points);
}

void samplesSet(QwtPlotCurve& curve, const QVector<QPointF>& points)
{
    QVector<QPointF> finite;
    std::copy_if(points.begin(), points.end(), std::back_inserter(finite),
                 [](const QPointF& point) { return std::isfinite(point.x()) && std::isfinite(point.y()); });
    curve.setSamples(finite);
}

QwtText note(const QString& text, const QFont& font)
{
    QwtText note(text, QwtText::PlainText);
    note.setFont(font);
    note.setRenderFlags(Qt::AlignLeft | Qt::AlignVCenter);
    note.setColor(QToolTip::palette().color(QPalette::ToolTipText));
    note.setBackgroundBrush(QToolTip::palette().brush(QPalette::ToolTipBase));
    return note;
}

void inspectable(QwtPlot& plot) { new Inspector(plot); }

QwtPlotCurve* transferDress(QwtPlot& plot, const QString& name, int symbolSize)
{
    plot.setAccessibleName(name);
    shrinkable(plot);
    labelsFit(plot, QwtPlot::yLeft);
    labelsFit(plot, QwtPlot::xBottom);
    plot.setCanvasBackground(Qt::darkBlue);
    gridAdd(plot, Qt::white, Qt::gray);
    setAxisTitle(plot, QwtPlot::xBottom, QObject::tr("Input"));
    setAxisTitle(plot, QwtPlot::yLeft, QObject::tr("Output"));
    inspectable(plot);
    return curveAdd(plot, {}, Qt::white, symbolSize);
}
} // namespace plot
