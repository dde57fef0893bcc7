// A calibration of 20 MB: what its document costs, and what the whole page costs from the click to the painted tree,
// with the board, the transfer and both reads of a show.

#include "bench/quiet-run.h"
#include "board-simulator/source/simulator.h"
#include "tuning-client/source/application.h"
#include "tuning-client/source/chip/chips.h"
#include "tuning-client/source/config/config.h"
#include "tuning-client/source/control/dom-tree-widget.h"
#include "tuning-client/source/file/xml-document.h"
#include "tuning-client/source/image/images.h"
#include "tuning-client/source/main-window.h"
#include "tuning-client/source/module/calibration-data-widget.h"
#include "tuning-client/source/module/central-widget.h"
#include "tuning-client/source/skin.h"

#include <QDir>
#include <QFile>
#include <QStackedWidget>

#include <memory>

namespace
{
constexpr auto sampleName = "board/calibration.xml";

void sampleWrite()
{
    QDir().mkpath("board");
    QFile file(sampleName);
    file.open(QIODevice::WriteOnly);
    file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<calibration>\n");
    for (int i = 0; file.pos() < 20'000'000; ++i)
    {
        const auto number = QByteArray::number(i);
        file.write("  <level gain=\"" + number + "\">\n");
        for (const char* pName : {"strength", "sigma", "radius"})
            file.write(QByteArray("    <") + pName + " size=\"4\">1.62 -0.47 -0.15 " + number + "</" + pName + ">\n");
        file.write("  </level>\n");
    }
    file.write("</calibration>\n");
}

void chipWrite()
{
    QDir().mkpath("chip");
    QFile file("chip/bench.xml");
    file.open(QIODevice::WriteOnly);
    file.write("<Table ChipName=\"Bench\" InputMax=\"1\" IspMax=\"1\" Version=\"1\">"
               "<Page Name=\"3A Config\"/><Page Name=\"Calibration Data\"/></Table>");
    file.close();
    chips.searchChips();
    config.setting.chipName = "Bench";
}

void document(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(xmlDocumentRead(sampleName));
}
BENCHMARK(document)->Unit(benchmark::kMillisecond);

void pageShow(benchmark::State& state)
{
    board::Simulator board(board::Options{0, "board"});
    board.answerSet(10001, "calib.file", "calibration.xml");
    config.preferences.server.http.collection = {{"127.0.0.1", board.port()}};
    for (auto _ : state)
    {
        state.PauseTiming();
        auto pWindow = std::make_unique<MainWindow>(nullptr, Qt::WindowFlags());
        pWindow->show();
        QCoreApplication::processEvents();
        auto* pCentral = qobject_cast<CentralWidget*>(pWindow->centralWidget());
        state.ResumeTiming();

        pCentral->setCurrentIndex(1);
        QCoreApplication::processEvents();

        state.PauseTiming();
        const auto* pPage = qobject_cast<CalibrationDataWidget*>(pCentral->pStackedWidget->currentWidget());
        if (!pPage || pPage->pDomTreeWidgetElement->topLevelItemCount() != 1)
            state.SkipWithError("no tree");
        pWindow.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(pageShow)->Unit(benchmark::kMillisecond)->Iterations(3);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    imagesInit();
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    sampleWrite();
    chipWrite();
    quietRun(argc, argv);
}
