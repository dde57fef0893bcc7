#pragma once

#include "tests/support/outcome.h"
#include "tests/support/raw-connection.h"
#include "tuning-common/source/no-answer.h"

#include <json/value.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <thread>
#include <utility>

/// The text of the failure, with "no answer: " in front where the exchange ended without one; empty for success.
template <class Action>
std::string endOf(Action action)
{
    bool isAnswered = false;
    std::string text;
    const auto silence = failureOf<t_common::NoAnswer>(
        [&]
        {
            text = failureOf<std::runtime_error>(action);
            isAnswered = true;
        });
    return isAnswered ? text : "no answer: " + silence;
}

/// The board's end of one connection.
class PeerConnection : public RawConnection
{
public:
    using RawConnection::RawConnection;

    /// Reads the head and as much body as it announces.
    std::string request()
    {
        std::string text;
        const std::string field = "Content-Length: ";
        while (true)
        {
            const auto head = text.find("\r\n\r\n");
            const auto place = text.find(field);
            const auto size = place < head ? std::strtoul(text.c_str() + place + field.size(), nullptr, 10) : 0;
            const bool isWhole = head != std::string::npos && text.size() >= head + 4 + size;
            if (isWhole || !more(text))
                return text;
        }
    }

    /// Reads at least so many bytes without keeping them; gives their number.
    size_t drain(size_t size)
    {
        size_t total = 0;
        for (std::string piece; total < size && more(piece); piece.clear())
            total += piece.size();
        return total;
    }

    /// Sends a byte at a time until all are sent or the client is gone.
    void drip(const std::string& text, std::chrono::milliseconds pause)
    {
        for (size_t i = 0; i < text.size() && send(text.substr(i, 1)); ++i)
            std::this_thread::sleep_for(pause);
    }

    /// Says nothing until the client has closed its end.
    void silence() { drain(SIZE_MAX); }

    /// Ends the connection with RST instead of FIN.
    void reset()
    {
        const linger option{1, 0};
        ::setsockopt(handle, SOL_SOCKET, SO_LINGER, &option, sizeof option);
    }
};

/// A board that handles each connection with one script, on 127.0.0.1 and a port of its own.
class RawPeer
{
public:
    using Script = std::function<void(PeerConnection&)>;

    explicit RawPeer(Script fScript) : listener(::socket(AF_INET, SOCK_STREAM, 0))
    {
        auto address = loopback(0);
        socklen_t size = sizeof address;
        if (::bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(listener, 16) != 0 ||
            ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
            throw std::runtime_error("no socket for the test");
        port = ntohs(address.sin_port);
        worker = std::thread(
            [this, fScript = std::move(fScript)]
            {
                while ((handle = ::accept(listener, nullptr, nullptr)) >= 0)
                {
                    PeerConnection connection(handle);
                    fScript(connection);
                    handle = -1;
                }
            });
    }

    /// A board that keeps each request and gives the same answer to all.
    static Script answering(const std::string& answer, std::string* pRequest = nullptr)
    {
        return [=](PeerConnection& connection)
        {
            const auto request = connection.request();
            if (pRequest != nullptr)
                *pRequest = request;
            connection.send(answer);
        };
    }

    /// For a client of this board.
    Json::Value config() const
    {
        Json::Value jConfig;
        jConfig["ip"] = "127.0.0.1";
        jConfig["port"] = port;
        return jConfig;
    }

    ~RawPeer()
    {
        ::shutdown(listener, SHUT_RDWR);
        ::shutdown(handle, SHUT_RDWR);
        worker.join();
        ::close(listener);
    }

    unsigned short port = 0;

private:
    int listener;
    std::atomic<int> handle{-1}; ///< of the present connection
    std::thread worker;
};
