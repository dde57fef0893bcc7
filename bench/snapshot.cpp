// A snapshot of all modules: the command line from its words to its text, and by turns its exchanges alone, by the
// product's transport and over bare sockets. The limit of the ratio to the first is 1.5.

#include "bench/raw-exchange.h"
#include "board-simulator/source/simulator.h"
#include "tuning-tool/source/command-line.h"
#include "tuning-transfer/source/transfer-client.h"

#include <benchmark/benchmark.h>

#include <iostream>
#include <sstream>

namespace
{
void snapshot(benchmark::State& state)
{
    board::Simulator board(board::Options{0, "board"});
    const auto port = board.port();
    std::ostringstream silence;
    auto* pOut = std::cout.rdbuf(silence.rdbuf());
    const auto run = [&]
    {
        std::ostringstream out;
        std::ostringstream err;
        if (tool::run({"snapshot", "--board", "127.0.0.1:" + std::to_string(port)}, out, err) != 0)
            throw std::runtime_error(err.str());
        benchmark::DoNotOptimize(out.str().size());
        silence.str({});
    };
    run();
    std::vector<Json::Value> queries;
    std::vector<std::string> requests;
    for (const auto& request : board.requests())
    {
        queries.push_back(request.query);
        requests.push_back(httpRequest(request.body, port));
    }
    Json::Value jAddress;
    jAddress["ip"] = "127.0.0.1";
    jAddress["port"] = port;
    t_transfer::ClientHolder holder(
        t_transfer::ClientHolder::Http, [](const std::string&) {}, jAddress);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    std::vector<double> whole;
    std::vector<double> exchanges;
    std::vector<double> raw;
    for (auto _ : state)
    {
        whole.push_back(secondsOf(run));
        exchanges.push_back(secondsOf(
            [&]
            {
                Json::Value jAnswer;
                for (const auto& jQuery : queries)
                    holder.request(jQuery, jAnswer, 2);
            }));
        silence.str({});
        raw.push_back(secondsOf(
            [&]
            {
                for (const auto& request : requests)
                    benchmark::DoNotOptimize(rawExchange(address, request));
            }));
        state.SetIterationTime(whole.back());
    }
    std::cout.rdbuf(pOut);
    state.counters["count"] = static_cast<double>(requests.size());
    state.counters["exchanges_ms"] = median(exchanges) * 1000;
    state.counters["ratio"] = median(whole) / median(exchanges);
    state.counters["ratio_raw"] = median(whole) / median(raw);
}

BENCHMARK(snapshot)->UseManualTime()->Iterations(100)->Unit(benchmark::kMillisecond);
} // namespace

BENCHMARK_MAIN();
