#include "tuning-client/source/control/histogram.h"

#include <qwt_column_symbol.h>

#include <QBrush>
#include <QPalette>
#include <QPen>

#include <cmath>

namespace
{
template <typename Value>
QwtIntervalSeriesData* series(unsigned int numValues, const Value* values)
{
    QVector<QwtIntervalSample> samples(static_cast<int>(numValues));
    for (unsigned int i = 0; i < numValues; ++i)
    {
        const double value = values[i];
        const QwtInterval interval(i, i + 1.0, QwtInterval::ExcludeMaximum);
        samples[static_cast<int>(i)] = QwtIntervalSample(std::isfinite(value) ? value : 0.0, interval);
    }
    return new QwtIntervalSeriesData(samples);
}
} // namespace

Histogram::Histogram(const QString& title, const QColor& color) : QwtPlotHistogram(title)
{
    setStyle(QwtPlotHistogram::Columns);
    setColor(color);
}

void Histogram::setColor(const QColor& color)
{
    auto translucent = color;
    translucent.setAlpha(180);

    setPen(Qt::black);
    setBrush(translucent);

    auto pSymbol = new QwtColumnSymbol(QwtColumnSymbol::Box);
    pSymbol->setFrameStyle(QwtColumnSymbol::Raised);
    pSymbol->setLineWidth(2);
    pSymbol->setPalette(QPalette(translucent));
    setSymbol(pSymbol);
}

void Histogram::setValues(unsigned int numValues, const double* values) { setData(series(numValues, values)); }

void Histogram::setValues(unsigned int numValues, const uint32_t* values) { setData(series(numValues, values)); }
