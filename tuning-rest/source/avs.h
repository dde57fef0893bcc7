#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Auto video stabilisation.
class Avs : public Engine
{
public:
    struct Config
    {
        bool isUseParams = false;
        float acceleration = 0;
        float baseGain = 0;
        float fallOff = 0;
        uint16_t numItpPoints = 0;
        float theta = 0;
        int32_t dampCount = 0; ///< points in `x` and `y` as the board tells it; take it through `recordCount`
        double x[50] = {};     ///< the damping function; only the board writes it
        double y[50] = {};
    };

    struct Status
    {
        struct Pair
        {
            short x = 0;
            short y = 0;
        };

        Pair displacement;
        Pair offset;
    };

    Avs& configGet(Config& config);

    /// Sends the parameters, not the damping function.
    Avs& configSet(const Config& config);

    Avs& enableGet(bool& isEnable);
    Avs& enableSet(bool isEnable);
    Avs& statusGet(Status& status);
};
} // namespace rest
