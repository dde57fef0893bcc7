#pragma once

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <string>

inline sockaddr_in loopback(uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/// One end of a TCP connection, which sends and receives bytes as they are. Nothing takes longer than ten seconds.
class RawConnection
{
public:
    explicit RawConnection(int handle_) : handle(handle_)
    {
        const timeval limit{10, 0};
        ::setsockopt(handle, SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    }
    ~RawConnection() { ::close(handle); }
    RawConnection(const RawConnection&) = delete;
    RawConnection& operator=(const RawConnection&) = delete;

    /// False when the other end is gone.
    bool send(const std::string& text)
    {
        for (size_t i = 0; i < text.size();)
        {
            const auto count = ::send(handle, text.data() + i, text.size() - i, MSG_NOSIGNAL);
            if (count <= 0)
                return false;
            i += static_cast<size_t>(count);
        }
        return true;
    }

    /// Takes what comes next; false at the end of the connection, of which `error` tells.
    bool more(std::string& text)
    {
        char buffer[65536];
        const auto count = ::recv(handle, buffer, sizeof buffer, 0);
        text.append(buffer, count > 0 ? static_cast<size_t>(count) : 0);
        error = count < 0 ? errno : 0;
        return count > 0;
    }

    /// All bytes up to the end of the connection.
    std::string receive()
    {
        std::string text;
        while (more(text))
        {
        }
        return text;
    }

    int error = 0; ///< `errno`, 0 for an orderly end

protected:
    int handle;
};
