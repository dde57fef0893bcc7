#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Denoising prefilter.
class Dpf : public Engine
{
public:
    struct Config
    {
        bool isAdaptive = false;
        float divisionFactor = 0;
        float gradient = 0;
        float minimumBound = 0;
        float offset = 0;
        uint8_t sigmaGreen = 0;
        uint8_t sigmaRedBlue = 0;
    };

    Dpf& configGet(Config& config);
    Dpf& configSet(const Config& config);
    Dpf& enableGet(bool& isEnable);
    Dpf& enableSet(bool isEnable);
};
} // namespace rest
