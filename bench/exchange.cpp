#include "bench/raw-exchange.h"
#include "tuning-common/source/json-app.h"
#include "tuning-transfer/source/transfer-client.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <iostream>

namespace
{
/// One command with a record of the given size in its answer, through the holder and through bare sockets by turns. The
/// limit for a command without a record is a ratio of 1.5; a record adds what the JSON library takes for it.
void exchange(benchmark::State& state)
{
    const std::string body =
        "{\"error\":0,\"status\":\"" + std::string(static_cast<std::size_t>(state.range(0)), 'A') + "\"}";
    const Peer peer("HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " +
                    std::to_string(body.size()) + "\r\nConnection: close\r\n\r\n" + body);
    Json::Value jConfig;
    jConfig["ip"] = "127.0.0.1";
    jConfig["port"] = ntohs(peer.address.sin_port);
    t_transfer::ClientHolder holder(
        t_transfer::ClientHolder::Http, [](const std::string& text) { benchmark::DoNotOptimize(text.data()); },
        jConfig);
    Json::Value jQuery;
    jQuery["function"] = "rest::Ae::statusGet";
    jQuery["generation"] = 0;
    jQuery["id"] = 4000106;
    const std::string request =
        "POST / HTTP/1.1\r\nContent-Length: 64\r\nContent-Type: application/json\r\nHost: 127.0.0.1:" +
        jConfig["port"].asString() +
        "\r\nAccept: */*\r\nAccept-Encoding: identity;q=1.0, *;q=0\r\nConnection: Close\r\n\r\n"
        "{\"function\":\"rest::Ae::statusGet\",\"generation\":0,\"id\":4000106}";

    std::ofstream nowhere("/dev/null");
    auto* pOut = std::cout.rdbuf(nowhere.rdbuf());
    double ours = 0;
    double raw = 0;
    double json = 0;
    for (auto _ : state)
    {
        Json::Value jResponse;
        const auto spent = secondsOf([&] { holder.request(jQuery, jResponse, 2); });
        raw += secondsOf([&] { benchmark::DoNotOptimize(rawExchange(peer.address, request)); });
        json += secondsOf(
            [&]
            {
                benchmark::DoNotOptimize(t_common::JsonApp::toString(jQuery, ""));
                benchmark::DoNotOptimize(t_common::JsonApp::fromString(body));
            });
        ours += spent;
        state.SetIterationTime(spent);
    }
    std::cout.rdbuf(pOut);
    const auto count = static_cast<double>(state.iterations());
    state.counters["ours_us"] = ours / count * 1e6;
    state.counters["raw_us"] = raw / count * 1e6;
    state.counters["json_us"] = json / count * 1e6;
    state.counters["ratio"] = ours / raw;
    state.counters["ratio_with_json"] = ours / (raw + json);
}
} // namespace

BENCHMARK(exchange)->Arg(0)->Arg(2048)->UseManualTime()->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
