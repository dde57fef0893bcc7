#pragma once

#include "tuning-transfer/source/abstract/abstract-client.h"

#include <memory>

namespace t_transfer
{
/// The one way to the board: owns the transport, reports what goes through it, and passes every operation on. What a
/// transport throws passes unchanged.
class ClientHolder
{
public:
    enum Type
    {
        Http = 0,
        Usb = 1, ///< no transport exists for it: every operation throws
        Uart = 2,
        Sum = 3
    };

    /// Makes the transport, which takes its address from `jConfig`. A type that is none throws a `std::string`.
    ClientHolder(Type type, std::function<void(const std::string&)> fReport, Json::Value& jConfig);

    /// Throws `std::logic_error` where there is no transport.
    abstract::Client& abstract();

    ClientHolder& configGet(Json::Value& jConfig);
    ClientHolder& configSet(const Json::Value& jConfig);

    /// Stores the board's file `path` in the directory `path.local`.
    ClientHolder& fileDownload(Json::Value& jQuery, const Patience& patience = {});

    /// Sends the local file `path`.
    ClientHolder& fileUpload(const Json::Value& jQuery);

    ClientHolder& info();

    /// Sends a command and waits for its answer, `timeout` seconds at most.
    ClientHolder& request(const Json::Value& jQuery, Json::Value& jResponse, std::int32_t timeout);

    /// Hands the answer to `fComplete`, perhaps on another thread, but before it returns. Without an answer there is
    /// no call.
    ClientHolder& request(const Json::Value& jQuery, const std::function<void(Json::Value)>& fComplete,
                          std::int32_t timeout);

    ClientHolder& textRead(std::string& text);
    ClientHolder& textWrite(const std::string& text);

private:
    void report(const char* pPrefix, const Json::Value& value);
    void report(const char* pPrefix, const std::string& text);

    std::unique_ptr<abstract::Client> pAbstract;
};
} // namespace t_transfer
