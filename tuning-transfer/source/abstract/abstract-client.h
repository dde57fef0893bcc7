#pragma once

#include "tuning-transfer/source/patience.h"

#include <json/json.h>

#include <cstdint>
#include <functional>
#include <string>

namespace t_transfer::abstract
{
/// Where the traffic is written to for the user to read: standard output until a sink is set.
struct Report
{
    Report& operator<<(const std::string& text);
    Report& operator<<(char c);

    std::function<void(const std::string&)> fReport;
};

class Object
{
public:
    explicit Object(const Json::Value& jConfig_) : jConfig(jConfig_) {}
    virtual ~Object() = default;

    Object& reportSet(std::function<void(const std::string&)> fReport);

    Report report;
    Json::Value jConfig;
};

/// A way to the board. What a transport does not override says so on standard output and returns.
class Client : public Object
{
public:
    using Object::Object;

    virtual Client& configGet(Json::Value& jConfig);
    virtual Client& configSet(const Json::Value& jConfig);
    /// Where there are no files this returns as well, and `failure` tells so.
    virtual Client& fileDownload(const Json::Value& jQuery, const Patience& patience = {});
    virtual Client& fileUpload(const Json::Value& jQuery, const Patience& patience = {});
    virtual Client& info();

    /// Sends a command and waits for its answer, `timeout` seconds at most. Throws `t_common::NoAnswer` when none came.
    virtual Client& request(const Json::Value& jQuery, Json::Value& jResponse, std::int32_t timeout);

    /// Hands the answer to `fComplete`, perhaps on another thread, but before it returns. Without an answer there is
    /// no call, and `failure` tells why.
    virtual Client& request(const Json::Value& jQuery, const std::function<void(Json::Value)>& fComplete,
                            std::int32_t timeout);

    virtual Client& textRead(std::string& text);
    virtual Client& textWrite(const std::string& text);

    /// Why the last request with a callback brought no answer, or the last file transfer was none on this transport.
    std::string failure;
};
} // namespace t_transfer::abstract
