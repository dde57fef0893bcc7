#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Defect pixel cluster correction.
class Dpcc : public Engine
{
public:
    struct Config
    {
        uint32_t index_set;
    };

    Dpcc& configGet(Config& config);
    Dpcc& configSet(const Config& config);
    Dpcc& enableGet(bool& isEnable);
    Dpcc& enableSet(bool isEnable);
};

RECORD_SIZE(Dpcc::Config, 4);
RECORD_FIELD(Dpcc::Config, index_set, 0);
} // namespace rest
