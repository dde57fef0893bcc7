#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Green equilibrate.
class Ge : public Engine
{
public:
    struct Config
    {
        int32_t strength;
    };

    Ge& configGet(Config& settings);
    Ge& configSet(const Config& settings);
    Ge& enableGet(bool& isEnable);
    Ge& enableSet(bool isEnable);

    Config config = recordZero<Config>(); ///< the caller's; no command uses it
};

RECORD_SIZE(Ge::Config, 4);
RECORD_FIELD(Ge::Config, strength, 0);
} // namespace rest
