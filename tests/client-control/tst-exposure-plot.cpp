#include "tuning-client/source/control/exposure-plot.h"

#include "tests/support/qt-main.h"

#include <qwt_legend.h>
#include <qwt_legend_label.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_marker.h>
#include <qwt_scale_div.h>

#include <cmath>
#include <limits>

namespace
{
const QwtPlotCurve& curve(const QwtPlot& plot, int index)
{
    return *static_cast<QwtPlotCurve*>(plot.itemList(QwtPlotItem::Rtti_PlotCurve)[index]);
}

QwtInterval window(const QwtPlot& plot) { return plot.axisScaleDiv(QwtPlot::xBottom).interval(); }

/// What stands on the screen, as opposed to what a paint event would draw anew.
QImage screen(QwtPlot& plot)
{
    auto pCanvas = plot.canvas();
    return QGuiApplication::primaryScreen()
        ->grabWindow(plot.winId())
        .copy(QRect(pCanvas->mapTo(&plot, QPoint()), pCanvas->size()))
        .toImage();
}

int pixelsThatDiffer(const QImage& one, const QImage& other)
{
    if (one.size() != other.size())
        return one.width() * one.height();
    int count = 0;
    for (int i = 0; i < one.width() * one.height(); ++i)
    {
        const QColor a = one.pixel(i % one.width(), i / one.width());
        const QColor b = other.pixel(i % one.width(), i / one.width());
        count += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue()) > 96;
    }
    return count;
}

/// How much of what has been drawn a full redraw would draw otherwise.
int pixelsOff(QwtPlot& plot)
{
    QCoreApplication::processEvents();
    const auto drawn = screen(plot);
    plot.replot();
    QCoreApplication::processEvents();
    return pixelsThatDiffer(drawn, screen(plot));
}

/// Counts full redraws and turns of the drawing timer.
struct CountingPlot : ExposurePlot
{
    int replots = 0;
    int turns = 0;

    void replot() override
    {
        ++replots;
        ExposurePlot::replot();
    }

    void timerEvent(QTimerEvent* pEvent) override
    {
        ExposurePlot::timerEvent(pEvent);
        ++turns;
    }

    void show(int interval)
    {
        setIntervalLength(interval);
        resize(500, 300);
        QwtPlot::show();
        QCoreApplication::processEvents();
    }

    void appendAndDraw(float gain, float itime)
    {
        append(gain, itime);
        ASSERT_TRUE(waitUntil([this, before = turns] { return turns > before; }));
    }
};
} // namespace

TEST(ExposurePlot, DrawsNewStretchesAsAFullRedrawWould)
{
    CountingPlot plot;
    plot.show(5);
    // The ends of the scale come first, so that it stands.
    plot.appendAndDraw(1, 0.02f);
    plot.appendAndDraw(9, 0.02f);
    QCoreApplication::processEvents();
    const auto before = screen(plot);
    const auto replots = plot.replots;
    for (int i = 0; i < 40; ++i)
        plot.appendAndDraw(5 + 4 * std::sin(i / 5.0f), 0.02f);
    EXPECT_EQ(plot.replots, replots);

    EXPECT_GT(pixelsThatDiffer(screen(plot), before), 200);
    // Where stretches meet, a line drawn in one is a little smoother.
    EXPECT_LT(pixelsOff(plot), 40);
}

TEST(ExposurePlot, DrawsAllAgainWhenAScaleChanges)
{
    CountingPlot plot;
    plot.show(5);
    plot.appendAndDraw(1, 0.02f);
    plot.appendAndDraw(2, 0.02f);
    plot.appendAndDraw(900, 0.02f);
    EXPECT_EQ(pixelsOff(plot), 0);
}

TEST(ExposurePlot, TurnsThePageFromTheLastPointBeforeAndRestsWhileHidden)
{
    CountingPlot plot;
    plot.show(1);
    EXPECT_EQ(window(plot), QwtInterval(0, 1));
    plot.appendAndDraw(1, 1);
    plot.appendAndDraw(2, 2);
    ASSERT_TRUE(waitUntil([&] { return window(plot).minValue() >= 1; }));
    ASSERT_EQ(curve(plot, 0).dataSize(), 1u);
    EXPECT_EQ(curve(plot, 0).sample(0).y(), 2);
    EXPECT_EQ(window(plot).width(), 1);
    for (auto tick : plot.axisScaleDiv(QwtPlot::xBottom).ticks(QwtScaleDiv::MajorTick))
        EXPECT_TRUE(window(plot).contains(tick)) << tick;
    const auto markers = plot.itemList(QwtPlotItem::Rtti_PlotMarker);
    EXPECT_EQ(static_cast<QwtPlotMarker*>(markers[0])->xValue(), window(plot).minValue() + 0.5);

    plot.hide();
    const auto turns = plot.turns;
    EXPECT_FALSE(QTest::qWaitFor([&] { return plot.turns > turns; }, 100)) << "the timer runs on";
    EXPECT_EQ(curve(plot, 0).dataSize(), 1u);
    plot.QwtPlot::show();
    EXPECT_EQ(window(plot), QwtInterval(0, 1));
    EXPECT_EQ(curve(plot, 0).dataSize(), 0u);
    plot.append(1, 1);
    EXPECT_LT(curve(plot, 1).sample(0).x(), 1);
}

TEST(ExposurePlot, NamesItsCurvesInALegend)
{
    const ExposurePlot plot(nullptr);
    const auto* pLegend = qobject_cast<const QwtLegend*>(plot.legend());
    ASSERT_TRUE(pLegend);
    QStringList names;
    for (const auto* pItem : plot.itemList())
        for (auto* pWidget : pLegend->legendWidgets(plot.itemToInfo(const_cast<QwtPlotItem*>(pItem))))
            names.append(qobject_cast<QwtLegendLabel*>(pWidget)->text().text());
    EXPECT_EQ(names, QStringList({"Integration Time", "Gain"}));
}

TEST(ExposurePlot, KeepsTheWindowForALengthThatIsNoneOrTheSame)
{
    CountingPlot plot;
    plot.replot();
    plot.setIntervalLength(0);
    plot.setIntervalLength(-3);
    plot.setIntervalLength(20);
    EXPECT_EQ(plot.replots, 1);
    EXPECT_EQ(window(plot), QwtInterval(0, 20));
    plot.setIntervalLength(7);
    EXPECT_EQ(plot.replots, 2);
    EXPECT_EQ(window(plot), QwtInterval(0, 7));
}

TEST(ExposurePlot, TakesNoPairThatIsNotFiniteAndDrawsAnyThatIs)
{
    CountingPlot plot;
    plot.show(5);
    const auto infinity = std::numeric_limits<float>::infinity();
    plot.append(std::nanf(""), 1);
    plot.append(1, infinity);
    plot.append(-infinity, 1);
    EXPECT_EQ(curve(plot, 0).dataSize(), 0u);
    EXPECT_EQ(curve(plot, 1).dataSize(), 0u);
    for (auto value : {0.0f, std::numeric_limits<float>::denorm_min(), -std::numeric_limits<float>::max(),
                       std::numeric_limits<float>::max()})
        plot.appendAndDraw(value, value);
    EXPECT_EQ(curve(plot, 0).dataSize(), 4u);
    EXPECT_EQ(curve(plot, 1).dataSize(), 4u);
}
