#pragma once

#include "board-simulator/source/base64.h"
#include "board-simulator/source/json-text.h"
#include "board-simulator/source/simulator.h"
#include "board-simulator/source/wire.h"
#include "tests/support/outcome.h"
#include "tests/support/scratch.h"

#include <boost/asio/connect.hpp>
#include <boost/asio/io_context.hpp>
#include <boost/asio/ip/tcp.hpp>
#include <boost/asio/write.hpp>
#include <json/json.h>
#include <sys/socket.h>

/// A connection that sends and receives bytes as they are.
class RawConnection
{
public:
    explicit RawConnection(uint16_t port)
    {
        socket.connect({boost::asio::ip::address_v4::loopback(), port}, error);
        const timeval limit{10, 0};
        setsockopt(socket.native_handle(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
    }

    void send(const std::string& bytes) { boost::asio::write(socket, boost::asio::buffer(bytes), error); }

    /// All bytes up to the end of the connection; `error` tells how it ended.
    std::string receive()
    {
        std::string bytes;
        char buffer[65536];
        while (true)
        {
            // Not through Asio, which waits on for ever where the time limit of the socket strikes.
            const ssize_t count = recv(socket.native_handle(), buffer, sizeof buffer, 0);
            if (count <= 0)
            {
                error = count == 0 ? boost::asio::error::eof
                                   : boost::system::error_code(errno, boost::system::system_category());
                return bytes;
            }
            bytes.append(buffer, static_cast<size_t>(count));
        }
    }

    boost::system::error_code error;

private:
    boost::asio::io_context io;
    boost::asio::ip::tcp::socket socket{io};
};

/// A simulated board that serves the directory "files".
class BoardTest : public ScratchTest
{
protected:
    static int64_t idOf(const std::string& className, const std::string& command)
    {
        return board::Wire::instance().commandClass(className).id(command);
    }

    static Json::Value parse(const std::string& text) { return board::JsonText().parse(text); }

    /// A command with the members of `arguments`.
    static Json::Value query(const std::string& className, const std::string& command, int generation = -1,
                             const std::string& arguments = "{}")
    {
        Json::Value jQuery = parse(arguments);
        jQuery["function"] = "rest::" + className + "::" + command;
        jQuery["id"] = static_cast<Json::Int64>(idOf(className, command));
        if (generation >= 0)
            jQuery["generation"] = generation;
        return jQuery;
    }

    Json::Value run(const std::string& className, const std::string& command, int generation = -1,
                    const std::string& arguments = "{}")
    {
        return simulator->execute(query(className, command, generation, arguments));
    }

    static std::string post(const std::string& body, const std::string& target = "/")
    {
        return "POST " + target + " HTTP/1.1\r\nContent-Length: " + std::to_string(body.size()) +
               "\r\nHost: board\r\n\r\n" + body;
    }

    static std::string post(const Json::Value& jQuery) { return post(board::JsonText().write(jQuery)); }

    std::string exchange(const std::string& request)
    {
        RawConnection connection(simulator->port());
        connection.send(request);
        return connection.receive();
    }

    std::string download(const std::string& target) { return exchange("GET " + target + " HTTP/1.1\r\n\r\n"); }

    static std::string bodyOf(const std::string& response)
    {
        const size_t end = response.find("\r\n\r\n");
        return end == std::string::npos ? "" : response.substr(end + 4);
    }

    std::unique_ptr<board::Simulator> simulator =
        std::make_unique<board::Simulator>(board::Options{0, "files", false, false});
};
