#pragma once

#include "tuning-common/source/version.h"
#include "tuning-rest/source/answer.h"
#include "tuning-rest/source/command.h"

#include <cstdint>
#include <functional>

namespace t_transfer
{
class ClientHolder;
}

namespace rest
{
/// Time limits of an exchange, in seconds.
enum Timeout
{
    TimeoutDefault = 2,
    TimeoutLong = 10,   ///< loading a calibration or a sensor driver
    TimeoutCapture = 30 ///< taking a picture
};

/// Base of all command classes: the envelope, the exchange, and the one place that tells success from failure. A
/// command object has no state worth keeping; callers make one for each use. Every method throws std::logic_error with
/// the text to show when the exchange or the board fails, as t_common::NoAnswer where the exchange ended without an
/// answer, and t_common::LogicError code 6 for a record of the wrong size.
class Abstract : public t_common::Version
{
public:
    /// Installs the way to the board, for all command objects. The holder stays its owner's.
    static void clientHolderSet(t_transfer::ClientHolder& clientHolder);

    /// The number of the holder that stands now; each `clientHolderSet` counts up. 0 when there is none.
    static std::uint64_t connection();

    /// Forgets `clientHolder` if it is the installed one: its owner is about to delete it.
    static void clientHolderForget(const t_transfer::ClientHolder& clientHolder);

    void versionGet(std::string& name, std::string& number, std::string& time) override;

protected:
    /// The holder that was installed last; throws std::logic_error when there is none.
    t_transfer::ClientHolder& clientHolder();

    /// Sends `jQuery`, waits for the answer and judges it. `timeout` in seconds. What it throws is a std::logic_error,
    /// t_common::NoAnswer when no answer came.
    Abstract& request(const Json::Value& jQuery, Json::Value& jResponse, int timeout);

    /// The same with the answer going to `fComplete`, on a worker thread, while this call waits. A failure that the
    /// board reports does not throw: `fComplete` finds `error` and `message` in the answer.
    Abstract& request(const Json::Value& jQuery, const std::function<void(const Json::Value&)>& fComplete, int timeout);

    /// Throws std::logic_error when `jResponse` tells of a failure.
    Abstract& responseHandler(const Json::Value& jQuery, Json::Value& jResponse);

    /// A command without arguments and results.
    template <class Service>
    static Service& send(Service& service, const Command& command, int timeout = TimeoutDefault)
    {
        Json::Value jResponse;
        service.request(command.query(), jResponse, timeout);
        return service;
    }

    /// A command whose answer carries `value` under `key`.
    template <class Service, class T>
    static Service& read(Service& service, const Command& command, const char* key, T& value)
    {
        Json::Value jResponse;
        service.request(command.query(), jResponse, TimeoutDefault);
        answerGet(jResponse, key, value);
        return service;
    }

    /// A command that carries `value` under `key`.
    template <class Service, class T>
    static Service& write(Service& service, Command command, const char* key, const T& value)
    {
        return send(service, command.with(key, value));
    }

    /// A command whose answer carries the fields of `value` under keys of their own. `keys(value, field)` calls `field`
    /// with the key and the reference of each. After a failure `value` is as it was.
    template <class Service, class Keys, class T>
    static Service& readKeys(Service& service, const Command& command, const Keys& keys, T& value)
    {
        Json::Value jResponse;
        service.request(command.query(), jResponse, TimeoutDefault);
        auto fresh = value;
        keys(fresh, [&](const char* key, auto& field) { answerGet(jResponse, key, field); });
        value = fresh;
        return service;
    }

    /// A command that carries the fields of `value` in the same way.
    template <class Service, class Keys, class T>
    static Service& writeKeys(Service& service, Command command, const Keys& keys, const T& value)
    {
        keys(value, [&](const char* key, const auto& field) { command.with(key, field); });
        return send(service, command);
    }
};
} // namespace rest
