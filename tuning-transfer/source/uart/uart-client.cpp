#include "tuning-transfer/source/uart/uart-client.h"

#include "tuning-common/source/json-app.h"
#include "tuning-common/source/no-answer.h"
#include "tuning-transfer/source/abstract/answer.h"

namespace t_transfer::uart
{
namespace
{
constexpr int readsMaximum = 20;
}

Client::Client(Json::Value& jConfig_)
    : abstract::Client(jConfig_), pUartHolder(std::make_unique<UartHolder>(jConfig["port"].asString()))
{
}

Client& Client::request(const Json::Value& jQuery, Json::Value& jResponse, std::int32_t)
{
    pUartHolder->textWrite(t_common::JsonApp::toString(jQuery, ""));
    std::string response;
    for (int i = 0; i < readsMaximum && response.empty(); ++i)
        pUartHolder->textRead(response);
    try
    {
        jResponse = abstract::answerGet(response);
    }
    catch (const std::exception& exception)
    {
        if (response.empty())
            throw t_common::NoAnswer(exception.what());
        throw;
    }
    return *this;
}
} // namespace t_transfer::uart
