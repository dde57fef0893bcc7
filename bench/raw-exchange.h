#pragma once

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

// The cheapest possible exchange over bare sockets, to measure the real ones against.

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
            throw std::runtime_error("no socket for the peer");
        worker = std::thread(
            [this, answer]
            {
                for (int handle = 0; (handle = ::accept(listener, nullptr, nullptr)) >= 0; ::close(handle))
                {
                    // A request of the benchmark fits into one read.
                    char buffer[65536];
                    if (::recv(handle, buffer, sizeof buffer, 0) > 0)
                        ::send(handle, answer.data(), answer.size(), MSG_NOSIGNAL);
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

inline std::size_t rawExchange(const sockaddr_in& address, const std::string& request)
{
    const int handle = ::socket(AF_INET, SOCK_STREAM, 0);
    if (::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        throw std::runtime_error("no connection to the peer");
    ::send(handle, request.data(), request.size(), 0);
    std::size_t total = 0;
    char buffer[65536];
    for (ssize_t count = 0; (count = ::recv(handle, buffer, sizeof buffer, 0)) > 0;)
        total += static_cast<std::size_t>(count);
    ::close(handle);
    return total;
}

inline double secondsOf(const std::function<void()>& action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

inline std::string httpRequest(const std::string& body, uint16_t port)
{
    return "POST / HTTP/1.1\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\nContent-Type: application/json\r\nHost: 127.0.0.1:" + std::to_string(port) +
           "\r\nAccept: */*\r\nAccept-Encoding: identity;q=1.0, *;q=0\r\nConnection: Close\r\n\r\n" + body;
}

inline std::string httpAnswer(const std::string& body)
{
    return "HTTP/1.1 200 OK\r\nContent-Type: application/json\r\nContent-Length: " + std::to_string(body.size()) +
           "\r\nConnection: close\r\n\r\n" + body;
}

inline double median(std::vector<double>& values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
