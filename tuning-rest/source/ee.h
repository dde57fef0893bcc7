#pragma once

#include "tuning-rest/source/engine.h"
#include "tuning-rest/source/exposure-status.h"

namespace rest
{
/// Settings of edge enhancement, as the board's driver has them.
struct CamEngineEeConfig_s
{
    enum InputDataFormatSelect : uint32_t
    {
        OPTRIX_ISP_EE_INPUT_DATA_FORMAT_SELECT_INVALID = 0,
        OPTRIX_ISP_EE_INPUT_DATA_FORMAT_SELECT_RGB = 1
    };

    Flag enabled;
    uint8_t strength;
    uint16_t yUpGain;
    uint16_t yDownGain;
    uint16_t uvGain;
    uint16_t edgeGain;
    uint8_t srcStrength;
    uint8_t padding;
    InputDataFormatSelect inputDataFormatSelect;
};

using CamEngineEeConfig_t = CamEngineEeConfig_s;

RECORD_SIZE(CamEngineEeConfig_s, 16);
RECORD_FIELD(CamEngineEeConfig_s, enabled, 0);
RECORD_FIELD(CamEngineEeConfig_s, strength, 1);
RECORD_FIELD(CamEngineEeConfig_s, yUpGain, 2);
RECORD_FIELD(CamEngineEeConfig_s, yDownGain, 4);
RECORD_FIELD(CamEngineEeConfig_s, uvGain, 6);
RECORD_FIELD(CamEngineEeConfig_s, edgeGain, 8);
RECORD_FIELD(CamEngineEeConfig_s, srcStrength, 10);
RECORD_FIELD(CamEngineEeConfig_s, inputDataFormatSelect, 12);

/// Edge enhancement.
class Ee : public Engine
{
public:
    struct Config
    {
        bool isAuto = true;
        CamEngineEeConfig_t config = recordZero<CamEngineEeConfig_t>();
    };

    using Status = ExposureStatus;

    Ee& configGet(Config& config);
    Ee& configSet(const Config& config);
    Ee& enableGet(bool& isEnable);
    Ee& enableSet(bool isEnable);
    Ee& reset();
    Ee& statusGet(Status& status);
    Ee& tableGet(Json::Value& jTable);
    Ee& tableSet(const Json::Value& jTable);
};
} // namespace rest
