#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Colour adjustment.
class Ca : public Engine
{
public:
    struct Config
    {
        enum Curve : uint32_t
        {
            S = 0,
            Parabolic = 1
        };

        enum Mode : uint32_t
        {
            Brightness = 0,
            Saturation = 1,
            BrightnessSaturation = 2
        };

        Curve curve;
        Mode mode;
        int32_t curveSInflection;
        int32_t curveSExponent;
        double curveParabolicFactor;
        Flag isAuto;
        uint8_t padding[7];
    };

    Ca& configGet(Config& config);
    Ca& configSet(const Config& config);
    Ca& enableGet(bool& isEnable);
    Ca& enableSet(bool isEnable);
    Ca& tableGet(Json::Value& jTable);
    Ca& tableSet(const Json::Value& jTable);
};

RECORD_SIZE(Ca::Config, 32);
RECORD_FIELD(Ca::Config, curve, 0);
RECORD_FIELD(Ca::Config, mode, 4);
RECORD_FIELD(Ca::Config, curveSInflection, 8);
RECORD_FIELD(Ca::Config, curveSExponent, 12);
RECORD_FIELD(Ca::Config, curveParabolicFactor, 16);
RECORD_FIELD(Ca::Config, isAuto, 24);
} // namespace rest
