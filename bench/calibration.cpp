// A calibration of 20 MB: what its document costs, and what the whole page costs from the click to the painted tree,
// with the board, the transfer and both reads of a show, and by how much the process grows at its peak.

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

#include <malloc.h>
#include <memory>

namespace
{
using Part = QByteArray (*)(const QByteArray& number);

/// Parts in a row until there are 20 MB of them.
void sampleWrite(const QString& name, Part part)
{
    QDir().mkpath("board");
    QFile file("board/" + name);
    file.open(QIODevice::WriteOnly);
    file.write("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<calibration>\n");
    for (int i = 0; file.pos() < 20'000'000; ++i)
        file.write(part(QByteArray::number(i)));
    file.write("</calibration>\n");
}

QByteArray level(const QByteArray& number)
{
    QByteArray bytes = "  <level gain=\"" + number + "\">\n";
    for (const char* pName : {"strength", "sigma", "radius"})
        bytes += QByteArray("    <") + pName + " size=\"4\">1.62 -0.47 -0.15 " + number + "</" + pName + ">\n";
    return bytes + "  </level>\n";
}

// As many elements as a file may have.
QByteArray smallText(const QByteArray& number) { return "<gain>1." + number.rightJustified(10, '0') + "</gain>"; }
QByteArray smallAttribute(const QByteArray& number) { return "<gain at=\"" + number.rightJustified(13, '0') + "\"/>"; }

struct Sample
{
    const char* pName;
    Part part;
};
constexpr Sample samples[] = {{"levels.xml", level}, {"texts.xml", smallText}, {"attributes.xml", smallAttribute}};

/// The most memory that the process has had since the last call, in MB.
double peakTake()
{
    QFile status("/proc/self/status");
    status.open(QIODevice::ReadOnly);
    const auto text = status.readAll();
    QFile clear("/proc/self/clear_refs");
    clear.open(QIODevice::WriteOnly);
    clear.write("5");
    const auto from = text.indexOf("VmHWM:") + 6;
    return text.mid(from, text.indexOf("kB", from) - from).trimmed().toDouble() / 1000;
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
    // What the last one has left in the heap would be paid for here.
    malloc_trim(0);
    for (auto _ : state)
        benchmark::DoNotOptimize(xmlDocumentRead(QString("board/") + samples[state.range(0)].pName));
    state.SetLabel(samples[state.range(0)].pName);
}
BENCHMARK(document)->DenseRange(0, 2)->Unit(benchmark::kMillisecond);

void pageShow(benchmark::State& state)
{
    board::Simulator board(board::Options{0, "board"});
    board.answerSet(10001, "calib.file", samples[state.range(0)].pName);
    state.SetLabel(samples[state.range(0)].pName);
    config.preferences.server.http.collection = {{"127.0.0.1", board.port()}};
    for (auto _ : state)
    {
        state.PauseTiming();
        auto pWindow = std::make_unique<MainWindow>(nullptr, Qt::WindowFlags());
        pWindow->show();
        QCoreApplication::processEvents();
        auto* pCentral = qobject_cast<CentralWidget*>(pWindow->centralWidget());
        malloc_trim(0);
        peakTake();
        const auto before = peakTake();
        state.ResumeTiming();

        pCentral->setCurrentIndex(1);
        QCoreApplication::processEvents();

        state.PauseTiming();
        state.counters["MB"] = peakTake() - before;
        const auto* pPage = qobject_cast<CalibrationDataWidget*>(pCentral->pStackedWidget->currentWidget());
        if (!pPage || pPage->pDomTreeWidgetElement->topLevelItemCount() != 1)
            state.SkipWithError("no tree");
        pWindow.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(pageShow)->DenseRange(0, 2)->Unit(benchmark::kMillisecond)->Iterations(3);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    imagesInit();
    skin::Font::Kestrix();
    skin::Style::Kestrix();
    for (const auto& sample : samples)
        sampleWrite(sample.pName, sample.part);
    chipWrite();
    quietRun(argc, argv);
}
