#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Dynamic contrast improvement.
class Dci : public Engine
{
public:
    struct Config
    {
        enum Mode : uint32_t
        {
            Mode2Sections = 0,
            Mode3Sections = 1,
            ModeHistogram = 2,
            ModeSum = 3
        };

        struct Exponent
        {
            float high;
            float low;
            float middle;
        };

        struct Histogram
        {
            float scale;
            float step;
            float base;
            float strength;
            float damp;
        };

        struct Point
        {
            uint16_t x;
            uint16_t y;
        };

        Mode mode;
        Exponent exponent;
        Histogram histogram;
        Flag isAuto;
        uint8_t padding;
        Point start;
        Point inflection;
        Point inflection2;
        Point end;
        uint8_t padding2[2];
    };

    Dci& configGet(Config& config);
    Dci& configSet(const Config& config);
    Dci& enableGet(bool& isEnable);
    Dci& enableSet(bool isEnable);
    Dci& tableGet(Json::Value& jTable);
    Dci& tableSet(const Json::Value& jTable);
};

RECORD_SIZE(Dci::Config, 56);
RECORD_FIELD(Dci::Config, mode, 0);
RECORD_FIELD(Dci::Config, exponent.high, 4);
RECORD_FIELD(Dci::Config, exponent.low, 8);
RECORD_FIELD(Dci::Config, exponent.middle, 12);
RECORD_FIELD(Dci::Config, histogram.scale, 16);
RECORD_FIELD(Dci::Config, histogram.step, 20);
RECORD_FIELD(Dci::Config, histogram.base, 24);
RECORD_FIELD(Dci::Config, histogram.strength, 28);
RECORD_FIELD(Dci::Config, histogram.damp, 32);
RECORD_FIELD(Dci::Config, isAuto, 36);
RECORD_FIELD(Dci::Config, start.x, 38);
RECORD_FIELD(Dci::Config, start.y, 40);
RECORD_FIELD(Dci::Config, inflection.x, 42);
RECORD_FIELD(Dci::Config, inflection.y, 44);
RECORD_FIELD(Dci::Config, inflection2.x, 46);
RECORD_FIELD(Dci::Config, inflection2.y, 48);
RECORD_FIELD(Dci::Config, end.x, 50);
RECORD_FIELD(Dci::Config, end.y, 52);
} // namespace rest
