#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Colour noise reduction.
class Cnr : public Engine
{
public:
    /// Thresholds of the two colour channels.
    struct Config
    {
        uint32_t tc1 = 0;
        uint32_t tc2 = 0;
    };

    Cnr& configGet(Config& config);
    Cnr& configSet(const Config& config);
    Cnr& enableGet(bool& isEnable);
    Cnr& enableSet(bool isEnable);
};
} // namespace rest
