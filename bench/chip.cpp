// What the client adds to the bare widgets that a chip's pages are made of: a change of chip, and the show of each
// page, each beside a window of the same tree of bare Qt widgets. And how long the finder takes over all those pages.

#include "bench/bare-copy.h"
#include "bench/quiet-run.h"
#include "board-simulator/source/simulator.h"
#include "tuning-client/source/application.h"
#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/config/config.h"
#include "tuning-client/source/control/finder-box.h"
#include "tuning-client/source/image/images.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/module/central-widget.h"
#include "tuning-client/source/skin.h"

#include <QFile>
#include <QKeyEvent>
#include <QStackedWidget>
#include <QTemporaryDir>

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

/// Shows each page once, so that it has what it has read.
void walk(QStackedWidget& pages)
{
    for (int i = pages.count() - 1; i >= 0; --i)
    {
        pages.setCurrentIndex(i);
        QCoreApplication::processEvents();
    }
}

void bareFill(QStackedWidget& bare, const QStackedWidget& real)
{
    for (int i = 0; i < real.count(); ++i)
        bare.addWidget(bareCopy(*real.widget(i)));
}

void report(benchmark::State& state, double ours, double bare, const QWidget& ourPages, const QWidget& barePages)
{
    state.counters["ours_ms"] = ours / double(state.iterations()) * 1e3;
    state.counters["bare_ms"] = bare / double(state.iterations()) * 1e3;
    state.counters["ratio"] = ours / bare;
    // They tell whether the copy is one.
    state.counters["our_widgets"] = ourPages.findChildren<QWidget*>().size();
    state.counters["bare_widgets"] = barePages.findChildren<QWidget*>().size();
}

void chipRebuild(benchmark::State& state)
{
    Bench bench;
    std::unique_ptr<QStackedWidget> pBareStack;
    double ours = 0;
    double bare = 0;
    for (auto _ : state)
    {
        bare += secondsOf(
            [&]
            {
                pBareStack.reset();
                pBareStack = std::make_unique<QStackedWidget>();
                bareFill(*pBareStack, *bench.central().pStackedWidget);
                pBareStack->resize(bench.central().size());
                pBareStack->show();
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
    report(state, ours, bare, *bench.central().pStackedWidget, *pBareStack);
}

/// With the reads that belong to a show: a page asks the board for all it shows twice. All pages in turn, or one of
/// them, each time after another.
void pageShow(benchmark::State& state, const QString& name)
{
    Bench bench;
    auto& stack = *bench.central().pStackedWidget;
    QStackedWidget bareStack;
    walk(stack);
    bareFill(bareStack, stack);
    bareStack.resize(stack.size());
    bareStack.show();
    walk(bareStack);
    int one = 0;
    while (!name.isEmpty() && CentralWidget::catalogue()[one].name != name)
        ++one;
    const auto go = [](QStackedWidget& pages, int index)
    {
        pages.setCurrentIndex(index);
        QCoreApplication::processEvents();
    };
    const auto away = [&](QStackedWidget& pages)
    {
        if (!name.isEmpty())
            go(pages, pages.count() - 1 - one);
    };
    const auto turn = [&](QStackedWidget& pages)
    { go(pages, name.isEmpty() ? (pages.currentIndex() + 1) % pages.count() : one); };
    double ours = 0;
    double bare = 0;
    for (auto _ : state)
    {
        away(bareStack);
        away(stack);
        bare += secondsOf([&] { turn(bareStack); });
        const auto spent = secondsOf([&] { turn(stack); });
        ours += spent;
        state.SetIterationTime(spent);
    }
    report(state, ours, bare, stack, bareStack);
}

QVector<QWidget*> pagesOf(Bench& bench)
{
    QVector<QWidget*> pages;
    for (int i = 0; i < bench.central().pStackedWidget->count(); ++i)
        pages.append(bench.central().pStackedWidget->widget(i));
    return pages;
}

/// The first Ctrl+K of a chip.
void finderOpen(benchmark::State& state)
{
    Bench bench;
    const auto pages = pagesOf(bench);
    for (auto _ : state)
    {
        FinderBox box(bench.pMainWindow.get(), pages);
        box.open();
        QCoreApplication::processEvents();
    }
}

/// From a key to the list on the screen; `longest_ms` is the slowest key.
void finderKey(benchmark::State& state)
{
    Bench bench;
    FinderBox box(bench.pMainWindow.get(), pagesOf(bench));
    box.open();
    QCoreApplication::processEvents();
    const QString text = "auto exposure gian wb red";
    int next = 0;
    double longest = 0;
    for (auto _ : state)
    {
        if (next == text.size())
        {
            box.open();
            QCoreApplication::processEvents();
            next = 0;
        }
        const auto spent = secondsOf(
            [&]
            {
                QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, text.mid(next++, 1));
                QCoreApplication::sendEvent(box.focusWidget(), &key);
                QCoreApplication::processEvents();
            });
        longest = qMax(longest, spent);
        state.SetIterationTime(spent);
    }
    state.counters["longest_ms"] = longest * 1e3;
}
} // namespace

BENCHMARK(chipRebuild)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pageShow, all, QString())->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pageShow, Wdr5, "Wide Dynamic Range 5")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(pageShow, Hdr2, "High Dynamic Range 2")->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(finderOpen)->Unit(benchmark::kMillisecond);
BENCHMARK(finderKey)->UseManualTime()->Unit(benchmark::kMillisecond);

int main(int argc, char** argv)
{
    Application application(argc, argv);
    imagesInit();
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    quietRun(argc, argv);
}
