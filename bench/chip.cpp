// What the client adds to the bare widgets that a chip's pages are made of: a change of chip, and the show of each
// page, each beside a window of as many bare Qt widgets of the same classes.

#include "bench/quiet-run.h"
#include "board-simulator/source/simulator.h"
#include "tuning-client/source/application.h"
#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/config/config.h"
#include "tuning-client/source/image/images.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/module/central-widget.h"
#include "tuning-client/source/skin.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <qwt_plot.h>

#include <chrono>

namespace
{
template <class Action>
double secondsOf(Action action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The real window on a chip that has every page, against a board that answers at once.
class Bench
{
public:
    Bench()
    {
        QDir().mkpath("chip");
        QFile file("chip/full.xml");
        file.open(QIODevice::WriteOnly);
        file.write("<Table ChipName=\"Full\" InputMax=\"2\" IspMax=\"1\" Version=\"1\">");
        for (const auto& entry : CentralWidget::catalogue())
            file.write(QByteArray("<Page Name=\"") + entry.name + "\" Type=\"isp\" Level=\"1\"/>");
        file.write("</Table>");
        file.close();
        chips.searchChips();
        config.setting.chipName = "Full";
        config.preferences.server.http.collection = {{"127.0.0.1", board.port()}};
        pMainWindow = std::make_unique<MainWindow>(nullptr, Qt::WindowFlags());
        pMainWindow->show();
        QCoreApplication::processEvents();
    }

    CentralWidget& central() { return *static_cast<CentralWidget*>(pMainWindow->centralWidget()); }

    QTemporaryDir directory;
    board::Simulator board{board::Options{0, directory.filePath("board").toStdString()}};
    std::unique_ptr<MainWindow> pMainWindow;
};

/// As many bare widgets as `pPage` has, of the classes that cost something, in one grid.
QWidget* bareCopy(const QWidget* pPage)
{
    auto* pBare = new QWidget;
    auto* pLayout = new QGridLayout(pBare);
    const auto add = [&](int count, auto make)
    {
        for (int i = 0; i < count; ++i)
            pLayout->addWidget(make(), pLayout->rowCount(), 0);
    };
    add(pPage->findChildren<QwtPlot*>().size(), [] { return new QwtPlot; });
    add(pPage->findChildren<QSlider*>().size(), [] { return new QSlider(Qt::Horizontal); });
    add(pPage->findChildren<QDoubleSpinBox*>().size(), [] { return new QDoubleSpinBox; });
    add(pPage->findChildren<QComboBox*>().size(), [] { return new QComboBox; });
    add(pPage->findChildren<QCheckBox*>().size(), [] { return new QCheckBox; });
    add(pPage->findChildren<QPushButton*>().size(), [] { return new QPushButton; });
    add(pPage->findChildren<QLabel*>().size(), [] { return new QLabel; });
    return pBare;
}

void chipRebuild(benchmark::State& state)
{
    Bench bench;
    QStackedWidget bareStack;
    bareStack.show();
    double ours = 0;
    double bare = 0;
    for (auto _ : state)
    {
        bare += secondsOf(
            [&]
            {
                while (bareStack.count() > 0)
                    delete bareStack.widget(0);
                for (int i = 0; i < bench.central().pStackedWidget->count(); ++i)
                    bareStack.addWidget(bareCopy(bench.central().pStackedWidget->widget(i)));
                QCoreApplication::processEvents();
            });
        const auto spent = secondsOf(
            [&]
            {
                chips.chipSet("Full");
                QCoreApplication::processEvents();
            });
        ours += spent;
        state.SetIterationTime(spent);
    }
    state.counters["ours_ms"] = ours / double(state.iterations()) * 1e3;
    state.counters["bare_ms"] = bare / double(state.iterations()) * 1e3;
    state.counters["ratio"] = ours / bare;
}

/// With the reads that belong to a show: a page asks the board for all it shows twice.
void pageShow(benchmark::State& state)
{
    Bench bench;
    auto& stack = *bench.central().pStackedWidget;
    QStackedWidget bareStack;
    for (int i = 0; i < stack.count(); ++i)
        bareStack.addWidget(bareCopy(stack.widget(i)));
    bareStack.resize(stack.size());
    bareStack.show();
    QCoreApplication::processEvents();
    const auto turn = [](QStackedWidget& pages)
    {
        pages.setCurrentIndex((pages.currentIndex() + 1) % pages.count());
        QCoreApplication::processEvents();
    };
    double ours = 0;
    double bare = 0;
    for (auto _ : state)
    {
        bare += secondsOf([&] { turn(bareStack); });
        const auto spent = secondsOf([&] { turn(stack); });
        ours += spent;
        state.SetIterationTime(spent);
    }
    state.counters["ours_ms"] = ours / double(state.iterations()) * 1e3;
    state.counters["bare_ms"] = bare / double(state.iterations()) * 1e3;
    state.counters["ratio"] = ours / bare;
}
} // namespace

BENCHMARK(chipRebuild)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(pageShow)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    Application application(argc, argv);
    imagesInit();
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    quietRun(argc, argv);
}
