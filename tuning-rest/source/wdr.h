#pragma once

#include "tuning-rest/source/engine.h"
#include "tuning-rest/source/exposure-status.h"

namespace rest
{
/// A tone mapping curve, as the board's driver has it.
struct CamEngineWdrCurve_s
{
    uint16_t Ym[33]; ///< output value of each point, 0 to 4095
    uint8_t dY[33];  ///< the distance to the previous point is 2 to the power of this + 3
    uint8_t padding;
};

using CamEngineWdrCurve_t = CamEngineWdrCurve_s;

RECORD_SIZE(CamEngineWdrCurve_s, 100);
RECORD_FIELD(CamEngineWdrCurve_s, Ym, 0);
RECORD_FIELD(CamEngineWdrCurve_s, dY, 66);

/// Wide dynamic range.
class Wdr : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        V2 = 1,
        V3 = 2,
        V4 = 3,
        V5 = 4,
        VMax = 5
    };

    /// Settings. As a record the 100 bytes travel in `V1` and, when sent, in `V3`; otherwise each field has a key.
    union Config
    {
        struct V1
        {
            CamEngineWdrCurve_t curve;
        };

        struct V2
        {
            float strength;
        };

        struct V3
        {
            Flag isAuto;
            uint8_t padding[3];
            int32_t autoLevel;
            int32_t gainMax;
            int32_t strength;
            int32_t strengthGlobal;
        };

        struct V4
        {
            Flag isAuto;
            uint8_t padding[3];
            int32_t autoLevel;
            int32_t contrast;
            int32_t flatStrength;
            int32_t flatThreshold;
            int32_t strength;
            int32_t strengthHigh;
            int32_t strengthLow;
            int32_t strengthGlobal;
        };

        struct V5
        {
            Flag isAuto;
            uint8_t padding[3];
            int32_t autoLevel;
            Flag isFlat;
            Flag isGlobalCureve; ///< the name is the system's own
            uint8_t strength;
            uint8_t highStrength;
            uint16_t lowStrength;
            int16_t contrast;
            uint8_t flatLevel;
            uint8_t padding2;
            uint16_t entropySlope;
            uint16_t entropyBase;
            uint8_t flatLevelGlobal;
            uint8_t padding3;
            uint16_t fixedWeight;
            uint16_t maxGain;
            uint16_t minGain;
            uint8_t padding4[2];
            float degamma;
            float diffHigh;
            float diffLow;
            float logWeight;
            float satRange;
            float satThrGainUp;
            float satThrGainDown;
        };

        V1 v1;
        V2 v2;
        V3 v3;
        V4 v4;
        V5 v5;
    };

    using Status = ExposureStatus;

    Wdr& configGet(Config& config, Generation generation);
    Wdr& configSet(const Config& config, Generation generation);
    Wdr& enableGet(bool& isEnable, Generation generation);
    Wdr& enableSet(bool isEnable, Generation generation);
    Wdr& reset(Generation generation);
    Wdr& statusGet(Status& status, Generation generation);
    Wdr& tableGet(Json::Value& jTable, Generation generation);
    Wdr& tableSet(const Json::Value& jTable, Generation generation);
};

RECORD_SIZE(Wdr::Config, 100);
RECORD_FIELD(Wdr::Config, v1.curve.Ym, 0);
RECORD_FIELD(Wdr::Config, v1.curve.dY, 66);
RECORD_FIELD(Wdr::Config, v3.isAuto, 0);
RECORD_FIELD(Wdr::Config, v3.autoLevel, 4);
RECORD_FIELD(Wdr::Config, v3.gainMax, 8);
RECORD_FIELD(Wdr::Config, v3.strength, 12);
RECORD_FIELD(Wdr::Config, v3.strengthGlobal, 16);
} // namespace rest
