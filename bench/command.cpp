#include "bench/raw-exchange.h"
#include "tuning-common/source/base64.h"
#include "tuning-rest/source/gc.h"
#include "tuning-transfer/source/transfer-client.h"

#include <json/json.h>

#include <benchmark/benchmark.h>

#include <fstream>
#include <iostream>
#include <memory>
#include <sstream>
#include <vector>

namespace
{
using rest::Gc;

/// jsoncpp as it comes, with settings that are kept.
class PlainJson
{
public:
    PlainJson()
    {
        Json::StreamWriterBuilder writerBuilder;
        writerBuilder["indentation"] = "";
        pWriter.reset(writerBuilder.newStreamWriter());
        pReader.reset(Json::CharReaderBuilder().newCharReader());
    }

    std::string write(const Json::Value& value)
    {
        std::ostringstream stream;
        pWriter->write(value, &stream);
        return stream.str();
    }

    Json::Value parse(const std::string& text)
    {
        Json::Value value;
        pReader->parse(text.data(), text.data() + text.size(), &value, nullptr);
        return value;
    }

private:
    std::unique_ptr<Json::StreamWriter> pWriter;
    std::unique_ptr<Json::CharReader> pReader;
};

/// A command with the largest record, from the method's call to its return, and by turns the parts that no client could
/// do without: the exchange over bare sockets, JSON, Base64 there and back. Medians, since machines are shared. `isSet`
/// is the direction of the record. The limit of the ratio is 1.3; `ratio_one_way` counts Base64 in that direction only.
void command(benchmark::State& state)
{
    const bool isSet = state.range(0) != 0;
    auto config = rest::recordZero<Gc::Config>();
    for (size_t i = 0; i < 64; ++i)
        config.v2.curves[0].y[i] = static_cast<uint32_t>(i * 16);
    Json::Value jQuery;
    jQuery["function"] = isSet ? "rest::Gc::configSet" : "rest::Gc::configGet";
    jQuery["generation"] = 1;
    jQuery["id"] = isSet ? 4002102 : 4002101;
    Json::Value jAnswer;
    jAnswer["error"] = 0;
    (isSet ? jQuery : jAnswer)["config"] = t_common::Base64::encode(config);
    PlainJson json;
    const auto answer = json.write(jAnswer);
    const Peer peer(httpAnswer(answer));
    const auto port = ntohs(peer.address.sin_port);
    const auto request = httpRequest(json.write(jQuery), port);
    const auto record = (isSet ? jQuery : jAnswer)["config"].asString();

    Json::Value jConfig;
    jConfig["ip"] = "127.0.0.1";
    jConfig["port"] = port;
    t_transfer::ClientHolder holder(
        t_transfer::ClientHolder::Http, [](const std::string& text) { benchmark::DoNotOptimize(text.data()); },
        jConfig);
    rest::Abstract::clientHolderSet(holder);
    std::ofstream nowhere("/dev/null");
    auto* pOut = std::cout.rdbuf(nowhere.rdbuf());
    std::vector<double> whole;
    std::vector<double> raw;
    std::vector<double> jsons;
    std::vector<double> encode;
    std::vector<double> decode;
    for (auto _ : state)
    {
        whole.push_back(secondsOf([&] { isSet ? Gc().configSet(config, Gc::V2) : Gc().configGet(config, Gc::V2); }));
        benchmark::DoNotOptimize(config);
        raw.push_back(secondsOf([&] { benchmark::DoNotOptimize(rawExchange(peer.address, request)); }));
        jsons.push_back(secondsOf(
            [&]
            {
                benchmark::DoNotOptimize(json.write(jQuery));
                benchmark::DoNotOptimize(json.parse(answer));
            }));
        encode.push_back(secondsOf([&] { benchmark::DoNotOptimize(t_common::Base64::encode(config)); }));
        decode.push_back(secondsOf([&] { t_common::Base64::decode(record, config); }));
        state.SetIterationTime(whole.back());
    }
    std::cout.rdbuf(pOut);
    rest::Abstract::clientHolderForget(holder);
    const auto exchanged = median(raw) + median(jsons);
    state.counters["whole_us"] = median(whole) * 1e6;
    state.counters["raw_us"] = median(raw) * 1e6;
    state.counters["json_us"] = median(jsons) * 1e6;
    state.counters["encode_us"] = median(encode) * 1e6;
    state.counters["decode_us"] = median(decode) * 1e6;
    state.counters["ratio"] = median(whole) / (exchanged + median(encode) + median(decode));
    state.counters["ratio_one_way"] = median(whole) / (exchanged + median(isSet ? encode : decode));
}
} // namespace

BENCHMARK(command)->ArgName("isSet")->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMicrosecond);

BENCHMARK_MAIN();
