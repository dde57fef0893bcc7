#pragma once

#include "tuning-rest/source/engine.h"

namespace rest
{
/// Auto white balance.
class Awb : public Engine
{
public:
    struct Config
    {
        int32_t illuminationProfileIndex; ///< into `profilesName`
        Flag isAuto;
        Flag isDamping;
        uint8_t padding[2];
        int32_t profilesCount; ///< as the board tells it; take it through `recordCount`
        char profilesName[10][20];
    };

    struct Status
    {
        double indoorMin;
        double max;
        double maxSky;
        double outdoorMin;
    };

    Awb& configGet(Config& settings);
    Awb& configSet(const Config& settings);
    Awb& enableGet(bool& isEnable);
    Awb& enableSet(bool isEnable);
    Awb& reset();
    Awb& statusGet(Status& status);

    Config config = recordZero<Config>(); ///< the caller's; no command uses it
};

RECORD_SIZE(Awb::Config, 212);
RECORD_FIELD(Awb::Config, illuminationProfileIndex, 0);
RECORD_FIELD(Awb::Config, isAuto, 4);
RECORD_FIELD(Awb::Config, isDamping, 5);
RECORD_FIELD(Awb::Config, profilesCount, 8);
RECORD_FIELD(Awb::Config, profilesName, 12);

RECORD_SIZE(Awb::Status, 32);
RECORD_FIELD(Awb::Status, indoorMin, 0);
RECORD_FIELD(Awb::Status, max, 8);
RECORD_FIELD(Awb::Status, maxSky, 16);
RECORD_FIELD(Awb::Status, outdoorMin, 24);
} // namespace rest
