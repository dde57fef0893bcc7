#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Digital gain.
class Dg : public Engine
{
public:
    struct Config
    {
        double gain;
    };

    Dg& configGet(Config& config);
    Dg& configSet(const Config& config);
    Dg& enableGet(bool& isEnable);
    Dg& enableSet(bool isEnable);
};

RECORD_SIZE(Dg::Config, 8);
RECORD_FIELD(Dg::Config, gain, 0);
} // namespace rest
