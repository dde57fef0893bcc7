#pragma once

#include <QVector>

#include <cstddef>

class QColor;
class QFont;
class QPointF;
class QString;
class QwtPlot;
class QwtPlotCurve;
class QwtPlotGrid;
class QwtText;

/// What all plots of the house share.
namespace plot
{
/// Titles an axis. Title and labels take the font of the plot; Qwt would mix sizes and weights of its own.
void setAxisTitle(QwtPlot& plot, int axis, const QString& text);

/// Lets the plot become as narrow as a page in a small window wants it; its height holds the titles of the side axes.
void shrinkable(QwtPlot& plot);

/// Gives an axis whose steps Qwt chooses as many labels as it has room for, at most `most`.
void labelsFit(QwtPlot& plot, int axis, int most = 8);

/// Gives an axis a scale with a label such as `widest` at each step; where there is no room, at each second one, and so
/// on.
void stepsFit(QwtPlot& plot, int axis, double min, double max, double step, const QString& widest);

/// How many labels such as `widest` have room on the bottom axis, by the size that the plot has now.
int labelCount(const QwtPlot& plot, const QString& widest);

/// A dotted grid; its lines are enabled as Qwt does it, all but the minor ones. Belongs to the plot.
QwtPlotGrid* gridAdd(QwtPlot& plot, const QColor& major, const QColor& minor);

/// Draws the curve in one colour. With `symbolSize`, in pixels, its points are gray circles.
void curveDress(QwtPlotCurve& curve, const QColor& color, int symbolSize = 0);

/// A curve so dressed, belonging to the plot.
QwtPlotCurve* curveAdd(QwtPlot& plot, const QString& title, const QColor& color, int symbolSize = 0);

/// Gives the curve `count` points. Those that are not finite are left out: they would spoil the axes.
void samplesSet(QwtPlotCurve& curve, const double* x, const double* y, size_t count);
void samplesSet(QwtPlotCurve& curve, const QVector<QPointF>& points);

/// A short text on a canvas, legible on whatever is drawn there.
QwtText note(const QString& text, const QFont& font);

/// Shows the coordinates under the mouse, and gives the plot a context menu that copies its picture or its values.
void inspectable(QwtPlot& plot);

/// Makes the plot one of a transfer curve: output over input, white on dark blue. Returns the curve.
QwtPlotCurve* transferDress(QwtPlot& plot, const QString& name, int symbolSize = 0);
} // namespace plot
