// What the console adds to a command with the largest record and its answer: at most one layout while the dock is
// shown, none while it is hidden.

#include "bench/quiet-run.h"
#include "bench/raw-exchange.h"
#include "tuning-client/source/control/console-widget.h"
#include "tuning-common/source/base64.h"
#include "tuning-rest/source/gc.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QApplication>
#include <QTextDocument>

namespace
{
enum Console
{
    None,
    Hidden,
    Shown
};

void command(benchmark::State& state)
{
    const auto kind = Console(state.range(0));
    const auto config = t_common::Base64::encode(rest::recordZero<rest::Gc::Config>());
    const Peer peer(httpAnswer("{\"config\":\"" + config + "\",\"error\":0}"));
    Json::Value jConfig;
    jConfig["ip"] = "127.0.0.1";
    jConfig["port"] = ntohs(peer.address.sin_port);

    ConsoleWidget console;
    console.resize(1000, console.sizeHint().height());
    console.setVisible(kind == Shown);
    QCoreApplication::processEvents();
    int layouts = 0;
    QObject::connect(console.document(), &QTextDocument::contentsChange, &console, [&] { ++layouts; });
    t_transfer::ClientHolder holder(
        t_transfer::ClientHolder::Http,
        [&](const std::string& text)
        {
            if (kind != None)
                console << text;
        },
        jConfig);
    rest::Abstract::clientHolderSet(holder);
    std::vector<double> costs;
    for (auto _ : state)
    {
        rest::Gc::Config record;
        costs.push_back(secondsOf(
            [&]
            {
                rest::Gc().configGet(record, rest::Gc::V2);
                QCoreApplication::processEvents();
            }));
        state.SetIterationTime(costs.back());
    }
    rest::Abstract::clientHolderForget(holder);
    state.counters["layouts"] = double(layouts) / double(state.iterations());
    state.counters["median_us"] = median(costs) * 1e6;
}
BENCHMARK(command)->ArgName("console")->DenseRange(None, Shown)->UseManualTime()->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    quietRun(argc, argv);
}
