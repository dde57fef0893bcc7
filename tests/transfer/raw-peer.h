#pragma once

#include <json/value.h>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

/// The board's end of one connection, byte by byte.
class RawConnection
{
public:
    RawConnection(int handle_, const std::atomic<bool>& isStopped_) : handle(handle_), isStopped(isStopped_) {}

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
    std::size_t drain(std::size_t size)
    {
        std::size_t total = 0;
        for (std::string piece; total < size && more(piece); piece.clear())
            total += piece.size();
        return total;
    }

    /// False when the client is gone.
    bool send(const std::string& text)
    {
        for (std::size_t i = 0; i < text.size();)
        {
            const auto count = ::send(handle, text.data() + i, text.size() - i, MSG_NOSIGNAL);
            if (count <= 0)
                return false;
            i += static_cast<std::size_t>(count);
        }
        return true;
    }

    /// Sends a byte at a time until all are sent or the client is gone.
    void drip(const std::string& text, std::chrono::milliseconds pause)
    {
        for (std::size_t i = 0; i < text.size() && !isStopped && send(text.substr(i, 1)); ++i)
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

private:
    bool more(std::string& text)
    {
        pollfd entry{handle, POLLIN, 0};
        while (!isStopped)
        {
            if (::poll(&entry, 1, 10) > 0)
            {
                char buffer[65536];
                const auto count = ::recv(handle, buffer, sizeof buffer, 0);
                text.append(buffer, count > 0 ? static_cast<std::size_t>(count) : 0);
                return count > 0;
            }
        }
        return false;
    }

    int handle;
    const std::atomic<bool>& isStopped;
};

/// A board that handles each connection with one script, on 127.0.0.1 and a port of its own.
class RawPeer
{
public:
    using Script = std::function<void(RawConnection&)>;

    explicit RawPeer(Script fScript) : listener(::socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        if (::bind(listener, reinterpret_cast<sockaddr*>(&address), size) != 0 || ::listen(listener, 16) != 0 ||
            ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) != 0)
            throw std::runtime_error("no socket for the test");
        port = ntohs(address.sin_port);
        worker = std::thread(
            [this, fScript = std::move(fScript)]
            {
                while (!isStopped)
                {
                    pollfd entry{listener, POLLIN, 0};
                    if (::poll(&entry, 1, 10) > 0)
                    {
                        const int handle = ::accept(listener, nullptr, nullptr);
                        RawConnection connection(handle, isStopped);
                        fScript(connection);
                        ::close(handle);
                    }
                }
            });
    }

    /// A board that keeps each request and gives the same answer to all.
    static Script answering(const std::string& answer, std::string* pRequest = nullptr)
    {
        return [=](RawConnection& connection)
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
        isStopped = true;
        worker.join();
        ::close(listener);
    }

    unsigned short port = 0;

private:
    int listener;
    std::atomic<bool> isStopped{false};
    std::thread worker;
};
