#include "tuning-rest/source/avs.h"

#include <stdexcept>

namespace rest
{
namespace
{
constexpr auto parameterKeys = [](auto& config, const auto& field)
{
    field("use.params", config.isUseParams);
    field("acceleration", config.acceleration);
    field("gain.base", config.baseGain);
    field("fall.off", config.fallOff);
    field("num.itp.points", config.numItpPoints);
    field("theta", config.theta);
};

constexpr auto configKeys = [](auto& config, const auto& field)
{
    parameterKeys(config, field);
    field("count", config.dampCount);
    field("x", config.x);
    field("y", config.y);
};

Avs::Status::Pair pairGet(const Json::Value& jResponse, const char* key)
{
    const auto jPair = answerGet<Json::Value>(jResponse, key);
    if (!jPair.isNull() && !jPair.isObject())
        throw std::logic_error("Error in the answer: \"" + std::string(key) + "\" is not a pair");
    return {answerGet<short>(jPair, "x"), answerGet<short>(jPair, "y")};
}
} // namespace

Avs& Avs::configGet(Config& config) { return readKeys(*this, COMMAND(4000401), configKeys, config); }

Avs& Avs::configSet(const Config& config) { return writeKeys(*this, COMMAND(4000402), parameterKeys, config); }

Avs& Avs::enableGet(bool& isEnable) { return read(*this, COMMAND(4000403), "enable", isEnable); }

Avs& Avs::enableSet(bool isEnable) { return write(*this, COMMAND(4000404), "enable", isEnable); }

Avs& Avs::statusGet(Status& status)
{
    Json::Value jResponse;
    request(COMMAND(4000405).query(), jResponse, TimeoutDefault);
    status = {pairGet(jResponse, "displacement"), pairGet(jResponse, "offset")};
    return *this;
}
} // namespace rest
