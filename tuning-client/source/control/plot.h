#pragma once

#include <cstddef>

class QColor;
class QString;
class QwtPlot;
class QwtPlotCurve;
class QwtPlotGrid;

/// What all plots of the house share.
namespace plot
{
/// Titles an axis. Title and labels take the font of the plot; Qwt would mix sizes and weights of its own.
void setAxisTitle(QwtPlot& plot, int axis, const QString& text);

/// Lets the plot become as small as a page in a small window wants it.
void shrinkable(QwtPlot& plot);

/// Gives the bottom axis as many labels as its width has room for; for an axis whose steps Qwt chooses.
void labelsFit(QwtPlot& plot);

/// How many labels such as `widest` have room on the bottom axis.
int labelCount(const QwtPlot& plot, const QString& widest);

/// A dotted grid; its lines are enabled as Qwt does it, all but the minor ones. Belongs to the plot.
QwtPlotGrid* gridAdd(QwtPlot& plot, const QColor& major, const QColor& minor);

/// A curve in one colour, belonging to the plot. With `symbolSize`, in pixels, its points are gray circles.
QwtPlotCurve* curveAdd(QwtPlot& plot, const QString& title, const QColor& color, int symbolSize = 0);

/// Gives the curve `count` points. Those that are not finite are left out: they would spoil the axes.
void samplesSet(QwtPlotCurve& curve, const double* x, const double* y, size_t count);
} // namespace plot
