#include "tuning-tool/source/board-address.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/limits.h"
#include "tuning-tool/source/failure.h"
#include "tuning-tool/source/local-file.h"
#include "tuning-transfer/source/http/url.h"

#include <QDir>

namespace tool
{
namespace
{
constexpr auto portStandard = "8080";

Json::Value serialAddress(const std::string& port)
{
    Json::Value jAddress;
    jAddress["type"] = "uart";
    jAddress["port"] = port;
    return jAddress;
}

Json::Value httpAddress(const std::string& host, const std::string& port)
{
    try
    {
        t_transfer::http::Url(host, port, "/");
    }
    catch (const std::exception& exception)
    {
        throw Failure(Usage, exception.what());
    }
    Json::Value jAddress;
    jAddress["type"] = "http";
    jAddress["ip"] = host;
    jAddress["port"] = port;
    return jAddress;
}

/// HOST, HOST:PORT, [HOST]:PORT, and a numeric address with several colons.
Json::Value httpAddress(const std::string& text)
{
    const auto colon = text.rfind(':');
    const auto bracket = text.rfind(']');
    const bool isBare = colon != std::string::npos && text.find(':') != colon && bracket == std::string::npos;
    const bool hasPort = colon != std::string::npos && !isBare && (bracket == std::string::npos || bracket < colon);
    return hasPort ? httpAddress(text.substr(0, colon), text.substr(colon + 1)) : httpAddress(text, portStandard);
}

Json::Value storedAddress()
{
    const auto path = (QDir::homePath() + "/.tuning-client/preferences.json").toStdString();
    try
    {
        const auto jServer = t_common::JsonApp::fromString(fileRead(path, t_common::limit::configFile))["server"];
        if (jServer["type"].asString() == "uart")
            return serialAddress(jServer["port"].asString());
        const auto& jHost = jServer["hosts"][jServer["index"].asUInt()];
        return httpAddress(jHost["ip"].asString(), jHost["port"].asString());
    }
    catch (const std::exception&)
    {
        throw Failure(Usage, "No board: give --board HOST:PORT or --port DEVICE; " + path + " names none");
    }
}
} // namespace

Json::Value boardAddress(const Options& options)
{
    if (!options.board.empty() && !options.port.empty())
        throw Failure(Usage, "--board and --port are two ways to a board, give one of them");
    if (!options.port.empty())
        return serialAddress(options.port);
    return options.board.empty() ? storedAddress() : httpAddress(options.board);
}
} // namespace tool
