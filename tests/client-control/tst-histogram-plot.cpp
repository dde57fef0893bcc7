#include "tuning-client/source/control/histogram-plot.h"

#include <qwt_plot_histogram.h>
#include <qwt_scale_div.h>
#include <qwt_scale_draw.h>

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace
{
const QwtPlotHistogram& histogram(const QwtPlot& plot)
{
    const auto items = plot.itemList(QwtPlotItem::Rtti_PlotHistogram);
    EXPECT_EQ(items.size(), 1);
    return *static_cast<QwtPlotHistogram*>(items.first());
}
} // namespace

TEST(HistPlot, ReplacesItsBars)
{
    HistPlot plot;
    EXPECT_EQ(histogram(plot).dataSize(), 256u);
    EXPECT_EQ(plot.toolTip(), "256 bins, each of 1 luminance value");

    const std::array<unsigned int, 16> values{4000000000u, 5};
    plot.populate(values.size(), values.data());
    ASSERT_EQ(histogram(plot).dataSize(), 16u);
    EXPECT_EQ(plot.toolTip(), "16 bins, each of 16 luminance values");
    EXPECT_EQ(histogram(plot).sample(0).value, 4e9);
    EXPECT_EQ(histogram(plot).sample(1).value, 5);
    EXPECT_EQ(histogram(plot).sample(15).interval, QwtInterval(15, 16, QwtInterval::ExcludeMaximum));
    // At once, with nothing else to redraw it.
    EXPECT_GE(plot.axisScaleDiv(QwtPlot::yLeft).upperBound(), 4e9);
    EXPECT_EQ(plot.axisScaleDiv(QwtPlot::xBottom).interval(), QwtInterval(0, 256));
}

TEST(HistPlot, LabelsItsAxesWithDifferentWholeNumbers)
{
    HistPlot plot;
    for (auto most : {0.0, 1.0, 5.0, 200000.0})
    {
        plot.populate(1, &most);
        QStringList labels;
        for (auto tick : plot.axisScaleDiv(QwtPlot::yLeft).ticks(QwtScaleDiv::MajorTick))
            labels << plot.axisScaleDraw(QwtPlot::yLeft)->label(tick).text();
        EXPECT_EQ(labels.first(), "0") << most;
        EXPECT_EQ(labels.removeDuplicates(), 0) << most;
    }
    const auto& draw = *plot.axisScaleDraw(QwtPlot::xBottom);
    EXPECT_EQ(draw.label(16.0).text(), "16");
    EXPECT_EQ(draw.label(2.9).text(), "2");
    EXPECT_EQ(draw.label(-0.4).text(), "0");
    EXPECT_EQ(plot.axisScaleDraw(QwtPlot::yLeft)->label(3e10).text(), "30000000000");
}

TEST(HistPlot, DrawsNothingThatIsNotFinite)
{
    HistPlot plot;
    const std::array<double, 3> values{std::numeric_limits<double>::quiet_NaN(), 7.0,
                                       std::numeric_limits<double>::infinity()};
    plot.populate(values.size(), values.data());
    EXPECT_EQ(histogram(plot).sample(0).value, 0.0);
    EXPECT_EQ(histogram(plot).sample(1).value, 7.0);
    EXPECT_EQ(histogram(plot).sample(2).value, 0.0);
}

TEST(HistPlot, LabelsEachSixteenthBinWhereThereIsRoom)
{
    HistPlot plot(nullptr);
    const auto labels = [&](int width)
    {
        plot.resize(width, 400);
        plot.show();
        return plot.axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick).size();
    };
    EXPECT_EQ(labels(1200), 17);
    EXPECT_EQ(labels(450), 9);
    EXPECT_LE(labels(plot.minimumWidth()), 3);
    plot.resize(1200, plot.minimumHeight());
    EXPECT_LE(plot.axisMaxMajor(QwtPlot::yLeft), 8);
}
