// The exposure chart with 2000 points: what a new sample costs, against a redraw of the whole plot.

#include "tuning-client/source/control/exposure-plot.h"
#include "tuning-client/source/skin.h"

#include <QApplication>
#include <QTest>
#include <QTimerEvent>
#include <benchmark/benchmark.h>

#include <cmath>

namespace
{
class Chart : public ExposurePlot
{
public:
    Chart()
    {
        setIntervalLength(30);
        resize(900, 500);
        show();
        while (timer < 0)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        // Over a tenth of the window, as samples come with time.
        for (int i = 0; i < 2000; ++i)
        {
            append();
            QTest::qSleep(1);
        }
        QCoreApplication::processEvents();
    }

    void append()
    {
        const auto value = std::sin(++count / 50.0f);
        ExposurePlot::append(2 + value, 0.02f + value / 100);
    }

    void draw()
    {
        QTimerEvent event(timer);
        ExposurePlot::timerEvent(&event);
    }

protected:
    void timerEvent(QTimerEvent* pEvent) override
    {
        timer = pEvent->timerId();
        ExposurePlot::timerEvent(pEvent);
    }

private:
    int timer = -1;
    int count = 0;
};

void segment(benchmark::State& state)
{
    Chart chart;
    for (auto _ : state)
    {
        chart.append();
        chart.draw();
    }
}

void replot(benchmark::State& state)
{
    Chart chart;
    for (auto _ : state)
    {
        chart.append();
        chart.replot();
        chart.canvas()->repaint();
    }
}

BENCHMARK(segment)->Iterations(500)->Unit(benchmark::kMicrosecond);
BENCHMARK(replot)->Iterations(50)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
