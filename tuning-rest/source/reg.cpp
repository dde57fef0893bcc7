#include "tuning-rest/source/reg.h"

namespace rest
{
Reg& Reg::configGet(uint32_t address, uint32_t& value)
{
    return read(*this, COMMAND(4002701).with("address", address), "value", value);
}

Reg& Reg::configSet(uint32_t address, uint32_t value)
{
    return send(*this, COMMAND(4002702).with("address", address).with("value", value));
}

Reg& Reg::statusGet(Json::Value& jModuleList)
{
    Json::Value jResponse;
    request(COMMAND(4002703).query(), jResponse, TimeoutDefault);
    jModuleList = answerListGet(jResponse, "name");
    return *this;
}

// The same number as the list of the modules: `module.id` alone tells them apart.
Reg& Reg::statusGet(int moduleId, Json::Value& jRegisters)
{
    Json::Value jResponse;
    request(COMMAND(4002703).with("module.id", moduleId).query(), jResponse, TimeoutDefault);
    jRegisters = answerListGet(jResponse, "registers");
    return *this;
}
} // namespace rest
