#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// White balance by hand: gains and the colour correction matrix.
class Wb : public Engine
{
public:
    struct Config
    {
        struct CcMatrix
        {
            float Coeff[9]; ///< row by row: red, green, blue
        };

        struct CcOffset
        {
            int16_t Red;
            int16_t Green;
            int16_t Blue;
        };

        struct WbGains
        {
            float Red;
            float GreenR;
            float GreenB;
            float Blue;
        };

        CcMatrix ccMatrix;
        CcOffset ccOffset;
        uint8_t padding[2];
        WbGains wbGains;
    };

    Wb& configGet(Config& config);
    Wb& configSet(const Config& config);
};

RECORD_SIZE(Wb::Config, 60);
RECORD_FIELD(Wb::Config, ccMatrix.Coeff, 0);
RECORD_FIELD(Wb::Config, ccOffset.Red, 36);
RECORD_FIELD(Wb::Config, ccOffset.Green, 38);
RECORD_FIELD(Wb::Config, ccOffset.Blue, 40);
RECORD_FIELD(Wb::Config, wbGains.Red, 44);
RECORD_FIELD(Wb::Config, wbGains.GreenR, 48);
RECORD_FIELD(Wb::Config, wbGains.GreenB, 52);
RECORD_FIELD(Wb::Config, wbGains.Blue, 56);
} // namespace rest
