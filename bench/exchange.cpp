#include "tuning-common/source/json-app.h"
#include "tuning-transfer/source/transfer-client.h"

#include <benchmark/benchmark.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <chrono>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <thread>

namespace
{
/// Answers every request on a connection of its own with the same bytes, as cheaply as it can.
class Peer
{
public:
    explicit Peer(const std::string& answer) : listener(::socket(AF_INET, SOCK_STREAM, 0))
    {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        if (::bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(listener, 16) != 0 ||
            ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        {
            throw std::runtime_error("no socket for the peer");
        }
        worker = std::thread(
            [this, answer]
            {
                for (int handle = 0; (handle = ::accept(listener, nullptr, nullptr)) >= 0; ::close(handle))
                {
                    // A request of the benchmark fits into one read.
                    char buffer[65536];
                    if (::recv(handle, buffer, sizeof buffer, 0) > 0)
                    {
                        ::send(handle, answer.data(), answer.size(), MSG_NOSIGNAL);
                    }
                }
            });
    }

    ~Peer()
    {
        ::shutdown(listener, SHUT_RDWR);
        worker.join();
        ::close(listener);
    }

    sockaddr_in address{};

private:
    int listener;
    std::thread worker;
};

std::size_t rawExchange(const sockaddr_in& address, const std::string& request)
{
    const int handle = ::socket(AF_INET, SOCK_STREAM, 0);
    if (::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    {
        throw std::runtime_error("no connection to the peer");
    }
    ::send(handle, request.data(), request.size(), 0);
    std::size_t total = 0;
    char buffer[65536];
    for (ssize_t count = 0; (count = ::recv(handle, buffer, sizeof buffer, 0)) > 0;)
    {
        total += static_cast<std::size_t>(count);
    }
    ::close(handle);
    return total;
}

double secondsOf(const std::function<void()>& action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

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
