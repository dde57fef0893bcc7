#include "tuning-rest/source/abstract.h"

#include "tuning-common/source/no-answer.h"
#include "tuning-common/source/text.h"
#include "tuning-transfer/source/transfer-client.h"

#include <iostream>
#include <stdexcept>

namespace rest
{
namespace
{
t_transfer::ClientHolder* pClientHolder = nullptr;
std::uint64_t holders = 0;
} // namespace

void Abstract::clientHolderSet(t_transfer::ClientHolder& clientHolder)
{
    pClientHolder = &clientHolder;
    ++holders;
}

std::uint64_t Abstract::connection() { return pClientHolder ? holders : 0; }

void Abstract::clientHolderForget(const t_transfer::ClientHolder& clientHolder)
{
    if (pClientHolder == &clientHolder)
        pClientHolder = nullptr;
}

void Abstract::versionGet(std::string& name, std::string& number, std::string& time)
{
    name = "REST";
    number = "4.3.0";
    time = "2022-11-16 09:18:29";
}

t_transfer::ClientHolder& Abstract::clientHolder()
{
    if (!pClientHolder)
        throw std::logic_error("Transfer is never initialized");
    return *pClientHolder;
}

Abstract& Abstract::request(const Json::Value& jQuery, Json::Value& jResponse, int timeout)
{
    try
    {
        clientHolder().request(jQuery, jResponse, timeout);
        responseHandler(jQuery, jResponse);
    }
    catch (const t_common::NoAnswer&)
    {
        throw;
    }
    catch (const std::exception& exception)
    {
        throw std::logic_error(exception.what());
    }
    return *this;
}

Abstract& Abstract::request(const Json::Value& jQuery, const std::function<void(const Json::Value&)>& fComplete,
                            int timeout)
{
    // The references stay valid: the transport returns only when the exchange has ended.
    const auto judged = [&jQuery, &fComplete, this](Json::Value jResponse)
    {
        try
        {
            responseHandler(jQuery, jResponse);
        }
        catch (const std::exception& exception)
        {
            // The board's own words: they must not steer a terminal.
            std::cerr << t_common::printable(exception.what()) + '\n';
        }
        fComplete(jResponse);
    };
    try
    {
        clientHolder().request(jQuery, judged, timeout);
    }
    catch (const std::exception& exception)
    {
        throw std::logic_error(exception.what());
    }
    return *this;
}

Abstract& Abstract::responseHandler(const Json::Value& jQuery, Json::Value& jResponse)
{
    const auto message = answerGet<std::string>(jResponse, "message");
    if (message == "REST SIMULATE ON")
    {
        jResponse["error"] = 0;
        return *this;
    }
    if (answerGet<int32_t>(jResponse, "error") == 0)
        return *this;
    if (!message.empty())
        throw std::logic_error("Server: " + message);
    throw std::logic_error("REST: " + jQuery["function"].asString() + "() failed");
}
} // namespace rest
