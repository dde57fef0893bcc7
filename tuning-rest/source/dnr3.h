#pragma once

#include "tuning-rest/source/engine.h"
#include "tuning-rest/source/exposure-status.h"

namespace rest
{
/// Three-dimensional, temporal noise reduction.
class Dnr3 : public Engine
{
public:
    enum Generation
    {
        V1 = 0,
        V3 = 1,
        V3_2 = 2,
        VMax = 3
    };

    /// Settings. All 64 bytes travel in every generation.
    union Config
    {
        struct Abstract
        {
            Flag isAuto;
            uint8_t padding[7];
            double autoLevel;
        };

        struct V1 : Abstract
        {
            int32_t deltaFactor;
            int32_t motionFactor;
            int32_t strength;
            uint8_t padding2[4];
        };

        struct V3
        {
            struct Tnr : Abstract
            {
                Flag isEnable;
                uint8_t padding2;
                uint16_t filterLength;
                uint8_t filterLength2;
                uint8_t motionSlope;
                uint16_t noiseLevel;
                uint8_t sadWeight;
                uint8_t padding3[7];
            };

            Flag isEnableNoiseCurve;
            uint8_t padding[7];
            Tnr tnr;
        };

        struct V3_2
        {
            struct Tnr : Abstract
            {
                Flag tnrEn;
                Flag motionDilateEn;
                Flag motionErodeEn;
                Flag pregammaEn;
                uint32_t filterLen;
                uint32_t filterLen2;
                uint16_t thrMotionSlope;
                uint16_t noiseLevel;
                uint8_t sadWeight;
                uint8_t padding2[3];
                uint32_t noiselevelA;
                uint32_t noiselevelB;
                uint16_t strength;
                uint8_t rangeH;
                uint8_t rangeV;
                uint8_t dilateH;
                uint8_t preweight;
                Flag lumaCompEn;
                uint8_t lumaPixelSlop;
                uint8_t lumaPixelSlopShift;
                uint8_t lumaPixelSlopMin;
                uint8_t lumaPixelValShift;
                uint8_t padding3;
            };

            Flag enable;
            uint8_t padding[7];
            Tnr tnr;
        };

        V1 v1;
        V3 v3;
        V3_2 v3_2;
    };

    using Status = ExposureStatus;

    Dnr3& configGet(Config& config, Generation generation);
    Dnr3& configSet(const Config& config, Generation generation);
    Dnr3& enableGet(bool& isEnable, Generation generation);
    Dnr3& enableSet(bool isEnable, Generation generation);
    Dnr3& reset(Generation generation);
    Dnr3& statusGet(Status& status, Generation generation);
    Dnr3& tableGet(Json::Value& jTable, Generation generation);
    Dnr3& tableSet(const Json::Value& jTable, Generation generation);
};

RECORD_SIZE(Dnr3::Config::V1, 32);
RECORD_SIZE(Dnr3::Config::V3, 40);
RECORD_SIZE(Dnr3::Config, 64);
RECORD_FIELD(Dnr3::Config, v1.isAuto, 0);
RECORD_FIELD(Dnr3::Config, v1.autoLevel, 8);
RECORD_FIELD(Dnr3::Config, v1.deltaFactor, 16);
RECORD_FIELD(Dnr3::Config, v1.motionFactor, 20);
RECORD_FIELD(Dnr3::Config, v1.strength, 24);
RECORD_FIELD(Dnr3::Config, v3.isEnableNoiseCurve, 0);
RECORD_FIELD(Dnr3::Config, v3.tnr.isAuto, 8);
RECORD_FIELD(Dnr3::Config, v3.tnr.autoLevel, 16);
RECORD_FIELD(Dnr3::Config, v3.tnr.isEnable, 24);
RECORD_FIELD(Dnr3::Config, v3.tnr.filterLength, 26);
RECORD_FIELD(Dnr3::Config, v3.tnr.filterLength2, 28);
RECORD_FIELD(Dnr3::Config, v3.tnr.motionSlope, 29);
RECORD_FIELD(Dnr3::Config, v3.tnr.noiseLevel, 30);
RECORD_FIELD(Dnr3::Config, v3.tnr.sadWeight, 32);
RECORD_FIELD(Dnr3::Config, v3_2.enable, 0);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.isAuto, 8);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.autoLevel, 16);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.tnrEn, 24);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.motionDilateEn, 25);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.motionErodeEn, 26);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.pregammaEn, 27);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.filterLen, 28);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.filterLen2, 32);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.thrMotionSlope, 36);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.noiseLevel, 38);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.sadWeight, 40);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.noiselevelA, 44);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.noiselevelB, 48);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.strength, 52);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.rangeH, 54);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.rangeV, 55);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.dilateH, 56);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.preweight, 57);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.lumaCompEn, 58);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.lumaPixelSlop, 59);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.lumaPixelSlopShift, 60);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.lumaPixelSlopMin, 61);
RECORD_FIELD(Dnr3::Config, v3_2.tnr.lumaPixelValShift, 62);
} // namespace rest
