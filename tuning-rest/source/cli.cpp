#include "tuning-rest/source/cli.h"

namespace rest
{
Cli& Cli::controlListGet(Json::Value& jResponse)
{
    request(COMMAND(20001).query(), jResponse, TimeoutDefault);
    return *this;
}

Cli& Cli::versionGet(Json::Value& jResponse)
{
    request(COMMAND(20002).query(), jResponse, TimeoutDefault);
    return *this;
}
} // namespace rest
