#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Black level subtraction.
class Bls : public Engine
{
public:
    struct Config
    {
        uint16_t red = 0;
        uint16_t greenB = 0;
        uint16_t greenR = 0;
        uint16_t blue = 0;
    };

    Bls& configGet(Config& config);
    Bls& configSet(const Config& config);
};
} // namespace rest
