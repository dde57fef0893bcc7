// A marker dragged over the contrast curve: what each move costs, against a redraw of a bare plot of the same curve.

#include "bench/quiet-run.h"
#include "bench/raw-exchange.h"
#include "tuning-client/source/control/transfer-curve-data.h"
#include "tuning-client/source/module/dci-widget.h"
#include "tuning-client/source/skin.h"

#include <QApplication>
#include <QRadioButton>
#include <QTest>
#include <QWindow>
#include <qwt_plot.h>
#include <qwt_plot_curve.h>
#include <qwt_scale_map.h>
#include <qwt_widget_overlay.h>

namespace
{
/// Counts how often a widget is painted.
class Paints : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* pEvent) override
    {
        count += pEvent->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

void drag(benchmark::State& state)
{
    DciWidget page(nullptr);
    page.pRadioButton2Sections->blockSignals(true);
    page.pRadioButton2Sections->setChecked(true);
    page.resize(1000, 800);
    page.show();
    page.replot();
    QwtPlot bare;
    auto* pCurve = new QwtPlotCurve;
    pCurve->setData(new DciCurve2SectionData(1, 1, 20, 100, 0, 500));
    pCurve->attach(&bare);
    bare.setAxisScale(QwtPlot::xBottom, 0, 64);
    bare.setAxisScale(QwtPlot::yLeft, 0, 1024);
    bare.resize(page.pQwtPlot->size());
    bare.show();
    QCoreApplication::processEvents();

    // By the window, as the mouse does it.
    auto* pWindow = page.windowHandle();
    const auto place = [&](double x, double y)
    {
        const auto* pPlot = page.pQwtPlot;
        const QPoint pixel(int(pPlot->canvasMap(QwtPlot::xBottom).transform(x)),
                           int(pPlot->canvasMap(QwtPlot::yLeft).transform(y)));
        return pPlot->canvas()->mapTo(&page, pixel);
    };
    QTest::mousePress(pWindow, Qt::LeftButton, Qt::NoModifier, place(20, 100));
    Paints paints;
    for (auto* pOverlay : page.pQwtPlot->canvas()->findChildren<QwtWidgetOverlay*>())
        pOverlay->installEventFilter(&paints);
    std::vector<double> moves;
    std::vector<double> redraws;
    for (auto _ : state)
    {
        const int step = 1 + int(moves.size()) % 40;
        moves.push_back(secondsOf(
            [&]
            {
                QTest::mouseMove(pWindow, place(20 + step, 100 + 20 * step));
                QCoreApplication::processEvents();
            }));
        redraws.push_back(secondsOf(
            [&]
            {
                bare.replot();
                QCoreApplication::processEvents();
            }));
        state.SetIterationTime(moves.back());
    }
    if (paints.count < int(moves.size()))
        state.SkipWithError("not every move was drawn");
    state.counters["move_us"] = median(moves) * 1e6;
    state.counters["bare_us"] = median(redraws) * 1e6;
    state.counters["ratio"] = median(moves) / median(redraws);
}

BENCHMARK(drag)->Iterations(1000)->UseManualTime()->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    quietRun(argc, argv);
}
