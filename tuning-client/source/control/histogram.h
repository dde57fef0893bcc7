#pragma once

#include <qwt_plot_histogram.h>

#include <cstdint>

/// A histogram whose bar i stands between i and i + 1 of the axis.
class Histogram : public QwtPlotHistogram
{
public:
    Histogram(const QString& title, const QColor& color);

    void setColor(const QColor& color);

    /// Replaces the series. A value that is not finite shows as 0.
    void setValues(unsigned int numValues, const double* values);
    void setValues(unsigned int numValues, const uint32_t* values);
};
