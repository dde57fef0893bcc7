#pragma once

#include <qwt_plot.h>

class Histogram;

/// The luminance histogram of a picture.
class HistPlot : public QwtPlot
{
    Q_OBJECT

public:
    explicit HistPlot(QWidget* parent = nullptr);

    /// Replaces all bars: the plain counts, bar i at i of the axis.
    void populate(unsigned int size, const double* values);
    void populate(unsigned int size, const unsigned int* values);

private:
    template <class Value>
    void valuesShow(unsigned int size, const Value* values);

    Histogram* histogram;
};
