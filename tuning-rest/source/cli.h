#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// What the board's command interface says about itself.
class Cli : public Engine
{
public:
    /// Both hand over the whole answer.
    Cli& controlListGet(Json::Value& jResponse);
    Cli& versionGet(Json::Value& jResponse);

    using Abstract::versionGet;
};
} // namespace rest
