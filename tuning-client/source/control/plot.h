#pragma once

class QString;
class QwtPlot;

/// What all plots of the house share.
namespace plot
{
/// Titles an axis. Title and labels take the font of the plot; Qwt would mix sizes and weights of its own.
void setAxisTitle(QwtPlot& plot, int axis, const QString& text);
} // namespace plot
