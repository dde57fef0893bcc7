#pragma once

#include "board-simulator/source/simulator.h"
#include "board-wire/source/base64.h"
#include "board-wire/source/json-text.h"
#include "board-wire/source/wire.h"
#include "tests/support/outcome.h"
#include "tests/support/raw-connection.h"
#include "tests/support/scratch.h"

#include <json/json.h>

/// A client's end of a connection to the board.
class ClientConnection : public RawConnection
{
public:
    explicit ClientConnection(uint16_t port) : RawConnection(::socket(AF_INET, SOCK_STREAM, 0))
    {
        const auto address = loopback(port);
        error = ::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 ? 0 : errno;
    }
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
        ClientConnection connection(simulator->port());
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
