#include "tuning-client/source/control/histogram-plot.h"

#include "tuning-client/source/control/histogram.h"
#include "tuning-client/source/control/plot.h"
#include "tuning-client/source/control/x-scale-draw.h"
#include "tuning-client/source/control/y-scale-draw.h"

#include <qwt_plot_grid.h>
#include <qwt_plot_layout.h>
#include <qwt_scale_engine.h>

#include <algorithm>
#include <array>

namespace
{
/// Bars stand on zero, and the steps of small counts are not below one: all labels would read the same.
class CountScaleEngine : public QwtLinearScaleEngine
{
public:
    void autoScale(int maxNumSteps, double& x1, double& x2, double& stepSize) const override
    {
        x1 = std::min(x1, 0.0);
        x2 = std::max(x2, 10.0);
        QwtLinearScaleEngine::autoScale(maxNumSteps, x1, x2, stepSize);
    }
};
} // namespace

HistPlot::HistPlot(QWidget* parent) : QwtPlot(parent), histogram(new Histogram("pixel", Qt::green))
{
    setAccessibleName(tr("Histogram"));
    plot::shrinkable(*this);
    plot::labelsFit(*this, yLeft, 16);
    setCanvasBackground(Qt::gray);
    plotLayout()->setAlignCanvasToScales(true);

    const std::array<double, 256> zeros{};
    populate(zeros.size(), zeros.data());

    plot::setAxisTitle(*this, xBottom, tr("Luminance"));
    plot::stepsFit(*this, xBottom, 0, 256, 16, "000");
    setAxisMaxMinor(xBottom, 0);
    setAxisMaxMajor(xBottom, 16);
    setAxisScaleDraw(xBottom, new XScaleDraw);

    plot::setAxisTitle(*this, yLeft, tr("No. of Pixel"));
    setAxisMaxMinor(yLeft, 0);
    setAxisMaxMajor(yLeft, 16);
    setAxisScaleDraw(yLeft, new YScaleDraw);
    setAxisScaleEngine(yLeft, new CountScaleEngine);
    setAxisAutoScale(yLeft);

    plot::gridAdd(*this, Qt::black, Qt::black)->enableX(false);

    itemList(QwtPlotItem::Rtti_PlotHistogram).first()->setVisible(true);
    setAutoReplot(true);
    plot::inspectable(*this);
}

void HistPlot::populate(unsigned int size, const double* values) { valuesShow(size, values); }

void HistPlot::populate(unsigned int size, const unsigned int* values) { valuesShow(size, values); }

/// The axis counts bins. Which luminance they stand for is told beside it.
template <class Value>
void HistPlot::valuesShow(unsigned int size, const Value* values)
{
    histogram->setValues(size, values);
    histogram->attach(this);
    const auto width = 256 / std::max(size, 1u);
    const auto text =
        width == 1 ? tr("%1 bins, each of %2 luminance value") : tr("%1 bins, each of %2 luminance values");
    setToolTip(text.arg(size).arg(width));
}
