#pragma once

#include "board-simulator/source/exchange.h"
#include "board-simulator/source/files.h"

#include <cstdint>
#include <memory>

namespace board
{

/// Serves commands and files over HTTP on 127.0.0.1, on a thread of its own.
class HttpServer
{
public:
    /// Port 0 takes a free one. Throws `std::runtime_error` if the port is in use.
    HttpServer(uint16_t port, Exchange& exchange, const Files& files);
    ~HttpServer();

    uint16_t port() const;
    /// False: connections end, new ones are refused, the port stays reserved.
    void listenSet(bool isListening);
    /// Ends all connections and the thread. Nothing can be started again.
    void stop();

private:
    class Impl;
    std::unique_ptr<Impl> pImpl;
};

} // namespace board
