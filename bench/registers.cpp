// A dump of 100 modules of 1000 registers: what the board's answers alone cost, read and thrown away, and what the page
// needs for its file.

#include "bench/quiet-run.h"
#include "board-simulator/source/simulator.h"
#include "tuning-client/source/application.h"
#include "tuning-client/source/module/isp-register-widget.h"
#include "tuning-rest/source/reg.h"
#include "tuning-transfer/source/transfer-client.h"

#include <QDir>
#include <QElapsedTimer>

namespace
{
constexpr int modules = 100;
constexpr int registers = 1000;
constexpr int reg = 4002703;

void mapSet(board::Simulator& board)
{
    Json::Value jModules(Json::arrayValue);
    for (int i = 0; i < modules; ++i)
    {
        jModules[i]["module.id"] = 0; // which the board has
        jModules[i]["description"] = "Module " + std::to_string(i);
    }
    Json::Value jRegisters(Json::arrayValue);
    for (int i = 0; i < registers; ++i)
    {
        auto& jRegister = jRegisters[i];
        jRegister["permission"] = i % 3;
        jRegister["address"] = "0x" + std::to_string(10'000'000 + 4 * i);
        jRegister["name"] = "isp_register_" + std::to_string(i);
        jRegister["value.default"] = "0x00000000";
        jRegister["value"] = "0x0000007f";
        jRegister["description"] = "What this register is for";
    }
    board.answerSet(reg, "name", jModules);
    // Both commands have one number: the list of the modules carries the registers too, unread.
    board.answerSet(reg, "registers", jRegisters);
}

void dump(benchmark::State& state)
{
    board::Simulator board(board::Options{0, "board"});
    mapSet(board);
    Json::Value jConfig;
    jConfig["ip"] = "127.0.0.1";
    jConfig["port"] = board.port();
    t_transfer::ClientHolder holder(
        t_transfer::ClientHolder::Http, [](const std::string&) {}, jConfig);
    rest::Abstract::clientHolderSet(holder);
    IspRegisterWidget page(nullptr);
    QString fileName = "dump.json";
    double answers = 0;
    double whole = 0;
    for (auto _ : state)
    {
        QElapsedTimer clock;
        clock.start();
        Json::Value jList;
        rest::Reg().statusGet(jList);
        for (int i = 0; i < modules; ++i)
            rest::Reg().statusGet(0, jList);
        answers += double(clock.restart());
        page.dump(fileName, -1);
        whole += double(clock.elapsed());
    }
    rest::Abstract::clientHolderForget(holder);
    state.counters["answers_ms"] = answers / double(state.iterations());
    state.counters["dump_ms"] = whole / double(state.iterations());
    state.counters["ratio"] = whole / answers;
}
BENCHMARK(dump)->Unit(benchmark::kMillisecond)->Iterations(3);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const Application application(argc, argv);
    quietRun(argc, argv);
}
