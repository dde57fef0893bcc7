#pragma once

#include "tuning-transfer/source/abstract/abstract-client.h"
#include "tuning-transfer/source/uart/driver/driver.h"

namespace t_transfer::uart
{
/// Commands over a serial line, as bare JSON text in both directions. The port is opened here and held until the end,
/// so one that can't be had shows at once.
class Client : public abstract::Client
{
public:
    /// Takes the key `port`, the name of the port. Throws `t_common::LogicError` when it can't be opened.
    explicit Client(Json::Value& jConfig);

    using abstract::Client::request;

    /// What one read has brought is the answer: a read ends with a pause of the line, with its time or with its buffer.
    /// Waits for ten seconds whatever `timeout` says. Throws `t_common::NoAnswer` when nothing came,
    /// `std::runtime_error` for an answer that is no JSON object, and `t_common::LogicError` when the port fails.
    Client& request(const Json::Value& jQuery, Json::Value& jResponse, std::int32_t timeout) override;

private:
    std::unique_ptr<UartHolder> pUartHolder;
};
} // namespace t_transfer::uart
